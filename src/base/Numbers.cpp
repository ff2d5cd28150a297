#include "base/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace quillon {

namespace {

/// The longest shortest form of a double has 24 characters, a whole number below 1e21 with its sign 22.
constexpr std::size_t longestNumber = 32;
constexpr double plainDigitsBound = 1e21;
constexpr double exactIntegerBound = 9007199254740992.0; // 2^53: whole doubles below it convert without loss

bool consistsOfNumberCharacters(std::string_view text) {
    return std::ranges::all_of(text, [](char c) {
        return (c >= '0' && c <= '9') || c == '.' || c == '-' || c == '+' || c == 'e' || c == 'E';
    });
}

/// Whether a number that is known to lie outside the range of a double lies below it, not above: the power of
/// ten of its leading digit decides.
bool isTooSmall(std::string_view text) {
    const std::size_t exponentMark = std::min(text.find_first_of("eE"), text.size());
    const std::string_view mantissa = text.substr(0, exponentMark);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t leading = mantissa.find_first_of("123456789");
    if (leading == std::string_view::npos) {
        return true;
    }
    const double place = static_cast<double>(point) - static_cast<double>(leading);

    std::string_view exponent = text.substr(std::min(exponentMark + 1, text.size()));
    const bool isNegative = exponent.starts_with('-');
    if (isNegative || exponent.starts_with('+')) {
        exponent.remove_prefix(1);
    }
    double magnitude = 0;
    for (char digit : exponent) {
        magnitude = magnitude * 10 + (digit - '0');
    }
    return place + (isNegative ? -magnitude : magnitude) < 0;
}

} // namespace

std::optional<double> parseDouble(std::string_view text) {
    if (!consistsOfNumberCharacters(text)) { // keeps "inf" and "nan" out
        return std::nullopt;
    }
    double value = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, failure] = std::from_chars(text.data(), end, value);
    if (rest != end || failure == std::errc::invalid_argument) {
        return std::nullopt;
    }
    if (failure == std::errc::result_out_of_range) {
        if (!isTooSmall(text)) {
            return std::nullopt;
        }
        return text.starts_with('-') ? -0.0 : 0.0;
    }
    return value;
}

void appendInteger(std::string& out, std::int64_t value) {
    std::array<char, longestNumber> digits;
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    out.append(digits.data(), written.ptr);
}

void appendShortest(std::string& out, double value) {
    const double magnitude = std::abs(value);
    if (magnitude < exactIntegerBound && !(value == 0 && std::signbit(value))) {
        const auto whole = static_cast<std::int64_t>(value);
        if (static_cast<double>(whole) == value) {
            return appendInteger(out, whole);
        }
    }
    std::array<char, longestNumber> digits;
    char* const begin = digits.data();
    char* const end = begin + digits.size();
    const bool isWhole = magnitude < plainDigitsBound && std::trunc(value) == value;
    const auto written = isWhole ? std::to_chars(begin, end, value, std::chars_format::fixed, 0)
                                 : std::to_chars(begin, end, value);
    out.append(begin, written.ptr);
}

std::string numberText(double value) {
    std::string text;
    appendShortest(text, value);
    return text;
}

} // namespace quillon
