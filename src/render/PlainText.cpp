#include "render/PlainText.h"

#include "base/UnicodeText.h"
#include "render/Conditions.h"
#include "render/EscapeHtml.h"
#include "render/TextStyleCss.h"

#include <algorithm>
#include <limits>
#include <set>
#include <utility>

namespace quillon::HTMLRenderer {

namespace {

constexpr int64_t farthest = std::numeric_limits<int64_t>::max();
constexpr std::string_view separator = "\n\n";
constexpr int64_t separatorCount = 2;

/// What the ranges over one character make of it.
struct RunLook {
    std::string css;
    const std::string* link = nullptr; ///< null for none

    bool operator==(const RunLook& other) const {
        const bool isSameLink = link == other.link || (link && other.link && *link == *other.link);
        return isSameLink && css == other.css;
    }
};

/// Goes through a text from front to back and knows which ranges cover the current position.
class RangeSweep {
public:
    explicit RangeSweep(const std::vector<StyledRange>& ranges) : m_ranges(ranges) {
        for (size_t index = 0; index < ranges.size(); ++index) {
            if (ranges[index].start < ranges[index].end && ranges[index].end > 0) {
                m_changes.push_back({ranges[index].start, index});
                m_changes.push_back({ranges[index].end, index});
            }
        }
        std::ranges::sort(m_changes, {}, &Change::position);
    }

    /// Whether any range begins or ends behind the current position.
    bool hasChanges() const { return m_next < m_changes.size(); }
    /// The next position at which one does.
    int64_t nextChange() const { return hasChanges() ? m_changes[m_next].position : farthest; }

    /// Goes on to `position`, which is not before the current one. False when no range begins or ends on the
    /// way.
    bool moveTo(int64_t position) {
        const size_t before = m_next;
        while (hasChanges() && m_changes[m_next].position <= position) {
            apply(m_changes[m_next++]);
        }
        return m_next != before;
    }

    /// Sets `look` to that of the current position.
    void read(RunLook& look) const {
        look.css.clear();
        for (const size_t index : m_styling) {
            look.css += m_ranges[index].css;
        }
        look.link = m_linking.empty() ? nullptr : &*m_ranges[*m_linking.rbegin()].href;
    }

private:
    struct Change {
        int64_t position;
        size_t range;
    };

    void apply(const Change& change) {
        const StyledRange& range = m_ranges[change.range];
        const bool isBeginning = change.position == range.start;
        const auto toggle = [&](std::set<size_t>& active) {
            if (isBeginning) {
                active.insert(change.range);
            } else {
                active.erase(change.range);
            }
        };
        if (!range.css.empty()) {
            toggle(m_styling);
        }
        if (range.href) {
            toggle(m_linking);
        }
    }

