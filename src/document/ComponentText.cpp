#include "document/ComponentText.h"

#include "base/JsonText.h"
#include "base/JsonWriter.h"
#include "model/Codec.h"

#include <optional>

namespace quillon {

namespace {

using Components = Expected<std::vector<Component>, std::string>;

/// What is left when an element was cut out of a list with the comma behind it.
std::string_view withoutComma(std::string_view text) {
    const size_t last = text.find_last_not_of(" \t\r\n");
    return last != std::string_view::npos && text[last] == ',' ? text.substr(0, last) : text;
}

std::optional<JsonElement> member(JsonElement object, std::string_view key) {
    std::optional<JsonElement> found;
    for (JsonMembers members(object); members.next();) {
        if (members.key() == key) {
            found = members.value();
        }
    }
    return found;
}

Components read(JsonElement element) {
    std::vector<Component> components;
    ReadFailure failure;
    const bool isRead = element.kind() == JsonKind::list
                            ? readElements(element, components, failure)
                            : readValue(element, components.emplace_back(), failure);
    if (!isRead) {
        return unexpected("The JSON on the clipboard holds no component. " + failure.message() + ".");
    }
    return components;
}

} // namespace

std::string componentText(const Component& component) {
    JsonWriter writer;
    writeValue(writer, component);
    return writer.hasFailed() ? std::string() : writer.take();
}

Components readComponents(std::string_view text) {
    const auto json = JsonText::parse(JsonText::roomyCopy(withoutComma(text)));
    if (!json) {
        return unexpected(std::string("The clipboard holds no JSON of a component."));
    }
    const JsonElement root = json->root();
    if (root.kind() == JsonKind::object && !member(root, "role")) {
        if (const auto components = member(root, "components")) {
            return read(*components);
        }
    }
    return read(root);
}

} // namespace quillon
