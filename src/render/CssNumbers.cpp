#include "render/CssNumbers.h"

#include "base/Numbers.h"

#include <array>
#include <charconv>
#include <cmath>

namespace quillon::HTMLRenderer {

void formatNumber(std::string& out, double value) {
    // A minus zero is no value of its own in CSS.
    appendShortest(out, std::isfinite(value) && value != 0 ? value : 0.0);
}

std::string formatNumber(double value) {
    std::string out;
    formatNumber(out, value);
    return out;
}

void formatGridNumber(std::string& out, double value) {
    const double nearest = std::round(value);
    if (!std::isfinite(value) || std::abs(value - nearest) < 0.005) {
        formatNumber(out, nearest);
        return;
    }
    // A value with a fraction is below 2^53: 16 digits, a sign, a point and two decimals fit.
    std::array<char, 32> digits;
    const auto [end, error] =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed, 2);
    out.append(digits.data(), end);
}

std::string formatGridNumber(double value) {
    std::string out;
    formatGridNumber(out, value);
    return out;
}

} // namespace quillon::HTMLRenderer
