#include "base/JsonFault.h"

#include "base/Numbers.h"

#include <charconv>
#include <vector>

namespace quillon {

namespace {

/// One walk over a text. Each step returns false once `fault` is set.
class FaultFinder {
public:
    explicit FaultFinder(std::string_view text) : m_text(text) {
        constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
        if (m_text.starts_with(byteOrderMark)) {
            m_text.remove_prefix(byteOrderMark.size()); // nobody counts it as a column
        }
    }

    std::optional<JsonFailure> find() {
        if (!findInDocument()) {
            return std::move(m_fault);
        }
        return std::nullopt;
    }

private:
    bool findInDocument() {
        // One entry for each open list or object: whether it is an object.
        std::vector<bool> open;
        bool valueDue = true;
        while (true) {
            skipBlanks();
            if (valueDue) {
                if (peek() == '{' || peek() == '[') {
                    const size_t start = m_at;
                    const bool isObject = m_text[m_at++] == '{';
                    skipBlanks();
                    if (peek() == (isObject ? '}' : ']')) {
                        ++m_at;
                    } else if (open.size() == JsonText::maximumDepth) {
                        m_at = start;
                        return fail("at most 512 levels of nesting", "one more");
                    } else {
                        open.push_back(isObject);
                        if (isObject && !key()) {
                            return false;
                        }
                        continue;
                    }
                } else if (!scalar()) {
                    return false;
                }
                valueDue = false;
                continue;
            }
            if (open.empty()) {
                return m_at == m_text.size() || fail("the end of the text");
            }
            const char closing = open.back() ? '}' : ']';
            if (peek() == closing) {
                ++m_at;
                open.pop_back();
            } else if (peek() == ',') {
                ++m_at;
                if (open.back()) {
                    skipBlanks();
                    if (!key()) {
                        return false;
                    }
                }
                valueDue = true;
            } else {
                return fail(std::string("',' or '") + closing + "'");
            }
        }
    }

    bool key() {
        if (peek() != '"') {
            return fail("a key in double quotes");
        }
        if (!string()) {
            return false;
        }
        skipBlanks();
        if (peek() != ':') {
            return fail("':'");
        }
        ++m_at;
        return true;
    }

    bool scalar() {
        const char first = peek();
        if (first == '"') {
            return string();
        }
        if (first == '-' || (first >= '0' && first <= '9')) {
            return number();
        }
        for (const std::string_view word : {"true", "false", "null"}) {
            if (m_text.substr(m_at).starts_with(word)) {
                m_at += word.size();
                return true;
            }
        }
        return fail("a value");
    }

    bool number() {
        const size_t start = m_at;
        if (peek() == '-') {
            ++m_at;
        }
        if (peek() == '0') {
            ++m_at;
        } else if (!digits()) {
            return false;
        }
        if (peek() == '.') {
            ++m_at;
            if (!digits()) {
                return false;
            }
        }
        if (peek() == 'e' || peek() == 'E') {
            ++m_at;
            if (peek() == '+' || peek() == '-') {
                ++m_at;
            }
            if (!digits()) {
                return false;
            }
        }
        if (!parseDouble(m_text.substr(start, m_at - start))) {
            const std::string found(m_text.substr(start, std::min<size_t>(m_at - start, 40)));
            m_at = start;
            return fail("a number within the range of 64-bit floats", found);
        }
        return true;
    }

    bool digits() {
        if (peek() < '0' || peek() > '9') {
            return fail("a digit");
        }
        while (peek() >= '0' && peek() <= '9') {
            ++m_at;
        }
        return true;
    }

    bool string() {
        ++m_at;
        while (true) {
            if (m_at == m_text.size()) {
                return fail("'\"' at the end of a text");
            }
            const auto byte = static_cast<unsigned char>(m_text[m_at]);
            if (byte == '"') {
                ++m_at;
                return true;
            }
            if (byte < 0x20) {
                return fail("an escape such as \\n in place of a control character");
            }
            if (byte == '\\') {
                if (!escape()) {
                    return false;
                }
            } else if (!utf8Character()) {
                return false;
            }
        }
    }

