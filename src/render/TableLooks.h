#pragma once

#include "model/DataTable.h"
#include "model/TableStyles.h"
#include "render/PageContext.h"

#include <compare>
#include <string>

/// What the style of a data table says of one row, column or cell after its selectors. A look points into the
/// article's styles, which must outlive it.
namespace quillon::HTMLRenderer {

/// A field of a look: who says it last, or null when nobody does.
template <typename Value>
struct Said {
    const Optional<Value>* value = nullptr;
    size_t rank = 0; ///< the place in its list of the variant that says it; 0 for the style itself

    explicit operator bool() const { return value != nullptr; }
    const Value& operator*() const { return **value; }
    const Value* operator->() const { return &**value; }

    auto operator<=>(const Said&) const = default;
};

struct RowLook {
    Said<std::string> backgroundColor;
    Said<ANFStrokeStyle> divider;
    Said<ANFLength> height;
};

struct ColumnLook {
    Said<std::string> backgroundColor;
    Said<ANFStrokeStyle> divider;
};

/// Two cells with equal looks have the same CSS.
struct CellLook {
    Said<std::string> backgroundColor;
    Said<Border> border;
    Said<std::string> horizontalAlignment;
    Said<std::string> verticalAlignment;
    Said<ANFLength> minimumWidth;
    Said<PaddingValue> padding;
    Said<StyleRef<ComponentTextStyle>> textStyle;
    Said<ANFStrokeStyle> rowDivider;    ///< below the cell, without a border
    Said<ANFStrokeStyle> columnDivider; ///< right of the cell, without a border

    auto operator<=>(const CellLook&) const = default;

    /// Adds what the cell has from its row and its column.
    void completeWith(const RowLook& row, const ColumnLook& column);
};

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

/// Append the declarations of a row and of a cell.
void rowCSS(std::string& out, const RowLook& look);
void cellCSS(std::string& out, const CellLook& look, const PageContext& context);

} // namespace quillon::HTMLRenderer
