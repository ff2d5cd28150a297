#include "base/Regex.h"
#include "base/UnicodeText.h"
#include "render/EscapeHtml.h"
#include "render/InlineMarkdown.h"
#include "render/PlainText.h"
#include "render/TagStyles.h"
#include "render/TextFixture.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>

/// The passes over a text against the plain statement of what they do, and texts made to take long.
namespace quillon::HTMLRenderer {
namespace {

constexpr size_t megabyte = 1 << 20;

/// A text of pieces drawn from `pieces`.
std::string drawText(const std::vector<std::string>& pieces) {
    const auto drawn =
        *rc::gen::scale(0.4, rc::gen::container<std::vector<std::string>>(rc::gen::elementOf(pieces)));
    std::string text;
    for (const std::string& piece : drawn) {
        text += piece;
    }
    return text;
}

std::string repeated(std::string_view piece, size_t size) {
    std::string text;
    while (text.size() < size) {
        text += piece;
    }
    return text;
}

RC_GTEST_PROP(TextContentLimits, inlineMarkdownIsThatOfThePatterns, ()) {
    static const Regex lineFeed("\n");
    static const Regex bold(R"(\*\*(.+?)\*\*)");
    static const Regex italic(R"((?<!\*)\*(?!\*)(.+?)(?<!\*)\*(?!\*))");
    static const Regex link(R"(\[(.+?)\]\((.+?)\))");
    const std::string text = drawText({"*", "*", "**", "[", "]", "](", "(", ")", "a", "é", "\n", "\r",
                                       "\u0085", "\u2028", "\v", "\u2027", "\u0084"});
    std::string expected = lineFeed.replaceAllLiterally(text, "<br>");
    expected = bold.replaceAllWithTemplate(expected, "<strong>$1</strong>");
    expected = italic.replaceAllWithTemplate(expected, "<em>$1</em>");
    expected = link.replaceAllWithTemplate(expected, R"(<a href="$2">$1</a>)");
    std::string html;
    renderInlineMarkdown(html, text);
    RC_ASSERT(html == expected);
}

RC_GTEST_PROP(TextContentLimits, markdownEscapesFirst, ()) {
    const std::string text = drawText({"*", "**", "[", "](", ")", "a", "<", "&", "\"", ">", " "});
    std::string inlineHtml;
    renderInlineMarkdown(inlineHtml, escapeHTML("x" + text + "x"));
    Component component;
    component.text = "x" + text + "x";
    component.format = TextFormat::markdown;
    RC_ASSERT(TextFixture().contentOf(component) == "<p>" + inlineHtml + "</p>");
}

RC_GTEST_PROP(TextContentLimits, styledTagsAreThoseOfThePattern, ()) {
    static const Regex anchor(R"(<a\b(?![^>]*\bstyle=))");
    static const Regex list(R"(<ul\b(?![^>]*\bstyle=))");
    const std::string text =
        drawText({"<a", "<ul", "<", "a", ">", " ", "style=", "_", "é", "€", "-", "1", "\n"});
    std::string html = text;
    styleTags(html, "<a", R"($1\)");
    RC_ASSERT(html == anchor.replaceAllLiterally(text, R"(<a style="$1\")"));
    html = text;
    styleTags(html, "<ul", "x");
    RC_ASSERT(html == list.replaceAllLiterally(text, R"(<ul style="x")"));
}

/// Tests every range on every character.
std::string renderCharacterByCharacter(const std::string& text, const std::vector<StyledRange>& ranges) {
    std::string out;
    int64_t position = 0;
    const auto writeRun = [&out](const std::string& run, const std::string& css,
                                 const std::optional<std::string>& link) {
        const bool isLinked = link && (link->starts_with("http://") || link->starts_with("https://"));
        const std::string inner = css.empty() ? run : "<span style=\"" + css + "\">" + run + "</span>";
        out += isLinked ? "<a href=\"" + escapeHTML(*link) + "\">" + inner + "</a>" : inner;
    };
    for (size_t begin = 0; begin <= text.size();) {
        const size_t end = std::min(text.find("\n\n", begin), text.size());
        const std::string_view paragraph = std::string_view(text).substr(begin, end - begin);
        out += "<p>";
        std::string run;
        std::string css;
        std::optional<std::string> link;
        CharacterCursor cursor(paragraph);
        while (const auto character = cursor.next()) {
            std::string nextCss;
            std::optional<std::string> nextLink;
            for (const StyledRange& range : ranges) {
                if (range.start <= position && position < range.end) {
                    nextCss += range.css;
                    nextLink = range.href ? range.href : nextLink;
                }
            }
            if (!run.empty() && (nextCss != css || nextLink != link)) {
                writeRun(run, css, link);
                run.clear();
            }
            css = nextCss;
            link = nextLink;
            escapeHTMLLines(run, *character);
            ++position;
        }
        if (!run.empty()) {
            writeRun(run, css, link);
        }
        out += "</p>";
        position += 2;
        begin = end + 2;
    }
    return out;
}

RC_GTEST_PROP(TextContentLimits, sweepIsThatOfEachCharacter, ()) {
    const std::string text = drawText(
        {"a", "b", "<", "\n", "\n\n", "\r\n", "e\u0301", "👩‍👧", "🇩🇪", "\u0301", "é", "plain text "});
    const auto number = rc::gen::oneOf(
        rc::gen::inRange<int64_t>(-3, 40),
        rc::gen::element(std::numeric_limits<int64_t>::min(), std::numeric_limits<int64_t>::max()));
    const auto ranges = *rc::gen::container<std::vector<StyledRange>>(rc::gen::build<StyledRange>(
        rc::gen::set(&StyledRange::start, number), rc::gen::set(&StyledRange::end, number),
        rc::gen::set(&StyledRange::css, rc::gen::element<std::string>("", "a;", "a;", "a;a;", "b;")),
        rc::gen::set(&StyledRange::href,
                     rc::gen::element<std::optional<std::string>>(std::nullopt, std::nullopt, "http://x",
                                                                  "https://y", "ftp://z"))));
    std::string html;
    renderPlainText(html, text, ranges, "");
    RC_ASSERT(html == renderCharacterByCharacter(text, ranges));
}

TEST(TextContentLimits, longTextsOfMarks) {
    struct Case {
        const char* format;
        std::vector<const char*> pieces;
    };
    const Case cases[] = {
        {"html",
         {"<", "<a", "<a ", "<a style=", "style=<a", "<ul", "<ol ", "<a éstyle=", "éstyle=<a", "\u00A0",
          "data-anf-textstyle=\"", "data-anf-textstyle=\"\" ", "data-anf-textstyle=\"x"}},
        {"markdown", {"*",      "***", "* ",    "**a ", "*a**", "[",   "[a](", "](",       "[]()",
                      "[a](b",  "(",   "<a",    "&",    ">",    ">\n", "#",    "# a\n",    "- \n",
                      "1. a\n", "1",   "```\n", "~",    "\n",   " ",   "**\r", "[\u2028]("}},
        {"none", {"<", "\n", "\n\n", "\r\n", "\u0301", "👩‍", "🇩"}},
    };
    const TextFixture fixture;
    auto component = readRecord<Component>(R"({"role":"body","text":"x","textStyle":{
        "dropCapStyle":{"numberOfCharacters":3},"linkStyle":{"fontSize":1},
        "unorderedListItems":{"type":"bullet"},"orderedListItems":{"type":"none"}}})");
    for (const Case& c : cases) {
        for (const char* piece : c.pieces) {
            SCOPED_TRACE(std::string(c.format) + " " + piece);
            component.format = readRecord<TextFormat>('"' + std::string(c.format) + '"');
            component.text = repeated(piece, megabyte) + "\nx";
            EXPECT_NE(fixture.contentOf(component).find('x'), std::string::npos);
        }
    }
}

