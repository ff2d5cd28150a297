#include "browser/BrowserPage.h"
#include "render/Page.h"
#include "render/PageFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillon::test {
namespace {

using ::testing::IsEmpty;
using ::testing::MatchesRegex;

struct Look {
    std::string selector;
    std::string property;
    std::string value; ///< as the browser computes it
};

void show(BrowserPage& page, std::string_view components, std::string_view members = "",
          PreviewAppearance appearance = PreviewAppearance::light) {
    const ArticleDocument article = articleOf(components, members);
    ASSERT_TRUE(page.load(HTMLRenderer::renderPage(article, wideEnvironment(appearance), 0)));
    page.settle();
    EXPECT_THAT(page.scriptErrors(), IsEmpty());
}

void expectLooks(BrowserPage& page, const std::vector<Look>& looks) {
    for (const Look& look : looks) {
        EXPECT_EQ(page.styleOf(look.selector, look.property), look.value)
            << look.selector << " " << look.property;
    }
}

/// The edges of an element in the window: "left,top,right,bottom", whole pixels.
std::string edgesOf(BrowserPage& page, const std::string& selector) {
    return page.run("(r => [r.left, r.top, r.right, r.bottom].map(Math.round).join())"
                    "(document.querySelector(`" +
                    selector + "`).getBoundingClientRect())");
}

TEST(PageLook, rolesLookLikeThemselves) {
    BrowserPage page(1180, 820);
    show(page, R"({"role":"title","text":"t"},{"role":"intro","text":"t"},{"role":"heading2","text":"t"},
        {"role":"body","text":"t"},{"role":"byline","text":"t"},{"role":"pullquote","text":"t"},
        {"role":"divider"},{"role":"button","text":"Go","URL":"https://a.example/"})");
    expectLooks(page, {{".role-title", "font-size", "40px"},
                       {".role-title", "letter-spacing", "-0.8px"},
                       {".role-intro", "color", "rgb(58, 58, 60)"},
                       {".role-heading2", "font-size", "24px"},
                       {".role-body", "line-height", "28.8px"},
                       {".role-byline", "text-transform", "uppercase"},
                       {".role-pullquote", "text-align", "center"},
                       {"hr.divider", "border-top-color", "rgb(210, 210, 215)"},
                       {".anf-button", "background-color", "rgb(0, 113, 227)"},
                       {"body", "background-color", "rgb(255, 255, 255)"}});
}

TEST(PageLook, stylesOfTextReachTheText) {
    BrowserPage page(1180, 820);
    show(page, R"({"role":"body","identifier":"styled","text":"Words, linked","textStyle":{
            "fontName":"It's; \"odd\" <Font>","fontSize":31,"fontWeight":"bold","fontStyle":"italic",
            "fontWidth":"semi_condensed","textColor":"#12345680","backgroundColor":"tan",
            "textAlignment":"justified","lineHeight":44,"tracking":0.5,"hyphenation":false,
            "underline":{"color":"#FF0000"},"strikethrough":true,
            "textShadow":{"color":"#00FF00","opacity":0.5,"radius":3,"offset":{"x":1,"y":-2}},
            "stroke":{"color":"#0000FF","width":2}},
          "inlineTextStyles":[{"rangeStart":0,"rangeLength":5,"textStyle":"loud"}],
          "additions":[{"type":"link","rangeStart":7,"rangeLength":6,"URL":"https://a.example/"}]},
        {"role":"body","identifier":"capped","text":"Once upon a time","textStyle":{
            "dropCapStyle":{"numberOfLines":3,"numberOfCharacters":1,"textColor":"#FF8000"}}})",
         R"(,"textStyles":{"loud":{"textColor":"#C00000","verticalAlignment":"superscript"}})");
    const std::string text = "#styled .role-body";
    expectLooks(page, {{text, "font-family",
                        R"("Its odd Font", -apple-system, "SF Pro Text", )"
                        R"("Helvetica Neue", sans-serif)"},
                       {text, "font-size", "31px"},
                       {text, "font-weight", "700"},
                       {text, "font-style", "italic"},
                       {text, "font-stretch", "87.5%"},
                       {text, "color", "rgba(18, 52, 86, 0.5)"},
                       {text, "background-color", "rgb(210, 180, 140)"},
                       {text, "text-align", "justify"},
                       {text, "line-height", "44px"},
                       {text, "letter-spacing", "15.5px"},
                       {text, "hyphens", "none"},
                       {text, "text-decoration-line", "underline line-through"},
                       {text, "text-decoration-color", "rgb(255, 0, 0)"},
                       {text, "text-shadow", "rgba(0, 255, 0, 0.5) 1px -2px 3px"},
                       {text, "-webkit-text-stroke-width", "2px"},
                       {text + " span", "color", "rgb(192, 0, 0)"},
                       {text + " span", "vertical-align", "super"},
                       {"#capped span", "float", "left"},
                       {"#capped span", "font-size", "54px"},
                       {"#capped span", "color", "rgb(255, 128, 0)"}});
    EXPECT_EQ(page.run("document.querySelector('#styled a').href"), "https://a.example/");
    EXPECT_EQ(page.run("document.querySelector('#capped span').textContent"), "O");
}

