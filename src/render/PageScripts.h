#pragma once

#include <string_view>

namespace quillon::HTMLRenderer {

/// The script at the end of each page: an image that does not load gives way to a placeholder with its
/// alternative text.
std::string_view imagePlaceholderScript();

} // namespace quillon::HTMLRenderer
