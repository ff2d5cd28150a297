#include "render/CssNumbers.h"

#include "base/Numbers.h"

#include <array>
#include <charconv>
#include <cmath>

namespace quillon::HTMLRenderer {

void formatNumber(std::string& out, double value) {
    // A minus zero is no value of its own in CSS.
    const double shown = std::isfinite(value) && value != 0 ? value : 0.0;
    if (std::trunc(shown) == shown) {
        appendShortest(out, shown);
        return;
    }
    // Table cells and map addresses show these digits too: no exponent. The smallest float has 324 decimals
    // and 17 digits.
    std::array<char, 352> digits;
    const auto written =
        std::to_chars(digits.data(), digits.data() + digits.size(), shown, std::chars_format::fixed);
    out.append(digits.data(), written.ptr);
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
