#pragma once

#include <optional>
#include <string>

namespace quillon::bench {

/// What opening an article costs a process that has opened none before.
struct Opening {
    double seconds = 0;   ///< from the text in memory to the article
    double peakBytes = 0; ///< rise of the process's peak memory, the text of the file included
};

/// Opens the article in the file at `path` in a fresh process: this program once more, told so by its
/// arguments. Infinite costs when that fails.
Opening openInFreshProcess(const std::string& path);

/// Does the other side of openInFreshProcess when the arguments say so, and gives the exit status.
std::optional<int> runAsFreshProcess(int argc, char** argv);

} // namespace quillon::bench
