#pragma once

#include "model/DataTable.h"
#include "model/TableStyles.h"
#include "render/PageContext.h"

#include <compare>
#include <string>
#include <vector>

/// What the style of a data table says of one row, column or cell after its selectors. A look points into the
/// article's styles, which must outlive it; null stands for what nobody says. Rows and columns count from 0.
namespace quillon::HTMLRenderer {

struct RowLook {
    const Optional<std::string>* backgroundColor = nullptr;
    const Optional<ANFStrokeStyle>* divider = nullptr;
    const Optional<ANFLength>* height = nullptr;
};

struct ColumnLook {
    const Optional<std::string>* backgroundColor = nullptr;
    const Optional<ANFStrokeStyle>* divider = nullptr;
};

/// Two cells with equal looks have the same CSS.
struct CellLook {
    const Optional<std::string>* backgroundColor = nullptr;
    const Optional<Border>* border = nullptr;
    const Optional<std::string>* horizontalAlignment = nullptr;
    const Optional<std::string>* verticalAlignment = nullptr;
    const Optional<ANFLength>* minimumWidth = nullptr;
    const Optional<PaddingValue>* padding = nullptr;
    const Optional<StyleRef<ComponentTextStyle>>* textStyle = nullptr;
    const Optional<ANFStrokeStyle>* rowDivider = nullptr;    ///< below the cell, without a border
    const Optional<ANFStrokeStyle>* columnDivider = nullptr; ///< right of the cell, without a border

    auto operator<=>(const CellLook&) const = default;

    /// Adds what the cell has from its row and its column.
    void completeWith(const RowLook& row, const ColumnLook& column);
};

/// `style` may be null here and below.
RowLook rowLook(const TableRowStyle* style, size_t row);
ColumnLook columnLook(const TableColumnStyle* style, size_t column, const DataDescriptor& descriptor);

/// The looks of the cells of one column: what the selectors ask of the column is tested once for all rows.
class ColumnCells {
public:
    ColumnCells(const TableCellStyle* style, size_t column, const DataDescriptor& descriptor);

    /// The look of the cell in `row`, without what it has from its row and its column.
    CellLook at(size_t row) const;

private:
    struct Candidate {
        const TableCellSelector* selector;
        const ConditionalTableCellStyle* entry;
    };

    CellLook m_base;
    std::vector<Candidate> m_candidates; ///< the selectors that match the column, in order
};

/// Append the declarations of a row and of a cell.
void rowCSS(std::string& out, const RowLook& look);
void cellCSS(std::string& out, const CellLook& look, const PageContext& context);

} // namespace quillon::HTMLRenderer
