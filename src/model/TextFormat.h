#pragma once

#include "model/Record.h"

namespace quillon {

/// How a text is to be read.
enum class TextFormat : uint8_t { none, html, markdown };

bool readValue(JsonElement element, TextFormat& value, ReadFailure& failure);
void writeValue(JsonWriter& writer, TextFormat value);

} // namespace quillon
