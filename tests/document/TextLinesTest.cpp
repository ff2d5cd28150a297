#include "document/TextLines.h"

#include "base/UnicodeText.h"

#include <rapidcheck/gtest.h>

namespace quillon {
namespace {

using Places = std::vector<std::size_t>;

TEST(TextLinesTest, linesAndTheirPlaces) {
    struct Case {
        std::string text;
        std::vector<TextRange> lines;
        std::size_t widest;
    };
    for (const Case& c : std::vector<Case>{
             {"", {{0, 0}}, 0},
             {"abc", {{0, 3}}, 0},
             {"abc\n", {{0, 3}, {4, 4}}, 0},
             {"\n\nab\nc", {{0, 0}, {1, 1}, {2, 4}, {5, 6}}, 2},
             {"éé\nabc", {{0, 4}, {5, 8}}, 1},
             {"漢字\nabc", {{0, 6}, {7, 10}}, 0},
             {"👍🏽\nabcde", {{0, 8}, {9, 14}}, 1},
         }) {
        SCOPED_TRACE(c.text);
        const TextLines lines(c.text);
        ASSERT_EQ(lines.count(), c.lines.size());
        EXPECT_EQ(lines.widestLine(), c.widest);
        for (std::size_t index = 0; index < c.lines.size(); ++index) {
            EXPECT_EQ(lines.line(index), c.lines[index]);
            EXPECT_EQ(lines.lineOf(c.lines[index].begin), index);
            EXPECT_EQ(lines.lineOf(c.lines[index].end), index);
        }
        EXPECT_EQ(lines.lineOf(c.text.size() + 9), c.lines.size() - 1);
    }
}

/// All places that repeated steps reach, `from` included.
template <typename Step>
Places steps(std::size_t from, Step step) {
    Places places{from};
    for (std::size_t place = step(from); place != places.back(); place = step(place)) {
        places.push_back(place);
    }
    return places;
}

RC_GTEST_PROP(TextLinesTest, charactersBackwardsAreThoseForwards, ()) {
    const auto pieces = *rc::gen::container<std::vector<std::string>>(rc::gen::elementOf(
        std::vector<std::string>{"a", "\"", " ", "\n", "\r\n", "é", "e\u0301", "👩‍👩‍👧‍👦",
                                 "🇩", "🇫", "漢", "\u0600", "ש", "\u05B8", "\u200D", "❤\uFE0F"}));
    std::string text;
    for (const std::string& piece : pieces) {
        text += piece;
    }
    const TextLines lines(text);
    const Places forwards = steps(0, [&](std::size_t place) { return lines.next(place); });
    Places backwards = steps(text.size(), [&](std::size_t place) { return lines.previous(place); });
    std::reverse(backwards.begin(), backwards.end());
    RC_ASSERT(forwards == backwards);
}

TEST(TextLinesTest, wordsAndSigns) {
    struct Case {
        std::string text;
        Places forwards;
        Places backwards;
    };
    for (const Case& c : std::vector<Case>{
             {"one two_3 x", {0, 4, 10, 11}, {11, 10, 4, 0}},
             {"\"key\": 12", {0, 1, 4, 7, 9}, {9, 7, 4, 1, 0}},
             {"{\n  \"a\"", {0, 1, 4, 5, 6, 7}, {7, 6, 5, 4, 1, 0}},
             {"żółw 👍🏽👍 é", {0, 8, 21, 23}, {23, 21, 8, 0}},
             {"", {0}, {0}},
         }) {
        SCOPED_TRACE(c.text);
        const TextLines lines(c.text);
        EXPECT_EQ(steps(0, [&](std::size_t place) { return lines.nextWord(place); }), c.forwards);
        EXPECT_EQ(steps(c.text.size(), [&](std::size_t place) { return lines.previousWord(place); }),
                  c.backwards);
    }
    const TextLines lines("{\"naïve_1\":  2}\n\nx");
    for (const auto& [place, word] : std::vector<std::pair<std::size_t, std::string>>{{0, "{\""},
                                                                                      {2, "naïve_1"},
                                                                                      {4, "naïve_1"},
                                                                                      {9, "naïve_1"},
                                                                                      {10, "\":"},
                                                                                      {12, "  "},
                                                                                      {13, "  "},
                                                                                      {14, "2"},
                                                                                      {16, "}"},
                                                                                      {17, ""},
                                                                                      {18, "x"},
                                                                                      {19, "x"}}) {
        const TextRange range = lines.wordAt(place);
        EXPECT_EQ(lines.text().substr(range.begin, range.size()), word) << place;
    }
}

TEST(TextLinesTest, longLinesAndLongCharactersAreCutAtCharacters) {
    std::string text = "\"";
    for (int index = 0; index < 1000; ++index) {
        text += index % 3 == 0 ? "👩‍👩‍👧‍👦" : "漢";
    }
    const TextLines lines(text);
    const Places ends = steps(0, [&](std::size_t place) { return lines.next(place); });
    for (std::size_t place = 512; place < text.size(); place += 512) {
        EXPECT_EQ(lines.boundaryUpTo(place, 0),
                  *std::prev(std::upper_bound(ends.begin(), ends.end(), place)));
    }
    std::string marks = "e";
    for (int index = 0; index < 2000; ++index) {
        marks += "\u0301";
    }
    const std::size_t cut = TextLines(marks).boundaryUpTo(1024, 512);
    EXPECT_GT(cut, 512U);
    EXPECT_LE(cut, 1024U);
    EXPECT_TRUE(isValidUtf8(marks.substr(0, cut)));
}

TEST(TextLinesTest, utf16PlacesAndColumns) {
    std::string text = "aé漢👍z";
    const std::vector<std::pair<std::size_t, std::size_t>> places{{0, 0}, {1, 1},  {2, 3},
                                                                  {3, 6}, {5, 10}, {6, 11}};
    const auto check = [&](std::size_t units, std::size_t bytes) {
        for (const auto& [unit, place] : places) {
            EXPECT_EQ(utf16Length(std::string_view(text).substr(0, bytes + place)), units + unit);
            EXPECT_EQ(placeOfUtf16(text, units + unit), bytes + place);
        }
    };
    check(0, 0);
    EXPECT_EQ(placeOfUtf16(text, 99), text.size());
    EXPECT_EQ(columnsOf(text), 7U);
    EXPECT_FALSE(mayReadRightToLeft(text + "żжΩ"));
    EXPECT_TRUE(mayReadRightToLeft(text + "ש"));
    EXPECT_TRUE(mayReadRightToLeft(text + "م"));
    // Beyond the blocks in which it is counted, and across them.
    for (const std::size_t ahead : {4094U, 4095U, 4096U, 9000U}) {
        text = std::string(ahead, 'x') + "aé漢👍z";
        check(ahead, ahead);
    }
}

} // namespace
} // namespace quillon
