#pragma once

#include "base/List.h"
#include "base/Shared.h"
#include "model/Record.h"

#include <map>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

/// How values of each type are read from JSON and written to it. `readValue` returns whether it could, and
/// says in `failure` why not; a value whose read failed may be half filled and is thrown away by the caller.
/// Types with a shape of their own have overloads beside them; what stands here serves plain types,
/// containers and records.
namespace quillon {

/// Says that `element` is not what was expected.
bool expect(std::string_view expected, JsonElement element, ReadFailure& failure);

bool readValue(JsonElement element, std::string& value, ReadFailure& failure);
bool readValue(JsonElement element, bool& value, ReadFailure& failure);
bool readValue(JsonElement element, int64_t& value, ReadFailure& failure);
bool readValue(JsonElement element, double& value, ReadFailure& failure);
/// Never fails.
bool readValue(JsonElement element, JSONValue& value, ReadFailure& failure);

void writeValue(JsonWriter& writer, const std::string& value);
void writeValue(JsonWriter& writer, bool value);
void writeValue(JsonWriter& writer, int64_t value);
void writeValue(JsonWriter& writer, double value);
void writeValue(JsonWriter& writer, const JSONValue& value);

template <IsRecord Value>
bool readValue(JsonElement element, Value& value, ReadFailure& failure) {
    return RecordTable<Value>::info().read(element, &value, failure);
}
template <IsRecord Value>
void writeValue(JsonWriter& writer, const Value& value) {
    RecordTable<Value>::info().write(writer, &value);
}

template <typename Value>
bool readValue(JsonElement element, std::optional<Value>& value, ReadFailure& failure) {
    Value read{};
    if (!readValue(element, read, failure)) {
        return false;
    }
    value = read;
    return true;
}
template <typename Value>
void writeValue(JsonWriter& writer, const std::optional<Value>& value) {
    writeValue(writer, *value);
}

template <typename Value>
bool readValue(JsonElement element, SharedOptional<Value>& value, ReadFailure& failure) {
    SharedOptional<Value> read;
    if (!readValue(element, read.edit(), failure)) {
        return false;
    }
    value = std::move(read);
    return true;
}
template <typename Value>
void writeValue(JsonWriter& writer, const SharedOptional<Value>& value) {
    writeValue(writer, *value);
}

template <typename Value>
bool readValue(JsonElement element, Shared<Value>& value, ReadFailure& failure) {
    SharedOptional<Value> read;
    if (!readValue(element, read.edit(), failure)) {
        return false;
    }
    value = Shared<Value>(std::move(read));
    return true;
}
template <typename Value>
void writeValue(JsonWriter& writer, const Shared<Value>& value) {
    writeValue(writer, *value);
}

/// Reads each element of a list into a fresh entry at the end of `values`.
template <typename Value>
bool readElements(JsonElement element, std::vector<Value>& values, ReadFailure& failure) {
    if (element.kind() != JsonKind::list) {
        return expect("a list", element, failure);
    }
    JsonElements elements(element);
    values.reserve(elements.count());
    while (elements.next()) {
        if (!readValue(elements.value(), values.emplace_back(), failure)) {
            failure.prependIndex(values.size() - 1);
            return false;
        }
    }
    return true;
}

template <typename Values>
void writeElements(JsonWriter& writer, const Values& values) {
    writer.beginList();
    for (const auto& value : values) {
        writer.element();
        writeValue(writer, value);
    }
    writer.endList();
}

template <typename Value>
bool readValue(JsonElement element, std::vector<Value>& values, ReadFailure& failure) {
    return readElements(element, values, failure);
}
template <typename Value>
void writeValue(JsonWriter& writer, const std::vector<Value>& values) {
    writeElements(writer, values);
}

template <typename Value>
bool readValue(JsonElement element, List<Value>& values, ReadFailure& failure) {
    std::vector<Shared<Value>> items;
    if (!readElements(element, items, failure)) {
        return false;
    }
    values = List<Value>(std::move(items));
    return true;
}
template <typename Value>
void writeValue(JsonWriter& writer, const List<Value>& values) {
    writeElements(writer, values);
}

template <typename Value>
bool readValue(JsonElement element, std::map<std::string, Value>& values, ReadFailure& failure) {
    if (element.kind() != JsonKind::object) {
        return expect("an object", element, failure);
    }
    for (JsonMembers members(element); members.next();) {
        // Of a key that stands twice the last value holds.
        Value value{};
        if (!readValue(members.value(), value, failure)) {
            failure.prependKey(members.key());
            return false;
        }
        values.insert_or_assign(std::string(members.key()), std::move(value));
    }
    return true;
}
template <typename Value>
void writeValue(JsonWriter& writer, const std::map<std::string, Value>& values) {
    writer.beginObject();
    for (const auto& [key, value] : values) {
        writer.key(key);
        writeValue(writer, value);
    }
    writer.endObject();
}

} // namespace quillon
