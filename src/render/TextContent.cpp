#include "render/TextContent.h"

#include "base/Numbers.h"
#include "base/UnicodeText.h"
#include "render/DropCap.h"
#include "render/HtmlText.h"
#include "render/Markdown.h"
#include "render/PlainText.h"
#include "render/TagStyles.h"
#include "render/TextStyleCss.h"

namespace quillon::HTMLRenderer {

namespace {

std::string_view textOf(const Component& component) {
    if (component.text) {
        return *component.text;
    }
    return component.role == ComponentRole::articleTitle ? "Article Title" : "";
}

/// The attribute of each paragraph, with its leading blank, or nothing.
std::string paragraphStyleAttribute(const ComponentTextStyle* style) {
    std::string css;
    if (style && style->paragraphSpacing) {
        css += "margin: 0 0 ";
        appendInteger(css, *style->paragraphSpacing);
        css += "px;";
    }
    if (style && style->firstLineIndent) {
        css += "text-indent: ";
        appendInteger(css, *style->firstLineIndent);
        css += "px;";
    }
    return css.empty() ? css : " style=\"" + css + "\"";
}

void applyLinkStyle(std::string& html, const ComponentTextStyle* style, const PageContext& context) {
    constexpr std::string_view anchor = "<a";
    if (style && style->linkStyle && html.find(anchor) != std::string::npos) {
        if (const std::string css = linkCSS(style, context); !css.empty()) {
            styleTags(html, anchor, css);
        }
    }
}

void renderHtml(std::string& out, std::string_view text, const PageContext& context,
                const ComponentTextStyle* style) {
    std::string html;
    resolveTextStyleAttributes(html, text, context);
    insertDropCap(html, style);
    applyListMarkers(html, style);
    applyLinkStyle(html, style, context);
    out += html;
}

void renderMarkdownText(std::string& out, std::string_view text, const PageContext& context,
                        const ComponentTextStyle* style) {
    const std::string attribute = paragraphStyleAttribute(style);
    if (dropCapCount(style) < 1 && !(style && style->linkStyle)) {
        renderMarkdown(out, text, attribute, style);
        return;
    }
    std::string html;
    renderMarkdown(html, text, attribute, style);
    insertDropCap(html, style);
    applyLinkStyle(html, style, context);
    out += html;
}

/// The drop cap as a range: it ends with the first paragraph.
StyledRange dropCapRange(std::string_view text, const ComponentTextStyle& style) {
    const std::string_view paragraph = text.substr(0, text.find("\n\n"));
    StyledRange range;
    for (size_t offset = 0; offset < paragraph.size() && range.end < dropCapCount(&style); ++range.end) {
        offset = nextCharacter(paragraph, offset);
    }
    dropCapCSS(range.css, *style.dropCapStyle);
    return range;
}

void renderPlain(std::string& out, std::string_view text, const Component& component,
                 const PageContext& context, const ComponentTextStyle* style) {
    std::vector<StyledRange> ranges = styledRanges(component, context, style);
    if (dropCapCount(style) > 0) {
        ranges.push_back(dropCapRange(text, *style));
    }
    renderPlainText(out, text, ranges, paragraphStyleAttribute(style));
}

} // namespace

void renderTextContent(std::string& out, const Component& component, const PageContext& context,
                       const ComponentTextStyle* textStyle) {
    const std::string_view text = textOf(component);
    const TextFormat documentFormat = context.article.textFormat.value_or(TextFormat::none);
    switch (component.format.value_or(documentFormat)) {
    case TextFormat::html:
        return renderHtml(out, text, context, textStyle);
    case TextFormat::markdown:
        return renderMarkdownText(out, text, context, textStyle);
    case TextFormat::none:
        return renderPlain(out, text, component, context, textStyle);
    }
}

} // namespace quillon::HTMLRenderer