TEST(TextContentLimits, everyCodePoint) {
    std::string text;
    for (uint32_t scalar = 0; scalar <= 0xFFFF; ++scalar) {
        if (scalar < 0x80) {
            text += static_cast<char>(scalar);
        } else if (scalar < 0x800) {
            text += static_cast<char>(0xC0 | (scalar >> 6));
            text += static_cast<char>(0x80 | (scalar & 0x3F));
        } else if (scalar < 0xD800 || scalar > 0xDFFF) {
            text += static_cast<char>(0xE0 | (scalar >> 12));
            text += static_cast<char>(0x80 | ((scalar >> 6) & 0x3F));
            text += static_cast<char>(0x80 | (scalar & 0x3F));
        }
    }
    for (const TextFormat format : {TextFormat::none, TextFormat::markdown, TextFormat::html}) {
        Component component;
        component.text = text;
        component.format = format;
        component.additions = std::vector<ComponentLink>(1);
        component.additions.edit()[0].URL = std::string("http://x");
        component.additions.edit()[0].rangeStart = 0;
        component.additions.edit()[0].rangeLength = 1'000'000;
        const std::string html = TextFixture().contentOf(component);
        EXPECT_TRUE(isValidUtf8(html));
        EXPECT_GE(html.size(), text.size());
    }
}

TEST(TextContentLimits, manyRanges) {
    constexpr int64_t count = 10'000;
    std::vector<StyledRange> apart;
    std::vector<StyledRange> nestedLinks;
    std::vector<StyledRange> alike;
    for (int64_t i = 0; i < count; ++i) {
        apart.push_back({i * 100, i * 100 + 50, "a;", std::nullopt});
        nestedLinks.push_back({i, 2 * count - i, "", "https://" + std::to_string(i % 2)});
        alike.push_back({i * 100, i * 100 + 100, "a;", std::nullopt});
    }
    const auto render = [](std::string_view piece, const std::vector<StyledRange>& ranges) {
        std::string html;
        renderPlainText(html, repeated(piece, megabyte), ranges, "");
        return html;
    };
    const auto countOf = [](std::string_view html, std::string_view what) {
        int64_t found = 0;
        for (size_t at = html.find(what); at != std::string_view::npos; at = html.find(what, at + 1)) {
            ++found;
        }
        return found;
    };
    const std::vector<StyledRange> covers(
        count, StyledRange{0, std::numeric_limits<int64_t>::max(), "font-size: 3px;", std::nullopt});
    EXPECT_EQ(countOf(render("\n", covers), "<p></p>"), static_cast<int64_t>(megabyte) / 2 + 1);
    EXPECT_EQ(countOf(render("a", apart), "<span"), count);
    EXPECT_EQ(countOf(render("a\n\n", alike), "<span"), (count * 100 + 2) / 3);
    EXPECT_EQ(countOf(render("a", alike), "<span"), 1);
    EXPECT_EQ(countOf(render("é", nestedLinks), "<a"), 2 * count - 1);
}

} // namespace
} // namespace quillon::HTMLRenderer
