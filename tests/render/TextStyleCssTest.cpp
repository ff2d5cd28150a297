#include "render/TextStyleCss.h"
#include "render/TextFixture.h"

#include <gtest/gtest.h>

namespace quillon::HTMLRenderer {
namespace {

std::string cssOf(const ComponentTextStyle& style) {
    std::string css;
    componentTextStyleCSS(css, &style);
    return css;
}

std::string cssOf(const TextStyle& style) {
    std::string css;
    textStyleCSS(css, &style);
    return css;
}

TEST(TextStyleCss, declarationsOfBothFamilies) {
    struct Case {
        const char* style;
        const char* css;
    };
    constexpr Case cases[] = {
        {R"({})", ""},
        {R"({"tracking":0.0001})", "letter-spacing: 0.0001em;"},
        {R"({"tracking":-0.00005})", "letter-spacing: -0.00005em;"},
        {R"({"tracking":-0.0})", "letter-spacing: 0em;"},
        {R"({"tracking":1e18})", "letter-spacing: 1000000000000000000em;"},
        {R"({"tracking":0.30000000000000004})", "letter-spacing: 0.30000000000000004em;"},
        {R"({"strikethrough":{"color":"c"}})", "text-decoration: line-through;text-decoration-color: c;"},
        {R"({"underline":{},"strikethrough":{"color":"c"}})",
         "text-decoration: underline line-through;text-decoration-color: c;"},
        {R"({"fontName":"Al'Nile\";<b>&"})",
         "font-family: 'AlNileb&', -apple-system, 'SF Pro Text', 'Helvetica Neue', sans-serif;"},
        {R"({"fontName":"","fontFamily":"B"})",
         "font-family: '', -apple-system, 'SF Pro Text', 'Helvetica Neue', sans-serif;"},
        {R"({"fontFamily":"B"})",
         "font-family: 'B', -apple-system, 'SF Pro Text', 'Helvetica Neue', sans-serif;"},
        {R"({"fontSize":0})", "font-size: 0px;"},
        {R"({"fontSize":-9223372036854775808})", "font-size: -9223372036854775808px;"},
        {R"({"fontWeight":700})", "font-weight: 700;"},
        {R"({"fontWeight":"semi-bold\""})", "font-weight: semi-bold&quot;;"},
        {R"({"fontStyle":"italic&"})", "font-style: italic&amp;;"},
        {R"({"fontWidth":"semi_con_densed<"})", "font-stretch: semi-con-densed&lt;;"},
        {R"({"textColor":"\">"})", "color: &quot;&gt;;"},
        {R"({"backgroundColor":"#abc"})", "background-color: #abc;"},
        {R"({"tracking":0.05})", "letter-spacing: 0.05em;"},
        {R"({"tracking":-1})", "letter-spacing: -1em;"},
        {R"({"underline":true})", "text-decoration: underline;"},
        {R"({"underline":false,"strikethrough":true})", "text-decoration: line-through;"},
        {R"({"underline":false,"strikethrough":false})", ""},
        {R"({"underline":{},"strikethrough":{}})", "text-decoration: underline line-through;"},
        {R"({"underline":{"color":"red"},"strikethrough":{"color":"blue"}})",
         "text-decoration: underline line-through;text-decoration-color: red;"},
        {R"({"underline":true,"strikethrough":{"color":"\""}})",
         "text-decoration: underline line-through;text-decoration-color: &quot;;"},
        {R"({"textShadow":{}})", "text-shadow: 0px 0px 0px #000000;"},
        {R"({"textShadow":{"color":"#fff","opacity":0.5,"radius":2.5,"offset":{"x":-1,"y":3}}})",
         "text-shadow: -1px 3px 2.5px rgba(255, 255, 255, 0.5);"},
        {R"({"textShadow":{"offset":{"y":3}}})", "text-shadow: 0px 3px 0px #000000;"},
        {R"({"stroke":{}})", "-webkit-text-stroke: 1px #000000;"},
        {R"({"stroke":{"width":4,"color":"<"}})", "-webkit-text-stroke: 4px &lt;;"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.style);
        EXPECT_EQ(cssOf(readRecord<ComponentTextStyle>(c.style)), c.css);
        EXPECT_EQ(cssOf(readRecord<TextStyle>(c.style)), c.css);
    }
}

