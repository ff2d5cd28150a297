#include "render/EscapeHtml.h"

#include <array>
#include <cstdint>

namespace quillon::HTMLRenderer {

namespace {

constexpr std::array<std::string_view, 6> replacements = {"", "&amp;", "&lt;", "&gt;", "&quot;", "<br>"};

/// For each byte the index of its replacement, 0 for those that stay.
using ReplacementTable = std::array<uint8_t, 256>;

constexpr ReplacementTable entityTable = [] {
    ReplacementTable table{};
    table['&'] = 1;
    table['<'] = 2;
    table['>'] = 3;
    table['"'] = 4;
    return table;
}();

constexpr ReplacementTable lineTable = [] {
    ReplacementTable table = entityTable;
    table['\n'] = 5;
    return table;
}();

void replaceBytes(std::string& out, std::string_view text, const ReplacementTable& table) {
    size_t copied = 0;
    for (size_t at = 0; at < text.size(); ++at) {
        if (const uint8_t index = table[static_cast<unsigned char>(text[at])]) [[unlikely]] {
            out.append(text, copied, at - copied).append(replacements[index]);
            copied = at + 1;
        }
    }
    out.append(text, copied);
}

} // namespace

void escapeHTML(std::string& out, std::string_view text) {
    replaceBytes(out, text, entityTable);
}

std::string escapeHTML(std::string_view text) {
    std::string out;
    escapeHTML(out, text);
    return out;
}

void escapeHTMLLines(std::string& out, std::string_view text) {
    replaceBytes(out, text, lineTable);
}

} // namespace quillon::HTMLRenderer
