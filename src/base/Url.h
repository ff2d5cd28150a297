#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

/// One "name=value" of a query, decoded. No value is not the same as an empty one: "a" against "a=".
struct QueryItem {
    std::string name;
    std::optional<std::string> value;

    bool operator==(const QueryItem&) const = default;
};

/// The components of a URL, each as it is written, percent encoding and all; the functions decode and encode.
/// What does not decode to valid UTF-8 is treated as missing.
struct UrlParts {
    std::optional<std::string> scheme;          ///< without ":"
    std::optional<std::string> userInfo;        ///< what stands in front of the "@" of the host
    std::optional<std::string> encodedHost;     ///< may be empty; absent in a URL without "//"
    std::optional<std::string> port;            ///< numerals, never empty
    std::string encodedPath;                    ///< begins with "/" or is empty when there is a host
    std::optional<std::string> encodedQuery;    ///< without "?"
    std::optional<std::string> encodedFragment; ///< without "#"

    bool operator==(const UrlParts&) const = default;

    /// The decoded host, in its own letter case; an IPv6 address keeps its brackets.
    std::optional<std::string> host() const;

    /// The decoded host in lower case.
    std::optional<std::string> lowercasedHost() const;

    /// The decoded path.
    std::string path() const;

    /// The pieces of the decoded path between its slashes that are not empty.
    std::vector<std::string> pathSegments() const;

    /// The query at its "&", in order; empty without a query or with an empty one. "+" stands for itself.
    std::vector<QueryItem> queryItems() const;

    /// The value of the first query item named `name`; nothing when there is none or it has no value.
    std::optional<std::string> queryValue(std::string_view name) const;

    /// Replaces the host, path or query by decoded text, percent-encoding what may not stand there.
    void setHost(std::string_view decoded);
    void setPath(std::string_view decoded);
    void setQueryItems(const std::vector<QueryItem>& items);
};

/// The components of a URL or a relative reference. Nothing when `text` is not well-formed: blanks, letters
/// beyond ASCII, brackets and braces where they have no place, "%" without two hexadecimal digits.
std::optional<UrlParts> parseUrl(std::string_view text);

/// The text of a URL; `parseUrl` of a URL and this give the URL back, but for the ":" of an empty port.
std::string buildUrl(const UrlParts& parts);

/// Whether `host` is `domain` or lies under it: "www.a.example" under "a.example", "ba.example" not.
bool hostEndsWithDomain(std::string_view host, std::string_view domain);

/// The text with its "%xx" turned to bytes; nothing when a "%" has no two hexadecimal digits behind it or the
/// result is not valid UTF-8.
std::optional<std::string> percentDecoded(std::string_view text);

} // namespace quillon
