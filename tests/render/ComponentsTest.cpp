#include "render/Components.h"
#include "render/PageFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillon::HTMLRenderer {
namespace {

using testing::HasSubstr;
using testing::Not;

/// What the grid of the article of PageFixture.h is in a wide viewport.
const std::string grid =
    "display: grid; grid-template-columns: repeat(4, minmax(0, 1fr)); column-gap: 20px; align-items: start;";

/// A component in its wrapper, which has no layout.
std::string wrapped(std::string_view fragment) {
    return "<div class=\"component\" data-component-id=\"ID\" style=\"grid-column: 1 / -1;\">" +
           std::string(fragment) + "</div>\n";
}

constexpr std::string_view rule = "<hr class=\"divider\">\n";

struct Fragment {
    std::string_view component;
    std::string fragment;
};

void expectFragments(std::initializer_list<Fragment> cases, std::string_view members = "") {
    for (const Fragment& expected : cases) {
        SCOPED_TRACE(expected.component);
        EXPECT_EQ(fragmentOf(expected.component, members), expected.fragment);
    }
}

TEST(Components, wrapper) {
    const struct {
        std::string_view component;
        std::string_view start;
    } cases[] = {
        {R"({"role":"divider"})",
         R"(<div class="component" data-component-id="ID" style="grid-column: 1 / -1;">)"},
        {R"({"role":"divider","identifier":""})",
         R"(<div class="component" data-component-id="ID" style="grid-column: 1 / -1;">)"},
        {R"({"role":"divider","identifier":"\"a\"&'b'"})",
         R"(<div class="component" id="&quot;a&quot;&amp;'b'" data-component-id="ID" )"
         R"(style="grid-column: 1 / -1;">)"},
        {R"({"role":"divider","layout":{"columnStart":1,"columnSpan":2},"animation":{"type":"fade_in"},)"
         R"("anchor":{"targetAnchorPosition":"top"}})",
         R"(<div class="component anim-fade-in anchor-parent-top" data-component-id="ID" )"
         R"(style="grid-column: 2 / span 2;align-self: start;--anf-initial-alpha: 0;">)"},
        {R"({"role":"divider","layout":"wide","animation":{"type":"spin"},)"
         R"("anchor":{"targetComponentIdentifier":"x","originAnchorPosition":"center"}})",
         R"(<div class="component anchor-target-center" data-component-id="ID" )"
         R"(style="grid-column: 1 / span 4;align-self: center;">)"},
    };
    for (const auto& expected : cases) {
        SCOPED_TRACE(expected.component);
        EXPECT_EQ(bodyOf(articleOf(expected.component, R"(,"componentLayouts":{"wide":{}})")),
                  std::string(expected.start) + std::string(rule) + "</div>\n");
    }
    EXPECT_EQ(bodyOf(articleOf(R"({"role":"spacer","animation":{"type":"appear"}})")),
              R"(<div class="component flexible-spacer-component anim-appear" data-component-id="ID" )"
              R"(style="grid-column: 1 / -1;"><div class="flexible-spacer"></div>)"
              "\n</div>\n");
    EXPECT_EQ(bodyOf(articleOf(R"({"role":"divider","style":{"backgroundColor":"red"},"stroke":{"width":3},)"
                               R"("textStyle":{"textColor":"red"}})")),
              wrapped(rule));
    EXPECT_EQ(bodyOf(articleOf("")), "");
    EXPECT_EQ(bodyOf(articleOf(R"({"role":"divider"},{"role":"divider"})")), wrapped(rule) + wrapped(rule));
}

TEST(Components, wrapperCarriesTheIdentity) {
    const ArticleDocument article = articleOf(R"({"role":"divider"})");
    const PreviewEnvironment environment = wideEnvironment();
    RenderState state;
    PageText page;
    renderBody(page, state.contextOf(article, environment));
    EXPECT_THAT(page.take(), HasSubstr("data-component-id=\"" + article.components.front().id.text() + "\""));
}

