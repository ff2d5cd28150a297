#pragma once

#include "render/PageContext.h"
#include "render/PageText.h"

#include <string_view>

namespace quillon::HTMLRenderer {

/// Appends the component's children, each in its wrapper, with nothing between them.
void renderChildren(PageText& page, const Component& component, const PageContext& context);

/// The roles `container`, `aside`, `section` and `chapter`, told apart by their class names.
void renderContainer(PageText& page, const Component& component, const PageContext& context,
                     std::string_view baseClass);
/// A container whose style has an image as its fill shows it as a hero behind its children.
void renderHeader(PageText& page, const Component& component, const PageContext& context);
void renderArticleLink(PageText& page, const Component& component, const PageContext& context);

} // namespace quillon::HTMLRenderer
