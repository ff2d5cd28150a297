#include "base/DiskFailure.h"

#include <cerrno>

namespace quillon {

namespace {

struct ErrorText {
    int number;
    std::string_view text;
};

constexpr ErrorText errorTexts[] = {
    {EACCES, "permission denied"},
    {EBADF, "not open"},
    {EBUSY, "in use by another program"},
    {EDQUOT, "disk quota exceeded"},
    {EEXIST, "already exists"},
    {EFBIG, "file too large"},
    {EILSEQ, "name is not valid UTF-8"},
    {EINVAL, "not possible here"},
    {EIO, "input/output error"},
    {EISDIR, "is a folder"},
    {ELOOP, "symbolic link where none may be"},
    {EMFILE, "too many open files"},
    {ENAMETOOLONG, "name too long"},
    {ENFILE, "too many open files in the system"},
    {ENODEV, "no such device"},
    {ENOENT, "no such file or folder"},
    {ENOMEM, "not enough memory"},
    {ENOSPC, "no space left on device"},
    {ENOTDIR, "not a folder"},
    {ENOTEMPTY, "folder not empty"},
    {EPIPE, "the reader has gone away"},
    {EPERM, "operation not permitted"},
    {EROFS, "read-only file system"},
    {ESTALE, "moved or replaced by another program"},
    {EXDEV, "on another file system"},
};

} // namespace

std::string systemErrorText(int errorNumber) {
    for (const ErrorText& entry : errorTexts) {
        if (entry.number == errorNumber) {
            return std::string(entry.text);
        }
    }
    return "system error " + std::to_string(errorNumber);
}

DiskFailure diskFailure(std::string_view path, int errorNumber) {
    return diskFailure(path, errorNumber, systemErrorText(errorNumber));
}

DiskFailure diskFailure(std::string_view path, int errorNumber, std::string_view cause) {
    return {std::string(path), errorNumber, std::string(path) + ": " + std::string(cause)};
}

} // namespace quillon
