#include "base/Numbers.h"

#include <bit>
#include <cmath>
#include <limits>

#include <rapidcheck/gtest.h>

namespace quillon {
namespace {

TEST(NumbersTests, numberText) {
    struct Case {
        double value;
        const char* text;
    };
    for (const Case& c : {Case{0, "0"}, Case{-0.0, "-0"}, Case{3, "3"}, Case{-12, "-12"}, Case{0.05, "0.05"},
                          Case{-1.5, "-1.5"}, Case{100000, "100000"}, Case{1e20, "100000000000000000000"},
                          Case{-1e20, "-100000000000000000000"}, Case{9007199254740993.0, "9007199254740992"},
                          Case{9223372036854775808.0, "9223372036854775808"},
                          Case{123456789012345678901.0, "123456789012345683968"},
                          Case{std::nextafter(1e21, 0), "999999999999999868928"}, Case{1e21, "1e+21"},
                          Case{-1e300, "-1e+300"}, Case{5e-324, "5e-324"},
                          Case{1.7976931348623157e308, "1.7976931348623157e+308"},
                          Case{std::numeric_limits<double>::infinity(), "inf"}}) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(numberText(c.value), c.text);
    }
    EXPECT_NE(numberText(std::nan("")).find("nan"), std::string::npos);
    std::string out = "x";
    appendInteger(out, std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(out, "x-9223372036854775808");
}

RC_GTEST_PROP(NumbersTests, textReadsBackAsTheSameBits, (std::uint64_t bits)) {
    const double value = std::bit_cast<double>(bits);
    RC_PRE(std::isfinite(value));
    const auto back = parseDouble(numberText(value));
    RC_ASSERT(back.has_value());
    RC_ASSERT(std::bit_cast<std::uint64_t>(*back) == bits);
}

TEST(NumbersTests, parseDouble) {
    struct Case {
        std::string text;
        std::optional<double> value;
    };
    const std::string manyZeros(400, '0');
    for (const Case& c : std::vector<Case>{{"0", 0.0},
                                           {"-7", -7.0},
                                           {"1.5", 1.5},
                                           {".5", 0.5},
                                           {"5.", 5.0},
                                           {"1e3", 1000.0},
                                           {"1E+3", 1000.0},
                                           {"25e-1", 2.5},
                                           {"007", 7.0},
                                           {"1e-400", 0.0},
                                           {"0." + manyZeros + "1", 0.0},
                                           {"1" + manyZeros + "e-800", 0.0},
                                           {"1" + manyZeros + "e-400", 1.0},
                                           {"0.0e99999999999999999999", 0.0},
                                           {"1e400", {}},
                                           {"-1e400", {}},
                                           {"1" + manyZeros, {}},
                                           {"0." + manyZeros + "1e800", {}},
                                           {"", {}},
                                           {"-", {}},
                                           {".", {}},
                                           {"+1", {}},
                                           {"--1", {}},
                                           {"1e", {}},
                                           {"1.2.3", {}},
                                           {" 1", {}},
                                           {"1 ", {}},
                                           {"1px", {}},
                                           {"1,5", {}},
                                           {"0x10", {}},
                                           {"inf", {}},
                                           {"-infinity", {}},
                                           {"nan", {}},
                                           {std::string("1\0", 2), {}}}) {
        SCOPED_TRACE(c.text.substr(0, 40));
        EXPECT_EQ(parseDouble(c.text), c.value);
    }
    EXPECT_TRUE(std::signbit(parseDouble("-1e-400").value()));
}

} // namespace
} // namespace quillon
