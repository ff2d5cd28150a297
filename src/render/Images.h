#pragma once

#include "render/PageContext.h"
#include "render/PageText.h"

#include <string_view>

namespace quillon::HTMLRenderer {

/// The roles that show one image.
void renderImage(PageText& page, const Component& component, const PageContext& context);

/// The roles that show several: `kind` is "gallery" or "mosaic".
void renderCollection(PageText& page, const Component& component, const PageContext& context,
                      std::string_view kind);

} // namespace quillon::HTMLRenderer