TEST(PageLook, stylesOfComponentsReachTheBox) {
    BrowserPage page(1180, 820);
    show(page, R"({"role":"container","identifier":"box","style":{"backgroundColor":"#ABCDEF","opacity":0.5,
            "border":{"all":{"width":3,"style":"dashed","color":"#112233"},"left":false},
            "mask":{"type":"corners","radius":12,"topRight":false},
            "shadow":{"color":"#F00","opacity":0.25,"radius":8,"offset":{"x":2,"y":4}}},
          "components":[{"role":"body","text":"t"}]},
        {"role":"container","identifier":"filled","layout":{"minimumHeight":200},
          "style":{"fill":{"type":"linear_gradient","angle":90,
            "colorStops":[{"color":"#FF0000","location":0},{"color":"#0000FF","location":100}]}},
          "components":[]})");
    const std::string box = "#box .container";
    expectLooks(page, {{box, "background-color", "rgb(171, 205, 239)"},
                       {box, "opacity", "0.5"},
                       {box, "border-top", "3px dashed rgb(17, 34, 51)"},
                       {box, "border-left-width", "0px"},
                       {box, "border-radius", "12px 0px 12px 12px"},
                       {box, "overflow", "hidden"},
                       {box, "box-shadow", "rgba(255, 0, 0, 0.25) 2px 4px 8px 0px"},
                       {"#filled .container", "background-image",
                        "linear-gradient(90deg, rgb(255, 0, 0) 0%, rgb(0, 0, 255) 100%)"}});
    // 50 points of margin in a page of 1000, from red on the left to blue on the right.
    const int middle =
        std::stoi(page.run("document.querySelector('#filled').getBoundingClientRect().top")) + 100;
    EXPECT_THAT(page.colorAt(145, middle), MatchesRegex("#f.0.0."));
    EXPECT_THAT(page.colorAt(1034, middle), MatchesRegex("#0.0.f."));
}

