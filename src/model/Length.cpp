#include "model/Length.h"

#include "base/Numbers.h"
#include "base/UnicodeText.h"
#include "model/Alternatives.h"

#include <array>

namespace quillon {

namespace {

constexpr std::array<std::string_view, 9> cssUnits = {"vmin", "vmax", "vh", "vw", "rem",
                                                      "em",   "px",   "pt", "%"};

} // namespace

std::optional<double> ANFLength::numericValue() const {
    if (const auto* number = std::get_if<double>(&form)) {
        return *number;
    }
    const std::string& text = std::get<std::string>(form);
    return parseDouble(std::string_view(text).substr(0, text.find_first_not_of("0123456789.-")));
}

std::optional<std::string> ANFLength::plainLengthCSS() const {
    if (const auto* text = std::get_if<std::string>(&form)) {
        const std::string lower = lowercased(*text);
        for (const std::string_view unit : cssUnits) {
            if (lower.ends_with(unit)) {
                return *text;
            }
        }
    }
    const std::optional<double> number = numericValue();
    if (!number) {
        return std::nullopt;
    }
    return numberText(*number + 0.0) + "px"; // adding zero takes the sign off a minus zero
}

bool readValue(JsonElement element, ANFLength& value, ReadFailure& failure) {
    return readAlternatives(element, value.form, "a number or text", failure);
}
void writeValue(JsonWriter& writer, const ANFLength& value) {
    writeAlternative(writer, value.form);
}

bool readValue(JsonElement element, ANFFlag& value, ReadFailure& failure) {
    return readAlternatives(element, value.form, "true, false or text", failure);
}
void writeValue(JsonWriter& writer, const ANFFlag& value) {
    writeAlternative(writer, value.form);
}

} // namespace quillon
