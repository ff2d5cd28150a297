#include "model/Codec.h"

namespace quillon {

bool expect(std::string_view expected, JsonElement element, ReadFailure& failure) {
    failure = {{}, std::string(expected), std::string(describe(element.kind()))};
    return false;
}

bool readValue(JsonElement element, std::string& value, ReadFailure& failure) {
    const auto text = element.text();
    if (!text) {
        return expect("text", element, failure);
    }
    value.assign(*text);
    return true;
}

bool readValue(JsonElement element, bool& value, ReadFailure& failure) {
    const auto boolean = element.boolean();
    if (!boolean) {
        return expect("true or false", element, failure);
    }
    value = *boolean;
    return true;
}

bool readValue(JsonElement element, int64_t& value, ReadFailure& failure) {
    const auto whole = element.whole();
    if (!whole) {
        expect("a whole number", element, failure);
        if (element.kind() == JsonKind::number) {
            failure.found = "a number with a fraction or beyond 64 bits";
        }
        return false;
    }
    value = *whole;
    return true;
}

bool readValue(JsonElement element, double& value, ReadFailure& failure) {
    const auto number = element.number();
    if (!number) {
        return expect("a number", element, failure);
    }
    value = *number;
    return true;
}

bool readValue(JsonElement element, JSONValue& value, ReadFailure& failure) {
    switch (element.kind()) {
    case JsonKind::null:
        value.form = nullptr;
        return true;
    case JsonKind::boolean:
        value.form = *element.boolean();
        return true;
    case JsonKind::number:
        value.form = *element.number();
        return true;
    case JsonKind::text:
        value.form = std::string(*element.text());
        return true;
    case JsonKind::list: {
        JSONValue::Array array;
        readValue(element, array, failure);
        value.form = std::move(array);
        return true;
    }
    case JsonKind::object: {
        JSONValue::Object object;
        readValue(element, object, failure);
        value.form = std::move(object);
        return true;
    }
    }
    return true;
}

void writeValue(JsonWriter& writer, const std::string& value) {
    writer.text(value);
}
void writeValue(JsonWriter& writer, bool value) {
    writer.boolean(value);
}
void writeValue(JsonWriter& writer, int64_t value) {
    writer.whole(value);
}
void writeValue(JsonWriter& writer, double value) {
    writer.number(value);
}

void writeValue(JsonWriter& writer, const JSONValue& value) {
    std::visit(
        [&writer]<typename Form>(const Form& form) {
            if constexpr (std::is_same_v<Form, std::nullptr_t>) {
                writer.null();
            } else {
                writeValue(writer, form);
            }
        },
        value.form);
}

} // namespace quillon
