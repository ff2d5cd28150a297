#include "cli/Output.h"

#include "base/DiskFailure.h"
#include "base/Regex.h"
#include "base/UnicodeText.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillon::cli {

namespace {

namespace fs = std::filesystem;

/// Writes all of `text` to an open file; gives the error's number, 0 for success.
int writeAll(int file, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(file, text.data(), text.size());
        if (written < 0 && errno != EINTR) {
            return errno;
        }
        text.remove_prefix(written < 0 ? 0 : static_cast<size_t>(written));
    }
    return 0;
}

Result<void> succeededUnless(int errorNumber, const std::string& name) {
    if (errorNumber != 0) {
        return failed(name + ": " + systemErrorText(errorNumber));
    }
    return {};
}

/// Writes to what cannot be replaced: a device, a pipe.
Result<void> writeInto(std::string_view text, const std::string& path) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
    if (file < 0) {
        return succeededUnless(errno, path);
    }
    const int error = writeAll(file, text);
    ::close(file);
    return succeededUnless(error, path);
}

Result<void> replaceFile(std::string_view text, const std::string& path) {
    const std::string fresh = path + ".quillon-" + std::to_string(::getpid());
    const int file = ::open(fresh.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (file < 0) {
        return succeededUnless(errno, path);
    }
    int error = writeAll(file, text);
    struct ::stat old {};
    if (error == 0 && ::stat(path.c_str(), &old) == 0 && ::fchmod(file, old.st_mode & 0777) != 0) {
        error = errno;
    }
    if (error == 0 && ::fsync(file) != 0 && errno != EINVAL) {
        error = errno;
    }
    if (::close(file) != 0 && error == 0) {
        error = errno;
    }
    if (error == 0 && ::rename(fresh.c_str(), path.c_str()) != 0) {
        error = errno;
    }
    if (error != 0) {
        ::unlink(fresh.c_str());
    }
    return succeededUnless(error, path);
}

} // namespace

Result<void> writeOutput(std::string_view text, const std::string& path) {
    if (path.empty()) {
        return succeededUnless(writeAll(STDOUT_FILENO, text), "standard output");
    }
    std::error_code ignored;
    const fs::file_status status = fs::status(path, ignored);
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        return writeInto(text, path);
    }
    return replaceFile(text, fs::exists(status) ? fs::canonical(path, ignored).string() : path);
}

std::string onOneLine(std::string text) {
    if (!isValidUtf8(text)) { // a file name can be any bytes
        std::replace_if(
            text.begin(), text.end(),
            [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, ' ');
        return text;
    }
    // Control characters of both ranges, the line and paragraph separators, and what turns the direction of
    // text.
    static const Regex unprintable(R"([\x{00}-\x{1F}\x{7F}-\x{9F}\x{2028}-\x{202E}\x{2066}-\x{2069}])");
    return unprintable.replaceAllLiterally(text, " ");
}

} // namespace quillon::cli
