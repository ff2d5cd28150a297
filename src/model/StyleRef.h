#pragma once

#include "model/Alternatives.h"

#include <string>
#include <variant>

namespace quillon {

/// A reference to a style: the name of one of the article's, or a style of its own. Names are not looked up
/// when they are read.
template <typename Style>
struct StyleRef {
    std::variant<std::string, Shared<Style>> form; ///< named or inline

    const std::string* named() const { return std::get_if<std::string>(&form); }
    const Style* inlined() const {
        const auto* style = std::get_if<Shared<Style>>(&form);
        return style ? &**style : nullptr;
    }

    bool operator==(const StyleRef&) const = default;
};

template <typename Style>
bool readValue(JsonElement element, StyleRef<Style>& value, ReadFailure& failure) {
    return readAlternatives(element, value.form, "text or an object", failure);
}
template <typename Style>
void writeValue(JsonWriter& writer, const StyleRef<Style>& value) {
    writeAlternative(writer, value.form);
}

} // namespace quillon
