#include "render/EmbedPlaceholder.h"

#include "render/EscapeHtml.h"
#include "render/MediaParts.h"
#include "render/UsableUrl.h"

namespace quillon::HTMLRenderer {

namespace {

/// The title's element and one of the details that are not empty, with a dot between two.
void writeTexts(std::string& out, std::string_view title, std::string_view detail,
                std::string_view secondDetail = {}) {
    out += "\n<div class=\"embed-title\">";
    escapeHTML(out, title);
    out += "</div>\n";
    std::string details(detail);
    appendDetail(details, secondDetail);
    if (!details.empty()) {
        out += "<div class=\"embed-detail\">";
        escapeHTML(out, details);
        out += "</div>";
    }
}

} // namespace

void renderEmbedPlaceholder(std::string& out, std::string_view title, std::string_view detail) {
    out += "<div class=\"embed-placeholder\">";
    writeTexts(out, title, detail);
    out += "\n</div>";
}

void renderLinkedPlaceholder(std::string& out, std::string_view title, std::string_view url,
                             std::string_view detail) {
    if (!isUsableURL(url)) {
        out += "<div class=\"embed-placeholder\">";
        writeTexts(out, title, url, detail);
        out += "\n</div>";
        return;
    }
    out += "<div class=\"embed-placeholder linked-embed-placeholder\">";
    writeTexts(out, title, url, detail);
    out += "\n<a class=\"embed-fallback-link\" href=\"";
    escapeHTML(out, url);
    out += "\">Open source</a>\n</div>";
}

} // namespace quillon::HTMLRenderer