TEST(PageLook, layoutsPlaceComponentsInTheGrid) {
    BrowserPage page(1180, 820);
    // A page of 1000 points in a window of 1180: from 90 to 1090, its content from 140 to 1040, and 4 columns
    // of 210 with gutters of 20.
    show(page, R"({"role":"body","identifier":"all","text":"t"},
        {"role":"body","identifier":"second","text":"t","layout":{"columnStart":1,"columnSpan":2}},
        {"role":"body","identifier":"beyond","text":"t","layout":{"columnStart":9,"columnSpan":9}},
        {"role":"body","identifier":"bleeding","text":"t","layout":{"ignoreViewportPadding":true}},
        {"role":"body","identifier":"outdented","text":"t","layout":{"ignoreDocumentMargin":true}},
        {"role":"body","identifier":"lengths","text":"t","layout":{"margin":{"top":"10pt","bottom":"50dm"},
            "minimumHeight":"10vh","maximumContentWidth":"50cw","contentInset":{"left":true},
            "columnStart":0,"columnSpan":2}},
        {"role":"container","identifier":"stack","contentDisplay":{"type":"horizontal_stack","gutter":7},
            "components":[{"role":"body","text":"a"},{"role":"body","text":"b"}]},
        {"role":"container","identifier":"collection","contentDisplay":{"type":"collection","rowSpacing":9},
            "components":[{"role":"body","text":"a"}]},
        {"role":"container","identifier":"inner","layout":{"columnStart":0,"columnSpan":2},
            "components":[{"role":"body","identifier":"half","text":"a",
                "layout":{"columnStart":2,"columnSpan":2}}]})");
    const struct {
        std::string selector;
        std::string sides; ///< left and right
    } places[] = {
        {".anf", "90,1090"},     {"#all", "140,1040"},    {"#second", "370,810"},
        {"#beyond", "830,1040"}, {"#bleeding", "0,1180"}, {"#outdented", "90,1090"},
        {"#lengths", "140,360"}, {"#inner", "140,580"},   {"#half", "370,580"},
    };
    for (const auto& place : places) {
        EXPECT_EQ(page.run("(r => [r.left, r.right].map(Math.round).join())(document.querySelector(`" +
                           place.selector + "`).getBoundingClientRect())"),
                  place.sides)
            << place.selector;
    }
    expectLooks(page, {{"#lengths", "margin-top", "10px"},
                       {"#lengths", "margin-bottom", "25px"},
                       {"#lengths", "min-height", "82px"},
                       {"#lengths", "max-width", "220px"},
                       {"#lengths", "padding-left", "16px"},
                       {"#lengths", "padding-right", "0px"},
                       {"#stack .container", "display", "flex"},
                       {"#stack .container", "column-gap", "7px"},
                       {"#collection .container", "flex-wrap", "wrap"},
                       {"#collection .container", "row-gap", "9px"},
                       {"#inner .container", "display", "grid"}});
    EXPECT_EQ(page.run("document.documentElement.scrollWidth"), "1180");
}

TEST(PageLook, aNarrowWindowFoldsTheGrid) {
    BrowserPage page(393, 852);
    const ArticleDocument article = articleOf(
        R"({"role":"body","identifier":"late","text":"t","layout":{"columnStart":3,"columnSpan":1}},
           {"role":"body","identifier":"long","text":"t","layout":{"columnStart":0,"columnSpan":4,
                "margin":100}})");
    const auto phone =
        previewEnvironment(PreviewDevice::iPhone, PreviewOrientation::portrait, 0, std::nullopt);
    ASSERT_TRUE(page.load(HTMLRenderer::renderPage(article, phone, 0)));
    // 1000 points in 393: 4 columns fold into 2, and margins of 50 and gutters of 20 shrink with the window.
    expectLooks(page, {{".anf", "column-gap", "7.86px"},
                       {".anf", "padding-left", "19.65px"},
                       {"#long", "margin-top", "39.3px"}});
    EXPECT_EQ(page.run("getComputedStyle(document.querySelector('.anf')).gridTemplateColumns.split(' ')"
                       ".map(width => Math.round(parseFloat(width)))"),
              "[173,173]");
    EXPECT_EQ(page.run("document.querySelector('#late').offsetLeft > 173"), "true");
    EXPECT_EQ(page.run("document.documentElement.scrollWidth"), "393");
}

