#include "render/TextContent.h"
#include "render/InlineMarkdown.h"
#include "render/TextFixture.h"

#include <gtest/gtest.h>

namespace quillon::HTMLRenderer {
namespace {

constexpr const char* capSpan =
    R"(<span style="float: left; line-height: 1; margin: 0.05em 0.08em 0 0;font-size: 3em;">)";

/// `text` with each "^" as the beginning of a drop cap.
std::string withCaps(std::string text) {
    for (size_t at = text.find('^'); at != std::string::npos; at = text.find('^', at)) {
        text.replace(at, 1, capSpan);
    }
    return text;
}

/// A component of `text` with a text style of its own.
Component textComponent(std::string text, TextFormat format, const char* textStyle) {
    Component component;
    component.text = std::move(text);
    component.format = format;
    component.textStyle =
        StyleRef<ComponentTextStyle>{Shared<ComponentTextStyle>(readRecord<ComponentTextStyle>(textStyle))};
    return component;
}

TEST(TextContent, formats) {
    struct Case {
        const char* article;
        const char* component;
        const char* html;
    };
    constexpr Case cases[] = {
        {"", R"({"role":"body","text":"*a*"})", "<p>*a*</p>"},
        {R"("textFormat":"markdown",)", R"({"role":"body","text":"*a*"})", "<p><em>a</em></p>"},
        {R"("textFormat":"html",)", R"({"role":"body","text":"<b>&"})", "<b>&"},
        {R"("textFormat":"html",)", R"({"role":"body","text":"<","format":"none"})", "<p>&lt;</p>"},
        {"", R"({"role":"body"})", "<p></p>"},
        {"", R"({"role":"article_title"})", "<p>Article Title</p>"},
        {"", R"({"role":"article_title","text":""})", "<p></p>"},
        {"", R"({"role":"article_title","format":"markdown"})", "<p>Article Title</p>"},
        {"", R"({"role":"body","format":"markdown"})", ""},
        {"", R"({"role":"body","format":"html"})", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.component);
        EXPECT_EQ(TextFixture(c.article).contentOf(c.component), c.html);
    }
}

TEST(TextContent, textStyleAttributesOfHtml) {
    struct Case {
        const char* text;
        const char* html;
    };
    constexpr Case cases[] = {
        {R"(<b data-anf-textstyle="red">x</b>)", R"(<b style="color: red;">x</b>)"},
        {R"(<b style="x" data-anf-textstyle="red">x</b>)", R"(<b style="x" style="color: red;">x</b>)"},
        {R"(<b data-anf-textstyle="none">x</b>)", "<b >x</b>"},
        {R"(<b data-anf-textstyle="missing">x</b>)", "<b >x</b>"},
        {R"(<b data-anf-textstyle="">x</b>)", R"(<b data-anf-textstyle="">x</b>)"},
        {R"(data-anf-textstyle="" data-anf-textstyle="red")", R"(data-anf-textstyle="" style="color: red;")"},
        {R"(data-anf-textstyle="red)", R"(data-anf-textstyle="red)"},
        {R"(data-anf-textstyle='red')", R"(data-anf-textstyle='red')"},
        {R"(data-anf-textstyle="dollar"data-anf-textstyle="red")",
         R"(style="color: $1\1$0;"style="color: red;")"},
    };
    const TextFixture fixture(
        R"("textStyles":{"red":{"textColor":"red"},"none":{},"dollar":{"textColor":"$1\\1$0"}},)");
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(fixture.contentOf(textComponent(c.text, TextFormat::html, "{}")), c.html);
    }
}

TEST(TextContent, linkStyle) {
    struct Case {
        TextFormat format;
        const char* text;
        const char* html;
    };
    constexpr Case cases[] = {
        {TextFormat::html, R"(<a href="x">y</a><a>)",
         R"(<a style="color: $1;" href="x">y</a><a style="color: $1;">)"},
        {TextFormat::html, R"(<a href="x" style="">y</a><A><abbr><a_><aé>)",
         R"(<a href="x" style="">y</a><A><abbr><a_><aé>)"},
        {TextFormat::html, "<a-b><a.style=", R"(<a style="color: $1;"-b><a.style=)"},
        {TextFormat::html,
         "<a datastyle=x><a éstyle=", R"(<a style="color: $1;" datastyle=x><a style="color: $1;" éstyle=)"},
        {TextFormat::html, "<a <a style=>", "<a <a style=>"},
        {TextFormat::html, "<a\n>style=<a", "<a style=\"color: $1;\"\n>style=<a style=\"color: $1;\""},
        {TextFormat::markdown, "[y](http://x)<a>",
         R"(<p><a style="color: $1;" href="http://x">y</a>&lt;a&gt;</p>)"},
        {TextFormat::markdown, "[y](x style=z)", R"(<p><a href="x style=z">y</a></p>)"},
    };
    const TextFixture fixture;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(fixture.contentOf(textComponent(c.text, c.format, R"({"linkStyle":{"textColor":"$1"}})")),
                  c.html);
        EXPECT_EQ(fixture.contentOf(textComponent(c.text, c.format, R"({"linkStyle":{}})")),
                  fixture.contentOf(textComponent(c.text, c.format, "{}")));
    }
}

TEST(TextContent, linkStyleHasVariants) {
    constexpr const char* style = R"({"linkStyle":{"textColor":"a","conditional":[
        {"conditions":[{"preferredColorScheme":"dark"}],"textColor":"b"}]}})";
    const Component component = textComponent("<a>", TextFormat::html, style);
    EXPECT_EQ(TextFixture().contentOf(component), R"(<a style="color: a;">)");
    EXPECT_EQ(TextFixture("", PreviewAppearance::dark).contentOf(component), R"(<a style="color: b;">)");
}

