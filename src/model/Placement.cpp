#include "model/Placement.h"

#include "model/Fields.h"

namespace quillon {

const RecordInfo& RecordTable<Anchor>::info() {
    static const RecordInfo table{{
        optional<&Anchor::targetComponentIdentifier>("targetComponentIdentifier"),
        optional<&Anchor::originAnchorPosition>("originAnchorPosition"),
        optional<&Anchor::targetAnchorPosition>("targetAnchorPosition"),
        optional<&Anchor::rangeStart>("rangeStart"),
        optional<&Anchor::rangeLength>("rangeLength"),
    }};
    return table;
}

const RecordInfo& RecordTable<ContentDisplay>::info() {
    static const RecordInfo table{{
        optional<&ContentDisplay::type>("type"),
        optional<&ContentDisplay::gutter>("gutter"),
        optional<&ContentDisplay::rowSpacing>("rowSpacing"),
        optional<&ContentDisplay::alignment>("alignment"),
        optional<&ContentDisplay::distribution>("distribution"),
        optional<&ContentDisplay::maximumWidth>("maximumWidth"),
        optional<&ContentDisplay::minimumWidth>("minimumWidth"),
    }};
    return table;
}

const RecordInfo& RecordTable<ComponentAnimation>::info() {
    static const RecordInfo table{{
        optional<&ComponentAnimation::type>("type"),
        optional<&ComponentAnimation::userControllable>("userControllable"),
        optional<&ComponentAnimation::initialAlpha>("initialAlpha"),
        optional<&ComponentAnimation::initialScale>("initialScale"),
        optional<&ComponentAnimation::preferredStartingPosition>("preferredStartingPosition"),
    }};
    return table;
}

const RecordInfo& RecordTable<Behavior>::info() {
    static const RecordInfo table{{
        optional<&Behavior::type>("type"),
        optional<&Behavior::factor>("factor"),
    }};
    return table;
}

const RecordInfo& RecordTable<ANFScene>::info() {
    static const RecordInfo table{{
        optional<&ANFScene::type>("type"),
        optional<&ANFScene::fadeColor>("fadeColor"),
    }};
    return table;
}

const RecordInfo& RecordTable<ComponentLink>::info() {
    static const RecordInfo table{{
        tolerant<&ComponentLink::type>("type"),
        tolerant<&ComponentLink::URL>("URL"),
        tolerant<&ComponentLink::rangeStart>("rangeStart"),
        tolerant<&ComponentLink::rangeLength>("rangeLength"),
    }};
    return table;
}

bool readValue(JsonElement element, ComponentAnimation& value, ReadFailure& failure) {
    if (!RecordTable<ComponentAnimation>::info().read(element, &value, failure)) {
        return false;
    }
    constexpr std::string_view legacyDirection = "direction";
    for (JsonMembers members(element); !value.preferredStartingPosition && members.next();) {
        if (members.key() == legacyDirection && !members.value().isNull() &&
            !readValue(members.value(), value.preferredStartingPosition, failure)) {
            failure.prependKey(legacyDirection);
            return false;
        }
    }
    return true;
}

} // namespace quillon
