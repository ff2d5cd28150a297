#include "base/Time.h"

#include <limits>

#include <rapidcheck/gtest.h>

namespace quillon {
namespace {

TEST(TimeTests, writesUtc) {
    struct Case {
        std::int64_t seconds;
        const char* text;
    };
    for (const Case& c :
         {Case{0, "1970-01-01T00:00:00Z"}, Case{-1, "1969-12-31T23:59:59Z"},
          Case{1'795'388'470, "2026-11-22T23:01:10Z"}, Case{951'782'400, "2000-02-29T00:00:00Z"},
          Case{4'107'542'400, "2100-03-01T00:00:00Z"},
          Case{std::numeric_limits<std::int64_t>::min(), "0000-01-01T00:00:00Z"},
          Case{std::numeric_limits<std::int64_t>::max(), "9999-12-31T23:59:59Z"}}) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(iso8601(c.seconds), c.text);
    }
    EXPECT_GT(wallClockSeconds(), 1.7e9);
    EXPECT_NEAR(parseIso8601(iso8601Now()).value(), wallClockSeconds(), 5);
}

RC_GTEST_PROP(TimeTests, readsWhatItWrites, ()) {
    const auto seconds = *rc::gen::inRange<std::int64_t>(-62'167'219'200, 253'402'300'800);
    RC_ASSERT(parseIso8601(iso8601(seconds)) == static_cast<double>(seconds));
}

TEST(TimeTests, reads) {
    using enum FractionalSeconds;
    struct Case {
        const char* text;
        FractionalSeconds fraction;
        std::optional<double> seconds;
    };
    for (const Case& c : std::vector<Case>{{"1970-01-01T00:00:00Z", forbidden, 0},
                                           {"1970-01-01T02:30:00+02:30", forbidden, 0},
                                           {"1969-12-31T16:00:00-08:00", forbidden, 0},
                                           {"2024-02-29T12:00:00Z", forbidden, 1'709'208'000},
                                           {"1970-01-01T00:00:01.25Z", required, 1.25},
                                           {"1970-01-01T00:00:01.25Z", allowed, 1.25},
                                           {"1970-01-01T00:00:01Z", allowed, 1},
                                           {"1970-01-01T01:00:01.5+01:00", required, 1.5},
                                           {"1970-01-01T00:00:01.25Z", forbidden, {}},
                                           {"1970-01-01T00:00:01Z", required, {}},
                                           {"1970-01-01T00:00:01.Z", allowed, {}},
                                           {"2023-02-29T12:00:00Z", forbidden, {}},
                                           {"2024-13-01T12:00:00Z", forbidden, {}},
                                           {"2024-00-10T12:00:00Z", forbidden, {}},
                                           {"2024-01-32T12:00:00Z", forbidden, {}},
                                           {"2024-01-01T24:00:00Z", forbidden, {}},
                                           {"2024-01-01T12:60:00Z", forbidden, {}},
                                           {"2024-01-01T12:00:60Z", forbidden, {}},
                                           {"2024-01-01T12:00:00", forbidden, {}},
                                           {"2024-01-01T12:00:00+0100", forbidden, {}},
                                           {"2024-01-01T12:00:00+24:00", forbidden, {}},
                                           {"2024-01-01T12:00:00Z ", forbidden, {}},
                                           {" 2024-01-01T12:00:00Z", forbidden, {}},
                                           {"2024-01-01 12:00:00Z", forbidden, {}},
                                           {"2024-1-01T12:00:00Z", forbidden, {}},
                                           {"2024-01-01", forbidden, {}},
                                           {"-024-01-01T12:00:00Z", forbidden, {}},
                                           {"yesterday", forbidden, {}},
                                           {"", forbidden, {}}}) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(parseIso8601(c.text, c.fraction), c.seconds);
    }
}

} // namespace
} // namespace quillon
