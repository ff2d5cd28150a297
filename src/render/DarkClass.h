#pragma once

#include "render/PageContext.h"

#include <string>
#include <string_view>

namespace quillon::HTMLRenderer {

/// The class, with its leading blank, of what the component's style changes in dark mode, and of `further`
/// declarations that hold there; nothing when there are none.
std::string componentDarkClass(const Component& component, const PageContext& context,
                               std::string_view further = {});

} // namespace quillon::HTMLRenderer
