#pragma once

#include "render/PageContext.h"
#include "render/PageText.h"

namespace quillon::HTMLRenderer {

/// Appends the article's top-level components, each in its wrapper, and the automatic advertisements between
/// them.
void renderBody(PageText& page, const PageContext& context);

/// Appends a component in the wrapper that places it in the grid and carries its id; nothing when it is
/// hidden.
void renderWrappedComponent(PageText& page, const Component& component, const PageContext& context);

/// Appends what the role of `resolved` shows, without the wrapper.
void renderComponent(PageText& page, const Component& resolved, const PageContext& context);

} // namespace quillon::HTMLRenderer
