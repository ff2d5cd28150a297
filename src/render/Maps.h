#pragma once

#include "model/JSONValue.h"
#include "render/PageContext.h"
#include "render/PageText.h"

#include <optional>
#include <string>
#include <string_view>

/// Maps and places in the frame of the maps service, which asks for a token: a JSON Web Token (RFC 7519) of
/// which only the payload is read.
namespace quillon::HTMLRenderer {

struct Coordinates {
    double latitude;  ///< degrees
    double longitude; ///< degrees

    bool operator==(const Coordinates&) const = default;
};

/// In all of these `url` is the component's URL, trimmed.
std::optional<Coordinates> mapCoordinates(const Component& component, std::string_view url);
std::optional<std::string> mapFallbackURL(const Component& component);
std::optional<std::string> mapsToken(const Component& component, const PreviewEnvironment& environment,
                                     std::string_view url);
/// The claims of a token; nothing when it cannot be decoded.
std::optional<JSONValue::Object> decodeTokenPayload(std::string_view token);
/// Scheme, host and port in lower case, without anything behind them; nothing when `text` is no http or https
/// origin.
std::optional<std::string> normalizedOrigin(std::string_view text);
/// What is wrong with the token that the component would be shown with; nothing when all is well. `now` is in
/// seconds since 1970.
std::optional<std::string> validateMapsToken(const Component& component,
                                             const PreviewEnvironment& environment, double now);
std::optional<std::string> mapEmbedURL(const Component& component, const PreviewEnvironment& environment);

/// The roles `map` and `place`.
void renderMap(PageText& page, const Component& component, const PageContext& context);

} // namespace quillon::HTMLRenderer
