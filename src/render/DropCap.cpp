#include "render/DropCap.h"

#include "base/UnicodeText.h"
#include "render/TextStyleCss.h"

#include <string_view>

namespace quillon::HTMLRenderer {

namespace {

std::string_view characterAt(std::string_view text, size_t offset) {
    return text.substr(offset, nextCharacter(text, offset) - offset);
}

/// The offset behind the next ">" from `offset` on, or the size of the text.
size_t tagEnd(std::string_view html, size_t offset) {
    while (offset < html.size()) {
        const std::string_view character = characterAt(html, offset);
        offset += character.size();
        if (character == ">") {
            break;
        }
    }
    return offset;
}

/// The offset of the first character that is neither in a tag nor white space, or the size of the text.
size_t textBegin(std::string_view html) {
    size_t offset = 0;
    while (offset < html.size()) {
        const std::string_view character = characterAt(html, offset);
        if (character == "<") {
            offset = tagEnd(html, offset);
        } else if (trimmed(character).empty()) {
            offset += character.size();
        } else {
            break;
        }
    }
    return offset;
}

} // namespace

int64_t dropCapCount(const ComponentTextStyle* style) {
    return style && style->dropCapStyle ? style->dropCapStyle->numberOfCharacters.value_or(1) : 0;
}

void insertDropCap(std::string& html, const ComponentTextStyle* style) {
    const int64_t count = dropCapCount(style);
    if (count < 1) {
        return;
    }
    const size_t begin = textBegin(html);
    size_t end = begin;
    for (int64_t taken = 0; taken < count && end < html.size(); ++taken) {
        const std::string_view character = characterAt(html, end);
        if (character == "<" || character == "&") {
            break;
        }
        end += character.size();
    }
    if (end == begin) {
        return;
    }
    std::string opening = "<span style=\"";
    dropCapCSS(opening, *style->dropCapStyle);
    opening += "\">";
    html.insert(end, "</span>");
    html.insert(begin, opening);
}

} // namespace quillon::HTMLRenderer
