#pragma once

#include <optional>
#include <string>

namespace quillon::bench {

/// How far the peak memory of a fresh process rises by reading the file at `path` and opening the article in
/// it, in bytes. The process is this program once more, told so by its arguments.
double peakOfOpening(const std::string& path);

/// Does the other side of peakOfOpening when the arguments say so, and gives the exit status.
std::optional<int> runAsMemoryProbe(int argc, char** argv);

} // namespace quillon::bench
