#pragma once

#include <string_view>

namespace quillon::HTMLRenderer {

/// Whether the page can load `url`: it begins with "http://", "https://" or "bundle://", in this very case.
inline bool isUsableURL(std::string_view url) {
    return url.starts_with("http://") || url.starts_with("https://") || url.starts_with("bundle://");
}

} // namespace quillon::HTMLRenderer
