#pragma once

#include "base/Shared.h"
#include "model/BoxStyles.h"
#include "model/Length.h"
#include "model/Record.h"
#include "model/StyleRef.h"
#include "model/TextStyles.h"

#include <string>
#include <vector>

namespace quillon {

/// The distances between a cell's edges and its text.
struct Padding {
    Optional<ANFLength> top;
    Optional<ANFLength> right;
    Optional<ANFLength> bottom;
    Optional<ANFLength> left;

    bool operator==(const Padding&) const = default;
};

/// A padding given once for all sides or for each; it keeps its form.
struct PaddingValue {
    std::variant<ANFLength, Padding> form;

    /// The padding as CSS: one length, or four in the order top, right, bottom, left; "0" for what has no
    /// number.
    std::string paddingCSS() const;

    bool operator==(const PaddingValue&) const = default;
};

/// Which rows a variant of a row style is for.
struct TableRowSelector {
    Optional<bool> odd;
    Optional<bool> even;
    Optional<int64_t> rowIndex;
    Optional<std::string> descriptor;

    bool operator==(const TableRowSelector&) const = default;
};

/// Which columns a variant of a column style is for.
struct TableColumnSelector {
    Optional<bool> odd;
    Optional<bool> even;
    Optional<int64_t> columnIndex;
    Optional<std::string> descriptor;

    bool operator==(const TableColumnSelector&) const = default;
};

/// Which cells a variant of a cell style is for.
struct TableCellSelector {
    Optional<bool> oddRows;
    Optional<bool> evenRows;
    Optional<bool> oddColumns;
    Optional<bool> evenColumns;
    Optional<int64_t> rowIndex;
    Optional<int64_t> columnIndex;
    Optional<std::string> descriptor;

    bool operator==(const TableCellSelector&) const = default;
};

/// A row style for the rows that `selectors` choose.
struct ConditionalTableRowStyle {
    Optional<std::vector<TableRowSelector>> selectors;
    Optional<std::string> backgroundColor;
    Optional<ANFStrokeStyle> divider;
    Optional<ANFLength> height;

    bool operator==(const ConditionalTableRowStyle&) const = default;
};

/// A column style for the columns that `selectors` choose.
struct ConditionalTableColumnStyle {
    Optional<std::vector<TableColumnSelector>> selectors;
    Optional<std::string> backgroundColor;
    Optional<ANFStrokeStyle> divider;
    Optional<int64_t> width; ///< weight
    Optional<ANFLength> minimumWidth;

    bool operator==(const ConditionalTableColumnStyle&) const = default;
};

/// A cell style for the cells that `selectors` choose.
struct ConditionalTableCellStyle {
    Optional<std::vector<TableCellSelector>> selectors;
    Optional<std::string> backgroundColor;
    Optional<Border> border;
    Optional<ANFLength> height;
    Optional<std::string> horizontalAlignment;
    Optional<std::string> verticalAlignment;
    Optional<ANFLength> minimumWidth;
    Optional<int64_t> width; ///< weight
    Optional<PaddingValue> padding;
    Optional<StyleRef<ComponentTextStyle>> textStyle;

    bool operator==(const ConditionalTableCellStyle&) const = default;
};

/// How the rows of a table look.
struct TableRowStyle {
    Optional<std::string> backgroundColor;
    Optional<ANFStrokeStyle> divider;
    Optional<ANFLength> height;
    Optional<std::vector<ConditionalTableRowStyle>> conditional;

    bool operator==(const TableRowStyle&) const = default;
};

/// How the columns of a table look.
struct TableColumnStyle {
    Optional<std::string> backgroundColor;
    Optional<ANFStrokeStyle> divider;
    Optional<int64_t> width; ///< weight
    Optional<ANFLength> minimumWidth;
    Optional<std::vector<ConditionalTableColumnStyle>> conditional;

    bool operator==(const TableColumnStyle&) const = default;
};

/// How the cells of a table look.
struct TableCellStyle {
    Optional<std::string> backgroundColor;
    Optional<Border> border;
    Optional<ANFLength> height;
    Optional<std::string> horizontalAlignment;
    Optional<std::string> verticalAlignment;
    Optional<ANFLength> minimumWidth;
    Optional<int64_t> width; ///< weight
    Optional<PaddingValue> padding;
    Optional<StyleRef<ComponentTextStyle>> textStyle;
    Optional<std::vector<ConditionalTableCellStyle>> conditional;

    bool operator==(const TableCellStyle&) const = default;
};

/// How a data table looks.
struct TableStyle {
    Optional<TableRowStyle> rows;
    Optional<TableColumnStyle> columns;
    Optional<TableCellStyle> cells;
    Optional<TableRowStyle> headerRows;
    Optional<TableColumnStyle> headerColumns;
    Optional<TableCellStyle> headerCells;

    bool operator==(const TableStyle&) const = default;
};

template <>
struct RecordTable<Padding> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<TableRowSelector> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<TableColumnSelector> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<TableCellSelector> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<ConditionalTableRowStyle> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<ConditionalTableColumnStyle> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<ConditionalTableCellStyle> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<TableRowStyle> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<TableColumnStyle> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<TableCellStyle> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<TableStyle> {
    static const RecordInfo& info();
};

bool readValue(JsonElement element, PaddingValue& value, ReadFailure& failure);
void writeValue(JsonWriter& writer, const PaddingValue& value);

} // namespace quillon
