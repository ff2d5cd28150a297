#include "package/BlankArticle.h"
#include "package/DarkModeDefaults.h"
#include "package/GeneratedArticle.h"
#include "support/JsonData.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

using test::jsonData;
using test::jsonOf;
using test::members;
using test::objectOf;

/// 2026-11-18T09:02:37Z, the time in the expected articles.
constexpr std::int64_t now = 1'794'992'557;

TEST(BlankArticle, isTheExpectedOneWithFreshIds) {
    const ArticleDocument article = makeBlankArticle(now);
    EXPECT_EQ(jsonOf(article), jsonOf(jsonData("package/data/blank-article.json")));
    EXPECT_TRUE(article.preservedFields->empty());
    EXPECT_NE(article.components[0].id, article.components[1].id);
    EXPECT_NE(article.components[0].id, makeBlankArticle(now).components[0].id);
    EXPECT_NE(jsonOf(article), jsonOf(makeBlankArticle(now + 1)));
}

TEST(GeneratedArticle, placesTheIdeaWhole) {
    struct Case {
        std::optional<std::string_view> prompt;
        std::string_view idea; ///< empty where the stock texts stand
    };
    const Case cases[] = {
        {std::nullopt, ""},
        {"", ""},
        {" \n\t \r\n\xC2\xA0\xE2\x80\xA8", ""},
        {"  \n Tides \n", "Tides"},
        {"\xE3\x80\x80One  **two**\n\nthree.\xC2\x85", "One  **two**\n\nthree."},
    };
    const auto stock = members(jsonData("package/data/generated-article.json"));
    for (const auto& [prompt, idea] : cases) {
        SCOPED_TRACE(prompt.value_or("(none)"));
        auto expected = stock;
        if (!idea.empty()) {
            auto metadata = members(expected["metadata"]);
            metadata["excerpt"] = {std::string(idea)};
            expected["metadata"] = objectOf(metadata);
            auto components = test::elements(expected["components"]);
            auto intro = members(components[1]);
            intro["text"] = {std::string(idea)};
            components[1] = objectOf(intro);
            expected["components"] = {JSONValue::Array(components)};
        }
        const ArticleFileDocument document = makeGeneratedDocument(prompt, now);
        EXPECT_EQ(jsonOf(document.article), jsonOf(objectOf(expected)));
        EXPECT_TRUE(document.assets->empty());
        EXPECT_EQ(document.assetsFingerprint, "");
    }
    const auto idOfIntro = [] {
        return makeGeneratedDocument("a", now).article.components[1].id;
    };
    EXPECT_NE(idOfIntro(), idOfIntro());
}

/// An article with these two fields, each JSON or empty for none.
ArticleDocument articleWith(const std::string& documentStyle, const std::string& textStyles) {
    std::string json =
        R"({"version":"1.7","identifier":"a","language":"en","title":"T","layout":{"columns":7,"width":1024},)";
    json += documentStyle.empty() ? "" : R"("documentStyle":)" + documentStyle + ",";
    json += textStyles.empty() ? "" : R"("componentTextStyles":)" + textStyles + ",";
    const auto article = sharedArticleDecoder.decode(json + R"("components":[]})");
    EXPECT_TRUE(article) << article.error().message();
    return article.value_or(ArticleDocument());
}

const std::string dark = R"([{"preferredColorScheme":"dark"}])";
const std::string darkPage = R"({"backgroundColor":"#111111","conditions":)" + dark + "}";
const std::string darkText =
    R"({"textColor":"#F5F5F7","linkStyle":{"textColor":"#66AAFF"},"conditions":)" + dark + "}";

std::string page(const std::string& entries, const std::string& color = "#FFFFFF") {
    const std::string background = R"({"backgroundColor":")" + color + "\"";
    return background + (entries.empty() ? "}" : R"(,"conditional":[)" + entries + "]}");
}
std::string styles(const std::string& entries, const std::string& more = {}) {
    return R"({"default":{)" + more + R"("conditional":[)" + entries + "]}}";
}

