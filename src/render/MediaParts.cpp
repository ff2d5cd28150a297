#include "render/MediaParts.h"

#include "base/UnicodeText.h"
#include "render/EscapeHtml.h"

namespace quillon::HTMLRenderer {

std::string_view trimmedURL(const Optional<std::string>& url) {
    return trimmed(textOrEmpty(url));
}

void appendCaption(std::string& out, const Optional<std::string>& caption) {
    if (!caption || caption->empty()) {
        return;
    }
    out += "<figcaption>";
    escapeHTML(out, *caption);
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
