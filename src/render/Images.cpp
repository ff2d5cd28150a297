#include "render/Images.h"

#include "render/ComponentStyleCss.h"
#include "render/Conditions.h"
#include "render/EscapeHtml.h"
#include "render/MediaParts.h"
#include "render/StyleAttribute.h"
#include "render/TextStyleCss.h"
#include "render/UsableUrl.h"

namespace quillon::HTMLRenderer {

namespace {

/// The image at `url`, its address as the alternative text that a placeholder would show; or that placeholder
/// at once.
void writeImage(std::string& out, std::string_view url) {
    if (isUsableURL(url)) {
        out += "<img src=\"";
        escapeHTML(out, url);
        out += "\" alt=\"";
        escapeHTML(out, url);
        out += "\">";
        return;
    }
    out += "<div class=\"image-placeholder\">";
    escapeHTML(out, url.empty() ? "No image URL" : url);
    out += "</div>";
}

void renderGalleryItem(std::string& out, const GalleryItem& item, const PageContext& context) {
    out += "<figure>";
    writeImage(out, trimmedURL(item.URL));
    if (item.caption && !item.caption->empty()) {
        out += "<figcaption";
        const auto style = resolveComponentTextStyleRef(item.captionTextStyle, context);
        writeStyleAttribute(out, [&] { componentTextStyleCSS(out, style ? &*style : nullptr); });
        out += ">";
        escapeHTML(out, *item.caption);
        out += "</figcaption>";
    }
    out += "</figure>";
}

} // namespace

void renderImage(PageText& page, const Component& component, const PageContext& context) {
    std::string& out = page.out();
    out += "<figure class=\"image\"";
    const auto style = resolveComponentStyle(component.style, context);
    writeStyleAttribute(out, [&] { componentStyleCSS(out, style ? &*style : nullptr); });
    out += ">\n";
    writeImage(out, trimmedURL(component.URL));
    out += "\n";
    appendCaption(out, component.caption);
    out += "\n</figure>";
}

void renderCollection(PageText& page, const Component& component, const PageContext& context,
                      std::string_view kind) {
    if (!component.items || component.items->empty()) {
        page << "<div class=\"image-placeholder\">Empty " << kind << "</div>\n";
        return;
    }
    page << "<div class=\"" << kind << "\">\n";
    for (const GalleryItem& item : *component.items) {
        renderGalleryItem(page.out(), item, context);
        page << "\n";
    }
    page << "</div>\n";
}

} // namespace quillon::HTMLRenderer
