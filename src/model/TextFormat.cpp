#include "model/TextFormat.h"

#include "model/Codec.h"

#include <algorithm>

namespace quillon {

namespace {

/// In the order of TextFormat.
constexpr std::array<std::string_view, 3> formatTexts = {"none", "html", "markdown"};

} // namespace

bool readValue(JsonElement element, TextFormat& value, ReadFailure& failure) {
    const auto found = std::find(formatTexts.begin(), formatTexts.end(), element.text());
    if (found == formatTexts.end()) {
        expect(R"("none", "html" or "markdown")", element, failure);
        failure.found = element.kind() == JsonKind::text ? "another text" : failure.found;
        return false;
    }
    value = static_cast<TextFormat>(found - formatTexts.begin());
    return true;
}

void writeValue(JsonWriter& writer, TextFormat value) {
    writer.text(formatTexts[static_cast<size_t>(value)]);
}

} // namespace quillon
