#include "document/TextMatches.h"

#include "base/UnicodeText.h"

#include <rapidcheck/gtest.h>

namespace quillon {
namespace {

std::vector<std::string> found(std::string_view text, std::string_view needle) {
    const TextMatches matches(text, needle);
    std::vector<std::string> all;
    for (std::size_t index = 0; index < matches.count(); ++index) {
        const TextRange match = matches.at(index);
        all.push_back(std::to_string(match.begin) + ":" +
                      std::string(text.substr(match.begin, match.size())));
    }
    return all;
}

TEST(TextMatchesTest, findsWhateverTheCase) {
    struct Case {
        std::string text;
        std::string needle;
        std::vector<std::string> found;
    };
    for (const Case& c : std::vector<Case>{
             {"abc", "", {}},
             {"", "a", {}},
             {"ab", "abc", {}},
             {"Title TITLE ti tle", "tItLe", {"0:Title", "6:TITLE"}},
             {"aaaaa", "aa", {"0:aa", "2:aa"}},
             {"[@`{", "@", {"1:@"}}, // signs have no other case
             {"École école ECOLE", "éCOLE", {"0:École", "7:école"}},
             {"ΣΊΣΥΦΟΣ Σίσυφος", "σίσυφος", {"0:ΣΊΣΥΦΟΣ", "15:Σίσυφος"}},
             {"漢字漢", "漢", {"0:漢", "6:漢"}},
             {"a👍🏽b👍", "👍", {"1:👍", "10:👍"}},
             // Letters whose cases differ in length.
             {"K k \u212A", "k", {"0:K", "2:k", "4:\u212A"}},
             {"desk DE\u017F\u212A", "desk", {"0:desk", "5:DE\u017F\u212A"}},
             {"Ⱥ ⱥ", "ⱥ", {"0:Ⱥ", "3:ⱥ"}},
             {"straße STRASSE STRAẞE", "STRAẞE", {"0:straße", "16:STRAẞE"}},
             {"İi", "i", {"2:i"}},
         }) {
        SCOPED_TRACE(c.text + " / " + c.needle);
        EXPECT_EQ(found(c.text, c.needle), c.found);
        // Wherever it stands among the blocks that are looked through at once.
        for (const std::size_t ahead : {63U, 64U, 127U, 200U}) {
            const std::string longer = std::string(ahead, '-') + c.text + std::string(ahead, '-');
            EXPECT_EQ(found(longer, c.needle).size(), c.found.size()) << ahead;
        }
    }
}

RC_GTEST_PROP(TextMatchesTest, asciiIsFoundAsByLookingEverywhere, ()) {
    const auto text = *rc::gen::container<std::string>(rc::gen::elementOf(std::string("aAbBsSkK\"\n")));
    const auto needle =
        *rc::gen::resize(3, rc::gen::container<std::string>(rc::gen::elementOf(std::string("aBsk\""))));
    const std::string folded = lowercased(text);
    const std::string wanted = lowercased(needle);
    std::vector<std::string> expected;
    for (std::size_t place = wanted.empty() ? std::string::npos : folded.find(wanted);
         place != std::string::npos; place = folded.find(wanted, place + wanted.size())) {
        expected.push_back(std::to_string(place) + ":" + text.substr(place, wanted.size()));
    }
    RC_ASSERT(found(text, needle) == expected);
}

TEST(TextMatchesTest, theNextFromAPlace) {
    const TextMatches matches("x..x..x", "X");
    for (const auto& [place, index] : std::vector<std::pair<std::size_t, std::size_t>>{
             {0, 0}, {1, 1}, {3, 1}, {4, 2}, {6, 2}, {7, 3}, {99, 3}}) {
        EXPECT_EQ(matches.firstFrom(place), index) << place;
    }
    EXPECT_EQ(TextMatches().firstFrom(0), 0U);
}

} // namespace
} // namespace quillon