TEST(TextContent, listMarkers) {
    constexpr const char* style =
        R"({"unorderedListItems":{"type":"character","character":"$0"},"orderedListItems":{"type":"lower_roman"}})";
    struct Case {
        TextFormat format;
        const char* text;
        const char* html;
    };
    constexpr Case cases[] = {
        {TextFormat::html, R"(<ul><ul style="a"><ulx><ol class="b"></ol></ul>)",
         R"(<ul style="list-style-type: '$0';"><ul style="a"><ulx><ol style="list-style-type: lower-roman;" class="b"></ol></ul>)"},
        {TextFormat::markdown, "- a\n1. b\n",
         R"(<ul style="list-style-type: '$0';"><li>a</li></ul><ol style="list-style-type: lower-roman;"><li>b</li></ol>)"},
        {TextFormat::none, "<ul>", "<p>&lt;ul&gt;</p>"},
    };
    const TextFixture fixture;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(fixture.contentOf(textComponent(c.text, c.format, style)), c.html);
    }
    EXPECT_EQ(fixture.contentOf(
                  textComponent("<ul><ol>", TextFormat::html, R"({"unorderedListItems":{"type":"square"}})")),
              "<ul><ol>");
    EXPECT_EQ(
        fixture.contentOf(textComponent(
            "<ul>", TextFormat::html, R"({"unorderedListItems":{"type":"character","character":"\"<'&"}})")),
        "<ul style=\"list-style-type: '&quot;&lt;&amp;';\">");
}

