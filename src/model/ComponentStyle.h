#pragma once

#include "base/Shared.h"
#include "model/BoxStyles.h"
#include "model/Condition.h"
#include "model/Record.h"
#include "model/TableStyles.h"

#include <string>
#include <vector>

namespace quillon {

struct ConditionalComponentStyle;

/// How the box of a component looks. Colours are kept as given.
struct ComponentStyle {
    Optional<std::string> backgroundColor;
    Optional<Fill> fill;
    Optional<double> opacity; ///< 0 to 1
    Optional<Border> border;
    Optional<CornerMask> mask;
    Optional<ComponentShadow> shadow;
    Optional<TableStyle> tableStyle;
    Optional<std::vector<ConditionalComponentStyle>> conditional;

    bool operator==(const ComponentStyle&) const = default;
};

/// A component style for where some `conditions` hold; its keys stand flat beside `conditions`.
struct ConditionalComponentStyle {
    ComponentStyle style;
    Conditions conditions;

    bool operator==(const ConditionalComponentStyle&) const = default;
};

/// The style of a component: the name of one of the article's, or a style of its own. Unlike any other
/// reference it reads from whatever JSON: what is neither reads as an empty style of its own.
struct StyleReference {
    std::variant<std::string, Shared<ComponentStyle>> form; ///< named or inline

    const std::string* named() const { return std::get_if<std::string>(&form); }
    const ComponentStyle* inlined() const {
        const auto* style = std::get_if<Shared<ComponentStyle>>(&form);
        return style ? &**style : nullptr;
    }

    bool operator==(const StyleReference&) const = default;
};

template <>
struct RecordTable<ComponentStyle> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<ConditionalComponentStyle> {
    static const RecordInfo& info();
};

bool readValue(JsonElement element, StyleReference& value, ReadFailure& failure);
void writeValue(JsonWriter& writer, const StyleReference& value);

} // namespace quillon