TEST(TextStyleCss, declarationsOfOneFamily) {
    struct Case {
        const char* style;
        const char* componentCss;
        const char* textCss;
    };
    constexpr Case cases[] = {
        {R"({"verticalAlignment":"superscript"})", "", "vertical-align: super; font-size: smaller;"},
        {R"({"verticalAlignment":"subscript"})", "", "vertical-align: sub; font-size: smaller;"},
        {R"({"verticalAlignment":"baseline"})", "", ""},
        {R"({"textAlignment":"justified"})", "text-align: justify;", ""},
        {R"({"textAlignment":"\"right"})", "text-align: &quot;right;", ""},
        {R"({"lineHeight":0})", "line-height: 0px;", ""},
        {R"({"hyphenation":true})", "hyphens: auto;", ""},
        {R"({"hyphenation":false})", "hyphens: none;", ""},
        {R"({"hangingPunctuation":true})", "hanging-punctuation: first last;", ""},
        {R"({"hangingPunctuation":false})", "", ""},
        {R"({"firstLineIndent":3,"paragraphSpacing":4,"dropCapStyle":{},"linkStyle":{"fontSize":3}})", "",
         ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.style);
        EXPECT_EQ(cssOf(readRecord<ComponentTextStyle>(c.style)), c.componentCss);
        EXPECT_EQ(cssOf(readRecord<TextStyle>(c.style)), c.textCss);
    }
}

TEST(TextStyleCss, orderOfDeclarations) {
    constexpr const char* style =
        R"({"stroke":{},"textShadow":{},"strikethrough":true,"hangingPunctuation":true,"hyphenation":true,
            "tracking":1,"lineHeight":2,"textAlignment":"left","backgroundColor":"b","textColor":"c",
            "fontWidth":"w","fontStyle":"s","fontWeight":1,"fontSize":3,"fontName":"F",
            "verticalAlignment":"subscript"})";
    const std::string first =
        "font-family: 'F', -apple-system, 'SF Pro Text', 'Helvetica Neue', sans-serif;font-size: 3px;"
        "font-weight: 1;font-style: s;font-stretch: w;color: c;background-color: b;";
    const std::string last =
        "text-decoration: line-through;text-shadow: 0px 0px 0px #000000;-webkit-text-stroke: 1px #000000;";
    EXPECT_EQ(cssOf(readRecord<ComponentTextStyle>(style)),
              first +
                  "text-align: left;line-height: 2px;letter-spacing: 1em;hyphens: auto;"
                  "hanging-punctuation: first last;" +
                  last);
    EXPECT_EQ(cssOf(readRecord<TextStyle>(style)),
              first + "letter-spacing: 1em;" + last + "vertical-align: sub; font-size: smaller;");
}

TEST(TextStyleCss, dropCaps) {
    struct Case {
        const char* style;
        const char* rest;
    };
    constexpr Case cases[] = {
        {R"({})", "font-size: 3em;"},
        {R"({"numberOfLines":5,"numberOfRaisedLines":2,"numberOfCharacters":9})", "font-size: 5em;"},
        {R"({"padding":7,"backgroundColor":"\"b","textColor":"<c","fontName":"F'"})",
         "font-size: 3em;font-family: 'F', -apple-system, 'SF Pro Text', 'Helvetica Neue', sans-serif;"
         "color: &lt;c;background-color: &quot;b;padding: 7px;"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.style);
        std::string css;
        dropCapCSS(css, readRecord<DropCapStyle>(c.style));
        EXPECT_EQ(css, std::string("float: left; line-height: 1; margin: 0.05em 0.08em 0 0;") + c.rest);
    }
}