TEST(TextContent, dropCaps) {
    struct Case {
        TextFormat format;
        const char* style; ///< the fields of the drop cap
        const char* text;
        const char* html; ///< "^" for the span
    };
    constexpr TextFormat html = TextFormat::html;
    constexpr TextFormat markdown = TextFormat::markdown;
    constexpr TextFormat plain = TextFormat::none;
    constexpr Case cases[] = {
        {html, R"({})", "abc", "^a</span>bc"},
        {html, R"({"numberOfCharacters":2})", "<p>\r\n <b class='<'>\u00A0\u3000abc",
         "<p>\r\n <b class='<'>\u00A0\u3000^ab</span>c"},
        {html, R"({"numberOfCharacters":5})", "ab<i>c", "^ab</span><i>c"},
        {html, R"({"numberOfCharacters":5})", "ab&amp;c", "^ab</span>&amp;c"},
        {html, R"({"numberOfCharacters":9223372036854775807})", "abc", "^abc</span>"},
        {html, R"({})", "<p>&lt;", "<p>&lt;"},
        {html, R"({})", "<p> ", "<p> "},
        {html, R"({})", "<p", "<p"},
        {html, R"({})", "", ""},
        {html, R"({"numberOfCharacters":0})", "abc", "abc"},
        {html, R"({"numberOfCharacters":-1})", "abc", "abc"},
        {html, R"({})", "e\u0301bc", "^e\u0301</span>bc"},
        {html, R"({"numberOfCharacters":2})", "👩‍👩‍👧🇩🇪x",
         "^👩‍👩‍👧🇩🇪</span>x"},
        {html, R"({})", "<b></b><i>x", "<b></b><i>^x</span>"},
        {markdown, R"({"numberOfCharacters":3})", "# *a*bc", "<h1><em>^a</span></em>bc</h1>"},
        {markdown, R"({"numberOfCharacters":3})", "- abcd", "<ul><li>^abc</span>d</li></ul>"},
        {markdown, R"({})", "<x", "<p>&lt;x</p>"},
        {markdown, R"({})", "---", "<hr>"},
        {plain, R"({})", "abc\n\nd", "<p>^a</span>bc</p><p>d</p>"},
        {plain, R"({"numberOfCharacters":5})", "ab\n\ncdef", "<p>^ab</span></p><p>cdef</p>"},
        {plain, R"({"numberOfCharacters":2})", " <b", "<p>^ &lt;</span>b</p>"},
        {plain, R"({"numberOfCharacters":2})", "🇩🇪\r\nb", "<p>^🇩🇪\r<br></span>b</p>"},
        {plain, R"({})", "\n\nd", "<p></p><p>d</p>"},
        {plain, R"({"numberOfCharacters":0})", "a", "<p>a</p>"},
        {plain, R"({})", "", "<p></p>"},
    };
    const TextFixture fixture;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        const std::string style = std::string(R"({"dropCapStyle":)") + c.style + "}";
        EXPECT_EQ(fixture.contentOf(textComponent(c.text, c.format, style.c_str())), withCaps(c.html));
    }
}

TEST(TextContent, markdownBlocks) {
    struct Case {
        std::string text;
        std::string html;
    };
    const Case cases[] = {
        {"", ""},
        {"\n \t\n", ""},
        {"a\nb", "<p>a<br>b</p>"},
        {"  a  \n\tb\n\nc", "<p>  a  <br>\tb</p><p>c</p>"},
        {"a\r\n\r\nb", "<p>a\r<br>\r<br>b</p>"},
        {"a\n\u00A0\nb", "<p>a<br>\u00A0<br>b</p>"},
        {"<&>\"'", "<p>&lt;&amp;&gt;&quot;'</p>"},
        {std::string("a\0b", 3), std::string("<p>a\0b</p>", 10)},
        // Headings
        {"# a\n## b", "<h1>a</h1><h2>b</h2>"},
        {" ######  a #\t", "<h6>a #</h6>"},
        {"####### a", "<p>####### a</p>"},
        {"#a", "<p>#a</p>"},
        {"#\ta", "<p>#\ta</p>"},
        {"# ", "<p># </p>"},
        {"######", "<p>######</p>"},
        {"a\n# **b** <c>", "<p>a</p><h1><strong>b</strong> &lt;c&gt;</h1>"},
        // Rules
        {"a\n---\nb\n ***\t\n___", "<p>a</p><hr><p>b</p><hr><hr>"},
        {"----\n- - -\n* * *\n", "<p>----</p><ul><li>- -</li><li><em> </em></li></ul>"},
        {"--- a", "<p>--- a</p>"},
        // Code
        {"a\n```cpp\n *b* <c>\n\n# d\n~~~ e\nf",
         "<p>a</p><pre><code> *b* &lt;c&gt;\n\n# d</code></pre><p>f</p>"},
        {"```\n```", "<pre><code></code></pre>"},
        {"```\n\n```", "<pre><code></code></pre>"},
        {"```\n\n\n```", "<pre><code>\n</code></pre>"},
        {"  ~~~", "<pre><code></code></pre>"},
        {"```\na\n", "<pre><code>a\n</code></pre>"},
        {"``\na", "<p>``<br>a</p>"},
        // Quotes
        {"> a\n>b\n  >\t*c*\nd", "<blockquote><p>a b <em>c</em></p></blockquote><p>d</p>"},
        {">", "<blockquote><p></p></blockquote>"},
        {">\n>> a\n\n> b", "<blockquote><p> &gt; a</p></blockquote><blockquote><p>b</p></blockquote>"},
        {"a\n> # b", "<p>a</p><blockquote><p># b</p></blockquote>"},
        // Lists
        {"- a\n * **b**\n\t+  c \n1) d\n23. e\n-f",
         "<ul><li>a</li><li><strong>b</strong></li><li>c</li></ul><ol><li>d</li><li>e</li></ol><p>-f</p>"},
        {"- a\n\n- b", "<ul><li>a</li></ul><ul><li>b</li></ul>"},
        {"a\n- b\n---", "<p>a</p><ul><li>b</li></ul><hr>"},
        {"- ", "<p>- </p>"},
        {"1.\n1.a\n1 a\n. a\n1] b", "<p>1.<br>1.a<br>1 a<br>. a<br>1] b</p>"},
        {"- # a\n- ```", "<ul><li># a</li><li>```</li></ul>"},
        {"٣. a", "<p>٣. a</p>"},
    };
    const TextFixture fixture;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(fixture.contentOf(textComponent(c.text, TextFormat::markdown, "{}")), c.html);
    }
}

