#include "render/EscapeHtml.h"

namespace quillon::HTMLRenderer {

namespace {

std::string_view entityOf(char c) {
    switch (c) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    default:
        return {};
    }
}

} // namespace

void escapeHTML(std::string& out, std::string_view text) {
    size_t copied = 0;
    for (size_t at = 0; at < text.size(); ++at) {
        const std::string_view entity = entityOf(text[at]);
        if (!entity.empty()) {
            out.append(text, copied, at - copied);
            out += entity;
            copied = at + 1;
        }
    }
    out.append(text, copied);
}

std::string escapeHTML(std::string_view text) {
    std::string out;
    escapeHTML(out, text);
    return out;
}

} // namespace quillon::HTMLRenderer
