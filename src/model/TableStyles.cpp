#include "model/TableStyles.h"

#include "model/Alternatives.h"
#include "model/Fields.h"

namespace quillon {

const RecordInfo& RecordTable<Padding>::info() {
    static const RecordInfo table{{
        optional<&Padding::top>("top"),
        optional<&Padding::right>("right"),
        optional<&Padding::bottom>("bottom"),
        optional<&Padding::left>("left"),
    }};
    return table;
}

const RecordInfo& RecordTable<TableRowSelector>::info() {
    static const RecordInfo table{{
        optional<&TableRowSelector::odd>("odd"),
        optional<&TableRowSelector::even>("even"),
        optional<&TableRowSelector::rowIndex>("rowIndex"),
        optional<&TableRowSelector::descriptor>("descriptor"),
    }};
    return table;
}

const RecordInfo& RecordTable<TableColumnSelector>::info() {
    static const RecordInfo table{{
        optional<&TableColumnSelector::odd>("odd"),
        optional<&TableColumnSelector::even>("even"),
        optional<&TableColumnSelector::columnIndex>("columnIndex"),
        optional<&TableColumnSelector::descriptor>("descriptor"),
    }};
    return table;
}

const RecordInfo& RecordTable<TableCellSelector>::info() {
    static const RecordInfo table{{
        optional<&TableCellSelector::oddRows>("oddRows"),
        optional<&TableCellSelector::evenRows>("evenRows"),
        optional<&TableCellSelector::oddColumns>("oddColumns"),
        optional<&TableCellSelector::evenColumns>("evenColumns"),
        optional<&TableCellSelector::rowIndex>("rowIndex"),
        optional<&TableCellSelector::columnIndex>("columnIndex"),
        optional<&TableCellSelector::descriptor>("descriptor"),
    }};
    return table;
}

const RecordInfo& RecordTable<ConditionalTableRowStyle>::info() {
    static const RecordInfo table{{
        optional<&ConditionalTableRowStyle::selectors>("selectors"),
        optional<&ConditionalTableRowStyle::backgroundColor>("backgroundColor"),
        optional<&ConditionalTableRowStyle::divider>("divider"),
        optional<&ConditionalTableRowStyle::height>("height"),
    }};
    return table;
}

const RecordInfo& RecordTable<ConditionalTableColumnStyle>::info() {
    static const RecordInfo table{{
        optional<&ConditionalTableColumnStyle::selectors>("selectors"),
        optional<&ConditionalTableColumnStyle::backgroundColor>("backgroundColor"),
        optional<&ConditionalTableColumnStyle::divider>("divider"),
        optional<&ConditionalTableColumnStyle::width>("width"),
        optional<&ConditionalTableColumnStyle::minimumWidth>("minimumWidth"),
    }};
    return table;
}

const RecordInfo& RecordTable<ConditionalTableCellStyle>::info() {
    static const RecordInfo table{{
        optional<&ConditionalTableCellStyle::selectors>("selectors"),
        optional<&ConditionalTableCellStyle::backgroundColor>("backgroundColor"),
        optional<&ConditionalTableCellStyle::border>("border"),
        optional<&ConditionalTableCellStyle::height>("height"),
        optional<&ConditionalTableCellStyle::horizontalAlignment>("horizontalAlignment"),
        optional<&ConditionalTableCellStyle::verticalAlignment>("verticalAlignment"),
        optional<&ConditionalTableCellStyle::minimumWidth>("minimumWidth"),
        optional<&ConditionalTableCellStyle::width>("width"),
        optional<&ConditionalTableCellStyle::padding>("padding"),
        optional<&ConditionalTableCellStyle::textStyle>("textStyle"),
    }};
    return table;
}

const RecordInfo& RecordTable<TableRowStyle>::info() {
    static const RecordInfo table{{
        optional<&TableRowStyle::backgroundColor>("backgroundColor"),
        optional<&TableRowStyle::divider>("divider"),
        optional<&TableRowStyle::height>("height"),
        optional<&TableRowStyle::conditional>("conditional"),
    }};
    return table;
}

const RecordInfo& RecordTable<TableColumnStyle>::info() {
    static const RecordInfo table{{
        optional<&TableColumnStyle::backgroundColor>("backgroundColor"),
        optional<&TableColumnStyle::divider>("divider"),
        optional<&TableColumnStyle::width>("width"),
        optional<&TableColumnStyle::minimumWidth>("minimumWidth"),
        optional<&TableColumnStyle::conditional>("conditional"),
    }};
    return table;
}

const RecordInfo& RecordTable<TableCellStyle>::info() {
    static const RecordInfo table{{
        optional<&TableCellStyle::backgroundColor>("backgroundColor"),
        optional<&TableCellStyle::border>("border"),
        optional<&TableCellStyle::height>("height"),
        optional<&TableCellStyle::horizontalAlignment>("horizontalAlignment"),
        optional<&TableCellStyle::verticalAlignment>("verticalAlignment"),
        optional<&TableCellStyle::minimumWidth>("minimumWidth"),
        optional<&TableCellStyle::width>("width"),
        optional<&TableCellStyle::padding>("padding"),
        optional<&TableCellStyle::textStyle>("textStyle"),
        optional<&TableCellStyle::conditional>("conditional"),
    }};
    return table;
}

const RecordInfo& RecordTable<TableStyle>::info() {
    static const RecordInfo table{{
        optional<&TableStyle::rows>("rows"),
        optional<&TableStyle::columns>("columns"),
        optional<&TableStyle::cells>("cells"),
        optional<&TableStyle::headerRows>("headerRows"),
        optional<&TableStyle::headerColumns>("headerColumns"),
        optional<&TableStyle::headerCells>("headerCells"),
    }};
    return table;
}

std::string PaddingValue::paddingCSS() const {
    const auto lengthCSS = [](const ANFLength& length) {
        return length.plainLengthCSS().value_or("0");
    };
    const auto sideCSS = [&](const Optional<ANFLength>& side) {
        return side ? lengthCSS(*side) : "0";
    };
    if (const auto* length = std::get_if<ANFLength>(&form)) {
        return lengthCSS(*length);
    }
    const auto& sides = std::get<Padding>(form);
    return sideCSS(sides.top) + " " + sideCSS(sides.right) + " " + sideCSS(sides.bottom) + " " +
           sideCSS(sides.left);
}

bool readValue(JsonElement element, PaddingValue& value, ReadFailure& failure) {
    return readAlternatives(element, value.form, "a number, text or an object", failure);
}
void writeValue(JsonWriter& writer, const PaddingValue& value) {
    writeAlternative(writer, value.form);
}

} // namespace quillon
