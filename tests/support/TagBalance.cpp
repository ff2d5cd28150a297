#include "support/TagBalance.h"

#include <algorithm>
#include <array>
#include <vector>

namespace quillon::support {

namespace {

constexpr std::array<std::string_view, 5> voidElements = {"img", "hr", "br", "meta", "input"};
/// What stands in these is no markup.
constexpr std::array<std::string_view, 2> rawElements = {"script", "style"};

bool isOneOf(const auto& names, std::string_view name) {
    return std::ranges::find(names, name) != names.end();
}

bool isNameCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-';
}

class TagReader {
public:
    explicit TagReader(std::string_view html) : m_html(html) {}

    std::string fault() {
        take("<!DOCTYPE html>");
        while (m_fault.empty() && m_at < m_html.size()) {
            if (take("</")) {
                readClosingTag();
            } else if (take("<")) {
                readOpeningTag();
            } else if (m_html[m_at] == '>') {
                fail("a lone >");
            } else {
                m_at = std::min(m_html.find_first_of("<>", m_at), m_html.size());
            }
        }
        if (m_fault.empty() && !m_open.empty()) {
            fail("unclosed " + std::string(m_open.back()));
        }
        return m_fault;
    }

private:
    bool take(std::string_view text) {
        const bool isNext = m_html.substr(m_at).starts_with(text);
        m_at += isNext ? text.size() : 0;
        return isNext;
    }

    std::string_view takeName() {
        const size_t begin = m_at;
        while (m_at < m_html.size() && isNameCharacter(m_html[m_at])) {
            ++m_at;
        }
        if (m_at == begin) {
            fail("no name");
        }
        return m_html.substr(begin, m_at - begin);
    }

    void readClosingTag() {
        const std::string_view name = takeName();
        if (m_fault.empty() && (!take(">") || m_open.empty() || m_open.back() != name)) {
            return fail("unexpected </" + std::string(name));
        }
        m_open.pop_back();
    }

    void readOpeningTag() {
        const std::string_view name = takeName();
        while (m_fault.empty() && !take(">")) {
            readAttribute();
        }
        if (!m_fault.empty() || isOneOf(voidElements, name)) {
            return;
        }
        m_open.push_back(name);
        if (isOneOf(rawElements, name)) {
            m_at = std::min(m_html.find("</" + std::string(name), m_at), m_html.size());
        }
    }

    /// A blank, a name and, when it has one, a value in quotation marks.
    void readAttribute() {
        if (!take(" ")) {
            return fail("no blank in front of an attribute");
        }
        takeName();
        if (!m_fault.empty() || !take("=")) {
            return;
        }
        const size_t end = take("\"") ? m_html.find('"', m_at) : std::string_view::npos;
        if (end == std::string_view::npos ||
            m_html.substr(m_at, end - m_at).find('<') != std::string_view::npos) {
            return fail("a value that does not end");
        }
        m_at = end + 1;
    }

    void fail(std::string what) {
        if (m_fault.empty()) {
            const size_t begin = m_at - std::min<size_t>(m_at, 120);
            m_fault = std::move(what) + " at: " + std::string(m_html.substr(begin, 160));
        }
    }

    std::string_view m_html;
    size_t m_at = 0;
    std::vector<std::string_view> m_open;
    std::string m_fault;
};

} // namespace

std::string tagFault(std::string_view html) {
    return TagReader(html).fault();
}

} // namespace quillon::support
