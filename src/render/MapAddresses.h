#pragma once

#include "base/Url.h"
#include "model/Component.h"
#include "render/PreviewEnvironment.h"

#include <optional>
#include <string>
#include <string_view>

namespace quillon::HTMLRenderer {

struct Coordinates {
    double latitude;  ///< degrees
    double longitude; ///< degrees

    bool operator==(const Coordinates&) const = default;
};

/// The components of a URL that the page can load; nothing for any other, or one that is not well-formed.
std::optional<UrlParts> usableParts(std::string_view url);

/// Whether `url` is itself an address of the maps service's frame.
bool isMapEmbedURL(std::string_view url);

/// Where a map is to show; `url` is the component's URL, trimmed.
std::optional<Coordinates> mapCoordinates(const Component& component, std::string_view url);
/// The address behind the link that opens the map elsewhere.
std::optional<std::string> mapFallbackURL(const Component& component);
/// The address of the frame, its token included.
std::optional<std::string> mapEmbedURL(const Component& component, const PreviewEnvironment& environment);

} // namespace quillon::HTMLRenderer
