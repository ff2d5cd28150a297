#include "package/Templates.h"

#include "base/Time.h"
#include "support/JsonData.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

using test::elements;
using test::jsonData;
using test::jsonOf;
using test::members;
using test::objectOf;
using test::text;

/// 2026-11-18T09:02:37Z, the time in the expected article.
constexpr std::int64_t now = 1'794'992'557;

TEST(Templates, eachCardAndArticleIsTheExpectedOne) {
    const auto rows = elements(jsonData("package/data/template-catalogue.json"));
    const auto frame = members(jsonData("package/data/template-frame.json"));
    ASSERT_EQ(allTemplates().size(), rows.size());
    for (size_t index = 0; index < rows.size(); ++index) {
        auto row = members(rows[index]);
        SCOPED_TRACE(text(row["id"]));
        const ArticleTemplate& entry = allTemplates()[index];
        EXPECT_EQ(entry.id, text(row["id"]));
        EXPECT_EQ(rawValue(entry.category), text(row["category"]));
        EXPECT_EQ(entry.title, text(row["title"]));
        EXPECT_EQ(entry.subtitle, text(row["subtitle"]));
        EXPECT_EQ(entry.systemImage, text(row["systemImage"]));
        EXPECT_EQ(entry.accentColor, text(row["accentColor"]));

        auto expected = frame;
        auto metadata = members(expected["metadata"]);
        metadata["excerpt"] = row["subtitle"];
        expected["metadata"] = objectOf(metadata);
        expected["identifier"] = row["id"];
        for (const char* shared : {"title", "subtitle", "components"}) {
            expected[shared] = row[shared];
        }
        EXPECT_EQ(jsonOf(entry.makeArticle(now)), jsonOf(objectOf(expected)));
    }
}

TEST(Templates, categoriesStandInTheOrderOfTheCatalogue) {
    std::vector<std::string_view> names;
    for (const auto category : allTemplateCategories) {
        names.push_back(rawValue(category));
    }
    EXPECT_EQ(names, (std::vector<std::string_view>{"News", "Magazines", "Article"}));
    EXPECT_TRUE(std::ranges::is_sorted(allTemplates(), {}, &ArticleTemplate::category));
}

TEST(Templates, twoArticlesOfOneDifferInTheirDateAlone) {
    for (const ArticleTemplate& entry : allTemplates()) {
        SCOPED_TRACE(entry.id);
        ArticleDocument later = entry.makeArticle(now + 1);
        EXPECT_EQ(later.metadata->dateCreated, iso8601(now + 1));
        later.metadata.edit().dateCreated = iso8601(now);
        EXPECT_EQ(later, entry.makeArticle(now));

        std::set<Uuid> ids;
        for (const Component& component : later.components) {
            ids.insert(component.id);
        }
        EXPECT_EQ(ids.size(), later.components.size());
    }
}

} // namespace
} // namespace quillon
