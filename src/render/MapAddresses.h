#pragma once

#include "base/Url.h"

#include <optional>
#include <string_view>

namespace quillon::HTMLRenderer {

/// What the page says where a map would need a token and there is none.
inline constexpr std::string_view missingMapsToken =
    "This app build does not include a Maps Embed API token.";

/// The components of a URL that the page can load; nothing for any other, or one that is not well-formed.
std::optional<UrlParts> usableParts(std::string_view url);

/// Whether `url` is itself an address of the maps service's frame.
bool isMapEmbedURL(std::string_view url);

} // namespace quillon::HTMLRenderer
