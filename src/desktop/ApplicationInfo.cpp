#include "desktop/ApplicationInfo.h"

namespace quillon {

std::optional<std::string> applicationInfo(std::string_view key) {
    if (key == "QuillonMapsEmbedToken") {
        return QUILLON_MAPS_EMBED_TOKEN;
    }
    if (key == "QuillonMapsEmbedOrigin") {
        return QUILLON_MAPS_EMBED_ORIGIN;
    }
    return std::nullopt;
}

} // namespace quillon