TEST(DarkModeDefaults, areAddedWhereNoDarkVariantStands) {
    const std::string mixed = R"({"conditions":[{"platform":"macos"},)"
                              R"({"preferredColorScheme":"dark","minViewportWidth":700}]})";
    const std::string light = R"({"textColor":"#000000","conditions":[{"preferredColorScheme":"light"}]})";
    const std::string bare = R"({"textColor":"#000000"})";
    const std::string sized = R"("fontName":"Didot",)";
    struct Case {
        std::string before[2]; ///< documentStyle and componentTextStyles
        std::string after[2];
    };
    const Case cases[] = {
        {{"", ""}, {page(darkPage), styles(darkText)}},
        {{page("", "#123456"), "{}"}, {page(darkPage, "#123456"), styles(darkText)}},
        {{R"({"conditional":[]})", R"({"default":{}})"}, {page(darkPage), styles(darkText)}},
        // A dark variant stands already, but the page's own background is filled in.
        {{R"({"conditional":[)" + mixed + "]}", styles(mixed)}, {page(mixed), styles(mixed)}},
        {{page(bare), styles(light, sized)},
         {page(bare + "," + darkPage), styles(light + "," + darkText, sized)}},
        {{page(darkPage), R"({"quote":{"fontSize":20}})"},
         {page(darkPage), R"({"quote":{"fontSize":20},"default":{"conditional":[)" + darkText + "]}}"}},
    };
    for (const auto& [before, after] : cases) {
        SCOPED_TRACE(before[0] + " " + before[1]);
        const ArticleDocument applied = applyDarkModeDefaults(articleWith(before[0], before[1]));
        EXPECT_EQ(jsonOf(applied), jsonOf(articleWith(after[0], after[1])));
        EXPECT_EQ(applyDarkModeDefaults(applied), applied);
    }
}

TEST(DarkModeDefaults, areRemovedWhereTheyAreUnchanged) {
    const std::string otherColor = R"({"backgroundColor":"#222222","conditions":)" + dark + "}";
    const std::string narrower =
        R"({"backgroundColor":"#111111","conditions":[{"preferredColorScheme":"dark","platform":"ios"}]})";
    const std::string twice = R"({"backgroundColor":"#111111","conditions":[{"preferredColorScheme":"dark"},)"
                              R"({"preferredColorScheme":"dark"}]})";
    const std::string nested =
        R"({"backgroundColor":"#111111","conditional":[)" + otherColor + R"(],"conditions":)" + dark + "}";
    const std::string changedText =
        R"({"textColor":"#F5F5F7","fontSize":20,"linkStyle":{"textColor":"#66AAFF"},"conditions":)" + dark +
        "}";
    const std::string changed = otherColor + "," + narrower + "," + twice + "," + nested;
    const std::string didot = R"({"default":{"fontName":"Didot"}})";
    struct Case {
        std::string before[2];
        std::string after[2];
    };
    const Case cases[] = {
        {{"", ""}, {"", ""}},
        {{page(darkPage), styles(darkText)}, {page(""), ""}},
        {{page(darkPage + "," + darkPage, "#000000"), styles(darkText + "," + darkText)},
         {page("", "#000000"), ""}},
        {{page(changed + "," + darkPage), styles(changedText + "," + darkText)},
         {page(changed), styles(changedText)}},
        {{page(""), styles(darkText, R"("fontName":"Didot",)")}, {page(""), didot}},
        {{R"({"conditional":[]})", styles("")}, {"{}", ""}},
        {{"{}", "{}"}, {"{}", "{}"}},
        {{"", R"({"default":{}})"}, {"", R"({"default":{}})"}},
        {{"", R"({"quote":{"conditional":[)" + darkText + "]}}"},
         {"", R"({"quote":{"conditional":[)" + darkText + "]}}"}},
    };
    for (const auto& [before, after] : cases) {
        SCOPED_TRACE(before[0] + " " + before[1]);
        EXPECT_EQ(jsonOf(removeDarkModeDefaults(articleWith(before[0], before[1]))),
                  jsonOf(articleWith(after[0], after[1])));
    }
}

} // namespace
} // namespace quillon
