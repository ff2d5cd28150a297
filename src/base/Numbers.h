#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillon {

/// The finite number that the whole of `text` writes: an optional '-', digits with an optional point among or
/// around them, an optional exponent. Nothing for anything else: blanks, a leading '+', hexadecimal digits,
/// "inf", "nan" and numbers too large for a double. A number too small for a double reads as zero.
std::optional<double> parseDouble(std::string_view text);

/// Appends `value` in decimal digits.
void appendInteger(std::string& out, std::int64_t value);

/// Appends `value` as the product writes numbers: a whole number below 1e21 in magnitude as all its digits
/// without point or exponent ("3", "-0", "100000000000000000000"), any other in the shortest form that reads
/// back as the same double ("0.05", "1e+21"). Values that are not finite come out as "inf", "-inf" and "nan".
void appendShortest(std::string& out, double value);

/// The text that `appendShortest` appends.
std::string numberText(double value);

/// The value of a hexadecimal digit in either case; -1 for any other character.
constexpr int hexadecimalValue(char digit) {
    if (digit >= '0' && digit <= '9') {
        return digit - '0';
    }
    if (digit >= 'a' && digit <= 'f') {
        return digit - 'a' + 10;
    }
    return digit >= 'A' && digit <= 'F' ? digit - 'A' + 10 : -1;
}

} // namespace quillon
