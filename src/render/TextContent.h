#pragma once

#include "render/PageContext.h"
#include "render/PageText.h"

#include <string>
#include <string_view>

namespace quillon::HTMLRenderer {

/// Appends the inner HTML of a text role: the component's text read as HTML, as Markdown or as plain text
/// with ranges. `textStyle` is the component's effective style, or null.
void renderTextContent(std::string& out, const Component& component, const PageContext& context,
                       const ComponentTextStyle* textStyle);

} // namespace quillon::HTMLRenderer
