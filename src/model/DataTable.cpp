#include "model/DataTable.h"

#include "base/Numbers.h"
#include "model/Alternatives.h"
#include "model/Fields.h"

namespace quillon {

const RecordInfo& RecordTable<DataTableSorting>::info() {
    static const RecordInfo table{{
        optional<&DataTableSorting::descriptor>("descriptor"),
        optional<&DataTableSorting::direction>("direction"),
    }};
    return table;
}

const RecordInfo& RecordTable<FormattedText>::info() {
    static const RecordInfo table{{
        optional<&FormattedText::type>("type"),
        optional<&FormattedText::text>("text"),
        optional<&FormattedText::format>("format"),
        optional<&FormattedText::textStyle>("textStyle"),
        optional<&FormattedText::inlineTextStyles>("inlineTextStyles"),
        optional<&FormattedText::additions>("additions"),
    }};
    return table;
}

const RecordInfo& RecordTable<DataDescriptor>::info() {
    static const RecordInfo table{{
        optional<&DataDescriptor::identifier>("identifier"),
        optional<&DataDescriptor::key>("key"),
        optional<&DataDescriptor::label>("label"),
        optional<&DataDescriptor::dataType>("dataType"),
        optional<&DataDescriptor::format>("format"),
    }};
    return table;
}

const RecordInfo& RecordTable<RecordStore>::info() {
    static const RecordInfo table{{
        required<&RecordStore::descriptors>("descriptors"),
        required<&RecordStore::records>("records"),
    }};
    return table;
}

std::string RecordValue::displayText() const {
    if (const auto* text = std::get_if<std::string>(&form)) {
        return *text;
    }
    if (const auto* number = std::get_if<double>(&form)) {
        return numberText(*number + 0.0); // adding zero takes the sign off a minus zero
    }
    if (const auto* flag = std::get_if<bool>(&form)) {
        return *flag ? "true" : "false";
    }
    const auto* formatted = std::get_if<Shared<FormattedText>>(&form);
    return formatted ? (*formatted)->text.value_or("") : "";
}

bool readValue(JsonElement element, FormattedTextValue& value, ReadFailure& failure) {
    return readAlternatives(element, value.form, "text or an object", failure);
}
void writeValue(JsonWriter& writer, const FormattedTextValue& value) {
    writeAlternative(writer, value.form);
}

bool readValue(JsonElement element, RecordValue& value, ReadFailure& failure) {
    switch (element.kind()) {
    case JsonKind::boolean:
        value.form = *element.boolean();
        return true;
    case JsonKind::number:
        value.form = *element.number();
        return true;
    case JsonKind::text:
        value.form = std::string(*element.text());
        return true;
    case JsonKind::object: {
        // Only an object that says of itself that it is formatted text is one; any other reads as null.
        Shared<FormattedText> formatted;
        if (readValue(element, formatted, failure) && formatted->type == "formatted_text") {
            value.form = std::move(formatted);
        } else {
            failure = {};
            value.form = nullptr;
        }
        return true;
    }
    default:
        value.form = nullptr;
        return true;
    }
}

void writeValue(JsonWriter& writer, const RecordValue& value) {
    if (std::holds_alternative<std::nullptr_t>(value.form)) {
        writer.null();
        return;
    }
    std::visit(
        [&writer]<typename Form>(const Form& form) {
            if constexpr (!std::is_same_v<Form, std::nullptr_t>) {
                writeValue(writer, form);
            }
        },
        value.form);
}

} // namespace quillon
