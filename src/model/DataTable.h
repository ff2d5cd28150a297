#pragma once

#include "base/List.h"
#include "base/Shared.h"
#include "base/Uuid.h"
#include "model/Record.h"
#include "model/TextRanges.h"

#include <string>
#include <vector>

namespace quillon {

/// One key of a table's sort order.
struct DataTableSorting {
    Optional<std::string> descriptor;
    Optional<std::string> direction;

    bool operator==(const DataTableSorting&) const = default;
};

/// A text with a format and styles of its own.
struct FormattedText {
    Optional<std::string> type;
    Optional<std::string> text;
    Optional<std::string> format;
    Optional<StyleRef<ComponentTextStyle>> textStyle;
    Optional<std::vector<InlineTextStyle>> inlineTextStyles;
    Optional<JSONValue> additions; ///< kept untyped

    bool operator==(const FormattedText&) const = default;
};

/// The label of a column: plain text or formatted text.
struct FormattedTextValue {
    std::variant<std::string, FormattedText> form;

    bool operator==(const FormattedTextValue&) const = default;
};

/// The value of one cell.
struct RecordValue {
    std::variant<std::nullptr_t, std::string, double, bool, Shared<FormattedText>> form = nullptr;

    /// What the cell shows as text: numbers in their shortest form, "true" or "false", nothing for null.
    std::string displayText() const;

    bool operator==(const RecordValue&) const = default;
};

/// One column of a data table.
struct DataDescriptor {
    Uuid id = Uuid::random(); ///< not stored in a file
    Optional<std::string> identifier;
    Optional<std::string> key; ///< the column's key in the records
    Optional<FormattedTextValue> label;
    Optional<std::string> dataType;
    Optional<JSONValue> format; ///< kept untyped

    bool operator==(const DataDescriptor&) const = default;
};

/// One row of a data table: the values by the keys of their columns.
using DataRecord = std::map<std::string, RecordValue>;

/// The rows and columns of a data table. The rows' keys are not compared with the columns.
struct RecordStore {
    std::vector<DataDescriptor> descriptors;
    List<DataRecord> records;

    bool operator==(const RecordStore&) const = default;
};

template <>
struct RecordTable<DataTableSorting> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<FormattedText> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<DataDescriptor> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<RecordStore> {
    static const RecordInfo& info();
};

bool readValue(JsonElement element, FormattedTextValue& value, ReadFailure& failure);
void writeValue(JsonWriter& writer, const FormattedTextValue& value);
bool readValue(JsonElement element, RecordValue& value, ReadFailure& failure);
void writeValue(JsonWriter& writer, const RecordValue& value);

} // namespace quillon
