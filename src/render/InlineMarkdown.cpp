#include "render/InlineMarkdown.h"

#include "render/EscapeHtml.h"
#include "render/TextContent.h"

// Each step finds what the pattern above it finds, in one pass: on an opening mark without a closing one the
// patterns themselves would search to the end of the text each time.
namespace quillon::HTMLRenderer {

namespace {

constexpr size_t none = std::string_view::npos;

/// The offset of the first line end at or behind `from`: those that "." does not match. The size of the text
/// when there is none.
size_t lineEnd(std::string_view text, size_t from) {
    for (size_t at = from; at < text.size(); ++at) {
        const auto byte = static_cast<unsigned char>(text[at]);
        if (byte >= 0x20 && byte < 0x80) {
            continue;
        }
        if (byte >= '\n' && byte <= '\r') {
            return at;
        }
        const std::string_view rest = text.substr(at, 3);
        if (rest.starts_with("\u0085") || rest == "\u2028" || rest == "\u2029") {
            return at;
        }
    }
    return text.size();
}

bool hasLineEnd(std::string_view text, size_t begin, size_t end) {
    return lineEnd(text.substr(0, end), begin) < end;
}

// "\*\*(.+?)\*\*" by "<strong>$1</strong>".
void replaceBold(std::string& out, std::string_view text) {
    size_t copied = 0;
    size_t opening = text.find("**");
    while (opening != none) {
        const size_t closing = text.find("**", opening + 3); // at least one character lies between
        if (closing == none) {
            break;
        }
        if (hasLineEnd(text, opening + 2, closing)) {
            opening = closing;
            continue;
        }
        out.append(text, copied, opening - copied).append("<strong>");
        out.append(text, opening + 2, closing - opening - 2).append("</strong>");
        copied = closing + 2;
        opening = text.find("**", copied);
    }
    out.append(text, copied);
}

/// The first asterisk at or behind `from` (which is not inside a run of them) that has no other beside it.
size_t findSingleAsterisk(std::string_view text, size_t from) {
    size_t at = text.find('*', from);
    while (at != none) {
        const size_t runEnd = std::min(text.find_first_not_of('*', at), text.size());
        if (runEnd == at + 1) {
            return at;
        }
        at = text.find('*', runEnd);
    }
    return none;
}

// "(?<!\*)\*(?!\*)(.+?)(?<!\*)\*(?!\*)" by "<em>$1</em>".
void replaceItalic(std::string& out, std::string_view text) {
    size_t copied = 0;
    size_t opening = findSingleAsterisk(text, 0);
    while (opening != none) {
        const size_t closing = findSingleAsterisk(text, opening + 1);
        if (closing == none) {
            break;
        }
        if (hasLineEnd(text, opening + 1, closing)) {
            opening = closing;
            continue;
        }
        out.append(text, copied, opening - copied).append("<em>");
        out.append(text, opening + 1, closing - opening - 1).append("</em>");
        copied = closing + 1;
        opening = findSingleAsterisk(text, copied);
    }
    out.append(text, copied);
}

/// replaceLinks for a text without line ends.
void replaceLinksInLine(std::string& out, std::string_view line) {
    size_t copied = 0;
    for (size_t opening = line.find('['); opening != none; opening = line.find('[', copied)) {
        // At least one character lies between the marks. Where the first "](" has no ")" behind it, neither
        // has any later one.
        const size_t middle = line.find("](", opening + 2);
        const size_t closing = middle == none ? none : line.find(')', middle + 3);
        if (closing == none) {
            break;
        }
        out.append(line, copied, opening - copied).append("<a href=\"");
        out.append(line, middle + 2, closing - middle - 2).append("\">");
        out.append(line, opening + 1, middle - opening - 1).append("</a>");
        copied = closing + 1;
    }
    out.append(line, copied);
}

// "\[(.+?)\]\((.+?)\)" by `<a href="$2">$1</a>`.
void replaceLinks(std::string& out, std::string_view text) {
    if (text.find("](") == none) {
        out += text;
        return;
    }
    size_t begin = 0;
    while (begin < text.size()) {
        const size_t end = lineEnd(text, begin);
        replaceLinksInLine(out, text.substr(begin, end - begin));
        // The first byte of a line end is written here, its others with the next line.
        begin = end;
        if (begin < text.size()) {
            out += text[begin++];
        }
    }
}

/// Bold, italic and links in a text whose line feeds have been replaced.
void replaceMarks(std::string& out, std::string text) {
    std::string replaced;
    if (text.find('*') != std::string::npos) {
        replaceBold(replaced, text);
        text.clear();
        replaceItalic(text, replaced);
    }
    replaceLinks(out, text);
}

bool hasMarks(std::string_view text) {
    return text.find('*') != none || text.find("](") != none;
}

} // namespace

void renderInlineMarkdown(std::string& out, std::string_view escaped) {
    std::string text;
    std::string& target = hasMarks(escaped) ? text : out;
    size_t begin = 0;
    for (size_t end = escaped.find('\n'); end != none; end = escaped.find('\n', begin)) {
        target.append(escaped, begin, end - begin).append("<br>");
        begin = end + 1;
    }
    target.append(escaped, begin);
    if (&target == &text) {
        replaceMarks(out, std::move(text));
    }
}

void escapeAndRenderInlineMarkdown(std::string& out, std::string_view text) {
    if (!hasMarks(text)) {
        escapeHTMLLines(out, text);
        return;
    }
    std::string escaped;
    escapeHTMLLines(escaped, text);
    replaceMarks(out, std::move(escaped));
}

} // namespace quillon::HTMLRenderer
