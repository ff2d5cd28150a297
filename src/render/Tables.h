#pragma once

#include "render/PageContext.h"
#include "render/PageText.h"

namespace quillon::HTMLRenderer {

/// The style of one cell after its selectors.
struct EffectiveCell {
    Optional<std::string> backgroundColor;
    Optional<Border> border;
    Optional<std::string> horizontalAlignment;
    Optional<std::string> verticalAlignment;
    Optional<ANFLength> minimumWidth;
    Optional<PaddingValue> padding;
    Optional<StyleRef<ComponentTextStyle>> textStyle;

    bool operator==(const EffectiveCell&) const = default;
};

/// `cellStyle` (or null) with the variants laid over it that a selector chooses for this cell. Rows and
/// columns count from 0; `descriptor` is that of the column.
EffectiveCell effectiveCell(const TableCellStyle* cellStyle, size_t row, size_t column,
                            const DataDescriptor& descriptor);

void renderDataTable(PageText& page, const Component& component, const PageContext& context);
void renderHTMLTable(PageText& page, const Component& component, const PageContext& context);

} // namespace quillon::HTMLRenderer
