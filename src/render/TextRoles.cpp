#include "render/TextRoles.h"

#include "render/ComponentStyleCss.h"
#include "render/Conditions.h"
#include "render/Containers.h"
#include "render/DarkClass.h"
#include "render/EscapeHtml.h"
#include "render/InlineMarkdown.h"
#include "render/StyleAttribute.h"
#include "render/TextContent.h"
#include "render/TextStyleCss.h"

namespace quillon::HTMLRenderer {

namespace {

constexpr std::string_view paragraphBreak = "\n\n";

/// The dark class of a text: what the dark variants of its style and text style set.
std::string textDarkClass(const Component& component, const PageContext& context) {
    std::string textCSS;
    if (const auto textStyle = darkComponentTextStyle(component, context)) {
        componentTextStyleCSS(textCSS, &*textStyle);
    }
    return componentDarkClass(component, context, textCSS);
}

/// Writes each part of `text` between two line feeds as a paragraph of inline Markdown.
void writeParagraphs(std::string& out, std::string_view text) {
    while (true) {
        const size_t end = text.find(paragraphBreak);
        out += "<p>";
        renderInlineMarkdown(out, escapeHTML(text.substr(0, end)));
        out += "</p>";
        if (end == std::string_view::npos) {
            return;
        }
        text.remove_prefix(end + paragraphBreak.size());
    }
}

} // namespace

void renderTextRole(PageText& page, const Component& component, const PageContext& context) {
    std::string& out = page.out();
    const auto effective = effectiveComponentTextStyle(component, context);
    const ComponentTextStyle* textStyle = effective ? &*effective : nullptr;
    out.append("<div class=\"role-").append(component.role.rawValue());
    out.append(textDarkClass(component, context)).append("\"");
    writeStyleAttribute(out, [&] {
        const auto style = resolveComponentStyle(component.style, context);
        componentStyleCSS(out, style ? &*style : nullptr);
        componentTextStyleCSS(out, textStyle);
    });
    out += ">";
    renderTextContent(out, component, context, textStyle);
    out += "</div>\n";
}

void renderUnknownRole(PageText& page, const Component& component, const PageContext& context) {
    std::string& out = page.out();
    out += "<div class=\"unknown-role\">\n<div class=\"unknown-role-label\">";
    escapeHTML(out, component.role.rawValue());
    out += "</div>\n";
    if (component.text) {
        const auto format = component.format ? component.format : context.article.textFormat;
        out += "<div class=\"role-body\">";
        if (format == TextFormat::html) {
            out += *component.text;
        } else {
            writeParagraphs(out, *component.text);
        }
        out += "</div>";
    }
    renderChildren(page, component, context);
    page << "\n</div>";
}

} // namespace quillon::HTMLRenderer
