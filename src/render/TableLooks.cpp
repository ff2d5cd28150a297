#include "render/TableLooks.h"

#include "render/ComponentStyleCss.h"
#include "render/Conditions.h"
#include "render/EscapeHtml.h"
#include "render/Tables.h"
#include "render/TextStyleCss.h"

#include <algorithm>
#include <utility>

namespace quillon::HTMLRenderer {

namespace {

/// Whether a row or column is one of those asked for. A flag that is off asks for nothing.
bool matchesPlace(std::optional<bool> odd, std::optional<bool> even, std::optional<int64_t> index,
                  size_t place) {
    const bool isOdd = place % 2 == 0; // the first one is odd
    if ((odd.value_or(false) && !isOdd) || (even.value_or(false) && isOdd)) {
        return false;
    }
    return !index || std::cmp_equal(*index, place);
}

bool matchesDescriptor(const Optional<std::string>& identifier, const DataDescriptor& descriptor) {
    return !identifier || (descriptor.identifier && *descriptor.identifier == *identifier);
}

template <typename Value>
void take(const SharedOptional<Value>*& field, const SharedOptional<Value>& value) {
    if (value) {
        field = &value;
    }
}

void takeFields(RowLook& look, const auto& style) {
    take(look.backgroundColor, style.backgroundColor);
    take(look.divider, style.divider);
    take(look.height, style.height);
}

void takeFields(ColumnLook& look, const auto& style) {
    take(look.backgroundColor, style.backgroundColor);
    take(look.divider, style.divider);
}

void takeFields(CellLook& look, const auto& style) {
    take(look.backgroundColor, style.backgroundColor);
    take(look.border, style.border);
    take(look.horizontalAlignment, style.horizontalAlignment);
    take(look.verticalAlignment, style.verticalAlignment);
    take(look.minimumWidth, style.minimumWidth);
    take(look.padding, style.padding);
    take(look.textStyle, style.textStyle);
}

/// The look of a row or column: the style's own fields, then those of each variant with a selector that
/// matches.
template <typename Look, typename Style>
Look lookOf(const Style* style, auto&& matches) {
    Look look;
    if (!style) {
        return look;
    }
    takeFields(look, *style);
    if (style->conditional) {
        for (const auto& entry : *style->conditional) {
            if (entry.selectors && std::ranges::any_of(*entry.selectors, matches)) {
                takeFields(look, entry);
            }
        }
    }
    return look;
}

template <typename Value>
SharedOptional<Value> valueOf(const SharedOptional<Value>* field) {
    return field ? *field : SharedOptional<Value>();
}

void escapedDeclaration(std::string& out, std::string_view property, const Optional<std::string>* value) {
    if (value) {
        out += property;
        escapeHTML(out, **value);
        out += ';';
    }
}

void lengthDeclaration(std::string& out, std::string_view property, const Optional<ANFLength>* length) {
    if (const auto css = length ? (*length)->plainLengthCSS() : std::nullopt) {
        out += property;
        escapeHTML(out, *css); // any text that ends in a unit is a length
        out += ';';
    }
}

void dividerDeclaration(std::string& out, std::string_view property, const Optional<ANFStrokeStyle>* stroke) {
    if (stroke) {
        out += property;
        strokeCSS(out, **stroke);
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

RowLook rowLook(const TableRowStyle* style, size_t row) {
    return lookOf<RowLook>(style, [row](const TableRowSelector& selector) {
        return matchesPlace(selector.odd, selector.even, selector.rowIndex, row);
    });
}

ColumnLook columnLook(const TableColumnStyle* style, size_t column, const DataDescriptor& descriptor) {
    return lookOf<ColumnLook>(style, [&](const TableColumnSelector& selector) {
        return matchesPlace(selector.odd, selector.even, selector.columnIndex, column) &&
               matchesDescriptor(selector.descriptor, descriptor);
    });
}

ColumnCells::ColumnCells(const TableCellStyle* style, size_t column, const DataDescriptor& descriptor) {
    if (!style) {
        return;
    }
    takeFields(m_base, *style);
    if (!style->conditional) {
        return;
    }
    for (const ConditionalTableCellStyle& entry : *style->conditional) {
        if (!entry.selectors) {
            continue;
        }
        for (const TableCellSelector& selector : *entry.selectors) {
            if (matchesPlace(selector.oddColumns, selector.evenColumns, selector.columnIndex, column) &&
                matchesDescriptor(selector.descriptor, descriptor)) {
                m_candidates.push_back({&selector, &entry});
            }
        }
    }
}

CellLook ColumnCells::at(size_t row) const {
    CellLook look = m_base;
    for (const auto& [selector, entry] : m_candidates) {
        if (matchesPlace(selector->oddRows, selector->evenRows, selector->rowIndex, row)) {
            takeFields(look, *entry);
        }
    }
    return look;
}

EffectiveCell effectiveCell(const TableCellStyle* cellStyle, size_t row, size_t column,
                            const DataDescriptor& descriptor) {
    const CellLook look = ColumnCells(cellStyle, column, descriptor).at(row);
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
    lengthDeclaration(out, "height: ", look.height);
}

void cellCSS(std::string& out, const CellLook& look, const PageContext& context) {
    escapedDeclaration(out, "background-color: ", look.backgroundColor);
    out += "padding: ";
    escapeHTML(out, look.padding ? (*look.padding)->paddingCSS() : "8px");
    out += ';';
    escapedDeclaration(out, "text-align: ", look.horizontalAlignment);
    if (look.verticalAlignment && **look.verticalAlignment == "center") {
        out += "vertical-align: middle;";
    } else {
        escapedDeclaration(out, "vertical-align: ", look.verticalAlignment);
    }
    const size_t sizeBeforeBorder = out.size();
    if (look.border) {
        borderCSS(out, *look.border);
    }
    if (out.size() == sizeBeforeBorder) {
        dividerDeclaration(out, "border-bottom: ", look.rowDivider);
        dividerDeclaration(out, "border-right: ", look.columnDivider);
    }
    lengthDeclaration(out, "min-width: ", look.minimumWidth);
    if (look.textStyle) {
        if (const auto style = resolveComponentTextStyleRef(*look.textStyle, context)) {
            componentTextStyleCSS(out, &*style);
        }
    }
}

} // namespace quillon::HTMLRenderer