    const std::vector<StyledRange>& m_ranges;
    std::vector<Change> m_changes;
    size_t m_next = 0;
    std::set<size_t> m_styling; ///< the ranges over the position that have css, in their order
    std::set<size_t> m_linking; ///< those that have a link
};

void writeRun(std::string& out, std::string_view text, const RunLook& look) {
    const bool isLinked =
        look.link && (look.link->starts_with("http://") || look.link->starts_with("https://"));
    if (isLinked) {
        out += "<a href=\"";
        escapeHTML(out, *look.link);
        out += "\">";
    }
    if (!look.css.empty()) {
        out.append("<span style=\"").append(look.css).append("\">");
    }
    escapeHTMLLines(out, text);
    out += look.css.empty() ? "" : "</span>";
    out += isLinked ? "</a>" : "";
}

/// Where in a paragraph the walk stands.
struct Place {
    size_t offset = 0; ///< bytes
    int64_t position;  ///< characters, from the start of the whole text
};

/// Whether the byte at `offset` is a character by itself for sure: between two ASCII bytes only CR LF joins.
bool isAloneAt(std::string_view text, size_t offset) {
    const auto isAscii = [](char byte) {
        return static_cast<unsigned char>(byte) < 0x80;
    };
    return offset + 1 < text.size() && isAscii(text[offset]) && isAscii(text[offset + 1]) &&
           text[offset] != '\r';
}

/// Goes on to the next change, or to the end of the paragraph.
void advance(Place& place, std::string_view paragraph, const RangeSweep& ranges) {
    const std::string_view rest = paragraph.substr(place.offset);
    const auto atMost = static_cast<int64_t>(rest.size()); // no more characters than bytes
    if (ranges.nextChange() - place.position >= atMost) {
        // Without further changes nobody asks for the position any more.
        place.position += ranges.hasChanges() ? static_cast<int64_t>(characterCount(rest)) : 0;
        place.offset = paragraph.size();
        return;
    }
    const int64_t change = ranges.nextChange();
    while (place.offset < paragraph.size() && place.position < change) {
        place.offset =
            isAloneAt(paragraph, place.offset) ? place.offset + 1 : nextCharacter(paragraph, place.offset);
        ++place.position;
    }
}

/// Appends the runs of a paragraph whose first character is at `base`. Gives the position behind its last.
int64_t renderStyledCharacters(std::string& out, std::string_view paragraph, int64_t base,
                               RangeSweep& ranges) {
    ranges.moveTo(base);
    if (paragraph.empty()) {
        return base; // nothing to style: joining the looks of many ranges would be for nothing
    }
    RunLook look;
    RunLook next;
    ranges.read(look);
    size_t runBegin = 0;
    Place place{0, base};
    while (place.offset < paragraph.size()) {
        advance(place, paragraph, ranges);
        if (place.offset == paragraph.size() || !ranges.moveTo(place.position)) {
            continue;
        }
        ranges.read(next);
        if (next != look) {
            writeRun(out, paragraph.substr(runBegin, place.offset - runBegin), look);
            std::swap(look, next);
            runBegin = place.offset;
        }
    }
    if (runBegin < paragraph.size()) {
        writeRun(out, paragraph.substr(runBegin), look);
    }
    return place.position;
}

/// The range of `start` and `length` without css and link; nothing for one that covers nothing.
std::optional<StyledRange> rangeOf(const Optional<int64_t>& start, const Optional<int64_t>& length) {
    if (!start || !length || *length < 1) {
        return std::nullopt;
    }
    StyledRange range;
    range.start = *start;
    range.end = *start > farthest - *length ? farthest : *start + *length;
    return range;
}

} // namespace

std::vector<StyledRange> styledRanges(const Component& component, const PageContext& context,
                                      const ComponentTextStyle* textStyle) {
    std::vector<StyledRange> ranges;
    if (component.inlineTextStyles) {
        for (const InlineTextStyle& entry : *component.inlineTextStyles) {
            std::optional<StyledRange> range = rangeOf(entry.rangeStart, entry.rangeLength);
            const auto style = range ? resolveTextStyle(entry.textStyle, context) : std::nullopt;
            if (style) {
                textStyleCSS(range->css, &*style);
                if (!range->css.empty()) {
                    ranges.push_back(std::move(*range));
                }
            }
        }
    }
    if (component.additions) {
        const std::string css = linkCSS(textStyle, context);
        for (const ComponentLink& link : *component.additions) {
            std::optional<StyledRange> range = rangeOf(link.rangeStart, link.rangeLength);
            if (range && link.URL && (!link.type || *link.type == "link")) {
                range->css = css;
                range->href = *link.URL;
                ranges.push_back(std::move(*range));
            }
        }
    }
    return ranges;
}

void renderPlainText(std::string& out, std::string_view text, const std::vector<StyledRange>& ranges,
                     std::string_view paragraphAttribute) {
    RangeSweep sweep(ranges);
    int64_t base = 0;
    for (bool isLast = false; !isLast;) {
        const size_t end = text.find(separator);
        isLast = end == std::string_view::npos;
        out.append("<p").append(paragraphAttribute).append(">");
        base = renderStyledCharacters(out, text.substr(0, end), base, sweep) + separatorCount;
        out += "</p>";
        text.remove_prefix(isLast ? text.size() : end + separator.size());
    }
}

} // namespace quillon::HTMLRenderer
