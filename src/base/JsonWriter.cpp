#include "base/JsonWriter.h"

#include "base/Numbers.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quillon {

namespace {

/// For each byte what follows the backslash of its escape: 'u' for four digits, 0 for a byte that stands as
/// it is.
constexpr std::array<char, 256> escapes = [] {
    std::array<char, 256> table{};
    for (size_t control = 0; control < 0x20; ++control) {
        table[control] = 'u';
    }
    table['\b'] = 'b';
    table['\f'] = 'f';
    table['\n'] = 'n';
    table['\r'] = 'r';
    table['\t'] = 't';
    table['"'] = '"';
    table['\\'] = '\\';
    return table;
}();

} // namespace

void JsonWriter::begin(char bracket) {
    m_out += bracket;
    ++m_level;
    m_maximumDepth = std::max(m_maximumDepth, m_level);
    m_isEmpty = true;
}

void JsonWriter::end(char bracket) {
    --m_level;
    if (!m_isEmpty) {
        m_out += '\n';
        m_out.append(2 * m_level, ' ');
    }
    m_out += bracket;
    m_isEmpty = false;
}

void JsonWriter::nextLine() {
    m_out += m_isEmpty ? "\n" : ",\n";
    m_out.append(2 * m_level, ' ');
    m_isEmpty = false;
}

void JsonWriter::key(std::string_view key) {
    nextLine();
    text(key);
    m_out += " : ";
}

void JsonWriter::text(std::string_view value) {
    m_out += '"';
    size_t copied = 0;
    for (size_t at = 0; at < value.size(); ++at) {
        const auto byte = static_cast<unsigned char>(value[at]);
        const char escape = escapes[byte];
        if (escape == 0) {
            continue;
        }
        m_out.append(value, copied, at - copied);
        m_out += '\\';
        m_out += escape;
        if (escape == 'u') {
            constexpr std::string_view digits = "0123456789abcdef";
            m_out += "00";
            m_out += digits[byte >> 4];
            m_out += digits[byte & 15];
        }
        copied = at + 1;
    }
    m_out.append(value, copied);
    m_out += '"';
}

void JsonWriter::whole(int64_t value) {
    appendInteger(m_out, value);
}

void JsonWriter::number(double value) {
    if (!std::isfinite(value)) {
        m_hasFailed = true;
        return;
    }
    appendShortest(m_out, value);
}

} // namespace quillon
