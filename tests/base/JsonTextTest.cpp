#include "base/JsonText.h"

#include <gtest/gtest.h>

#include <cmath>

namespace quillon {
namespace {

std::string nested(size_t depth, std::string_view innermost) {
    return std::string(depth, '[') + std::string(innermost) + std::string(depth, ']');
}

/// "line 2, column 3: expected a value, found 'x'", or nothing for a text that is JSON.
std::string failureOf(std::string text) {
    const auto parsed = JsonText::parse(std::move(text));
    if (parsed) {
        return "";
    }
    const JsonFailure& failure = parsed.error();
    return std::to_string(failure.line) + ":" + std::to_string(failure.column) + " expected " +
           failure.expected + ", found " + failure.found;
}

/// The number, text or flag of a text that holds just that, for comparison.
JsonText parsed(std::string text) {
    auto result = JsonText::parse(std::move(text));
    EXPECT_TRUE(result) << result.error().expected;
    return std::move(*result);
}

TEST(JsonText, numbersAreTheNearestFloats) {
    struct Case {
        std::string text;
        double number;
        std::optional<int64_t> whole;
    };
    constexpr auto none = std::nullopt;
    const Case cases[] = {
        {"3", 3, 3},
        {"3.0", 3, 3},
        {"3e0", 3, 3},
        {"-12.0", -12, -12},
        {"1.5", 1.5, none},
        {"-0", -0.0, 0},
        {"-0.0", -0.0, 0},
        {"0", 0, 0},
        {"9223372036854775807", 9223372036854775807.0, INT64_MAX},
        {"-9223372036854775808", -0x1p63, INT64_MIN},
        {"9223372036854775808", 0x1p63, none},
        {"9223372036854775808.0", 0x1p63, none},
        {"18446744073709551615", 0x1p64, none},
        {"18446744073709551616", 0x1p64, none},
        {"12345678901234567890", 12345678901234567890.0, none},
        {"-12345678901234567890123", -12345678901234567890123.0, none},
        {"1" + std::string(300, '0'), 1e300, none},
        {"1e308", 1e308, none},
        {"5e-324", 5e-324, none},
        {"1e-400", 0, 0},
        {"0e999999999999", 0, 0},
        {"0.1", 0.1, none},
    };
    for (const Case& expected : cases) {
        SCOPED_TRACE(expected.text);
        // In a list, and beside a number that makes the whole text be read with care.
        for (const std::string_view other : {"1", "-0", "123456789012345678901234567890"}) {
            const JsonText json = parsed("[\"-0,\\\"-0\", " + std::string(other) + "," + expected.text + "]");
            JsonElement last;
            for (JsonElements elements(json.root()); elements.next();) {
                last = elements.value();
            }
            ASSERT_EQ(last.kind(), JsonKind::number);
            EXPECT_EQ(last.number(), expected.number);
            EXPECT_EQ(std::signbit(*last.number()), std::signbit(expected.number));
            EXPECT_EQ(last.whole(), expected.whole);
        }
        EXPECT_EQ(parsed(expected.text).root().number(), expected.number);
    }
}

TEST(JsonText, textsAreUnescaped) {
    struct Case {
        std::string_view text;
        std::string_view value;
    };
    using namespace std::string_view_literals;
    const Case cases[] = {
        {R"("")", ""},
        {R"("\"\\\/\b\f\n\r\t")", "\"\\/\b\f\n\r\t"},
        {R"("a\u0000b")", "a\0b"sv},
        {R"("\u00e9\u4E2d\uD83D\uDE00")", "é中😀"},
        {R"("\uDBFF\uDFFF")", "\xF4\x8F\xBF\xBF"},
        {R"("\uE000\uD7FF")", "\xEE\x80\x80\xED\x9F\xBF"},
        {"\"\xEF\xBF\xBE é\x7F\"", "\xEF\xBF\xBE é\x7F"},
    };
    for (const Case& expected : cases) {
        SCOPED_TRACE(expected.text);
        EXPECT_EQ(parsed(std::string(expected.text)).root().text(), expected.value);
        // A key goes the same way.
        const JsonText object = parsed("{" + std::string(expected.text) + ":true}");
        JsonMembers members(object.root());
        ASSERT_TRUE(members.next());
        EXPECT_EQ(members.key(), expected.value);
    }
}

TEST(JsonText, kindsAndWalks) {
    const JsonText json = parsed("\xEF\xBB\xBF {\"b\": [null, true, {}, []],\r\n\t\"a\": \"x\", \"b\": 2} ");
    ASSERT_EQ(json.root().kind(), JsonKind::object);
    EXPECT_EQ(json.root().text(), std::nullopt);
    EXPECT_EQ(json.root().number(), std::nullopt);
    EXPECT_EQ(json.root().boolean(), std::nullopt);
    std::string keys;
    std::vector<JsonKind> kinds;
    for (JsonMembers members(json.root()); members.next();) {
        keys += members.key();
        kinds.push_back(members.value().kind());
        for (JsonElements elements(members.value()); elements.next();) {
            kinds.push_back(elements.value().kind());
            EXPECT_FALSE(JsonMembers(elements.value()).next());
            EXPECT_FALSE(JsonElements(elements.value()).next());
        }
    }
    EXPECT_EQ(keys, "bab");
    EXPECT_EQ(kinds, (std::vector{JsonKind::list, JsonKind::null, JsonKind::boolean, JsonKind::object,
                                  JsonKind::list, JsonKind::text, JsonKind::number}));
}

TEST(JsonText, nestingHasABound) {
    const std::string message = "1:513 expected at most 512 levels of nesting, found one more";
    EXPECT_EQ(failureOf(nested(512, "1")), "");
    EXPECT_EQ(failureOf(nested(512, "{}")), "");
    EXPECT_EQ(failureOf(nested(513, "")), "");
    EXPECT_EQ(failureOf(nested(513, "1")), message);
    EXPECT_EQ(failureOf(nested(512, "{\"a\":{}}")), message);
    EXPECT_EQ(failureOf(nested(513, "1") + "x"), message);
    EXPECT_EQ(failureOf(nested(100'000, "")), message);
    EXPECT_EQ(failureOf(std::string(100'000, '[')), message);
}

TEST(JsonText, failuresSayWhereAndWhat) {
    struct Case {
        std::string text;
        std::string_view failure;
    };
    const std::string end = "the end of the text";
    const Case cases[] = {
        {"", "1:1 expected a value, found the end of the text"},
        {" \n ", "2:2 expected a value, found the end of the text"},
        {"\xEF\xBB\xBF", "1:1 expected a value, found the end of the text"},
        {"\xEF\xBB\xBF[x]", "1:2 expected a value, found 'x'"},
        {"{\"é\": x}", "1:7 expected a value, found 'x'"},
        {"{\n  \"a\": 1,\n}", "3:1 expected a key in double quotes, found '}'"},
        {"{\r\n  a: 1}", "2:3 expected a key in double quotes, found 'a'"},
        {"{\"a\" 1}", "1:6 expected ':', found '1'"},
        {"{\"a\": 1 \"b\": 2}", "1:9 expected ',' or '}', found '\"'"},
        {"[1 2]", "1:4 expected ',' or ']', found '2'"},
        {"[1,]", "1:4 expected a value, found ']'"},
        {"[1}", "1:3 expected ',' or ']', found '}'"},
        {"[1", "1:3 expected ',' or ']', found the end of the text"},
        {"{", "1:2 expected a key in double quotes, found the end of the text"},
        {"{\"a", "1:4 expected '\"' at the end of a text, found the end of the text"},
        {"{\"a\":", "1:6 expected a value, found the end of the text"},
        {"[] []", "1:4 expected the end of the text, found '['"},
        {"nul", "1:1 expected a value, found 'n'"},
        {"[truefalse]", "1:6 expected ',' or ']', found 'f'"},
        {"NaN", "1:1 expected a value, found 'N'"},
        {"'a'", "1:1 expected a value, found '''"},
        {"[+1]", "1:2 expected a value, found '+'"},
        {"[01]", "1:3 expected ',' or ']', found '1'"},
        {"[-]", "1:3 expected a digit, found ']'"},
        {"[1.]", "1:4 expected a digit, found ']'"},
        {"[.5]", "1:2 expected a value, found '.'"},
        {"[1e+]", "1:5 expected a digit, found ']'"},
        {"[1, 1e400]", "1:5 expected a number within the range of 64-bit floats, found 1e400"},
        {"[-1e400]", "1:2 expected a number within the range of 64-bit floats, found -1e400"},
        {"1" + std::string(400, '0'), "1:1 expected a number within the range of 64-bit floats, found "
                                      "1000000000000000000000000000000000000000"},
        {"\"a\nb\"",
         "1:3 expected an escape such as \\n in place of a control character, found a character that does "
         "not belong here"},
        {std::string("\"a\0b\"", 5),
         "1:3 expected an escape such as \\n in place of a control character, found a character that does "
         "not belong here"},
        {R"("\x")", "1:3 expected a character that may follow a backslash, found 'x'"},
        {R"("\u12G4")", "1:4 expected four hexadecimal digits, found '1'"},
        {R"("\u-123")", "1:4 expected four hexadecimal digits, found '-'"},
        {R"("\u12")", "1:4 expected four hexadecimal digits, found '1'"},
        {R"("a\uD800")", "1:3 expected both halves of a surrogate pair, found the first half alone"},
        {R"("\uD800\n")", "1:2 expected both halves of a surrogate pair, found the first half alone"},
        {R"("\uD83D\u0041")", "1:2 expected both halves of a surrogate pair, found the first half alone"},
        {R"("\uD83D\uD83D")", "1:2 expected both halves of a surrogate pair, found the first half alone"},
        {R"("\uD83D\uE000")", "1:2 expected both halves of a surrogate pair, found the first half alone"},
        {R"("\uDE00")", "1:2 expected the first half of a surrogate pair, found the second half alone"},
        {R"({"\uDFFF":1})", "1:3 expected the first half of a surrogate pair, found the second half alone"},
        {"\"a\xFF\"", "1:3 expected UTF-8 text, found a byte that is none"},
        {"\"\xC0\xAF\"", "1:2 expected UTF-8 text, found a byte that is none"},
        {"\"\xED\xA0\x80\"", "1:2 expected UTF-8 text, found a byte that is none"},
        {"\"\xF4\x90\x80\x80\"", "1:2 expected UTF-8 text, found a byte that is none"},
        {"\"é\xE4\xB8\"", "1:3 expected UTF-8 text, found a byte that is none"},
        {"[1]\xFF", "1:4 expected the end of the text, found a character that does not belong here"},
        {std::string("[1]\0", 4),
         "1:4 expected the end of the text, found a character that does not belong here"},
        // The numbers that need care are no excuse for the rest of the text.
        {"[-0, 123456789012345678901234567890, \"\\uDE00\"]",
         "1:39 expected the first half of a surrogate pair, found the second half alone"},
        {"[-0, 12345678901234567890123a]", "1:29 expected ',' or ']', found 'a'"},
    };
    for (const Case& expected : cases) {
        SCOPED_TRACE(expected.text);
        EXPECT_EQ(failureOf(expected.text), expected.failure);
    }
}

} // namespace
} // namespace quillon
