#include "document/TextLines.h"

#include "base/UnicodeText.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include <unicode/uchar.h>
#include <unicode/utf8.h>

namespace quillon {

namespace {

/// How far back a character's begin is looked for.
constexpr std::size_t longestCharacter = 256;

constexpr bool continues(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

enum class Kind { blank, lineEnd, word, sign };

Kind kindOf(std::string_view character) {
    if (character.back() == '\n') {
        return Kind::lineEnd;
    }
    // The macro counts in 32 bits; a scalar needs no more than four bytes.
    const std::string_view bytes = character.substr(0, U8_MAX_LENGTH);
    UChar32 scalar = 0;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
    std::int32_t offset = 0;
    U8_NEXT(bytes.data(), offset, static_cast<std::int32_t>(bytes.size()), scalar);
#pragma GCC diagnostic pop
    if (scalar >= 0 && isWhiteSpace(static_cast<char32_t>(scalar))) {
        return Kind::blank;
    }
    const bool isWord =
        scalar == '_' || (scalar >= 0 && (u_isalnum(scalar) || u_charType(scalar) == U_NON_SPACING_MARK));
    return isWord ? Kind::word : Kind::sign;
}

} // namespace

TextLines::TextLines(std::string_view text) : m_text(text) {
    m_begins.reserve(static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1);
    std::size_t widest = 0;
    std::size_t begin = 0;
    while (true) {
        const auto* found = static_cast<const char*>(
            begin < text.size() ? std::memchr(text.data() + begin, '\n', text.size() - begin) : nullptr);
        const std::size_t end = found ? static_cast<std::size_t>(found - text.data()) : text.size();
        // No line has more columns than bytes.
        if (end - begin > widest) {
            const std::size_t columns = columnsOf(text.substr(begin, end - begin));
            if (columns > widest) {
                widest = columns;
                m_widest = m_begins.size();
            }
        }
        m_begins.push_back(begin);
        if (!found) {
            return;
        }
        begin = end + 1;
    }
}

TextRange TextLines::line(std::size_t index) const {
    return {m_begins[index], index + 1 < m_begins.size() ? m_begins[index + 1] - 1 : m_text.size()};
}

std::size_t TextLines::lineOf(std::size_t place) const {
    const auto behind = std::upper_bound(m_begins.begin(), m_begins.end(), place);
    return static_cast<std::size_t>(behind - m_begins.begin()) - 1;
}

std::size_t TextLines::next(std::size_t place) const {
    return nextCharacter(m_text, place);
}

std::size_t TextLines::previous(std::size_t place) const {
    if (place == 0) {
        return 0;
    }
    if (m_text[place - 1] == '\n') {
        return place - (place >= 2 && m_text[place - 2] == '\r' ? 2 : 1);
    }
    if (place >= 2 && isAscii(m_text.substr(place - 2, 2))) {
        return place - 1;
    }
    return boundaryUpTo(place - 1, line(lineOf(place)).begin);
}

std::size_t TextLines::boundaryUpTo(std::size_t place, std::size_t begin) const {
    std::size_t from = place > begin + longestCharacter ? place - longestCharacter : begin;
    while (from > begin && continues(m_text[from])) {
        --from;
    }
    // A character always ends between two bytes of ASCII other than CR LF.
    for (std::size_t back = place; back > from + 1; --back) {
        if (isAscii(m_text.substr(back - 1, 2)) && m_text[back] != '\n') {
            from = back;
            break;
        }
    }
    for (std::size_t end = nextCharacter(m_text, from); end <= place && end > from;
         end = nextCharacter(m_text, from)) {
        from = end;
    }
    return from;
}

std::size_t TextLines::nextWord(std::size_t place) const {
    if (place >= m_text.size()) {
        return m_text.size();
    }
    const auto kindAt = [this](std::size_t at) {
        return kindOf(m_text.substr(at, next(at) - at));
    };
    const Kind kind = kindAt(place);
    do {
        place = next(place);
    } while (kind != Kind::lineEnd && place < m_text.size() && kindAt(place) == kind);
    while (kind != Kind::blank && place < m_text.size() && kindAt(place) == Kind::blank) {
        place = next(place);
    }
    return place;
}

std::size_t TextLines::previousWord(std::size_t place) const {
    const auto kindBefore = [this](std::size_t end) {
        const std::size_t begin = previous(end);
        return kindOf(m_text.substr(begin, end - begin));
    };
    while (place > 0 && kindBefore(place) == Kind::blank) {
        place = previous(place);
    }
    if (place == 0) {
        return 0;
    }
    const Kind kind = kindBefore(place);
    do {
        place = previous(place);
    } while (kind != Kind::lineEnd && place > 0 && kindBefore(place) == kind);
    return place;
}

TextRange TextLines::wordAt(std::size_t place) const {
    const TextRange whole = line(lineOf(place));
    if (whole.isEmpty()) {
        return {place, place};
    }
    // Behind a line's last character, that one counts.
    TextRange word{place, place};
    if (place == whole.end) {
        word.begin = previous(place);
    } else {
        word.end = next(place);
    }
    const auto kind = [this](std::size_t begin, std::size_t end) {
        return kindOf(m_text.substr(begin, end - begin));
    };
    const Kind wanted = kind(word.begin, word.end);
    for (std::size_t begin = word.begin; begin > whole.begin; word.begin = begin) {
        const std::size_t end = begin;
        begin = previous(end);
        if (kind(begin, end) != wanted) {
            break;
        }
    }
    for (std::size_t end = word.end; end < whole.end; word.end = end) {
        const std::size_t begin = end;
        end = next(begin);
        if (kind(begin, end) != wanted) {
            break;
        }
    }
    return word;
}

std::size_t columnsOf(std::string_view text) {
    // Continuation bytes need none, three and four bytes of a scalar two columns.
    std::size_t columns = 0;
    for (const char byte : text) {
        const auto value = static_cast<unsigned char>(byte);
        columns +=
            static_cast<std::size_t>((value & 0xC0U) != 0x80U) + static_cast<std::size_t>(value >= 0xE3U);
    }
    return columns;
}

bool isAscii(std::string_view text) {
    std::size_t offset = 0;
    for (; offset + sizeof(std::uint64_t) <= text.size(); offset += sizeof(std::uint64_t)) {
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, text.data() + offset, sizeof bytes);
        if ((bytes & 0x8080808080808080ULL) != 0) {
            return false;
        }
    }
    return std::all_of(text.begin() + static_cast<std::ptrdiff_t>(offset), text.end(),
                       [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

bool mayReadRightToLeft(std::string_view text) {
    // The first bytes of U+0580 to U+07FF.
    std::size_t count = 0;
    for (const char byte : text) {
        const auto value = static_cast<unsigned char>(byte);
        count += static_cast<std::size_t>(value >= 0xD6U && value <= 0xDFU);
    }
    return count > 0;
}

std::size_t utf16Length(std::string_view text) {
    std::size_t units = 0;
    for (const char byte : text) {
        units += static_cast<std::size_t>(!continues(byte)) +
                 static_cast<std::size_t>(static_cast<unsigned char>(byte) >= 0xF0U);
    }
    return units;
}

std::size_t placeOfUtf16(std::string_view text, std::size_t units) {
    // By blocks first, as counting a block is much quicker than walking it.
    constexpr std::size_t block = 4096;
    std::size_t place = 0;
    for (; place + block <= text.size(); place += block) {
        const std::size_t count = utf16Length(text.substr(place, block));
        if (count > units) {
            break;
        }
        units -= count;
    }
    while (place < text.size() && (units > 0 || continues(text[place]))) {
        const std::size_t count = utf16Length(text.substr(place, 1));
        if (count > units) {
            break;
        }
        units -= count;
        ++place;
    }
    return place;
}

} // namespace quillon