/// The text of a picture's address takes its place, in the article's own form.
TEST(PageLook, aPictureThatDoesNotComeGivesWayToAPlaceholder) {
    BrowserPage page(1180, 820);
    show(page, R"({"role":"photo","identifier":"lost","URL":"bundle://no/Such Picture.jpg","caption":"Lost"},
        {"role":"photo","identifier":"away","URL":"https://pictures.example/a.png"},
        {"role":"photo","identifier":"unusable","URL":"picture.png"},
        {"role":"gallery","identifier":"strip","items":[{"URL":"bundle://x.png","caption":"x"}]})");
    EXPECT_EQ(page.run("document.images.length"), "0");
    EXPECT_EQ(page.run("[...document.querySelectorAll('.image-placeholder')].map(p => p.textContent)"),
              R"(["bundle://no/Such Picture.jpg","https://pictures.example/a.png","picture.png",)"
              R"("bundle://x.png"])");
    EXPECT_EQ(page.run("document.querySelector('#lost figcaption').textContent"), "Lost");
    expectLooks(page, {{"#lost .image-placeholder", "border-top-style", "dashed"},
                       {"#strip .image-placeholder", "background-color", "rgb(242, 242, 247)"}});
    EXPECT_EQ(page.refusedRequests(), std::vector<std::string>{"https://pictures.example/a.png"});
}

TEST(PageLook, anchorsLayChildrenOverTheirContainer) {
    BrowserPage page(1180, 820);
    const std::string child = R"({"role":"body","textStyle":{"lineHeight":40},"format":"html","text":"t",)";
    show(page, R"({"role":"container","identifier":"layers","layout":{"minimumHeight":400},"components":[
        {"role":"body","identifier":"flow","text":"t"},)" +
                   child + R"("identifier":"top","anchor":{"targetAnchorPosition":"top"}},)" + child +
                   R"("identifier":"center","anchor":{"targetAnchorPosition":"center"}},)" + child +
                   R"("identifier":"bottom","anchor":{"originAnchorPosition":"bottom"}}]})");
    // The page's own padding is above the container.
    EXPECT_EQ(edgesOf(page, "#layers .container"), "140,48,1040,448");
    EXPECT_EQ(edgesOf(page, "#top"), "140,48,1040,88");
    EXPECT_EQ(edgesOf(page, "#center"), "140,228,1040,268");
    EXPECT_EQ(edgesOf(page, "#bottom"), "140,408,1040,448");
    expectLooks(page, {{"#bottom", "position", "absolute"}, {"#flow", "position", "static"}});
}

/// The first child stays at the window's top while its container scrolls by.
TEST(PageLook, theHeaderOfAFadingSceneSticks) {
    BrowserPage page(1180, 820);
    const std::string scene = R"("scene":{"type":"fading_sticky_header","fadeColor":"#FF0000"},)"
                              R"("components":[{"role":"title","text":"Head"},{"role":"body","text":"a",)"
                              R"("layout":{"minimumHeight":600}},{"role":"body","text":"b",)"
                              R"("layout":{"minimumHeight":2000}}])";
    show(page, R"({"role":"section","identifier":"scene",)" + scene + "}");
    const std::string head = "#scene .scene-fading-sticky-header > .component";
    expectLooks(page, {{head, "position", "sticky"}, {head, "z-index", "1"}});
    EXPECT_EQ(page.run("getComputedStyle(document.querySelector('" + head + "'), '::after').backgroundColor"),
              "rgb(255, 0, 0)");
    EXPECT_EQ(page.run("getComputedStyle(document.querySelector('" + head + "'), '::after').opacity"),
              "0.22");
    page.run("scrollTo(0, 300)");
    page.settle();
    EXPECT_EQ(page.run("[scrollY, document.querySelector('" + head + "').getBoundingClientRect().top]"),
              "[300,0]");
}

TEST(PageLook, aDarkPageIsDark) {
    BrowserPage page(1180, 820);
    const std::string members =
        R"(,"documentStyle":{"backgroundColor":"#FFF0E0","conditional":[{"backgroundColor":"#101418",)"
        R"("conditions":[{"preferredColorScheme":"dark"}]}]})";
    const std::string body =
        R"({"role":"body","text":"t","style":{"backgroundColor":"#EEEEEE","conditional":[)"
        R"({"backgroundColor":"#223344","conditions":[{"preferredColorScheme":"dark"}]}]}})";
    show(page, body, members, PreviewAppearance::dark);
    expectLooks(page, {{"html", "color-scheme", "dark"},
                       {"body", "background-color", "rgb(16, 20, 24)"},
                       {"body", "color", "rgb(245, 245, 247)"},
                       {".role-body", "background-color", "rgb(34, 51, 68)"}});
    EXPECT_EQ(page.colorAt(5, 700), "#101418");
    show(page, body, members, PreviewAppearance::automatic);
    expectLooks(page, {{"html", "color-scheme", "light dark"},
                       {"body", "background-color", "rgb(255, 240, 224)"},
                       {"body", "color", "rgb(29, 29, 31)"},
                       {".role-body", "background-color", "rgb(238, 238, 238)"}});
}

} // namespace
} // namespace quillon::test
