#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillon {

/// Values that were given when the program was built (`cmake -DQUILLON_MAPS_EMBED_TOKEN=...`), by key:
/// "QuillonMapsEmbedToken", "QuillonMapsEmbedOrigin". Nothing for any other key; empty where none was given.
std::optional<std::string> applicationInfo(std::string_view key);

} // namespace quillon
