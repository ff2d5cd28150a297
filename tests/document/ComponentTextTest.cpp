#include "document/ComponentText.h"

#include "package/NewArticle.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillon {

TEST(ComponentText, aComponentComesBackFromItsText) {
    Component section = makeTextComponent(ComponentRole::section, "");
    section.components = List<Component>{makeTextComponent(ComponentRole::body, "in \"it\"")};
    const auto back = readComponents(componentText(section));
    ASSERT_TRUE(back);
    EXPECT_NE(back->front().id, section.id);
    EXPECT_EQ(componentText(back->front()), componentText(section));
    section.latitude = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(componentText(section), "");
}

TEST(ComponentText, piecesOfAnArticleAreTakenAndOthersRefused) {
    const struct {
        const char* text;
        std::size_t count; ///< 0 for a failure
        const char* message = "";
    } rows[] = {
        {R"({"role": "body", "text": "a"})", 1},
        {" {\"role\": \"my_own\"} ,\n", 1},
        {R"([{"role": "body", "text": "a"}, {"role": "divider"}])", 2},
        {R"({"version": "1.7", "components": [{"role": "body", "text": "a"}]})", 1},
        {R"({"role": "section", "components": [{"role": "body", "text": "a"}]})", 1},
        {"", 0, "no JSON"},
        {"words", 0, "no JSON"},
        {"{\"role\": \"body\"", 0, "no JSON"},
        {"12", 0, "no component"},
        {R"({"text": "a"})", 0, "role"},
        {R"([{"role": "divider"}, {"role": 3}])", 0, "[1].role"},
    };
    for (const auto& row : rows) {
        const auto components = readComponents(row.text);
        EXPECT_EQ(components ? components->size() : 0, row.count) << row.text;
        if (!components) {
            EXPECT_NE(components.error().find(row.message), std::string::npos) << components.error();
        }
    }
    EXPECT_EQ(readComponents("[]")->size(), 0U);
}

} // namespace quillon
