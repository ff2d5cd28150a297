#include "browser/BrowserPage.h"
#include "render/Page.h"
#include "render/PageFixture.h"

#include <gtest/gtest.h>

namespace quillon::test {
namespace {

constexpr std::string_view members =
    R"(,"documentStyle":{"backgroundColor":"#FFF0E0","conditional":[{"backgroundColor":"#101418",
        "conditions":[{"preferredColorScheme":"dark"}]}]})";
constexpr std::string_view components =
    R"({"role":"body","identifier":"own","text":"t","textStyle":{"textColor":"#333333","fontSize":20,
            "conditional":[{"textColor":"#DDEEFF","conditions":[{"preferredColorScheme":"dark"}]}]},
        "style":{"backgroundColor":"#EEEEEE","conditional":[
            {"backgroundColor":"#223344","conditions":[{"preferredColorScheme":"dark"}]}]}},
       {"role":"container","identifier":"box","style":{"conditional":[
            {"opacity":0.5,"conditions":[{"preferredColorScheme":"dark"}]}]},
        "components":[{"role":"intro","text":"t"}]},
       {"role":"photo","identifier":"lost","URL":"bundle://lost.png"})";

struct Look {
    std::string selector;
    std::string property;
    std::string automatic; ///< in a page that follows the browser
    std::string light;     ///< in a page that is light for everybody
};

/// In a browser that prefers dark pages, the rules that a page keeps for it beat what its elements say.
TEST(DarkEngine, darkRulesWinInPagesThatFollowTheBrowser) {
    const Look looks[] = {
        {"html", "color-scheme", "light dark", "light"},
        {"body", "background-color", "rgb(16, 20, 24)", "rgb(255, 240, 224)"},
        {"body", "color", "rgb(245, 245, 247)", "rgb(29, 29, 31)"},
        {"#own .role-body", "color", "rgb(221, 238, 255)", "rgb(51, 51, 51)"},
        {"#own .role-body", "background-color", "rgb(34, 51, 68)", "rgb(238, 238, 238)"},
        {"#own .role-body", "font-size", "20px", "20px"},
        {"#box .container", "opacity", "0.5", "1"},
        {".role-intro", "color", "rgb(199, 199, 204)", "rgb(58, 58, 60)"},
        {".image-placeholder", "background-color", "rgb(28, 28, 30)", "rgb(242, 242, 247)"},
    };
    for (const auto appearance : {PreviewAppearance::automatic, PreviewAppearance::light}) {
        SCOPED_TRACE(rawValue(appearance));
        const bool follows = appearance == PreviewAppearance::automatic;
        BrowserPage page(1180, 820);
        ASSERT_TRUE(page.load(
            HTMLRenderer::renderPage(articleOf(components, members), wideEnvironment(appearance), 0)));
        page.settle();
        ASSERT_EQ(page.run("matchMedia('(prefers-color-scheme: dark)').matches"), "true");
        for (const Look& look : looks) {
            EXPECT_EQ(page.styleOf(look.selector, look.property), follows ? look.automatic : look.light)
                << look.selector << " " << look.property;
        }
        EXPECT_EQ(page.colorAt(5, 700), follows ? "#101418" : "#fff0e0");
    }
}

/// An article may refuse the dark colours of the page and still have some of its own.
TEST(DarkEngine, anArticleCanKeepThePagesOwnColorsLight) {
    BrowserPage page(1180, 820);
    const std::string lightOnly =
        std::string(members) + R"(,"colorScheme":{"automaticDarkModeEnabled":false})";
    ASSERT_TRUE(page.load(HTMLRenderer::renderPage(articleOf(components, lightOnly), wideEnvironment(), 0)));
    EXPECT_EQ(page.styleOf("html", "color-scheme"), "light");
    EXPECT_EQ(page.styleOf("body", "color"), "rgb(29, 29, 31)");
    EXPECT_EQ(page.styleOf("#own .role-body", "background-color"), "rgb(34, 51, 68)");
}

} // namespace
} // namespace quillon::test