TEST(Components, hiddenOnesLeaveNothing) {
    const struct {
        std::string_view component;
        PreviewAppearance appearance;
        bool isShown;
    } cases[] = {
        {R"({"role":"divider","hidden":false})", PreviewAppearance::automatic, true},
        {R"({"role":"divider","hidden":true})", PreviewAppearance::automatic, false},
        {R"({"role":"container","hidden":true,"components":[{"role":"divider"}]})",
         PreviewAppearance::automatic, false},
        {R"({"role":"divider","conditional":[{"hidden":true}]})", PreviewAppearance::automatic, false},
        {R"({"role":"divider","hidden":true,"conditional":[{"hidden":false}]})", PreviewAppearance::automatic,
         true},
        {R"({"role":"divider","conditional":[{"hidden":true,"conditions":[{"preferredColorScheme":"dark"}]}]})",
         PreviewAppearance::automatic, true},
        {R"({"role":"divider","conditional":[{"hidden":true,"conditions":[{"preferredColorScheme":"dark"}]}]})",
         PreviewAppearance::dark, false},
    };
    for (const auto& expected : cases) {
        SCOPED_TRACE(expected.component);
        const std::string body = bodyOf(articleOf(expected.component), wideEnvironment(expected.appearance));
        EXPECT_EQ(body, expected.isShown ? wrapped(rule) : "");
    }
}

TEST(Components, textRoles) {
    constexpr std::string_view members =
        R"(,"componentTextStyles":{"default":{"textColor":"#111"},"default-title":{"fontSize":30},)"
        R"("night":{"conditional":[{"conditions":[{"preferredColorScheme":"dark"}],"textColor":"white"}]}},)"
        R"("componentStyles":{"night":{"opacity":1,"conditional":[{"opacity":0.5,)"
        R"("conditions":[{"preferredColorScheme":"dark"}]}]}})";
    expectFragments(
        {
            {R"({"role":"title","text":"A<B"})",
             "<div class=\"role-title\" style=\"font-size: 30px;color: #111;\"><p>A&lt;B</p></div>\n"},
            {R"({"role":"body","style":{"backgroundColor":"red"},"text":"a\nb"})",
             "<div class=\"role-body\" style=\"background-color: red;color: #111;\"><p>a<br>b</p></div>\n"},
            {R"({"role":"quote","style":"night","textStyle":"night","text":"a"})",
             "<div class=\"role-quote dk1\" style=\"opacity: 1;color: #111;\"><p>a</p></div>\n"},
        },
        members);
    expectFragments({
        {R"({"role":"body"})", "<div class=\"role-body\"><p></p></div>\n"},
        {R"({"role":"article_title"})", "<div class=\"role-article_title\"><p>Article Title</p></div>\n"},
        {R"({"role":"heading6","format":"html","text":"<i>a</i>"})",
         "<div class=\"role-heading6\"><i>a</i></div>\n"},
    });
}

TEST(Components, containers) {
    expectFragments({
        {R"({"role":"container"})", "<div class=\"container\" style=\"" + grid + "\">\n</div>\n"},
        {R"({"role":"aside","components":[]})",
         "<div class=\"container aside\" style=\"" + grid + "\">\n</div>\n"},
        {R"({"role":"section","components":[{"role":"divider"},{"role":"divider","hidden":true},)"
         R"({"role":"container","components":[{"role":"divider"}]}]})",
         "<div class=\"section\" style=\"" + grid + "\">\n" + wrapped(rule) +
             wrapped("<div class=\"container\" style=\"" + grid + "\">\n" + wrapped(rule) + "</div>\n") +
             "</div>\n"},
        {R"({"role":"chapter","style":{"backgroundColor":"red","fill":{"type":"none"}},)"
         R"("contentDisplay":{"type":"horizontal_stack"},)"
         R"("layout":{"ignoreDocumentMargin":true,"minimumHeight":10},"behavior":{"type":"parallax"},)"
         R"("scene":{"type":"fading_sticky_header","fadeColor":"#fff"}})",
         "<div class=\"section chapter scene-fading-sticky-header\" style=\"background-color: red;"
         "display: flex; flex-direction: row; gap: 0px; overflow-x: auto; align-items: flex-start;"
         "padding-left: 50px;padding-right: 50px;min-height: 10px;background-attachment: fixed;"
         "--anf-scene-fade-color: #fff;\">\n</div>\n"},
        // A behaviour asks for a fill.
        {R"({"role":"container","behavior":{"type":"background_parallax"},"style":{"backgroundColor":"red"}})",
         "<div class=\"container\" style=\"background-color: red;" + grid + "\">\n</div>\n"},
    });
}

