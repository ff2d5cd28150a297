#pragma once

#include "render/PageContext.h"

#include <string>
#include <string_view>

namespace quillon::HTMLRenderer {

/// Appends `html` with each attribute `data-anf-textstyle` as the `style` attribute of the article's text
/// style that it names. Where no such style says anything the attribute is left out.
void resolveTextStyleAttributes(std::string& out, std::string_view html, const PageContext& context);

} // namespace quillon::HTMLRenderer
