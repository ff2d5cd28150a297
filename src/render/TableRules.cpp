#include "render/TableRules.h"

namespace quillon::HTMLRenderer {

namespace {

/// Lays one saying over another: of two the later holds, in whichever order they come.
template <typename Value>
void layOver(Said<Value>& field, const Said<Value>& other) {
    if (other && (!field || other.rank >= field.rank)) {
        field = other;
    }
}

void layOver(RowLook& look, const RowLook& other) {
    layOver(look.backgroundColor, other.backgroundColor);
    layOver(look.divider, other.divider);
    layOver(look.height, other.height);
}

void layOver(ColumnLook& look, const ColumnLook& other) {
    layOver(look.backgroundColor, other.backgroundColor);
    layOver(look.divider, other.divider);
}

void layOver(CellLook& look, const CellLook& other) {
    layOver(look.backgroundColor, other.backgroundColor);
    layOver(look.border, other.border);
    layOver(look.horizontalAlignment, other.horizontalAlignment);
    layOver(look.verticalAlignment, other.verticalAlignment);
    layOver(look.minimumWidth, other.minimumWidth);
    layOver(look.padding, other.padding);
    layOver(look.textStyle, other.textStyle);
}

template <typename Value>
Said<Value> said(const SharedOptional<Value>& field, size_t rank) {
    return field ? Said<Value>{&field, rank} : Said<Value>{};
}

/// What a style or one of its variants says.
void readLook(RowLook& look, const auto& style, size_t rank) {
    look = {said(style.backgroundColor, rank), said(style.divider, rank), said(style.height, rank)};
}

void readLook(ColumnLook& look, const auto& style, size_t rank) {
    look = {said(style.backgroundColor, rank), said(style.divider, rank)};
}

void readLook(CellLook& look, const auto& style, size_t rank) {
    look = {
        .backgroundColor = said(style.backgroundColor, rank),
        .border = said(style.border, rank),
        .horizontalAlignment = said(style.horizontalAlignment, rank),
        .verticalAlignment = said(style.verticalAlignment, rank),
        .minimumWidth = said(style.minimumWidth, rank),
        .padding = said(style.padding, rank),
        .textStyle = said(style.textStyle, rank),
    };
}

/// Calls `addTo` with each selector of the variants of `style` and the look of its variant; before that with
/// an empty selector, which asks for all, and the look of the style itself.
template <typename Look, typename Selector, typename Style, typename Add>
void forEachSelector(const Style* style, Add add) {
    if (!style) {
        return;
    }
    size_t rank = 0;
    Look look;
    readLook(look, *style, rank);
    add(Selector{}, look);
    if (!style->conditional) {
        return;
    }
    for (const auto& variant : *style->conditional) {
        readLook(look, variant, ++rank);
        if (variant.selectors) {
            for (const Selector& selector : *variant.selectors) {
                add(selector, look);
            }
        }
    }
}

} // namespace

RowLooks::RowLooks(const TableRowStyle* style) {
    // A row has no descriptor that a selector could ask for.
    forEachSelector<RowLook, TableRowSelector>(
        style, [this](const TableRowSelector& selector, const RowLook& look) {
            m_rules.select(selector.odd, selector.even, selector.rowIndex,
                           [&look](RowLook& rule) { layOver(rule, look); });
        });
}

RowLook RowLooks::at(size_t row) const {
    RowLook look;
    m_rules.visit(row, [&look](const RowLook& rule) { layOver(look, rule); });
    return look;
}

ColumnLooks::ColumnLooks(const TableColumnStyle* style) {
    forEachSelector<ColumnLook, TableColumnSelector>(
        style, [this](const TableColumnSelector& selector, const ColumnLook& look) {
            m_rules.of(selector.descriptor)
                .select(selector.odd, selector.even, selector.columnIndex,
                        [&look](ColumnLook& rule) { layOver(rule, look); });
        });
}

ColumnLook ColumnLooks::at(size_t column, const DataDescriptor& descriptor) const {
    ColumnLook look;
    m_rules.visit(column, descriptor, [&look](const ColumnLook& rule) { layOver(look, rule); });
    return look;
}

CellLook ColumnCells::at(size_t row) const {
    CellLook look;
    for (const PlaceRules<CellLook>* rules : m_rules) {
        rules->visit(row, [&look](const CellLook& rule) { layOver(look, rule); });
    }
    return look;
}

CellLooks::CellLooks(const TableCellStyle* style) {
    forEachSelector<CellLook, TableCellSelector>(
        style, [this](const TableCellSelector& selector, const CellLook& look) {
            const auto addToRows = [&](PlaceRules<CellLook>& rows) {
                rows.select(selector.oddRows, selector.evenRows, selector.rowIndex,
                            [&look](CellLook& rule) { layOver(rule, look); });
            };
            m_rules.of(selector.descriptor)
                .select(selector.oddColumns, selector.evenColumns, selector.columnIndex, addToRows);
        });
}

ColumnCells CellLooks::inColumn(size_t column, const DataDescriptor& descriptor) const {
    ColumnCells cells;
    m_rules.visit(column, descriptor,
                  [&cells](const PlaceRules<CellLook>& rows) { cells.m_rules.push_back(&rows); });
    return cells;
}

} // namespace quillon::HTMLRenderer
