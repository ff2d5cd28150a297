#pragma once

#include "model/Codec.h"

#include <variant>

/// Values whose JSON takes one of several shapes.
namespace quillon {

/// Tries the forms of `value` in their order; the first that reads is taken. When none does, the failure is
/// the last form's own if that form looked inside (its path says where), else it names `expected`.
template <typename... Forms>
bool readAlternatives(JsonElement element, std::variant<Forms...>& value, std::string_view expected,
                      ReadFailure& failure) {
    const auto tryForm = [&]<typename Form>(std::in_place_type_t<Form>) {
        Form form{};
        failure = {};
        if (!readValue(element, form, failure)) {
            return false;
        }
        value = std::move(form);
        return true;
    };
    if ((tryForm(std::in_place_type<Forms>) || ...)) {
        return true;
    }
    return failure.path.empty() ? expect(expected, element, failure) : false;
}

template <typename... Forms>
void writeAlternative(JsonWriter& writer, const std::variant<Forms...>& value) {
    std::visit([&writer](const auto& form) { writeValue(writer, form); }, value);
}

} // namespace quillon
