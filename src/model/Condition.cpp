#include "model/Condition.h"

#include "model/Fields.h"

namespace quillon {

const RecordInfo& RecordTable<Condition>::info() {
    static const RecordInfo table{{
        optional<&Condition::preferredColorScheme>("preferredColorScheme"),
        optional<&Condition::platform>("platform"),
        optional<&Condition::subscriptionStatus>("subscriptionStatus"),
        optional<&Condition::horizontalSizeClass>("horizontalSizeClass"),
        optional<&Condition::verticalSizeClass>("verticalSizeClass"),
        optional<&Condition::minViewportWidth>("minViewportWidth"),
        optional<&Condition::maxViewportWidth>("maxViewportWidth"),
        optional<&Condition::minSpecVersion>("minSpecVersion"),
        optional<&Condition::maxSpecVersion>("maxSpecVersion"),
    }};
    return table;
}

} // namespace quillon
