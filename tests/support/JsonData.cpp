#include "support/JsonData.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace quillon::test {

namespace {

template <typename Form>
Form formOf(const JSONValue& value) {
    const auto* form = std::get_if<Form>(&value.form);
    return form ? *form : Form();
}

} // namespace

JSONValue jsonData(const std::string& path) {
    std::ifstream file(std::string(QUILLON_SOURCE_DIR "/tests/") + path);
    EXPECT_TRUE(file) << path;
    return parsedJson({std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()});
}

JSONValue parsedJson(const std::string& text) {
    JSONValue value;
    const auto parsed = JsonText::parse(text);
    EXPECT_TRUE(parsed) << text;
    ReadFailure failure;
    if (parsed) {
        readValue(parsed->root(), value, failure);
    }
    return value;
}

std::map<std::string, JSONValue> members(const JSONValue& value) {
    return *formOf<JSONValue::Object>(value);
}

std::vector<JSONValue> elements(const JSONValue& value) {
    return *formOf<JSONValue::Array>(value);
}

std::string text(const JSONValue& value) {
    return formOf<std::string>(value);
}

JSONValue objectOf(std::map<std::string, JSONValue> fields) {
    return {JSONValue::Object(std::move(fields))};
}

} // namespace quillon::test
