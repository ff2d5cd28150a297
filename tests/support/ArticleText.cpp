#include "support/ArticleText.h"

#include "model/ArticleDocument.h"

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

namespace quillon::support {

namespace {

using nlohmann::json;

std::string pointerOf(std::string_view path) {
    std::string pointer = "/";
    for (const char c : path) {
        if (c == '.' || c == '[') {
            pointer += '/';
        } else if (c != ']') {
            pointer += c;
        }
    }
    return pointer;
}

void compare(const json& before, const json& after, const std::string& path, std::string& out) {
    if (before.is_object() && after.is_object()) {
        for (const auto& [key, value] : before.items()) {
            const std::string inner = path + (path.empty() ? "" : ".") + key;
            if (!after.contains(key)) {
                out += inner + "\n";
            } else {
                compare(value, after[key], inner, out);
            }
        }
        for (const auto& [key, value] : after.items()) {
            out += before.contains(key) ? "" : path + "." + key + " is new\n";
        }
    } else if (before.is_array() && after.is_array() && before.size() == after.size()) {
        for (size_t index = 0; index < before.size(); ++index) {
            compare(before[index], after[index], path + "[" + std::to_string(index) + "]", out);
        }
    } else if (before != after) {
        out += path + ": " + before.dump() + " became " + after.dump() + "\n";
    }
}

std::string savedValue(std::string text, std::string_view path) {
    const std::string after = saved(std::move(text));
    if (!after.starts_with('{')) {
        return after;
    }
    return valueAt(after, path).value_or("absent");
}

} // namespace

std::string articleJson(std::string_view members) {
    json article = json::parse(R"({"version":"1.7","identifier":"a","language":"en","title":"T",)"
                               R"("layout":{"columns":7,"width":1024},"components":[]})");
    article.update(json::parse("{" + std::string(members) + "}"));
    return article.dump();
}

std::string componentArticleJson(std::string_view members) {
    json component = json::parse(R"({"role":"body"})");
    component.update(json::parse("{" + std::string(members) + "}"));
    return articleJson("\"components\":[" + component.dump() + "]");
}

std::string saved(std::string text) {
    const auto article = sharedArticleDecoder.decode(std::move(text));
    return article ? sharedArticleEncoder.encode(*article).value() : article.error().message();
}

std::string compact(std::string_view text) {
    return json::parse(text).dump();
}

std::optional<std::string> valueAt(std::string_view text, std::string_view path) {
    const json whole = json::parse(text);
    const json::json_pointer pointer(pointerOf(path));
    return whole.contains(pointer) ? std::optional(whole[pointer].dump()) : std::nullopt;
}

std::string savedMember(std::string_view key, std::string_view value) {
    return savedValue(articleJson("\"" + std::string(key) + "\":" + std::string(value)), key);
}

std::string savedComponentMember(std::string_view key, std::string_view value) {
    return savedValue(componentArticleJson("\"" + std::string(key) + "\":" + std::string(value)),
                      "components[0]." + std::string(key));
}

std::string differences(std::string_view before, std::string_view after) {
    std::string out;
    compare(json::parse(before), json::parse(after), "", out);
    return out;
}

} // namespace quillon::support
