#include "model/ComponentStyle.h"

#include "model/Alternatives.h"
#include "model/Fields.h"

namespace quillon {

const RecordInfo& RecordTable<ComponentStyle>::info() {
    static const RecordInfo table{{
        optional<&ComponentStyle::backgroundColor>("backgroundColor"),
        optional<&ComponentStyle::fill>("fill"),
        optional<&ComponentStyle::opacity>("opacity"),
        optional<&ComponentStyle::border>("border"),
        optional<&ComponentStyle::mask>("mask"),
        optional<&ComponentStyle::shadow>("shadow"),
        optional<&ComponentStyle::tableStyle>("tableStyle"),
        optional<&ComponentStyle::conditional>("conditional"),
    }};
    return table;
}

const RecordInfo& RecordTable<ConditionalComponentStyle>::info() {
    static const RecordInfo table(embedded<&ConditionalComponentStyle::style>(
        {optional<&ConditionalComponentStyle::conditions>("conditions")}));
    return table;
}

bool readValue(JsonElement element, StyleReference& value, ReadFailure& failure) {
    if (!readAlternatives(element, value.form, "text or an object", failure)) {
        failure = {};
        value.form = Shared<ComponentStyle>();
    }
    return true;
}
void writeValue(JsonWriter& writer, const StyleReference& value) {
    writeAlternative(writer, value.form);
}

} // namespace quillon
