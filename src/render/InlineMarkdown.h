#pragma once

#include <string>
#include <string_view>

namespace quillon::HTMLRenderer {

/// Appends `text`, which has not been escaped, as renderInlineMarkdown of its escaped form.
void escapeAndRenderInlineMarkdown(std::string& out, std::string_view text);

} // namespace quillon::HTMLRenderer
