#include "model/ReadFailure.h"

#include <algorithm>

namespace quillon {

namespace {

constexpr size_t longestKey = 80; ///< bytes of a key in a message

bool isPlainKey(std::string_view key) {
    return !key.empty() && key.size() <= longestKey && std::all_of(key.begin(), key.end(), [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
               c == '-';
    });
}

/// `key` between quotes, with what would break the message's one line written as "?" and a long key cut.
std::string quoted(std::string_view key) {
    size_t size = std::min(key.size(), longestKey);
    while (size < key.size() && (static_cast<unsigned char>(key[size]) & 0xC0) == 0x80) {
        --size; // not within a character
    }
    std::string text = "[\"";
    for (const char c : key.substr(0, size)) {
        text += static_cast<unsigned char>(c) < 0x20 || c == 0x7F ? '?' : c;
    }
    return text + (size < key.size() ? "…" : "") + "\"]";
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