TEST(TextStyleCss, listMarkers) {
    struct Case {
        const char* style;
        std::optional<std::string> value;
    };
    const Case cases[] = {
        {R"({})", std::nullopt},
        {R"({"character":"x"})", std::nullopt},
        {R"({"type":"decimal"})", "decimal"},
        {R"({"type":"decimal_leading_zero"})", "decimal-leading-zero"},
        {R"({"type":"lower_roman"})", "lower-roman"},
        {R"({"type":"upper_roman"})", "upper-roman"},
        {R"({"type":"lower_alphabetical"})", "lower-alpha"},
        {R"({"type":"upper_alphabetical"})", "upper-alpha"},
        {R"({"type":"bullet","character":"x"})", "disc"},
        {R"({"type":"none"})", "none"},
        {R"({"type":"square"})", std::nullopt},
        {R"({"type":"character"})", std::nullopt},
        {R"({"type":"character","character":""})", std::nullopt},
        {R"({"type":"character","character":"'"})", "''"},
        {R"({"type":"character","character":"a'b→"})", "'ab→'"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.style);
        EXPECT_EQ(listMarkerValue(readRecord<ListItemStyle>(c.style)), c.value);
    }
}

TEST(TextStyleCss, cascade) {
    constexpr const char* tables = R"("componentTextStyles":{
        "default":{"fontSize":1,"textColor":"default","linkStyle":{"textColor":"x","fontSize":4},
            "conditional":[{"conditions":[{"preferredColorScheme":"dark"}],"fontSize":9}]},
        "default-body":{"textColor":"body","linkStyle":{"fontStyle":"italic"},
            "conditional":[{"conditions":[{"preferredColorScheme":"dark"}],"fontStyle":"dim"}]},
        "own":{"textColor":"own","conditional":[{"conditions":[{"preferredColorScheme":"dark"}],
            "textColor":"night"}]}},)";
    struct Case {
        const char* component;
        const char* css;
        const char* darkCss;
        const char* linkCss;
    };
    constexpr Case cases[] = {
        {R"({"role":"title"})", "font-size: 1px;color: default;", "font-size: 9px;color: default;",
         "font-size: 4px;color: x;"},
        {R"({"role":"body"})", "font-size: 1px;color: body;", "font-size: 9px;font-style: dim;color: body;",
         "font-style: italic;"},
        {R"({"role":"body","textStyle":"missing"})", "font-size: 1px;color: body;",
         "font-size: 9px;font-style: dim;color: body;", "font-style: italic;"},
        {R"({"role":"body","textStyle":"own"})", "font-size: 1px;color: own;",
         "font-size: 9px;font-style: dim;color: night;", "font-style: italic;"},
        {R"({"role":"body","textStyle":{"fontSize":5,"linkStyle":{}}})", "font-size: 5px;color: body;",
         "font-size: 5px;font-style: dim;color: body;", ""},
        {R"({"role":"title","textStyle":{"fontSize":5,"conditional":[
             {"conditions":[{"preferredColorScheme":"dark"}],"fontSize":6}]}})",
         "font-size: 5px;color: default;", "font-size: 6px;color: default;", "font-size: 4px;color: x;"},
    };
    const TextFixture light(tables);
    const TextFixture dark(tables, PreviewAppearance::dark);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.component);
        const auto component = readRecord<Component>(c.component);
        const auto style = effectiveComponentTextStyle(component, light.context);
        ASSERT_TRUE(style);
        EXPECT_EQ(cssOf(*style), c.css);
        EXPECT_EQ(cssOf(*effectiveComponentTextStyle(component, dark.context)), c.darkCss);
        EXPECT_EQ(linkCSS(&*style, light.context), c.linkCss);
    }
    // The article's own record is as it was.
    EXPECT_EQ((*light.article.componentTextStyles).at("default")->textColor, "default");
}

TEST(TextStyleCss, cascadeWithoutStyles) {
    const TextFixture fixture;
    const auto styleOf = [&](const char* component) {
        return effectiveComponentTextStyle(readRecord<Component>(component), fixture.context);
    };
    EXPECT_FALSE(styleOf(R"({"role":"body"})"));
    EXPECT_FALSE(styleOf(R"({"role":"body","textStyle":"missing"})"));
    EXPECT_TRUE(styleOf(R"({"role":"body","textStyle":{}})"));
    EXPECT_EQ(linkCSS(nullptr, fixture.context), "");
}

} // namespace
} // namespace quillon::HTMLRenderer
