#include "base/Url.h"

#include "base/Numbers.h"
#include "base/UnicodeText.h"

#include <boost/url/parse.hpp>
#include <boost/url/url_view.hpp>

#include <utility>

namespace quillon {

namespace {

namespace urls = boost::urls;

constexpr std::string_view unreserved = "-._~";

// What may stand unescaped besides ASCII letters, numerals and `unreserved`. "&" and "=" divide query items.
constexpr std::string_view allowedInHost = "!$&'()*+,;=";
constexpr std::string_view allowedInPath = "!$&'()*+,;=:@/";
constexpr std::string_view allowedInQueryItem = "!$'()*+,;:@/?";

std::string written(urls::string_view view) {
    return {view.data(), view.size()};
}

bool isLetterOrNumeral(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

void appendEncoded(std::string& out, std::string_view text, std::string_view allowed) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    for (char c : text) {
        if (isLetterOrNumeral(c) || unreserved.find(c) != std::string_view::npos ||
            allowed.find(c) != std::string_view::npos) {
            out += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        out += '%';
        out += digits[byte >> 4];
        out += digits[byte & 0xF];
    }
}

/// Calls `visit` with each piece of `text` between the separators, empty ones included.
template <typename Visit>
void forEachPiece(std::string_view text, char separator, Visit visit) {
    for (;;) {
        const std::size_t end = text.find(separator);
        visit(text.substr(0, end));
        if (end == std::string_view::npos) {
            return;
        }
        text.remove_prefix(end + 1);
    }
}

QueryItem decodedItem(std::string_view written) {
    const std::size_t mark = written.find('=');
    QueryItem item{percentDecoded(written.substr(0, mark)).value_or(std::string()), std::nullopt};
    if (mark != std::string_view::npos) {
        item.value = percentDecoded(written.substr(mark + 1));
    }
    return item;
}

} // namespace

std::optional<std::string> percentDecoded(std::string_view text) {
    std::string decoded;
    decoded.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            decoded += text[i];
            continue;
        }
        const int high = i + 2 < text.size() ? hexadecimalValue(text[i + 1]) : -1;
        const int low = i + 2 < text.size() ? hexadecimalValue(text[i + 2]) : -1;
        if (high < 0 || low < 0) {
            return std::nullopt;
        }
        decoded += static_cast<char>(high * 16 + low);
        i += 2;
    }
    if (!isValidUtf8(decoded)) {
        return std::nullopt;
    }
    return decoded;
}

std::optional<std::string> UrlParts::host() const {
    return encodedHost ? percentDecoded(*encodedHost) : std::nullopt;
}

std::optional<std::string> UrlParts::lowercasedHost() const {
    const auto decoded = host();
    return decoded ? std::optional(lowercased(*decoded)) : std::nullopt;
}

std::string UrlParts::path() const {
    return percentDecoded(encodedPath).value_or(std::string());
}

std::vector<std::string> UrlParts::pathSegments() const {
    std::vector<std::string> segments;
    forEachPiece(path(), '/', [&](std::string_view piece) {
        if (!piece.empty()) {
            segments.emplace_back(piece);
        }
    });
    return segments;
}

std::vector<QueryItem> UrlParts::queryItems() const {
    std::vector<QueryItem> items;
    if (encodedQuery && !encodedQuery->empty()) {
        forEachPiece(*encodedQuery, '&',
                     [&](std::string_view piece) { items.push_back(decodedItem(piece)); });
    }
    return items;
}

std::optional<std::string> UrlParts::queryValue(std::string_view name) const {
    for (QueryItem& item : queryItems()) {
        if (item.name == name) {
            return std::move(item.value);
        }
    }
    return std::nullopt;
}

void UrlParts::setHost(std::string_view decoded) {
    encodedHost.emplace();
    if (decoded.starts_with('[') && decoded.ends_with(']')) {
        encodedHost = decoded;
    } else {
        appendEncoded(*encodedHost, decoded, allowedInHost);
    }
}

void UrlParts::setPath(std::string_view decoded) {
    encodedPath.clear();
    appendEncoded(encodedPath, decoded, allowedInPath);
}

void UrlParts::setQueryItems(const std::vector<QueryItem>& items) {
    std::string query;
    for (const QueryItem& item : items) {
        if (&item != &items.front()) {
            query += '&';
        }
        appendEncoded(query, item.name, allowedInQueryItem);
        if (item.value) {
            query += '=';
            appendEncoded(query, *item.value, allowedInQueryItem);
        }
    }
    encodedQuery = std::move(query);
}

std::optional<UrlParts> parseUrl(std::string_view text) {
    const auto parsed = urls::parse_uri_reference({text.data(), text.size()});
    if (!parsed) {
        return std::nullopt;
    }
    const urls::url_view& url = *parsed;
    UrlParts parts;
    if (url.has_scheme()) {
        parts.scheme = written(url.scheme());
    }
    if (url.has_userinfo()) {
        parts.userInfo = written(url.encoded_userinfo());
    }
    if (url.has_authority()) {
        parts.encodedHost = written(url.encoded_host());
    }
    if (url.has_port() && !url.port().empty()) {
        parts.port = written(url.port());
    }
    parts.encodedPath = written(url.encoded_path());
    // The parser takes what follows a host or port and cannot belong to it ("host:word") for a path.
    if (parts.encodedHost && !parts.encodedPath.empty() && !parts.encodedPath.starts_with('/')) {
        return std::nullopt;
    }
    if (url.has_query()) {
        parts.encodedQuery = written(url.encoded_query());
    }
    if (url.has_fragment()) {
        parts.encodedFragment = written(url.encoded_fragment());
    }
    return parts;
}

std::string buildUrl(const UrlParts& parts) {
    std::string url;
    if (parts.scheme) {
        url += *parts.scheme + ':';
    }
    if (parts.encodedHost) {
        url += "//";
        if (parts.userInfo) {
            url += *parts.userInfo + '@';
        }
        url += *parts.encodedHost;
        if (parts.port) {
            url += ':' + *parts.port;
        }
        if (!parts.encodedPath.empty() && !parts.encodedPath.starts_with('/')) {
            url += '/';
        }
    }
    url += parts.encodedPath;
    if (parts.encodedQuery) {
        url += '?' + *parts.encodedQuery;
    }
    if (parts.encodedFragment) {
        url += '#' + *parts.encodedFragment;
    }
    return url;
}

bool hostEndsWithDomain(std::string_view host, std::string_view domain) {
    if (!host.ends_with(domain)) {
        return false;
    }
    const std::size_t front = host.size() - domain.size();
    return front == 0 || host[front - 1] == '.';
}

} // namespace quillon
