#include "render/CssNumbers.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillon::HTMLRenderer {
namespace {

TEST(CssNumbers, gridNumbersHaveTwoDecimalsOrNone) {
    struct Case {
        double value;
        const char* text;
    };
    constexpr Case cases[] = {
        {0, "0"},
        {-0.0, "0"},
        {12.004, "12"},
        {12.006, "12.01"},
        {33.3333, "33.33"},
        {-33.3333, "-33.33"},
        {-0.004, "0"},
        {-0.006, "-0.01"},
        {2.5, "2.50"},
        {0.125, "0.12"},
        {0.375, "0.38"},
        {12.9951, "13"},
        {12.994, "12.99"},
        {0.1, "0.10"},
        {1e18, "1000000000000000000"},
        {-7, "-7"},
        {std::numeric_limits<double>::infinity(), "0"},
        {std::numeric_limits<double>::quiet_NaN(), "0"},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.text);
        EXPECT_EQ(formatGridNumber(test.value), test.text);
    }
}

} // namespace
} // namespace quillon::HTMLRenderer
