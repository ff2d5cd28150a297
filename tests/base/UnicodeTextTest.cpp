#include "base/UnicodeText.h"

#include <rapidcheck/gtest.h>

namespace quillon {
namespace {

std::vector<std::string> characters(std::string_view text) {
    std::vector<std::string> all;
    CharacterCursor cursor(text);
    while (const auto character = cursor.next())
        all.emplace_back(*character);
    return all;
}

std::string repeated(std::string_view piece, std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i)
        text += piece;
    return text;
}

using Characters = std::vector<std::string>;

const std::vector<Characters> knownCharacters{
    {},
    {"a"},
    {"a", "b", " ", "\n"},
    {"\r\n"},
    {"\r", "\r\n", "\n", "\r"},
    {"a", "\r\n", "é"},
    {"\r\n", "\r\n", "漢"},
    {"é", "\r\n", "b"},
    {"\r", "é"},
    {"\n", "\u0301"}, // nothing joins a line end
    {"e\u0301", "x"},
    {"漢", "字", "か\u3099"},
    {"👩‍👩‍👧‍👦", "👍🏽", "❤️"},
    {"🇩🇪", "🇫🇷", "🇯"},
    {"a", "🇩🇪", "b"},
    {"한", "국", "어", "\u1112\u1161\u11AB", "한\u11AB"},
    {"\u0600a", "b"}, // a prepended mark
    {"न", "म", "स्ते"},
    {std::string("\0", 1), "a"},
    {"1\uFE0F\u20E3", "2"},
    {"\u200B", "a"},
};

TEST(UnicodeTextTests, charactersAsReadersSeeThem) {
    for (const Characters& expected : knownCharacters) {
        std::string text;
        for (const std::string& character : expected)
            text += character;
        SCOPED_TRACE(text);
        EXPECT_EQ(characters(text), expected);
        EXPECT_EQ(characterCount(text), expected.size());
    }
    EXPECT_EQ(nextCharacter("ab", 2), 2u);
    EXPECT_EQ(nextCharacter("", 0), 0u);
    EXPECT_EQ(nextCharacter("ab", 7), 2u);
}

/// Texts put together from scalars of every kind that joins.
rc::Gen<std::string> joiningText() {
    return rc::gen::map(
        rc::gen::container<std::vector<std::string>>(rc::gen::elementOf(std::vector<std::string>{
            "a",  " ",      "\r",     "\n", "e",      "\u0301", "\u200D", "👩",
            "❤",  "\uFE0F", "🏽",   "🇩",  "\u1100", "\u1161", "\u11A8", "가",
            "각", "\u0600", "\u0903", "क",  "\u094D", "漢",     "\u0000", "\u2028"})),
        [](const std::vector<std::string>& pieces) {
            std::string text;
            for (const std::string& piece : pieces)
                text += piece;
            return text;
        });
}

RC_GTEST_PROP(UnicodeTextTests, walkCoversTheTextAndAgreesWithTheCount, ()) {
    const std::string text = *joiningText();
    const Characters all = characters(text);
    std::string joined;
    for (const std::string& character : all)
        joined += character;
    RC_ASSERT(joined == text);
    RC_ASSERT(characterCount(text) == all.size());
    // Each character is one also when it stands alone, and a pair of neighbours is always two.
    for (std::size_t i = 0; i < all.size(); ++i) {
        RC_ASSERT(nextCharacter(all[i], 0) == all[i].size());
        if (i + 1 < all.size()) {
            RC_ASSERT(nextCharacter(all[i] + all[i + 1], 0) == all[i].size());
        }
    }
}

RC_GTEST_PROP(UnicodeTextTests, anyBytesAreHarmless, (const std::string& bytes)) {
    std::string joined;
    for (const std::string& character : characters(bytes)) {
        RC_ASSERT(!character.empty());
        joined += character;
    }
    RC_ASSERT(joined == bytes);
    (void)characterCount(bytes);
    (void)trimmed(bytes);
    (void)trimmedBlanks(bytes);
    (void)lowercased(bytes);
    (void)capitalizedWords(bytes);
}

TEST(UnicodeTextTests, longCharactersAndLongTexts) {
    EXPECT_EQ(characterCount("e" + repeated("\u0301", 300'000) + "x"), 2u);
    EXPECT_EQ(characterCount(repeated("👩‍👩‍👧‍👦", 20'000)), 20'000u);
    EXPECT_EQ(characterCount(repeated("🇩🇪", 50'000)), 50'000u);
    EXPECT_EQ(characterCount(repeated("\r\n", 100'000)), 100'000u);
    EXPECT_EQ(characterCount(repeated("漢e\u0301", 50'000)), 100'000u);
    for (std::size_t length = 40; length < 60; ++length) // around the size of the first look ahead
        EXPECT_EQ(characterCount(repeated("\u0301", length / 2) + repeated("b", length % 2) + "👍🏽"),
                  2u + length % 2);
}

TEST(UnicodeTextTests, trims) {
    struct Case {
        std::string text;
        const char* all;
        const char* blanks;
        const char* spacesAndTabs;
    };
    for (const Case& c : std::vector<Case>{
             {"", "", "", ""},
             {" \t ", "", "", ""},
             {" \t\n ", "", "\n", "\n"},
             {"  a b\t", "a b", "a b", "a b"},
             {"\r\n a\n", "a", "\r\n a\n", "\r\n a\n"},
             {"\u00A0\u3000a\u2003", "a", "a", "\u00A0\u3000a\u2003"},
             {"\u2028a\u0085\u2029", "a", "\u2028a\u0085\u2029", "\u2028a\u0085\u2029"},
             {"\u200Ba\uFEFF", "\u200Ba\uFEFF", "\u200Ba\uFEFF", "\u200Ba\uFEFF"},
             {" é ", "é", "é", "é"},
             {"\x0B\x0C漢\x0B", "漢", "\x0B\x0C漢\x0B", "\x0B\x0C漢\x0B"},
             {" \xFF ", "\xFF", "\xFF", "\xFF"},
             {"\x80 ", "\x80", "\x80", "\x80"},
         }) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(trimmed(c.text), c.all);
        EXPECT_EQ(trimmedBlanks(c.text), c.blanks);
        EXPECT_EQ(trimmedSpacesAndTabs(c.text), c.spacesAndTabs);
    }
    EXPECT_TRUE(isWhiteSpace(0x205F));
    EXPECT_FALSE(isWhiteSpace(0x180E));
    EXPECT_FALSE(isWhiteSpace(0));
}

TEST(UnicodeTextTests, letterCase) {
    struct Case {
        const char* text;
        const char* lower;
        const char* words;
    };
    for (const Case& c : {
             Case{"", "", ""},
             Case{"widget", "widget", "Widget"},
             Case{"link_button", "link_button", "Link_button"},
             Case{"_x -_y", "_x -_y", "_X -_Y"},
             Case{"my-role NAME", "my-role name", "My-Role Name"},
             Case{"linkButton", "linkbutton", "Linkbutton"},
             Case{"o'neil", "o'neil", "O'neil"},
             Case{"two.words, three", "two.words, three", "Two.words, Three"},
             Case{"ÉCOLE élan", "école élan", "École Élan"},
             Case{"ΟΔΟΣ", "οδος", "Οδος"},
             Case{"İ", "i̇", "İ"},
             Case{"ǆ ß", "ǆ ß", "ǅ Ss"},
             Case{"漢字 x", "漢字 x", "漢字 X"},
             Case{"a\tb\nc", "a\tb\nc", "A\tB\nC"},
         }) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(lowercased(c.text), c.lower);
        EXPECT_EQ(capitalizedWords(c.text), c.words);
    }
}

RC_GTEST_PROP(UnicodeTextTests, plainWordsCapitalizeLikeAllOthers, ()) {
    const auto text = *rc::gen::container<std::string>(rc::gen::elementOf(std::string("abZ _-")));
    RC_ASSERT(capitalizedWords(text + " é") == capitalizedWords(text) + " É");
    RC_ASSERT(lowercased(text + "É") == lowercased(text) + "é");
}

TEST(UnicodeTextTests, validUtf8) {
    for (const char* text : {"", "plain text of some length", "é漢👍", "\xF4\x8F\xBF\xBF", "12345678é"})
        EXPECT_TRUE(isValidUtf8(text)) << text;
    EXPECT_TRUE(isValidUtf8(std::string(9, '\0')));
    for (const char* text : {"\x80", "abc\xC3", "\xC0\xAF", "\xE0\x80\xAF", "\xED\xA0\x80",
                             "\xF4\x90\x80\x80", "\xFF", "12345678\xC3(", "\xE6\xBC"})
        EXPECT_FALSE(isValidUtf8(text)) << text;
}

} // namespace
} // namespace quillon
