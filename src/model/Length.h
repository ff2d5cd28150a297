#pragma once

#include "model/Record.h"

#include <optional>
#include <string>
#include <variant>

namespace quillon {

/// A distance as the article gives it: a number of points, or a text with or without a unit. 12 and "12" are
/// two values and each is written back as it came.
struct ANFLength {
    std::variant<double, std::string> form;

    /// The number, or the number at the start of the text: digits, "." and "-" up to the first other
    /// character.
    std::optional<double> numericValue() const;
    /// The length as CSS without reference to the grid: a text that ends in a CSS unit (vmin, vmax, vh, vw,
    /// rem, em, px, pt or %, in any case) as it stands, else numericValue() in "px"; nothing when there is no
    /// number.
    std::optional<std::string> plainLengthCSS() const;

    bool operator==(const ANFLength&) const = default;
};

/// A switch given as a boolean or as a text; it keeps its form.
struct ANFFlag {
    std::variant<bool, std::string> form;

    bool operator==(const ANFFlag&) const = default;
};

bool readValue(JsonElement element, ANFLength& value, ReadFailure& failure);
void writeValue(JsonWriter& writer, const ANFLength& value);
bool readValue(JsonElement element, ANFFlag& value, ReadFailure& failure);
void writeValue(JsonWriter& writer, const ANFFlag& value);

} // namespace quillon
