#include "preview/BundleAddresses.h"

#include "package/ProductPictures.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>

namespace quillon {

namespace {

constexpr std::string_view blanks = " \t\n\f\r";

char lowerAscii(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool isLetter(char character) {
    const char lower = lowerAscii(character);
    return lower >= 'a' && lower <= 'z';
}

bool isSchemeCharacter(char character) {
    return isLetter(character) || (character >= '0' && character <= '9') || character == '+' ||
           character == '-' || character == '.';
}

bool equalsIgnoringCase(std::string_view text, std::string_view lower) {
    return text.size() == lower.size() &&
           std::equal(text.begin(), text.end(), lower.begin(),
                      [](char one, char other) { return lowerAscii(one) == other; });
}

std::size_t findIgnoringCase(std::string_view text, std::string_view lower, std::size_t from) {
    for (std::size_t place = text.find(lower.front(), from); place != std::string_view::npos;
         place = text.find(lower.front(), place + 1)) {
        if (equalsIgnoringCase(text.substr(place, lower.size()), lower)) {
            return place;
        }
    }
    return std::string_view::npos;
}

/// Walks a page's markup as its tokenizer does (HTML standard, 13.2.5), as far as it takes to know what is a
/// tag's attribute, a style or a script.
class AddressRewriter {
public:
    explicit AddressRewriter(std::string_view html) : m_html(html) {
        m_result.reserve(html.size() + html.size() / 64);
    }

    std::string run() {
        while (m_place < m_html.size()) {
            const std::size_t open = std::min(m_html.find('<', m_place), m_html.size());
            m_place = open;
            if (m_place < m_html.size()) {
                passMarkup();
            }
        }
        copyUpTo(m_html.size());
        return std::move(m_result);
    }

private:
    /// At a "<".
    void passMarkup() {
        const std::string_view rest = m_html.substr(m_place);
        if (rest.starts_with("<!--")) {
            // "<!-->" is a comment, too, and "--!>" ends one.
            m_place = std::min(endAfter("-->", m_place + 2), endAfter("--!>", m_place + 2));
        } else if (rest.size() > 1 && isLetter(rest[1])) {
            passElement();
        } else if (rest.size() > 2 && rest[1] == '/' && isLetter(rest[2])) {
            m_place += 2;
            passTag();
        } else {
            ++m_place;
        }
    }

    void passElement() {
        ++m_place;
        const std::string_view name = passTag();
        static constexpr auto rawText =
            std::to_array<std::string_view>({"script", "style", "title", "textarea"});
        const auto raw = std::find_if(rawText.begin(), rawText.end(), [&](std::string_view candidate) {
            return equalsIgnoringCase(name, candidate);
        });
        if (raw == rawText.end()) {
            return;
        }
        const std::size_t begin = m_place;
        m_place = std::min(findIgnoringCase(m_html, "</" + std::string(*raw), begin), m_html.size());
        if (*raw == "script" || *raw == "style") {
            rewrite(begin, m_place);
        }
    }

    /// From the name of a tag to behind its ">"; returns the name.
    std::string_view passTag() {
        const std::string_view name = passUntil(" \t\n\f\r/>");
        while (m_place < m_html.size()) {
            m_place = std::min(m_html.find_first_not_of(" \t\n\f\r/", m_place), m_html.size());
            if (m_place < m_html.size() && m_html[m_place] == '>') {
                ++m_place;
                break;
            }
            passAttribute();
        }
        return name;
    }

    void passAttribute() {
        // A "=" in front of everything belongs to the name.
        const std::size_t begin = m_place;
        m_place = std::min(m_html.find_first_of(" \t\n\f\r/>=", m_place + 1), m_html.size());
        const std::string_view name = m_html.substr(begin, m_place - begin);
        const std::size_t next = std::min(m_html.find_first_not_of(blanks, m_place), m_html.size());
        if (next == m_html.size() || m_html[next] != '=') {
            return;
        }
        m_place = std::min(m_html.find_first_not_of(blanks, next + 1), m_html.size());
        const std::size_t value = m_place;
        if (m_place < m_html.size() && (m_html[m_place] == '"' || m_html[m_place] == '\'')) {
            m_place = endAfter(m_html.substr(m_place, 1), m_place + 1);
        } else {
            passUntil(" \t\n\f\r>");
        }
        if (!equalsIgnoringCase(name, "alt") && !equalsIgnoringCase(name, "title")) {
            rewrite(value, m_place);
        }
    }

    std::string_view passUntil(std::string_view ends) {
        const std::size_t begin = m_place;
        m_place = std::min(m_html.find_first_of(ends, m_place), m_html.size());
        return m_html.substr(begin, m_place - begin);
    }

    std::size_t endAfter(std::string_view end, std::size_t from) const {
        const std::size_t found = m_html.find(end, from);
        return found == std::string_view::npos ? m_html.size() : found + end.size();
    }

    void rewrite(std::size_t begin, std::size_t end) {
        static constexpr std::string_view separator = "://";
        const std::string_view range = m_html.substr(0, end);
        for (std::size_t place = range.find(separator, begin); place != std::string_view::npos;
             place = range.find(separator, place + separator.size())) {
            const std::size_t after = place + separator.size();
            if (followsScheme(range, begin, place, "bundle") && (after == end || range[after] != '/')) {
                copyUpTo(after);
                m_result += '/';
            } else if (followsScheme(range, begin, place, "https")) {
                rewriteProductPicture(range, place - std::string_view("https").size());
            }
        }
    }

    static bool followsScheme(std::string_view range, std::size_t begin, std::size_t place,
                              std::string_view scheme) {
        if (place < begin + scheme.size()) {
            return false;
        }
        const std::size_t start = place - scheme.size();
        const bool isWhole = start == begin || !isSchemeCharacter(range[start - 1]);
        return isWhole && equalsIgnoringCase(range.substr(start, scheme.size()), scheme);
    }

    void rewriteProductPicture(std::string_view range, std::size_t place) {
        const std::size_t end = std::min(range.find_first_of("\"' \t\n\f\r)>", place), range.size());
        const std::string_view url = range.substr(place, end - place);
        if (productPicture(url)) {
            copyUpTo(place);
            m_result += bundlePrefix;
            m_result += '/';
            m_result += productFolder;
            m_result += url.substr(url.rfind('/') + 1);
            m_copied = end;
        }
    }

    void copyUpTo(std::size_t end) {
        m_result += m_html.substr(m_copied, end - m_copied);
        m_copied = end;
    }

    std::string_view m_html;
    std::size_t m_place = 0;
    std::size_t m_copied = 0; ///< what stands before it is in the result
    std::string m_result;
};

std::optional<unsigned> hexDigit(char character) {
    if (character >= '0' && character <= '9') {
        return static_cast<unsigned>(character - '0');
    }
    const char lower = lowerAscii(character);
    if (lower >= 'a' && lower <= 'f') {
        return static_cast<unsigned>(lower - 'a') + 10;
    }
    return std::nullopt;
}

} // namespace

std::string withEngineAddresses(std::string_view html) {
    return AddressRewriter(html).run();
}

std::string percentDecodedLeniently(std::string_view text) {
    std::string decoded;
    decoded.reserve(text.size());
    for (std::size_t index = 0; index < text.size(); ++index) {
        const bool isCode = text[index] == '%' && index + 2 < text.size();
        const auto high = isCode ? hexDigit(text[index + 1]) : std::nullopt;
        const auto low = isCode ? hexDigit(text[index + 2]) : std::nullopt;
        if (high && low) {
            decoded += static_cast<char>(*high * 16 + *low);
            index += 2;
        } else {
            decoded += text[index];
        }
    }
    return decoded;
}

std::string bundleAssetKey(std::string_view url) {
    static constexpr std::string_view scheme = "bundle:";
    if (!equalsIgnoringCase(url.substr(0, scheme.size()), scheme)) {
        return {};
    }
    url.remove_prefix(scheme.size());
    url = url.substr(0, url.find_first_of("?#"));
    std::string key = percentDecodedLeniently(url);
    const std::size_t first = key.find_first_not_of('/');
    return first == std::string::npos ? std::string()
                                      : key.substr(first, key.find_last_not_of('/') - first + 1);
}

} // namespace quillon