TEST(Components, aChildTiedToItsParentMakesLayers) {
    const struct {
        std::string_view child;
        bool isLayered;
    } cases[] = {
        {R"("anchor":{})", true},
        {R"("anchor":{"targetAnchorPosition":"top"})", true},
        {R"("anchor":{"targetComponentIdentifier":"x"})", false},
        {R"("identifier":"x")", false},
        // Variants are left aside, and so is whether the child is shown.
        {R"("conditional":[{"anchor":{}}])", false},
        {R"("anchor":{},"hidden":true)", true},
    };
    for (const auto& expected : cases) {
        SCOPED_TRACE(expected.child);
        const std::string children =
            R"(,"components":[{"role":"divider"},{"role":"divider",)" + std::string(expected.child) + "}]}";
        const std::string scene = R"(,"scene":{"type":"parallax_scale"})";
        const std::string layered = expected.isLayered ? " layered-container" : "";
        EXPECT_THAT(fragmentOf(R"({"role":"aside")" + scene + children),
                    testing::StartsWith("<div class=\"container aside" + layered +
                                        " scene-parallax-scale\" style=\""));
        EXPECT_THAT(fragmentOf(R"({"role":"header")" + scene + children),
                    testing::StartsWith("<header class=\"header" + layered + "\" style=\""));
        EXPECT_THAT(
            fragmentOf(R"({"role":"header","style":{"fill":{"type":"image","URL":"bundle://a"}})" + children),
            HasSubstr("<div class=\"header-content" + layered + "\" style=\""));
    }
}

TEST(Components, headers) {
    expectFragments({
        {R"({"role":"header","components":[{"role":"divider"}],)"
         R"("layout":{"ignoreViewportPadding":"left","minimumHeight":"10vh"},)"
         R"("style":{"backgroundColor":"red","opacity":0.5,"mask":{"radius":4},)"
         R"("fill":{"type":"image","URL":"bundle://a\"b.png","verticalAlignment":"top","attachment":"fixed"}}})",
         "<header class=\"header\">\n<div class=\"header-hero\" style=\"background-image: "
         "url('bundle://a&quot;b.png'); background-position: center top;min-height: 10vh;"
         "border-radius: 4px 4px 4px 4px; overflow: hidden;opacity: 0.5;\"></div>\n"
         "<div class=\"header-content\" style=\"" +
             grid + "padding-left: 50px;\">\n" + wrapped(rule) + "</div>\n</header>"},
        {R"({"role":"header","layout":{"ignoreDocumentMargin":"right","minimumHeight":"10px"},)"
         R"("contentDisplay":{"type":"collection"},"components":[{"role":"divider"}],)"
         R"("style":{"backgroundColor":"red","fill":{"type":"image","URL":"a.png"}}})",
         "<header class=\"header\" style=\"background-color: red;" + grid +
             "padding-right: 50px;min-height: 10px;\">\n" + wrapped(rule) + "</header>\n"},
        {R"({"role":"header"})", "<header class=\"header\" style=\"" + grid + "\">\n</header>\n"},
        // The address of a fill is not trimmed.
        {R"({"role":"header","style":{"fill":{"type":"image","URL":" bundle://a"}}})",
         "<header class=\"header\" style=\"" + grid + "\">\n</header>\n"},
        {R"({"role":"header","style":{"fill":{"type":"video","URL":"bundle://a","stillURL":"b"}}})",
         "<header class=\"header\" style=\"" + grid + "\">\n</header>\n"},
    });
}

TEST(Components, images) {
    constexpr std::string_view noImage =
        "<figure class=\"image\">\n<div class=\"image-placeholder\">No image URL</div>\n\n</figure>";
    expectFragments({
        {R"({"role":"photo"})", std::string(noImage)},
        {R"({"role":"logo","URL":" \t\n","caption":""})", std::string(noImage)},
        {R"({"role":"portrait","URL":"\n bundle://a&b.png ","accessibilityCaption":"not shown",)"
         R"("textStyle":{"fontSize":3},"caption":" <c> ","style":{"opacity":0.25}})",
         "<figure class=\"image\" style=\"opacity: 0.25;\">\n<img src=\"bundle://a&amp;b.png\" "
         "alt=\"bundle://a&amp;b.png\">\n<figcaption> &lt;c&gt; </figcaption>\n</figure>"},
        {R"({"role":"figure","URL":" images/<a>.png ","caption":"c"})",
         "<figure class=\"image\">\n<div class=\"image-placeholder\">images/&lt;a&gt;.png</div>\n"
         "<figcaption>c</figcaption>\n</figure>"},
        {R"({"role":"article_thumbnail","URL":"https://a.example/"})",
         "<figure class=\"image\">\n<img src=\"https://a.example/\" "
         "alt=\"https://a.example/\">\n\n</figure>"},
        {R"({"role":"image","URL":"Bundle://a"})",
         "<figure class=\"image\">\n<div class=\"image-placeholder\">Bundle://a</div>\n\n</figure>"},
    });
}

TEST(Components, collections) {
    expectFragments(
        {
            {R"({"role":"gallery"})", "<div class=\"image-placeholder\">Empty gallery</div>\n"},
            {R"({"role":"mosaic","items":[]})", "<div class=\"image-placeholder\">Empty mosaic</div>\n"},
            {R"({"role":"mosaic","style":{"opacity":0},"items":[{"URL":" bundle://a&b ","caption":"<c>"}]})",
             "<div class=\"mosaic\">\n<figure><img src=\"bundle://a&amp;b\" alt=\"bundle://a&amp;b\">"
             "<figcaption>&lt;c&gt;</figcaption></figure>\n</div>\n"},
            {R"({"role":"gallery","items":[{"URL":"a"},{"caption":""},)"
             R"({"URL":"bundle://b","caption":{"text":"c","textStyle":{"fontSize":9}}},)"
             R"({"URL":"bundle://d","caption":{"text":"d","textStyle":"small"}},)"
             R"({"URL":"bundle://e","caption":{"text":"e","textStyle":"unknown"}}]})",
             "<div class=\"gallery\">\n"
             "<figure><div class=\"image-placeholder\">a</div></figure>\n"
             "<figure><div class=\"image-placeholder\">No image URL</div></figure>\n"
             "<figure><img src=\"bundle://b\" alt=\"bundle://b\">"
             "<figcaption style=\"font-size: 9px;\">c</figcaption></figure>\n"
             "<figure><img src=\"bundle://d\" alt=\"bundle://d\">"
             "<figcaption style=\"font-size: 8px;\">d</figcaption></figure>\n"
             "<figure><img src=\"bundle://e\" alt=\"bundle://e\"><figcaption>e</figcaption></figure>\n"
             "</div>\n"},
        },
        R"(,"componentTextStyles":{"small":{"fontSize":8,"conditional":[{"fontSize":7}]}})");
}

TEST(Components, articleLinks) {
    expectFragments({
        {R"({"role":"article_link"})", "<a class=\"article-link\">\n<span>Article</span></a>\n"},
        {R"({"role":"article_link","URL":"javascript:\"x\""})",
         "<a class=\"article-link\" href=\"javascript:&quot;x&quot;\">\n<span>Article</span></a>\n"},
        {R"({"role":"article_link","URL":"https://a.example/","articleIdentifier":"A<B"})",
         "<a class=\"article-link\" href=\"A&lt;B\">\n<span>A&lt;B</span></a>\n"},
        {R"({"role":"article_link","URL":"https://a.example/","articleIdentifier":""})",
         "<a class=\"article-link\">\n<span></span></a>\n"},
        {R"({"role":"article_link","articleIdentifier":"A","components":[{"role":"divider"}]})",
         "<a class=\"article-link\" href=\"A\">\n" + wrapped(rule) + "</a>\n"},
        {R"({"role":"article_link","articleIdentifier":"A","components":[{"role":"divider","hidden":true}]})",
         "<a class=\"article-link\" href=\"A\">\n<span>A</span></a>\n"},
    });
}

