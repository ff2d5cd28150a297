#include "base/Base64.h"

#include <array>
#include <cstdint>

namespace quillon {

namespace {

constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr uint8_t noDigit = 0xFF;

constexpr std::array<uint8_t, 256> digitValues = [] {
    std::array<uint8_t, 256> values{};
    values.fill(noDigit);
    for (size_t digit = 0; digit < alphabet.size(); ++digit) {
        values[static_cast<unsigned char>(alphabet[digit])] = static_cast<uint8_t>(digit);
    }
    return values;
}();

} // namespace

std::optional<std::string> base64Decoded(std::string_view text) {
    if (text.size() % 4 != 0) {
        return std::nullopt;
    }
    for (int padding = 0; padding < 2 && text.ends_with('='); ++padding) {
        text.remove_suffix(1);
    }
    std::string bytes;
    bytes.reserve(text.size() / 4 * 3 + 2);
    uint32_t bits = 0;
    int bitCount = 0;
    for (const char character : text) {
        const uint8_t digit = digitValues[static_cast<unsigned char>(character)];
        if (digit == noDigit) {
            return std::nullopt;
        }
        bits = bits << 6 | digit;
        bitCount += 6;
        if (bitCount >= 8) {
            bitCount -= 8;
            bytes += static_cast<char>(bits >> bitCount & 0xFF);
        }
    }
    return bytes;
}

} // namespace quillon
