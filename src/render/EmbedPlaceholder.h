#pragma once

#include <string>
#include <string_view>

/// What stands in the page for content that the preview cannot show. All texts are escaped here.
namespace quillon::HTMLRenderer {

/// A box with a title and, when it is not empty, a line of detail.
void renderEmbedPlaceholder(std::string& out, std::string_view title, std::string_view detail);
/// The same with the URL in the detail line and a link to it, when it is usable.
void renderLinkedPlaceholder(std::string& out, std::string_view title, std::string_view url,
                             std::string_view detail);

} // namespace quillon::HTMLRenderer
