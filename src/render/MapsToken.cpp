#include "render/MapsToken.h"

#include "base/Base64.h"
#include "base/JsonText.h"
#include "base/UnicodeText.h"
#include "base/endpoints.h"
#include "model/Codec.h"
#include "render/MapAddresses.h"
#include "render/MediaParts.h"

#include <algorithm>
#include <array>

namespace quillon::HTMLRenderer {

namespace {

std::string joined(const std::vector<std::string>& pieces, std::string_view separator) {
    std::string text;
    for (const std::string& piece : pieces) {
        if (&piece != &pieces.front()) {
            text += separator;
        }
        text += piece;
    }
    return text;
}

std::vector<std::string> splitAt(std::string_view text, char separator) {
    std::vector<std::string> pieces;
    for (;;) {
        const size_t end = text.find(separator);
        pieces.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) {
            return pieces;
        }
        text.remove_prefix(end + 1);
    }
}

const JSONValue* claim(const JSONValue::Object& payload, const std::string& name) {
    const auto found = payload->find(name);
    return found == payload->end() ? nullptr : &found->second;
}

/// The texts of an `origin` claim; none when it is neither a text nor a list of texts alone.
std::vector<std::string> originEntries(const JSONValue& origin) {
    if (const auto* text = std::get_if<std::string>(&origin.form)) {
        return splitAt(*text, ',');
    }
    std::vector<std::string> entries;
    if (const auto* list = std::get_if<JSONValue::Array>(&origin.form)) {
        for (const JSONValue& entry : **list) {
            const auto* text = std::get_if<std::string>(&entry.form);
            if (!text) {
                return {};
            }
            entries.push_back(*text);
        }
    }
    return entries;
}

/// The origins that a token is good for, in normal form; those without one are left out.
std::vector<std::string> tokenOrigins(const JSONValue::Object& payload) {
    std::vector<std::string> origins;
    if (const JSONValue* origin = claim(payload, "origin")) {
        for (const std::string& entry : originEntries(*origin)) {
            if (std::optional<std::string> normalized = normalizedOrigin(entry)) {
                origins.push_back(*std::move(normalized));
            }
        }
    }
    return origins;
}

bool hasExpired(const JSONValue::Object& payload, double now) {
    const JSONValue* expiry = claim(payload, "exp");
    const auto* seconds = expiry ? std::get_if<double>(&expiry->form) : nullptr;
    return seconds && *seconds < now;
}

std::optional<std::string> checkOrigins(const std::vector<std::string>& origins,
                                        const PreviewEnvironment& environment) {
    const std::optional<std::string> preview = normalizedOrigin(environment.mapsEmbedOrigin.value_or(""));
    if (origins.empty()) {
        return "The Maps Embed API token is missing an origin claim. Create a new embed_api token for " +
               preview.value_or(std::string(endpoints::productOrigin)) + ".";
    }
    if (!preview) {
        return "This app build has an invalid Maps preview origin.";
    }
    if (std::ranges::find(origins, *preview) != origins.end()) {
        return std::nullopt;
    }
    return "The Maps Embed API token origin does not match the preview origin. Token: " +
           joined(origins, ", ") + ". Preview: " + *preview + ".";
}

} // namespace

std::optional<std::string> mapsToken(const Component& component, const PreviewEnvironment& environment,
                                     std::string_view url) {
    if (environment.mapsEmbedToken) {
        if (const std::string_view configured = trimmed(*environment.mapsEmbedToken); !configured.empty()) {
            return std::string(configured);
        }
    }
    if (const std::optional<UrlParts> parts = usableParts(url)) {
        if (std::optional<std::string> token = parts->queryValue("token"); token && !token->empty()) {
            return token;
        }
    }
    constexpr std::array<std::string_view, 4> keys = {"mapsToken", "mapKitToken", "mapkitToken", "token"};
    for (const std::string_view key : keys) {
        const auto field = component.preservedFields->find(std::string(key));
        if (field == component.preservedFields->end()) {
            continue;
        }
        if (const auto* token = std::get_if<std::string>(&field->second.form)) {
            return *token; // even an empty one: the article has a token, though a useless one
        }
    }
    return std::nullopt;
}

std::optional<JSONValue::Object> decodeTokenPayload(std::string_view token) {
    const size_t first = token.find('.');
    if (first == std::string_view::npos) {
        return std::nullopt;
    }
    token.remove_prefix(first + 1);
    std::string base64(token.substr(0, token.find('.')));
    std::ranges::replace(base64, '-', '+');
    std::ranges::replace(base64, '_', '/');
    base64.append((4 - base64.size() % 4) % 4, '=');
    std::optional<std::string> json = base64Decoded(base64);
    if (!json) {
        return std::nullopt;
    }
    const auto payload = JsonText::parse(*std::move(json));
    if (!payload) {
        return std::nullopt;
    }
    JSONValue value;
    ReadFailure failure;
    readValue(payload->root(), value, failure);
    const auto* claims = std::get_if<JSONValue::Object>(&value.form);
    return claims ? std::optional(*claims) : std::nullopt;
}

std::optional<std::string> normalizedOrigin(std::string_view text) {
    text = trimmed(text);
    if (text.empty()) {
        return std::nullopt;
    }
    const bool hasScheme = text.find("://") != std::string_view::npos;
    const std::optional<UrlParts> parts =
        parseUrl(hasScheme ? std::string(text) : "https://" + std::string(text));
    const std::string scheme = parts ? lowercased(parts->scheme.value_or("")) : "";
    const std::string host = parts ? parts->lowercasedHost().value_or("") : "";
    if ((scheme != "http" && scheme != "https") || host.empty()) {
        return std::nullopt;
    }
    UrlParts origin = *parts;
    origin.scheme = scheme;
    origin.setHost(host);
    origin.encodedPath.clear();
    origin.encodedQuery.reset();
    origin.encodedFragment.reset();
    return buildUrl(origin);
}

std::optional<std::string> validateMapsToken(const Component& component,
                                             const PreviewEnvironment& environment, double now) {
    const std::string_view url = trimmedURL(component.URL);
    if (!mapCoordinates(component, url) && !isMapEmbedURL(url)) {
        return std::nullopt; // there is no frame to be shown
    }
    const std::optional<std::string> token = mapsToken(component, environment, url);
    if (!token) {
        return std::string(missingMapsToken);
    }
    const std::optional<JSONValue::Object> payload = decodeTokenPayload(*token);
    if (!payload) {
        return "The Maps Embed API token could not be decoded. "
               "Create a new token with scope embed_api and an origin.";
    }
    if (hasExpired(*payload, now)) {
        return "The Maps Embed API token is expired.";
    }
    return checkOrigins(tokenOrigins(*payload), environment);
}

} // namespace quillon::HTMLRenderer
