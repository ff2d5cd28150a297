#include "render/MediaParts.h"

#include "base/UnicodeText.h"
#include "render/EscapeHtml.h"

namespace quillon::HTMLRenderer {

std::string_view trimmedURL(const Component& component) {
    return trimmed(textOrEmpty(component.URL));
}

void appendCaption(std::string& out, const Component& component) {
    const std::string_view caption = textOrEmpty(component.caption);
    if (caption.empty()) {
        return;
    }
    out += "<figcaption>";
    escapeHTML(out, caption);
    out += "</figcaption>";
}

void appendDetail(std::string& details, std::string_view piece) {
    if (piece.empty()) {
        return;
    }
    if (!details.empty()) {
        details += " · ";
    }
    details += piece;
}

} // namespace quillon::HTMLRenderer
