#pragma once

#include <string>
#include <string_view>

namespace quillon {

/// Why something on disk could not be read or written.
struct DiskFailure {
    std::string path;    ///< the file or folder that it happened to
    int errorNumber = 0; ///< as of errno
    std::string message; ///< for people: path and cause, "PACKAGE/images/hero.jpg: no space left on device"
};

/// The failure of `path` with the cause that belongs to `errorNumber`.
DiskFailure diskFailure(std::string_view path, int errorNumber);

/// The failure of `path` with a cause in our own words.
DiskFailure diskFailure(std::string_view path, int errorNumber, std::string_view cause);

/// The cause in English, in lower case and without a final stop, whatever the locale of the process.
std::string systemErrorText(int errorNumber);

} // namespace quillon
