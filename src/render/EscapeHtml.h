#pragma once

#include <string>
#include <string_view>

namespace quillon::HTMLRenderer {

/// Appends `text` with "&", "<", ">" and the double quote as entities: the one rule for text, attributes and
/// values inside `url('...')`. The apostrophe stays.
void escapeHTML(std::string& out, std::string_view text);
std::string escapeHTML(std::string_view text);

/// The same with each line feed as "<br>".
void escapeHTMLLines(std::string& out, std::string_view text);

} // namespace quillon::HTMLRenderer
