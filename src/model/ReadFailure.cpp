#include "model/ReadFailure.h"

#include <algorithm>

namespace quillon {

namespace {

bool isPlainKey(std::string_view key) {
    return !key.empty() && std::all_of(key.begin(), key.end(), [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
               c == '-';
    });
}

/// `key` between quotes, with what would break the message's one line written as "?".
std::string quoted(std::string_view key) {
    std::string text = "[\"";
    for (const char c : key.substr(0, 80)) {
        text += static_cast<unsigned char>(c) < 0x20 || c == 0x7F ? '?' : c;
    }
    return text + "\"]";
}

} // namespace

std::string ReadFailure::message() const {
    return (path.empty() ? path : path + ": ") + "expected " + expected + ", found " + found;
}

void ReadFailure::prependKey(std::string_view key) {
    const bool needsDot = !path.empty() && path.front() != '[';
    path.insert(0, (isPlainKey(key) ? std::string(key) : quoted(key)) + (needsDot ? "." : ""));
}

void ReadFailure::prependIndex(size_t index) {
    const bool needsDot = !path.empty() && path.front() != '[';
    path.insert(0, "[" + std::to_string(index) + "]" + (needsDot ? "." : ""));
}

} // namespace quillon