TEST(TextContent, inlineMarkdown) {
    struct Case {
        const char* text;
        const char* html;
    };
    constexpr Case cases[] = {
        {"a\n\nb", "a<br><br>b"},
        {"**a** *b*", "<strong>a</strong> <em>b</em>"},
        {"***a***", "<strong><em>a</strong></em>"},
        {"**a\nb**", "<strong>a<br>b</strong>"},
        {"**a\r\nb**", "**a\r<br>b**"},
        {"*a\u2028b* *c*", "*a\u2028b<em> </em>c*"},
        {"****", "****"},
        {"*****", "<strong>*</strong>"},
        {"**a*b**", "<strong>a*b</strong>"},
        {"*a**b*", "<em>a**b</em>"},
        {"* a * b *", "<em> a </em> b *"},
        {"**a", "**a"},
        {"_a_ `b`", "_a_ `b`"},
        {"[a](b)", R"(<a href="b">a</a>)"},
        {"[**a**](javascript:x?a&amp;b)", R"(<a href="javascript:x?a&amp;b"><strong>a</strong></a>)"},
        {"[a]()) [](b)", "<a href=\")\">a</a> [](b)"},
        {"[a][b](c)", R"(<a href="c">a][b</a>)"},
        {"[a](b\u0085) [c](d)", "[a](b\u0085) <a href=\"d\">c</a>"},
        {"[a](b", "[a](b"},
        {"[$1\\](\\$2)", R"(<a href="\$2">$1\</a>)"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        std::string html;
        renderInlineMarkdown(html, c.text);
        EXPECT_EQ(html, c.html);
    }
}

TEST(TextContent, paragraphAttribute) {
    struct Case {
        const char* style;
        const char* attribute;
    };
    constexpr Case cases[] = {
        {R"({"paragraphSpacing":0})", R"( style="margin: 0 0 0px;")"},
        {R"({"firstLineIndent":-4})", R"( style="text-indent: -4px;")"},
        {R"({"paragraphSpacing":12,"firstLineIndent":20})",
         R"( style="margin: 0 0 12px;text-indent: 20px;")"},
    };
    const TextFixture fixture;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.style);
        const std::string paragraph = std::string("<p") + c.attribute + ">";
        EXPECT_EQ(fixture.contentOf(textComponent("a\n\nb", TextFormat::none, c.style)),
                  paragraph + "a</p>" + paragraph + "b</p>");
        EXPECT_EQ(fixture.contentOf(textComponent("a\n\n# b\n- c", TextFormat::markdown, c.style)),
                  paragraph + "a</p><h1>b</h1><ul><li>c</li></ul>");
        EXPECT_EQ(fixture.contentOf(textComponent("a", TextFormat::html, c.style)), "a");
    }
}

