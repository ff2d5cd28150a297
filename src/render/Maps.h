#pragma once

#include "render/PageContext.h"
#include "render/PageText.h"

namespace quillon::HTMLRenderer {

/// The roles `map` and `place`, shown in the frame of the maps service.
void renderMap(PageText& page, const Component& component, const PageContext& context);

} // namespace quillon::HTMLRenderer
