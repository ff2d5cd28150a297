#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillon::HTMLRenderer {

/// The address under which a service's player can be framed; nothing when `url` is none of that service's.
std::optional<std::string> webVideoEmbedURL(std::string_view url);
std::optional<std::string> musicEmbedURL(std::string_view url);
std::optional<std::string> podcastEmbedURL(std::string_view url);

} // namespace quillon::HTMLRenderer
