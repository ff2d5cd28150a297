#include "render/MapAddresses.h"

#include "base/Numbers.h"
#include "base/UnicodeText.h"
#include "base/endpoints.h"
#include "render/CssNumbers.h"
#include "render/MapsToken.h"
#include "render/MediaParts.h"
#include "render/UsableUrl.h"

#include <algorithm>
#include <array>

namespace quillon::HTMLRenderer {

namespace {

/// A whole text as a number, a leading "+" and an exponent included. "inf" and "nan", which name numbers
/// too, name no place on the globe and are refused, as are numbers too large for a double.
std::optional<double> coordinate(std::string_view text) {
    text = trimmedBlanks(text);
    if (text.starts_with('+') && !text.starts_with("+-")) {
        text.remove_prefix(1);
    }
    return parseDouble(text);
}

/// "latitude,longitude", with any number of commas in front.
std::optional<Coordinates> coordinatePair(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(','), text.size()));
    const size_t comma = text.find(',');
    if (comma == std::string_view::npos) {
        return std::nullopt;
    }
    const std::optional<double> latitude = coordinate(text.substr(0, comma));
    const std::optional<double> longitude = coordinate(text.substr(comma + 1));
    if (!latitude || !longitude) {
        return std::nullopt;
    }
    return Coordinates{*latitude, *longitude};
}

std::string pairText(const Coordinates& coordinates) {
    std::string text;
    formatNumber(text, coordinates.latitude);
    text += ',';
    formatNumber(text, coordinates.longitude);
    return text;
}

std::string addressText(std::string_view host, std::string_view path, const std::vector<QueryItem>& query) {
    UrlParts parts;
    parts.scheme = "https";
    parts.setHost(host);
    parts.setPath(path);
    parts.setQueryItems(query);
    return buildUrl(parts);
}

std::optional<std::string> placeIdentifier(const Component& component) {
    constexpr std::array<std::string_view, 2> keys = {"placeID", "placeId"};
    for (const std::string_view key : keys) {
        const auto field = component.preservedFields->find(std::string(key));
        if (field == component.preservedFields->end()) {
            continue;
        }
        if (const auto* id = std::get_if<std::string>(&field->second.form); id && !id->empty()) {
            return *id;
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<UrlParts> usableParts(std::string_view url) {
    return isUsableURL(url) ? parseUrl(url) : std::nullopt;
}

bool isMapEmbedURL(std::string_view url) {
    const std::optional<UrlParts> parts = usableParts(url);
    const std::string host = parts ? parts->lowercasedHost().value_or("") : "";
    return host == endpoints::appleMapsEmbedHost ||
           (host.ends_with(endpoints::appleMapsDomain) && host.find("embed") != std::string::npos);
}

std::optional<Coordinates> mapCoordinates(const Component& component, std::string_view url) {
    if (component.latitude && component.longitude) {
        return Coordinates{*component.latitude, *component.longitude};
    }
    const std::optional<UrlParts> parts = usableParts(url);
    if (!parts) {
        return std::nullopt;
    }
    constexpr std::array<std::string_view, 3> keys = {"ll", "sll", "center"};
    for (const std::string_view key : keys) {
        const std::optional<std::string> value = parts->queryValue(key);
        if (const auto coordinates = value ? coordinatePair(*value) : std::nullopt) {
            return coordinates;
        }
    }
    return std::nullopt;
}

std::optional<std::string> mapFallbackURL(const Component& component) {
    const std::string_view url = trimmedURL(component.URL);
    const std::optional<UrlParts> parts = usableParts(url);
    const std::string host = parts ? parts->lowercasedHost().value_or("") : "";
    if (hostEndsWithDomain(host, endpoints::appleMapsHost)) {
        return std::string(url);
    }
    if (const std::optional<Coordinates> coordinates = mapCoordinates(component, url)) {
        const std::string_view caption = textOrEmpty(component.caption);
        return addressText(endpoints::appleMapsHost, "/",
                           {{"ll", pairText(*coordinates)},
                            {"q", caption.empty() ? component.role.displayName() : std::string(caption)}});
    }
    return isUsableURL(url) ? std::optional<std::string>(url) : std::nullopt;
}

std::optional<std::string> mapEmbedURL(const Component& component, const PreviewEnvironment& environment) {
    const std::string_view url = trimmedURL(component.URL);
    const std::optional<std::string> token = mapsToken(component, environment, url);
    if (!token) {
        return std::nullopt;
    }
    if (isMapEmbedURL(url)) {
        return std::string(url);
    }
    const std::optional<Coordinates> coordinates = mapCoordinates(component, url);
    if (!coordinates) {
        return std::nullopt;
    }
    std::vector<QueryItem> query = {
        {"center", pairText(*coordinates)},
        {"cameraDistance", component.role == ComponentRole::place ? "1200" : "2500"},
    };
    if (const std::optional<std::string> place = placeIdentifier(component)) {
        // The identifier stands as it is: one with a quotation mark makes no valid JSON.
        query.push_back({"annotations", R"([{"place": ")" + *place + R"(", "selected": true}])"});
    }
    query.push_back({"token", *token});
    return addressText(endpoints::appleMapsEmbedHost, "/v1/embed", query);
}

} // namespace quillon::HTMLRenderer