TEST(TextContent, plainTextWithRanges) {
    struct Case {
        const char* text;
        const char* ranges;
        const char* html;
    };
    constexpr Case cases[] = {
        {"a\nb", "", "<p>a<br>b</p>"},
        {"ab\n\ncd", R"("inlineTextStyles":[{"rangeStart":3,"rangeLength":1,"textStyle":"r"}])",
         "<p>ab</p><p>cd</p>"},
        {"ab\n\ncd", R"("inlineTextStyles":[{"rangeStart":4,"rangeLength":1,"textStyle":"r"}])",
         R"(<p>ab</p><p><span style="color: r;">c</span>d</p>)"},
        {"ab\n\n\n\ncd", R"("inlineTextStyles":[{"rangeStart":1,"rangeLength":6,"textStyle":"r"}])",
         R"(<p>a<span style="color: r;">b</span></p><p></p><p><span style="color: r;">c</span>d</p>)"},
        {"👩‍👩‍👧e\u0301\r\n<x",
         R"("inlineTextStyles":[{"rangeStart":1,"rangeLength":2,"textStyle":"r"}])",
         "<p>👩‍👩‍👧<span style=\"color: r;\">e\u0301\r<br></span>&lt;x</p>"},
        {"abcd",
         R"("inlineTextStyles":[{"rangeStart":0,"rangeLength":3,"textStyle":"r"},{"rangeStart":1,"rangeLength":9,"textStyle":{"fontSize":2}}])",
         R"(<p><span style="color: r;">a</span><span style="color: r;font-size: 2px;">bc</span><span style="font-size: 2px;">d</span></p>)"},
        {"abcd",
         R"("inlineTextStyles":[{"rangeStart":0,"rangeLength":2,"textStyle":"r"},{"rangeStart":2,"rangeLength":1,"textStyle":"r"}])",
         R"(<p><span style="color: r;">abc</span>d</p>)"},
        {"abc", R"("inlineTextStyles":[{"rangeStart":-5,"rangeLength":6,"textStyle":"r"},
            {"rangeStart":2,"rangeLength":9223372036854775807,"textStyle":"r"},
            {"rangeStart":9223372036854775807,"rangeLength":9223372036854775807,"textStyle":"r"}])",
         R"(<p><span style="color: r;">a</span>b<span style="color: r;">c</span></p>)"},
        {"abc",
         R"("inlineTextStyles":[{"rangeStart":0,"rangeLength":0,"textStyle":"r"},{"rangeStart":0,"rangeLength":-1,"textStyle":"r"},
            {"rangeLength":1,"textStyle":"r"},{"rangeStart":0,"textStyle":"r"},{"rangeStart":0,"rangeLength":1,"textStyle":"missing"},
            {"rangeStart":0,"rangeLength":1,"textStyle":"empty"},{"rangeStart":0,"rangeLength":1}])",
         "<p>abc</p>"},
        {"abc", R"("additions":[{"type":"link","URL":"http://x?\"&","rangeStart":1,"rangeLength":1}])",
         R"(<p>a<a href="http://x?&quot;&amp;"><span style="color: l;">b</span></a>c</p>)"},
        {"abc",
         R"("additions":[{"URL":"bundle://x","rangeStart":0,"rangeLength":1},{"URL":"HTTP://x","rangeStart":1,"rangeLength":1}])",
         R"(<p><span style="color: l;">a</span><span style="color: l;">b</span>c</p>)"},
        {"abc",
         R"("additions":[{"type":"note","URL":"http://x","rangeStart":0,"rangeLength":1},{"rangeStart":0,"rangeLength":1}])",
         "<p>abc</p>"},
        {"abc",
         R"("additions":[{"URL":"https://x","rangeStart":0,"rangeLength":3},{"URL":"https://y","rangeStart":1,"rangeLength":1}],
            "inlineTextStyles":[{"rangeStart":1,"rangeLength":1,"textStyle":"r"}])",
         R"(<p><a href="https://x"><span style="color: l;">a</span></a><a href="https://y"><span style="color: r;color: l;color: l;">b</span></a><a href="https://x"><span style="color: l;">c</span></a></p>)"},
        {"abc",
         R"("additions":[{"URL":"https://x","rangeStart":0,"rangeLength":3},{"URL":"ftp://y","rangeStart":1,"rangeLength":1}])",
         R"(<p><a href="https://x"><span style="color: l;">a</span></a><span style="color: l;color: l;">b</span><a href="https://x"><span style="color: l;">c</span></a></p>)"},
    };
    const TextFixture fixture(
        R"("textStyles":{"r":{"textColor":"r"},"empty":{}},"componentTextStyles":{"default":{"linkStyle":{"textColor":"l"}}},)");
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.text) + c.ranges);
        auto component =
            readRecord<Component>(R"({"role":"body")" + std::string(*c.ranges ? "," : "") + c.ranges + "}");
        component.text = std::string(c.text);
        EXPECT_EQ(fixture.contentOf(component), c.html);
    }
}

