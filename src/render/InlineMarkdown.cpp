#include "render/InlineMarkdown.h"

#include "render/EscapeHtml.h"

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

/// Replaces a text between two marks of `markSize` bytes by the same in an element. `findMark` gives the
/// first mark at or behind an offset; `leastGap` bytes at least lie between the beginnings of two.
template <typename FindMark>
void replaceBetween(std::string& out, std::string_view text, FindMark findMark, size_t markSize,
                    size_t leastGap, std::string_view opening, std::string_view closing) {
    size_t copied = 0;
    size_t begin = findMark(0);
    while (begin != none) {
        const size_t end = findMark(begin + leastGap);
        if (end == none) {
            break;
        }
        const size_t inside = begin + markSize;
        if (hasLineEnd(text, inside, end)) {
            begin = end;
            continue;
        }
        out.append(text, copied, begin - copied).append(opening);
        out.append(text, inside, end - inside).append(closing);
        copied = end + markSize;
        begin = findMark(copied);
    }
    out.append(text, copied);
}

// "\*\*(.+?)\*\*" by "<strong>$1</strong>".
void replaceBold(std::string& out, std::string_view text) {
    const auto findMark = [text](size_t from) {
        return text.find("**", from);
    };
    // At least one character lies between the marks.
    replaceBetween(out, text, findMark, 2, 3, "<strong>", "</strong>");
}

// "(?<!\*)\*(?!\*)(.+?)(?<!\*)\*(?!\*)" by "<em>$1</em>".
void replaceItalic(std::string& out, std::string_view text) {
    const auto findMark = [text](size_t from) {
        return findSingleAsterisk(text, from);
    };
    replaceBetween(out, text, findMark, 1, 1, "<em>", "</em>");
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
