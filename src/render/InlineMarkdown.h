#pragma once

#include <string>
#include <string_view>

namespace quillon::HTMLRenderer {

/// Appends Markdown within a line of text: bold, italic, links and line breaks. `escaped` has been escaped
/// already.
void renderInlineMarkdown(std::string& out, std::string_view escaped);

/// Appends `text`, which has not been escaped, as renderInlineMarkdown of its escaped form.
void escapeAndRenderInlineMarkdown(std::string& out, std::string_view text);

} // namespace quillon::HTMLRenderer