TEST(TextContent, dropCapLiesOverRanges) {
    const TextFixture fixture;
    EXPECT_EQ(
        fixture.contentOf(
            R"({"role":"body","text":"ab","textStyle":{"dropCapStyle":{}},
                      "additions":[{"URL":"https://x","rangeStart":0,"rangeLength":2}],
                      "inlineTextStyles":[{"rangeStart":0,"rangeLength":2,"textStyle":{"fontSize":2}}]})"),
        R"(<p><a href="https://x"><span style="font-size: 2px;float: left; line-height: 1; margin: 0.05em 0.08em 0 0;font-size: 3em;">a</span></a>)"
        R"(<a href="https://x"><span style="font-size: 2px;">b</span></a></p>)");
}

TEST(TextContent, stepsOfHtmlFollowEachOther) {
    const TextFixture fixture(R"("textStyles":{"red":{"textColor":"red"}},)");
    const auto contentOf = [&](const char* text, const char* style) {
        return fixture.contentOf(textComponent(text, TextFormat::html, style));
    };
    EXPECT_EQ(contentOf(R"(<a data-anf-textstyle="red"><a data-anf-textstyle="missing">)",
                        R"({"linkStyle":{"textColor":"l"}})"),
              R"(<a style="color: red;"><a style="color: l;" >)");
    EXPECT_EQ(
        contentOf("<a <ul>", R"({"linkStyle":{"textColor":"l"},"unorderedListItems":{"type":"bullet"}})"),
        R"(<a <ul style="list-style-type: disc;">)");
    EXPECT_EQ(contentOf("<ul>", R"({"unorderedListItems":{"type":"character","character":"\"><b>"}})"),
              R"(<ul style="list-style-type: '&quot;&gt;&lt;b&gt;';">)");
}

TEST(TextContent, namedStylesHaveVariants) {
    constexpr const char* tables = R"("textStyles":{"v":{"textColor":"a","conditional":[
        {"conditions":[{"preferredColorScheme":"dark"}],"textColor":"b"}]}},)";
    const Component html = textComponent(R"(<b data-anf-textstyle="v">)", TextFormat::html, "{}");
    const auto plain = readRecord<Component>(
        R"({"role":"body","text":"x","inlineTextStyles":[{"rangeStart":0,"rangeLength":1,"textStyle":"v"}]})");
    const TextFixture light(tables);
    const TextFixture dark(tables, PreviewAppearance::dark);
    EXPECT_EQ(light.contentOf(html), R"(<b style="color: a;">)");
    EXPECT_EQ(dark.contentOf(html), R"(<b style="color: b;">)");
    EXPECT_EQ(light.contentOf(plain), R"(<p><span style="color: a;">x</span></p>)");
    EXPECT_EQ(dark.contentOf(plain), R"(<p><span style="color: b;">x</span></p>)");
}

} // namespace
} // namespace quillon::HTMLRenderer