TEST(Components, unknownRoles) {
    const auto unknown = [](std::string_view inside) {
        return "<div class=\"unknown-role\">\n<div class=\"unknown-role-label\">" + std::string(inside) +
               "\n</div>";
    };
    expectFragments({
        {R"({"role":"<new>","URL":"bundle://a"})", unknown("&lt;new&gt;</div>\n")},
        {R"({"role":"","text":""})", unknown("</div>\n<div class=\"role-body\"><p></p></div>")},
        {R"({"role":"new","text":"a <b>\n\n\n**c**\n\n"})",
         unknown("new</div>\n<div class=\"role-body\"><p>a &lt;b&gt;</p><p><br><strong>c</strong></p>"
                 "<p></p></div>")},
        {R"({"role":"new","format":"html","text":"a <b>\n\nc","components":[{"role":"divider"}]})",
         unknown("new</div>\n<div class=\"role-body\">a <b>\n\nc</div>" + wrapped(rule))},
    });
    expectFragments(
        {{R"({"role":"new","text":"<b>"})", unknown("new</div>\n<div class=\"role-body\"><b></div>")},
         {R"({"role":"new","format":"markdown","text":"<b>"})",
          unknown("new</div>\n<div class=\"role-body\"><p>&lt;b&gt;</p></div>")}},
        R"(,"textFormat":"html")");
}

/// Each role reaches a writer of its own: a word that stands in its fragment alone.
TEST(Components, dispatchByRole) {
    const struct {
        std::string_view roles;
        std::string_view sign;
    } cases[] = {
        {"author body byline caption heading heading1 heading2 heading3 heading4 heading5 heading6 "
         "illustrator intro photographer pullquote quote title article_title",
         "<div class=\"role-"},
        {"photo image figure portrait logo article_thumbnail", "<figure class=\"image\">"},
        {"gallery", ">Empty gallery<"},
        {"mosaic", ">Empty mosaic<"},
        {"datatable", ">Empty table<"},
        {"htmltable", ">Empty HTML table<"},
        {"divider", "<hr "},
        {"spacer", "\"flexible-spacer\""},
        {"container", "\"container\""},
        {"aside", "\"container aside\""},
        {"section", "\"section\""},
        {"chapter", "\"section chapter\""},
        {"header", "<header "},
        {"article_link", "\"article-link\""},
        {"video", ">Video<"},
        {"audio", ">Audio<"},
        {"music", ">Music<"},
        {"podcast", ">Podcast<"},
        {"embedwebvideo", ">Web Video<"},
        {"map", ">Map<"},
        {"place", ">Place<"},
        {"instagram", ">Instagram<"},
        {"facebook_post", ">Facebook Post<"},
        {"tiktok", ">TikTok<"},
        {"button link_button", "\"anf-button\""},
        {"arkit", ">ARKit Scene<"},
        {"tweet", ">Tweet<"},
        {"banner_advertisement", ">Banner Ad<"},
        {"medium_rectangle_advertisement", ">Medium Rectangle Ad<"},
        {"replica_advertisement", ">Replica Ad<"},
        {"constructor Title", "\"unknown-role\""},
    };
    size_t named = 0;
    for (const auto& expected : cases) {
        for (std::string_view rest = expected.roles; !rest.empty();) {
            const std::string role(rest.substr(0, rest.find(' ')));
            rest.remove_prefix(std::min(role.size() + 1, rest.size()));
            named += ComponentRole::fromRawValue(role) != ComponentRole::other;
            EXPECT_THAT(fragmentOf("{\"role\":\"" + role + "\"}"), HasSubstr(expected.sign)) << role;
        }
    }
    EXPECT_EQ(named, ComponentRole::allNamed().size());
}

/// A style that is red by day and blue by night.
constexpr std::string_view nightStyle =
    R"("style":{"backgroundColor":"red","conditional":[{"backgroundColor":"blue",)"
    R"("conditions":[{"preferredColorScheme":"dark"}]}]})";

/// The class attributes of `html` that have a dark class, each closed with "; ".
std::string darkClasses(const std::string& html) {
    std::string classes;
    for (size_t at = 0; (at = html.find("<", at)) != std::string::npos; ++at) {
        const std::string tag = html.substr(at, html.find('>', at) - at);
        if (tag.find(" dk") != std::string::npos) {
            const size_t start = tag.find("class=\"") + 7;
            classes += tag.substr(start, tag.find('"', start) - start) + "; ";
        }
    }
    return classes;
}

TEST(Components, darkRulesAreNumberedChildrenFirst) {
    const std::string style(nightStyle);
    const ArticleDocument article =
        articleOf(R"({"role":"body",)" + style + R"(},{"role":"container",)" + style + R"(,"components":[)" +
                  R"({"role":"title",)" + style + R"(},{"role":"body","hidden":true,)" + style + R"(},)" +
                  R"({"role":"header",)" + style + R"(,"components":[{"role":"quote",)" + style + "}]}," +
                  R"({"role":"image",)" + style + R"(},{"role":"body"},{"role":"intro",)" + style + "}]}," +
                  R"({"role":"htmltable","html":"x",)" + style + "}");
    const PreviewEnvironment environment = wideEnvironment();
    RenderState state;
    PageText page;
    renderBody(page, state.contextOf(article, environment));
    const std::string body = page.take();

    EXPECT_EQ(darkClasses(body), "role-body dk1; container dk6; role-title dk2; header dk4; role-quote dk3; "
                                 "role-intro dk5; html-table dk7; ");
    EXPECT_THAT(state.darkCSS.rules, testing::SizeIs(7));
    EXPECT_THAT(state.darkCSS.rules, testing::Each(HasSubstr("{background-color: blue !important;}")));
}

TEST(Components, darkRulesOfRoles) {
    const std::string style(nightStyle);
    const std::string layered =
        R"(,"scene":{"type":"parallax_scale"},"components":[{"role":"divider","anchor":{}}]})";
    const struct {
        std::string component;
        std::string_view classes;
    } cases[] = {
        {R"({"role":"chapter",)" + style + layered,
         "section chapter layered-container scene-parallax-scale dk1; "},
        {R"({"role":"header",)" + style + layered, "header layered-container dk1; "},
        {R"({"role":"header","style":{"fill":{"type":"image","URL":"bundle://a"},"conditional":[{"opacity":0.5,)"
         R"("conditions":[{"preferredColorScheme":"dark"}]}]}})",
         ""},
        {R"({"role":"divider",)" + style + "}", ""},
        {R"({"role":"gallery","items":[{"URL":"bundle://a"}],)" + style + "}", ""},
        {R"({"role":"button",)" + style + "}", ""},
        {R"({"role":"video","URL":"bundle://a",)" + style + "}", ""},
        {R"({"role":"article_link",)" + style + "}", ""},
        {R"({"role":"new","text":"a",)" + style + "}", ""},
        // The text style of what shows no text of its own counts for nothing.
        {R"({"role":"container","textStyle":{"conditional":[{"textColor":"blue",)"
         R"("conditions":[{"preferredColorScheme":"dark"}]}]}})",
         ""},
    };
    for (const auto& expected : cases) {
        SCOPED_TRACE(expected.component);
        const ArticleDocument article = articleOf(expected.component);
        const PreviewEnvironment environment = wideEnvironment();
        RenderState state;
        PageText page;
        renderBody(page, state.contextOf(article, environment));
        EXPECT_EQ(darkClasses(page.take()), expected.classes);
        EXPECT_EQ(state.darkCSS.rules.size(), expected.classes.empty() ? 0 : 1);
    }
}

TEST(Components, variantsAreLaidOverTheComponent) {
    const ArticleDocument article = articleOf(
        R"({"role":"container","conditional":[{"conditions":[{"maxViewportWidth":500}],)"
        R"("layout":{"columnSpan":1},"style":{"opacity":0.5}}],"components":[{"role":"divider"}]})");
    PreviewEnvironment narrow = wideEnvironment();
    EXPECT_THAT(bodyOf(article, narrow), Not(HasSubstr("opacity")));
    narrow.viewportWidth = 500;
    const std::string body = bodyOf(article, narrow);
    EXPECT_THAT(body, HasSubstr("style=\"grid-column: 1 / span 1;\"><div class=\"container\" "
                                "style=\"opacity: 0.5;"));
    EXPECT_THAT(body, HasSubstr(rule));
}

/// `levels` containers in one another, made in memory, where nothing limits their depth; each has a dark
/// style and variants.
TEST(Components, deepTreesRender) {
    constexpr int levels = 2000;
    const ArticleDocument pattern =
        articleOf(R"({"role":"container","conditional":[{"hidden":false}],)" + std::string(nightStyle) +
                  "}," + R"({"role":"header"},{"role":"article_link"},{"role":"new"})");
    ArticleDocument article = articleOf("");
    Component innermost = articleOf(R"({"role":"divider"})").components.front();
    List<Component> tree{innermost};
    for (int level = 0; level < levels; ++level) {
        Component parent = pattern.components[static_cast<size_t>(level) % 4];
        parent.components = std::move(tree);
        tree = List<Component>{std::move(parent)};
    }
    article.components = tree;
    const std::string body = bodyOf(article);
    size_t wrappers = 0;
    for (size_t at = 0; (at = body.find("data-component-id", at)) != std::string::npos; ++at) {
        ++wrappers;
    }
    EXPECT_EQ(wrappers, levels + 1u);
    EXPECT_THAT(body, HasSubstr("class=\"container dk1\""));
    EXPECT_THAT(body, HasSubstr("class=\"container dk500\""));
}

} // namespace
} // namespace quillon::HTMLRenderer
