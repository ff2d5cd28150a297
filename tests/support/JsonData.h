#pragma once

#include "model/Codec.h"

#include <map>
#include <string>
#include <vector>

/// Expected values that stand in files as JSON, and the JSON of values to compare with them.
namespace quillon::test {

/// The JSON in tests/`path`; a failure of the test and null where there is none.
JSONValue jsonData(const std::string& path);

JSONValue parsedJson(const std::string& text);

/// The members of an object, the elements of a list, a text. Anything else gives an empty one.
std::map<std::string, JSONValue> members(const JSONValue& value);
std::vector<JSONValue> elements(const JSONValue& value);
std::string text(const JSONValue& value);

/// An object of `fields`.
JSONValue objectOf(std::map<std::string, JSONValue> fields);

/// The JSON text of a record or of a JSONValue, its keys in order, so that equal values are equal texts.
template <typename Value>
std::string jsonOf(const Value& value) {
    JsonWriter writer;
    writeValue(writer, value);
    return writer.take();
}

} // namespace quillon::test
