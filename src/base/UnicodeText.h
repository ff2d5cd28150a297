#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillon {

/// Text as its readers see it. Every text is UTF-8; bytes that are not count as replacement characters and do
/// no harm. A character is what a reader takes for one (an extended grapheme cluster): an emoji built of
/// several scalars, a letter with its accents, CR LF.

/// The number of characters of `text`.
std::size_t characterCount(std::string_view text);

/// The byte offset of the end of the character that begins at `offset`, which must be the beginning of a
/// character of `text`; the size of `text` when `offset` is at or beyond its end.
std::size_t nextCharacter(std::string_view text, std::size_t offset);

/// Walks the characters of a text, which must outlive it:
/// `CharacterCursor cursor(text); while (auto character = cursor.next()) ...`. A whole walk costs the length
/// of the text, whatever it holds.
class CharacterCursor {
public:
    explicit CharacterCursor(std::string_view text) : m_text(text) {}

    /// The next character; nothing at the end of the text.
    std::optional<std::string_view> next() {
        if (m_offset >= m_text.size()) {
            return std::nullopt;
        }
        const std::size_t begin = m_offset;
        m_offset = nextCharacter(m_text, begin);
        return m_text.substr(begin, m_offset - begin);
    }

    /// The byte offset of the character that `next` will give.
    std::size_t offset() const { return m_offset; }

private:
    std::string_view m_text;
    std::size_t m_offset = 0;
};

/// Whether a scalar is white space or a line end: Unicode's White_Space, which leaves the zero-width ones
/// out.
bool isWhiteSpace(char32_t scalar);

/// `text` without white space and line ends at both ends.
std::string_view trimmed(std::string_view text);

/// `text` without blanks of any width and tabs at both ends; line ends stay.
std::string_view trimmedBlanks(std::string_view text);

/// `text` without the ASCII blank and the tab at both ends.
std::string_view trimmedSpacesAndTabs(std::string_view text);

/// `text` in lower case, in no particular language.
std::string lowercased(std::string_view text);

/// `text` with the first letter of each word in upper case and its other letters in lower case. Words end at
/// blanks and at most punctuation, "-" included; "_", and an apostrophe or a full stop between two letters,
/// are inside a word: "my-role link_button o'neil" gives "My-Role Link_button O'neil".
std::string capitalizedWords(std::string_view text);

/// Whether `text` is well-formed UTF-8: no surrogates, no overlong forms, nothing beyond U+10FFFF.
bool isValidUtf8(std::string_view text);

} // namespace quillon
