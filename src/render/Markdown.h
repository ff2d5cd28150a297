#pragma once

#include "model/TextStyles.h"

#include <string>
#include <string_view>

namespace quillon::HTMLRenderer {

/// Appends `text`, a small line-based Markdown, as HTML blocks with nothing between them. Paragraphs get
/// `paragraphAttribute` (with its leading blank, or empty) and lists the markers of `style` (or null).
void renderMarkdown(std::string& out, std::string_view text, std::string_view paragraphAttribute,
                    const ComponentTextStyle* style);

} // namespace quillon::HTMLRenderer
