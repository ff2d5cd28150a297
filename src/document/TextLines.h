#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace quillon {

/// Bytes of a text, `end` not among them.
struct TextRange {
    std::size_t begin = 0;
    std::size_t end = 0;

    std::size_t size() const { return end - begin; }
    bool isEmpty() const { return begin == end; }
    bool operator==(const TextRange&) const = default;
};

/// Where the lines of a UTF-8 text begin, and how a caret moves in it. Places are byte offsets; each line
/// ends with LF, which is not part of it, but the last, so that there is always one. A character is what a
/// reader takes for one (see base/UnicodeText.h).
class TextLines {
public:
    /// `text` outlives the lines. Costs one pass over it and eight bytes for each line.
    explicit TextLines(std::string_view text = {});

    std::string_view text() const { return m_text; }
    std::size_t count() const { return m_begins.size(); }
    /// The bytes of a line, of which there is one.
    TextRange line(std::size_t index) const;
    /// The line that holds the place; the last for a place beyond the text.
    std::size_t lineOf(std::size_t place) const;
    /// The line that needs most columns of a monospaced font, as far as bytes tell: see `columnsOf`.
    std::size_t widestLine() const { return m_widest; }

    /// The next or previous end of a character; a line end is one. The text's ends have no more behind them.
    std::size_t next(std::size_t place) const;
    std::size_t previous(std::size_t place) const;
    /// The beginning of the next word behind `place`, or of the last one that begins ahead of it. Letters and
    /// digits make a word, and so do other signs side by side; a line end stands alone.
    std::size_t nextWord(std::size_t place) const;
    std::size_t previousWord(std::size_t place) const;
    /// The word, or the blanks, that the character at `place` belongs to, within its line.
    TextRange wordAt(std::size_t place) const;

    /// The last end of a character in `line` that is at most at `place`, and behind `begin`, itself one. A
    /// character of hundreds of bytes is cut.
    std::size_t boundaryUpTo(std::size_t place, std::size_t begin) const;

private:
    std::string_view m_text;
    std::vector<std::size_t> m_begins;
    std::size_t m_widest = 0;
};

/// Columns of a monospaced font that `text` needs at most, save for rare signs: one for each scalar, two for
/// those of East Asia and beyond the basic plane.
std::size_t columnsOf(std::string_view text);

/// Whether all bytes are below 0x80.
bool isAscii(std::string_view text);

/// Whether some of `text` is Hebrew, Arabic or of a script beside them; those of antiquity are left out.
bool mayReadRightToLeft(std::string_view text);

/// The UTF-16 units that valid UTF-8 becomes.
std::size_t utf16Length(std::string_view text);

/// The place in UTF-8 of a number of UTF-16 units; the size of `text` when it has fewer.
std::size_t placeOfUtf16(std::string_view text, std::size_t units);

} // namespace quillon