    bool escape() {
        ++m_at;
        if (peek() == 'u') {
            const std::optional<unsigned> unit = hexUnit();
            if (!unit) {
                return false;
            }
            if (*unit >= 0xDC00 && *unit <= 0xDFFF) {
                m_at -= 6;
                return fail("the first half of a surrogate pair", "the second half alone");
            }
            if (*unit >= 0xD800 && *unit <= 0xDBFF) {
                const size_t first = m_at - 6;
                if (peek() == '\\' && m_at + 1 < m_text.size() && m_text[m_at + 1] == 'u') {
                    ++m_at;
                    const std::optional<unsigned> second = hexUnit();
                    if (!second) {
                        return false;
                    }
                    if (*second >= 0xDC00 && *second <= 0xDFFF) {
                        return true;
                    }
                }
                m_at = first;
                return fail("both halves of a surrogate pair", "the first half alone");
            }
            return true;
        }
        if (std::string_view("\"\\/bfnrt").find(peek()) == std::string_view::npos || m_at == m_text.size()) {
            return fail("a character that may follow a backslash");
        }
        ++m_at;
        return true;
    }

    /// Reads "uXXXX".
    std::optional<unsigned> hexUnit() {
        ++m_at;
        unsigned unit = 0;
        const size_t available = std::min<size_t>(4, m_text.size() - m_at);
        const auto [end, error] =
            std::from_chars(m_text.data() + m_at, m_text.data() + m_at + available, unit, 16);
        if (end != m_text.data() + m_at + 4) {
            fail("four hexadecimal digits");
            return std::nullopt;
        }
        m_at += 4;
        return unit;
    }

    bool utf8Character() {
        const auto byteAt = [this](size_t at) {
            return at < m_text.size() ? static_cast<unsigned char>(m_text[at]) : 0U;
        };
        const unsigned lead = byteAt(m_at);
        const size_t length = lead < 0x80                    ? 1
                              : lead >= 0xC2 && lead <= 0xDF ? 2
                              : lead >= 0xE0 && lead <= 0xEF ? 3
                              : lead >= 0xF0 && lead <= 0xF4 ? 4
                                                             : 0;
        // The second byte's range keeps out overlong forms, surrogates and what lies beyond U+10FFFF.
        const unsigned low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
        const unsigned high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
        bool isValid = length > 0;
        for (size_t offset = 1; offset < length; ++offset) {
            const unsigned next = byteAt(m_at + offset);
            isValid = isValid && next >= (offset == 1 ? low : 0x80) && next <= (offset == 1 ? high : 0xBF);
        }
        if (!isValid) {
            return fail("UTF-8 text", "a byte that is none");
        }
        m_at += length;
        return true;
    }

    char peek() const { return m_at < m_text.size() ? m_text[m_at] : '\0'; }

    void skipBlanks() {
        while (m_at < m_text.size() &&
               std::string_view(" \t\r\n").find(m_text[m_at]) != std::string_view::npos) {
            ++m_at;
        }
    }

    std::string describeSpot() const {
        if (m_at >= m_text.size()) {
            return "the end of the text";
        }
        const char c = m_text[m_at];
        return c >= 0x20 && c < 0x7F ? std::string("'") + c + "'" : "a character that does not belong here";
    }

    bool fail(std::string expected) { return fail(std::move(expected), describeSpot()); }

    bool fail(std::string expected, std::string found) {
        JsonFailure fault{.expected = std::move(expected), .found = std::move(found)};
        for (const char c : m_text.substr(0, m_at)) {
            const bool continuesCharacter = (static_cast<unsigned char>(c) & 0xC0) == 0x80;
            fault.line += c == '\n' ? 1 : 0;
            fault.column = c == '\n' ? 1 : fault.column + (continuesCharacter ? 0 : 1);
        }
        m_fault = std::move(fault);
        return false;
    }

    std::string_view m_text;
    size_t m_at = 0;
    std::optional<JsonFailure> m_fault;
};

} // namespace

std::optional<JsonFailure> findJsonFault(std::string_view text) {
    return FaultFinder(text).find();
}

} // namespace quillon
