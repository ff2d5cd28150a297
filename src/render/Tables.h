#pragma once

#include "render/PageContext.h"
#include "render/PageText.h"

namespace quillon::HTMLRenderer {

/// The roles `datatable` and `htmltable`.
void renderDataTable(PageText& page, const Component& component, const PageContext& context);
void renderHTMLTable(PageText& page, const Component& component, const PageContext& context);

} // namespace quillon::HTMLRenderer
