#include "render/TagStyles.h"

#include "base/Regex.h"
#include "render/EscapeHtml.h"
#include "render/TextStyleCss.h"

namespace quillon::HTMLRenderer {

namespace {

bool continuesScalar(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// Whether the scalar that begins at `begin` is a letter, a digit or "_".
bool isWordScalar(std::string_view text, size_t begin) {
    const char first = text[begin];
    if (static_cast<unsigned char>(first) < 0x80) {
        return (first >= '0' && first <= '9') || (first >= 'A' && first <= 'Z') ||
               (first >= 'a' && first <= 'z') || first == '_';
    }
    static const Regex word(R"(^\w)");
    size_t end = begin + 1;
    while (end < text.size() && continuesScalar(text[end])) {
        ++end;
    }
    return word.contains(text.substr(begin, end - begin));
}

bool isWordAt(std::string_view text, size_t offset) {
    return offset < text.size() && isWordScalar(text, offset);
}

/// The same for the scalar that ends at `end`, which is not 0.
bool isWordBefore(std::string_view text, size_t end) {
    size_t begin = end - 1;
    while (begin > 0 && continuesScalar(text[begin])) {
        --begin;
    }
    return isWordScalar(text, begin);
}

/// The first "style=" at or behind `from` (not 0) that begins a word; npos when there is none.
size_t findStyleWord(std::string_view html, size_t from) {
    size_t at = html.find("style=", from);
    while (at != std::string_view::npos && isWordBefore(html, at)) {
        at = html.find("style=", at + 1);
    }
    return at;
}

void markLists(std::string& html, std::string_view opening, const Optional<ListItemStyle>& items) {
    if (!items || html.find(opening) == std::string::npos) {
        return;
    }
    if (const auto value = listMarkerValue(*items)) {
        styleTags(html, opening, "list-style-type: " + escapeHTML(*value) + ";");
    }
}

} // namespace

// Finds what the pattern `<a\b(?![^>]*\bstyle=)` finds. Looking ahead from each tag anew would cost the
// square of the length where tags are not closed: the next ">" and the next "style=" are therefore kept until
// they are passed.
void styleTags(std::string& html, std::string_view opening, std::string_view css) {
    const std::string_view text = html;
    std::string styled;
    size_t copied = 0;
    size_t tagEnd = 0;
    size_t styleWord = 0;
    for (size_t at = text.find(opening); at != std::string_view::npos;) {
        const size_t nameEnd = at + opening.size();
        at = text.find(opening, nameEnd);
        if (isWordAt(text, nameEnd)) {
            continue;
        }
        if (tagEnd < nameEnd) {
            tagEnd = text.find('>', nameEnd);
        }
        if (styleWord < nameEnd) {
            styleWord = findStyleWord(text, nameEnd);
        }
        if (styleWord >= tagEnd) {
            styled.append(text, copied, nameEnd - copied).append(" style=\"").append(css).append("\"");
            copied = nameEnd;
        }
    }
    if (copied > 0) {
        styled.append(text, copied);
        html = std::move(styled);
    }
}

void applyListMarkers(std::string& html, const ComponentTextStyle* style) {
    if (style) {
        markLists(html, "<ul", style->unorderedListItems);
        markLists(html, "<ol", style->orderedListItems);
    }
}

} // namespace quillon::HTMLRenderer
