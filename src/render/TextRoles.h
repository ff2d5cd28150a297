#pragma once

#include "render/PageContext.h"
#include "render/PageText.h"

namespace quillon::HTMLRenderer {

/// The roles that show a text: titles, headings, body, captions, credits, quotes.
void renderTextRole(PageText& page, const Component& component, const PageContext& context);

/// A role that the program does not know: a labelled block with the component's text and children, so that
/// nothing written is lost from sight.
void renderUnknownRole(PageText& page, const Component& component, const PageContext& context);

} // namespace quillon::HTMLRenderer
