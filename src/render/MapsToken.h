#pragma once

#include "model/Component.h"
#include "model/JSONValue.h"
#include "render/PreviewEnvironment.h"

#include <optional>
#include <string>
#include <string_view>

/// The token that the frame of the maps service asks for: a JSON Web Token (RFC 7519) of which only the
/// payload is read.
namespace quillon::HTMLRenderer {

/// What the page says where a map would need a token and there is none.
inline constexpr std::string_view missingMapsToken =
    "This app build does not include a Maps Embed API token.";

/// The token of the environment, of `url` (the component's URL, trimmed) or of the component, whichever comes
/// first.
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

} // namespace quillon::HTMLRenderer
