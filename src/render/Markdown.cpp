#include "render/Markdown.h"

#include "base/UnicodeText.h"
#include "render/EscapeHtml.h"
#include "render/InlineMarkdown.h"
#include "render/TagStyles.h"

#include <algorithm>
#include <optional>

namespace quillon::HTMLRenderer {

namespace {

/// One line of a text, without its line feed.
struct Line {
    size_t begin = 0; ///< offset in the text
    size_t end = 0;
    std::string_view trimmed;
};

/// Walks the lines of a text.
class LineCursor {
public:
    explicit LineCursor(std::string_view text) : m_text(text) { read(0); }

    /// The current line, or null behind the last.
    const Line* line() const { return m_isBehindLast ? nullptr : &m_line; }
    void advance() {
        if (m_line.end == m_text.size()) {
            m_isBehindLast = true;
        } else {
            read(m_line.end + 1);
        }
    }

private:
    void read(size_t begin) {
        m_line.begin = begin;
        m_line.end = std::min(m_text.find('\n', begin), m_text.size());
        m_line.trimmed = trimmedSpacesAndTabs(m_text.substr(begin, m_line.end - begin));
    }

    std::string_view m_text;
    Line m_line;
    bool m_isBehindLast = false;
};

bool isFence(std::string_view trimmed) {
    return trimmed.starts_with("```") || trimmed.starts_with("~~~");
}

bool isRule(std::string_view trimmed) {
    return trimmed == "---" || trimmed == "***" || trimmed == "___";
}

bool isQuote(std::string_view trimmed) {
    return trimmed.starts_with('>');
}

/// 1 to 6 for a heading, else 0.
size_t headingLevel(std::string_view trimmed) {
    constexpr size_t deepest = 6;
    const size_t marks = trimmed.find_first_not_of('#');
    return marks <= deepest && trimmed[marks] == ' ' ? marks : 0;
}

std::optional<std::string_view> unorderedItem(std::string_view trimmed) {
    if (trimmed.starts_with("- ") || trimmed.starts_with("* ") || trimmed.starts_with("+ ")) {
        return trimmedSpacesAndTabs(trimmed.substr(2));
    }
    return std::nullopt;
}

std::optional<std::string_view> orderedItem(std::string_view trimmed) {
    const size_t digits = trimmed.find_first_not_of("0123456789");
    if (digits == 0 || digits == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view rest = trimmed.substr(digits);
    if (rest.starts_with(". ") || rest.starts_with(") ")) {
        return trimmedSpacesAndTabs(rest.substr(2));
    }
    return std::nullopt;
}

/// Writes the blocks of one text. Each function begins at a line of its block and ends behind its last.
class BlockWriter {
public:
    BlockWriter(std::string& out, std::string_view text, std::string_view paragraphAttribute,
                const ComponentTextStyle* style)
        : m_out(out), m_text(text), m_lines(text), m_paragraphAttribute(paragraphAttribute), m_style(style) {}

    void write() {
        while (const Line* line = m_lines.line()) {
            writeBlockAt(*line);
        }
        flush();
    }

private:
    void writeBlockAt(const Line& line) {
        const std::string_view trimmed = line.trimmed;
        if (trimmed.empty()) {
            flush();
            m_lines.advance();
        } else if (isFence(trimmed)) {
            writeCode();
        } else if (isRule(trimmed)) {
            flush();
            m_out += "<hr>";
            m_lines.advance();
        } else if (const size_t level = headingLevel(trimmed)) {
            writeHeading(level, trimmed.substr(level));
        } else if (isQuote(trimmed)) {
            writeQuote();
        } else if (unorderedItem(trimmed)) {
            writeList("<ul>", "</ul>", unorderedItem);
        } else if (orderedItem(trimmed)) {
            writeList("<ol>", "</ol>", orderedItem);
        } else {
            addToParagraph(line);
            m_lines.advance();
        }
    }

    void addToParagraph(const Line& line) {
        if (!m_paragraph) {
            m_paragraph = Range{line.begin, line.end};
        }
        m_paragraph->end = line.end;
    }

    /// Ends the paragraph in progress.
    void flush() {
        if (!m_paragraph) {
            return;
        }
        m_out.append("<p").append(m_paragraphAttribute).append(">");
        escapeAndRenderInlineMarkdown(m_out, textOf(*m_paragraph));
        m_out += "</p>";
        m_paragraph.reset();
    }

    void writeCode() {
        flush();
        m_lines.advance();
        std::optional<Range> code;
        for (const Line* line = m_lines.line(); line && !isFence(line->trimmed); line = m_lines.line()) {
            code = Range{code ? code->begin : line->begin, line->end};
            m_lines.advance();
        }
        m_lines.advance(); // the closing fence
        m_out += "<pre><code>";
        if (code) {
            escapeHTML(m_out, textOf(*code));
        }
        m_out += "</code></pre>";
    }

    void writeHeading(size_t level, std::string_view text) {
        flush();
        const char digit = static_cast<char>('0' + level);
        m_out.append("<h").append(1, digit).append(">");
        escapeAndRenderInlineMarkdown(m_out, trimmedSpacesAndTabs(text));
        m_out.append("</h").append(1, digit).append(">");
        m_lines.advance();
    }

    void writeQuote() {
        flush();
        std::string text;
        bool isFirst = true;
        for (const Line* line = m_lines.line(); line && isQuote(line->trimmed); line = m_lines.line()) {
            text += isFirst ? "" : " ";
            text += trimmedSpacesAndTabs(line->trimmed.substr(1));
            isFirst = false;
            m_lines.advance();
        }
        m_out += "<blockquote><p>";
        escapeAndRenderInlineMarkdown(m_out, text);
        m_out += "</p></blockquote>";
    }

    template <typename ItemOf>
    void writeList(std::string_view opening, std::string_view closing, ItemOf itemOf) {
        flush();
        // The items cannot hold a list's tag: their texts are escaped.
        std::string tag(opening);
        applyListMarkers(tag, m_style);
        m_out += tag;
        for (const Line* line = m_lines.line(); line; line = m_lines.line()) {
            const std::optional<std::string_view> item = itemOf(line->trimmed);
            if (!item) {
                break;
            }
            m_out += "<li>";
            escapeAndRenderInlineMarkdown(m_out, *item);
            m_out += "</li>";
            m_lines.advance();
        }
        m_out += closing;
    }

    struct Range {
        size_t begin;
        size_t end;
    };
    std::string_view textOf(Range range) const { return m_text.substr(range.begin, range.end - range.begin); }

    std::string& m_out;
    std::string_view m_text;
    LineCursor m_lines;
    std::string_view m_paragraphAttribute;
    const ComponentTextStyle* m_style;
    std::optional<Range> m_paragraph; ///< its lines follow each other in the text
};

} // namespace

void renderMarkdown(std::string& out, std::string_view text, std::string_view paragraphAttribute,
                    const ComponentTextStyle* style) {
    BlockWriter(out, text, paragraphAttribute, style).write();
}

} // namespace quillon::HTMLRenderer
