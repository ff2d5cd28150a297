#include "base/Regex.h"

#include <thread>

#include <rapidcheck/gtest.h>

namespace quillon {
namespace {

constexpr std::string_view textStyleName = R"re(data-anf-textstyle="([^"]+)")re";
constexpr std::string_view plainAnchor = R"re(<a\b(?![^>]*\bstyle=))re";
constexpr std::string_view videoNumber = R"re(/video/([0-9]+))re";
constexpr std::string_view bold = R"re(\*\*(.+?)\*\*)re";
constexpr std::string_view italic = R"re((?<!\*)\*(?!\*)(.+?)(?<!\*)\*(?!\*))re";
constexpr std::string_view link = R"re(\[(.+?)\]\((.+?)\))re";

std::string repeated(std::string_view piece, std::size_t size) {
    std::string text;
    while (text.size() < size)
        text += piece;
    return text;
}

TEST(RegexTests, replacesWithTemplate) {
    struct Case {
        std::string_view pattern;
        std::string text;
        std::string_view replacement;
        std::string expected;
    };
    using namespace std::string_literals;
    for (const Case& c : std::vector<Case>{
             {bold, "a **b** c **d e**", "<strong>$1</strong>",
              "a <strong>b</strong> c <strong>d e</strong>"},
             {bold, "**a\nb** **c**", "<b>$1</b>", "**a\nb<b> </b>c**"},
             {bold, "**a\rb**", "<b>$1</b>", "**a\rb**"},
             {bold, "**a\u2028b**", "<b>$1</b>", "**a\u2028b**"},
             {bold, "***both***", "<b>$1</b>", "<b>*both</b>*"},
             {bold, "****", "<b>$1</b>", "****"},
             {bold, "**é漢👍**", "<b>$1</b>", "<b>é漢👍</b>"},
             {bold, "**a\0b**\0"s, "<b>$1</b>", "<b>a\0b</b>\0"s},
             {italic, "a *b* **c** *d*", "<em>$1</em>", "a <em>b</em> **c** <em>d</em>"},
             {italic, "*é*", "<em>$1</em>", "<em>é</em>"},
             {link, "[a](b) [c] [d](e&amp;f)", R"(<a href="$2">$1</a>)",
              R"(<a href="b">a</a> <a href="e&amp;f">c] [d</a>)"},
             {link, "[]() [x]()", "$1", "[]() [x]()"},
             {plainAnchor, R"(<a href="x"> <a style=""> <abbr> <a>)", "<a S",
              R"(<a S href="x"> <a style=""> <abbr> <a S>)"},
             {plainAnchor, R"(<a data-style="x"> <aé>)", "<a S", R"(<a data-style="x"> <aé>)"},
             {"(a)|(b)", "ab", "[$1$2$0]", "[aa][bb]"},
             {"b", "abc", R"(\$0 $ \\ $x $9\)", R"(a$0 $ \ $x \c)"},
             {"x*", "axb", "-", "-a--b-"},
             {"", "é漢", "|", "|é|漢|"},
             {"$", "ab\n", "|", "ab|\n|"},
             {"", "", "|", "|"},
         }) {
        SCOPED_TRACE(std::string(c.pattern) + " in " + c.text);
        EXPECT_EQ(Regex(c.pattern).replaceAllWithTemplate(c.text, c.replacement), c.expected);
    }
}

TEST(RegexTests, replacesLiterally) {
    EXPECT_EQ(Regex(plainAnchor).replaceAllLiterally("<a><a>", R"(<a style="$0\$1">)"),
              R"(<a style="$0\$1">><a style="$0\$1">>)");
}

TEST(RegexTests, findsGroups) {
    const Regex video(videoNumber);
    const std::string text = "https://host/@name/video/0123456789?x /video/7";
    const auto first = video.find(text);
    ASSERT_TRUE(first);
    EXPECT_EQ(first->group(1), "0123456789");
    EXPECT_EQ(text.substr(first->begin(), first->end() - first->begin()), "/video/0123456789");
    EXPECT_EQ(video.findNext(*first)->group(1), "7");
    EXPECT_FALSE(video.findNext(*video.findNext(*first)));
    EXPECT_FALSE(video.contains("/video/١٢"));
    EXPECT_FALSE(video.find("", 0));
    EXPECT_FALSE(video.find("/video/1", 100));

    // Look-behind sees what stands in front of the start.
    EXPECT_FALSE(Regex("(?<!a)b").find("ab", 1));
    EXPECT_TRUE(Regex("(?<=a)b").find("ab", 1));

    const auto either = Regex("(a)|(b)").find("b");
    ASSERT_TRUE(either);
    EXPECT_FALSE(either->has(1));
    EXPECT_TRUE(either->has(2));
    EXPECT_EQ(either->group(1), "");
    EXPECT_EQ(either->group(12), "");
    EXPECT_EQ(Regex("(1)(2)(3)(4)(5)(6)(7)(8)(9)(0)(1)").find("12345678901")->group(9), "9");
}

TEST(RegexTests, replacerMayUseOtherPatterns) {
    const Regex name(textStyleName);
    const std::string out = name.replaceAll(R"(<p data-anf-textstyle="a-b"><i data-anf-textstyle="c">)",
                                            [](const RegexMatch& match, std::string& into) {
                                                into += Regex("-").replaceAllLiterally(match.group(1), "_");
                                            });
    EXPECT_EQ(out, "<p a_b><i c>");
}

TEST(RegexDeathTests, aBadPatternStopsTheProgram) {
    EXPECT_DEATH(Regex("(unclosed"), "does not compile");
}

TEST(RegexTests, longTexts) {
    constexpr std::size_t size = 1'000'000;
    for (const char* piece : {"*", "[", "<", "#", "(", "]", "ordinary text ", "漢字"})
        for (const std::string_view pattern : {textStyleName, plainAnchor, videoNumber, bold, link}) {
            SCOPED_TRACE(std::string(pattern) + " on " + piece);
            const std::string text = repeated(piece, size);
            const std::string out = Regex(pattern).replaceAllWithTemplate(text, "$0");
            EXPECT_EQ(out.size(), text.size());
        }
    EXPECT_EQ(Regex(bold).replaceAllWithTemplate(repeated("**a** ", size), "$1").size(), 333'334u);
    // One match over the whole text needs the grown stack of the compiled code, or none.
    const std::string whole = "[" + std::string(3 * size, 'x') + "](y)";
    EXPECT_EQ(Regex(link).replaceAllWithTemplate(whole, "$2"), "y");
    // A search that outgrows its stack ends; the text stays.
    const std::string nested(size, 'a');
    const std::string kept = Regex("((a|b)+?)*c").replaceAllWithTemplate(nested + "d", "$0");
    EXPECT_EQ(kept, nested + "d");
}

TEST(RegexTests, manyThreadsShareOnePattern) {
    const Regex pattern(bold);
    const std::string text = repeated("**a** b ", 50'000);
    const std::string expected = repeated("<a> b ", 37'500);
    std::vector<std::string> results(4);
    {
        std::vector<std::jthread> threads;
        for (std::string& result : results)
            threads.emplace_back([&] { result = pattern.replaceAllWithTemplate(text, "<$1>"); });
    }
    for (const std::string& result : results)
        EXPECT_EQ(result, expected);
}

RC_GTEST_PROP(RegexTests, replacingByTheMatchChangesNothing, ()) {
    const auto text = *rc::gen::container<std::string>(rc::gen::elementOf(std::string("*[]()<>a \n\0", 11)));
    for (const std::string_view pattern : {plainAnchor, bold, italic, link, std::string_view("a*")}) {
        const Regex regex(pattern);
        RC_ASSERT(regex.replaceAllWithTemplate(text, "$0") == text);
        RC_ASSERT(regex.contains(text) == (regex.replaceAllLiterally(text, "\x01") != text));
    }
}

} // namespace
} // namespace quillon
