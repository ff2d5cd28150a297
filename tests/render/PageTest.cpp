#include "render/Page.h"
#include "render/PageFixture.h"
#include "render/PageScripts.h"
#include "render/StyleSheet.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <thread>

namespace quillon::HTMLRenderer {
namespace {

using enum PreviewAppearance;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

std::string pageOf(const ArticleDocument& article, PreviewAppearance appearance = automatic) {
    return renderPage(article, wideEnvironment(appearance), 0);
}

/// What stands in `page` behind `start` and before `end`.
std::string between(const std::string& page, std::string_view start, std::string_view end) {
    const size_t from = page.find(start);
    if (from == std::string::npos) {
        return "no start";
    }
    const size_t to = page.find(end, from + start.size());
    return to == std::string::npos ? "no end" : page.substr(from + start.size(), to - from - start.size());
}

TEST(Page, skeletonOfAnEmptyArticle) {
    ArticleDocument article = articleOf("");
    article.language = "en\"<&'";
    const std::string page = pageOf(article);
    EXPECT_THAT(page, StartsWith("<!DOCTYPE html>\n<html lang=\"en&quot;&lt;&amp;'\">\n<head>\n"
                                 "<meta charset=\"utf-8\">\n"
                                 "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
                                 "<style>" +
                                 baseStyleSheet("#FFFFFF", true, automatic) + "</style>\n</head>\n<body>\n" +
                                 "<article class=\"anf\" style=\"display: grid; grid-template-columns: "
                                 "repeat(4, minmax(0, 1fr)); column-gap: 20px; align-items: start;"
                                 "width: 100%; max-width: 1000px; padding-left: 50px; padding-right: 50px;"
                                 "\">\n\n</article>\n\n<script>\n(function () {\n"));
    EXPECT_THAT(page, EndsWith("    bind();\n  }\n})();\n</script>\n</body>\n</html>"));
    EXPECT_THAT(page, Not(HasSubstr("<title>")));
}

TEST(Page, bodyStandsInTheArticle) {
    const ArticleDocument article =
        articleOf(R"({"role":"body","text":"a"},{"role":"container","components":[{"role":"tweet"}]})");
    EXPECT_EQ(withoutIds(between(pageOf(article), "padding-right: 50px;\">\n", "</article>")),
              bodyOf(article) + "\n");
    EXPECT_EQ(pageOf(article), pageOf(article));
    EXPECT_EQ(
        pageOf(articleOf("", R"(,"colorScheme":{"automaticDarkModeEnabled":false})")).find("light dark"),
        std::string::npos);
}

/// A document that is white, green on large screens, and black or blue in dark mode; one component with a
/// dark style.
constexpr std::string_view colorful =
    R"(,"documentStyle":{"backgroundColor":"#FFF","conditional":[)"
    R"({"backgroundColor":"#0F0","conditions":[{"minViewportWidth":900}]},)"
    R"({"backgroundColor":"#000","conditions":[{"preferredColorScheme":"dark","platform":"android"}]},)"
    R"({"backgroundColor":"\"blue\"","conditions":[{"platform":"macos"},{"preferredColorScheme":"dark"}]},)"
    R"({"conditions":[{"preferredColorScheme":"dark"}]}]})";
constexpr std::string_view darkBody = R"({"role":"body","style":{"conditional":[{"opacity":0.5,)"
                                      R"("conditions":[{"preferredColorScheme":"dark"}]}]}})";

TEST(Page, darkRulesByAppearance) {
    const std::string extra =
        "@media (prefers-color-scheme: dark){body{background: &quot;blue&quot; !important;}}"
        "@media (prefers-color-scheme: dark){.dk1{opacity: 0.5 !important;}}";
    EXPECT_THAT(pageOf(articleOf("", R"(,"colorScheme":{})")), HasSubstr("color-scheme: light dark;"));
    const struct {
        PreviewAppearance appearance;
        bool automaticDark;
        std::string_view background;
        bool hasExtra;
    } cases[] = {
        {automatic, true, "#0F0", true}, {automatic, false, "#0F0", true}, {light, true, "#0F0", false},
        {dark, true, "\"blue\"", false}, {dark, false, "\"blue\"", false},
    };
    for (const auto& expected : cases) {
        SCOPED_TRACE(std::string(rawValue(expected.appearance)) + (expected.automaticDark ? " on" : " off"));
        const ArticleDocument article =
            articleOf(darkBody, std::string(colorful) + R"(,"colorScheme":{"automaticDarkModeEnabled":)" +
                                    (expected.automaticDark ? "true}" : "false}"));
        const std::string page = pageOf(article, expected.appearance);
        EXPECT_EQ(between(page, "<style>", "</style>"),
                  baseStyleSheet(expected.background, expected.automaticDark, expected.appearance) +
                      (expected.hasExtra ? extra : ""));
        // The class name stays even where its rule is dropped.
        EXPECT_THAT(page, HasSubstr("<div class=\"role-body dk1\""));
    }
}

