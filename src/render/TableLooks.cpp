#include "render/TableLooks.h"

#include "render/ComponentStyleCss.h"
#include "render/Conditions.h"
#include "render/EscapeHtml.h"
#include "render/LayoutCss.h"
#include "render/TableRules.h"
#include "render/TextStyleCss.h"

namespace quillon::HTMLRenderer {

namespace {

template <typename Value>
SharedOptional<Value> valueOf(const Said<Value>& field) {
    return field ? *field.value : SharedOptional<Value>();
}

void escapedDeclaration(std::string& out, std::string_view property, const Said<std::string>& text) {
    if (text) {
        out += property;
        escapeHTML(out, *text);
        out += ';';
    }
}

/// A length inside a table, where the units of the grid do not count.
std::optional<std::string> lengthOf(const Said<ANFLength>& length) {
    return length ? length->plainLengthCSS() : std::nullopt;
}

void dividerDeclaration(std::string& out, std::string_view property, const Said<ANFStrokeStyle>& stroke) {
    if (stroke) {
        out += property;
        strokeCSS(out, *stroke);
        out += ';';
    }
}

} // namespace

void CellLook::completeWith(const RowLook& row, const ColumnLook& column) {
    if (!backgroundColor) {
        backgroundColor = row.backgroundColor ? row.backgroundColor : column.backgroundColor;
    }
    rowDivider = row.divider;
    columnDivider = column.divider;
}

EffectiveCell effectiveCell(const TableCellStyle* cellStyle, size_t row, size_t column,
                            const DataDescriptor& descriptor) {
    const CellLook look = CellLooks(cellStyle).inColumn(column, descriptor).at(row);
    return {
        .backgroundColor = valueOf(look.backgroundColor),
        .border = valueOf(look.border),
        .horizontalAlignment = valueOf(look.horizontalAlignment),
        .verticalAlignment = valueOf(look.verticalAlignment),
        .minimumWidth = valueOf(look.minimumWidth),
        .padding = valueOf(look.padding),
        .textStyle = valueOf(look.textStyle),
    };
}

void rowCSS(std::string& out, const RowLook& look) {
    lengthDeclaration(out, "height: ", lengthOf(look.height));
}

void cellCSS(std::string& out, const CellLook& look, const PageContext& context) {
    escapedDeclaration(out, "background-color: ", look.backgroundColor);
    out += "padding: ";
    escapeHTML(out, look.padding ? look.padding->paddingCSS() : "8px");
    out += ';';
    escapedDeclaration(out, "text-align: ", look.horizontalAlignment);
    if (look.verticalAlignment && *look.verticalAlignment == "center") {
        out += "vertical-align: middle;";
    } else {
        escapedDeclaration(out, "vertical-align: ", look.verticalAlignment);
    }
    const size_t sizeBeforeBorder = out.size();
    if (look.border) {
        borderCSS(out, *look.border.value);
    }
    if (out.size() == sizeBeforeBorder) {
        dividerDeclaration(out, "border-bottom: ", look.rowDivider);
        dividerDeclaration(out, "border-right: ", look.columnDivider);
    }
    lengthDeclaration(out, "min-width: ", lengthOf(look.minimumWidth));
    if (look.textStyle) {
        if (const auto style = resolveComponentTextStyleRef(*look.textStyle.value, context)) {
            componentTextStyleCSS(out, &*style);
        }
    }
}

} // namespace quillon::HTMLRenderer
