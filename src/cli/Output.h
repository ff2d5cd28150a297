#pragma once

#include "cli/Failure.h"

#include <string>
#include <string_view>

namespace quillon::cli {

/// Writes `text` to the file at `path`, or to standard output when `path` is empty. A regular file is
/// replaced only once the whole text is on disk.
Result<void> writeOutput(std::string_view text, const std::string& path);

} // namespace quillon::cli