TEST(Page, backgrounds) {
    const struct {
        std::string_view members;
        PreviewAppearance appearance;
        Optional<std::string> effective;
        Optional<std::string> inTheDark;
    } cases[] = {
        {"", automatic, {}, {}},
        {R"(,"documentStyle":{})", automatic, {}, {}},
        {R"(,"documentStyle":{"backgroundColor":""})", automatic, "", {}},
        {colorful, automatic, "#0F0", "\"blue\""},
        {colorful, dark, "\"blue\"", "\"blue\""},
        {R"(,"documentStyle":{"conditional":[{"backgroundColor":"a"},{"backgroundColor":"b","conditions":[]}]})",
         automatic,
         "b",
         {}},
        {R"(,"documentStyle":{"backgroundColor":"a","conditional":[{"backgroundColor":"b",)"
         R"("conditions":[{"preferredColorScheme":"Dark"}]}]})",
         dark,
         "a",
         {}},
    };
    for (const auto& expected : cases) {
        SCOPED_TRACE(expected.members);
        const ArticleDocument article = articleOf("", expected.members);
        EXPECT_EQ(effectiveBackgroundColor(article, wideEnvironment(expected.appearance)),
                  expected.effective);
        EXPECT_EQ(darkBackgroundColor(article), expected.inTheDark);
    }
}

/// Renders share patterns and tables that are made at the first use.
TEST(Page, threadsRenderAtOnce) {
    const ArticleDocument article = articleOf(
        R"({"role":"body","format":"html","text":"<p data-anf-textstyle=\"s\">a <a href=\"b\">b</a>é</p><ul>c</ul>"},)"
        R"({"role":"body","format":"markdown","text":"**a** [b](c)\n\n- d"},)"
        R"({"role":"tiktok","URL":"https://t.example/video/12"},{"role":"title","text":"x"})",
        R"(,"textStyles":{"s":{"fontSize":9,"conditional":[{"fontSize":1},{"fontSize":2},{"fontSize":3},)"
        R"({"fontSize":4},{"fontSize":5}]}},"componentTextStyles":{"default":{"linkStyle":{"textColor":"red"},)"
        R"("unorderedListItems":{"type":"bullet"}}})");
    std::array<std::string, 2> pages;
    {
        std::vector<std::jthread> threads;
        for (std::string& page : pages) {
            threads.emplace_back([&article, &page] {
                for (int round = 0; round < 20; ++round) {
                    page = pageOf(article);
                }
            });
        }
    }
    const std::string expected = pageOf(article);
    EXPECT_THAT(expected, HasSubstr("<p style=\"font-size: 5px;\">a <a style=\"color: red;\" href"));
    EXPECT_EQ(pages[0], expected);
    EXPECT_EQ(pages[1], expected);
}

TEST(PageScripts, followTheRolesOfTheArticle) {
    const std::string facebook =
        R"(<div id="fb-root"></div><script async defer crossorigin="anonymous" )"
        R"(src="https://connect.facebook.net/en_US/sdk.js#xfbml=1&version=v20.0"></script>)";
    const std::string instagram = R"(<script async src="https://www.instagram.com/embed.js"></script>)";
    const std::string tiktok = R"(<script async src="https://www.tiktok.com/embed.js"></script>)";
    const std::string tweet =
        R"(<script async src="https://platform.twitter.com/widgets.js" charset="utf-8"></script>)";
    const std::string loader =
        "<script>\nwindow.addEventListener('load', function () {\n"
        "  if (window.FB && window.FB.XFBML) { window.FB.XFBML.parse(); }\n"
        "  if (window.instgrm && window.instgrm.Embeds) { window.instgrm.Embeds.process(); }\n"
        "  if (window.twttr && window.twttr.widgets) { window.twttr.widgets.load(); }\n});\n</script>";
    const struct {
        std::string_view components;
        std::string scripts;
    } cases[] = {
        {"", ""},
        {R"({"role":"body"},{"role":"video"})", ""},
        {R"({"role":"tiktok"})", tiktok + "\n" + loader},
        {R"({"role":"tweet"},{"role":"tiktok"},{"role":"tweet"},{"role":"instagram"},{"role":"facebook_post"})",
         facebook + "\n" + instagram + "\n" + tiktok + "\n" + tweet + "\n" + loader},
        {R"({"role":"tweet","hidden":true})", tweet + "\n" + loader},
        {R"({"role":"new","components":[{"role":"body"},{"role":"aside","components":[{"role":"instagram"}]}]})",
         instagram + "\n" + loader},
        {R"({"role":"gallery","items":[{"role":"tweet"}],"conditional":[{"components":[{"role":"tweet"}]}]})",
         ""},
    };
    for (const auto& expected : cases) {
        SCOPED_TRACE(expected.components);
        const ArticleDocument article = articleOf(expected.components);
        EXPECT_EQ(embedScripts(article.components), expected.scripts);
        EXPECT_THAT(pageOf(article),
                    HasSubstr("\n</article>\n" + expected.scripts + "\n<script>\n(function"));
    }
}

} // namespace
} // namespace quillon::HTMLRenderer
