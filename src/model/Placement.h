#pragma once

#include "base/Shared.h"
#include "base/Uuid.h"
#include "model/Length.h"
#include "model/Record.h"

#include <string>
#include <vector>

namespace quillon {

/// Ties a component to another one, named by its `identifier`, or to a range of that one's text.
struct Anchor {
    Optional<std::string> targetComponentIdentifier;
    Optional<std::string> originAnchorPosition;
    Optional<std::string> targetAnchorPosition;
    Optional<int64_t> rangeStart;  ///< characters
    Optional<int64_t> rangeLength; ///< characters

    bool operator==(const Anchor&) const = default;
};

/// How a container arranges its children; lengths in points.
struct ContentDisplay {
    Optional<std::string> type;
    Optional<double> gutter;
    Optional<double> rowSpacing;
    Optional<std::string> alignment;
    Optional<std::string> distribution;
    Optional<ANFLength> maximumWidth;
    Optional<ANFLength> minimumWidth;

    bool operator==(const ContentDisplay&) const = default;
};

/// How a component comes into view. The older key `direction` is read as `preferredStartingPosition` when
/// that is absent, and never written.
struct ComponentAnimation {
    Optional<std::string> type;
    Optional<bool> userControllable;
    Optional<double> initialAlpha; ///< 0 to 1
    Optional<double> initialScale;
    Optional<std::string> preferredStartingPosition;

    bool operator==(const ComponentAnimation&) const = default;
};

/// How a component behaves while the reader scrolls.
struct Behavior {
    Optional<std::string> type;
    Optional<double> factor;

    bool operator==(const Behavior&) const = default;
};

/// The scene that a header plays.
struct ANFScene {
    Optional<std::string> type;
    Optional<std::string> fadeColor;

    bool operator==(const ANFScene&) const = default;
};

/// A link over a range of a component's text.
struct ComponentLink {
    Uuid id = Uuid::random(); ///< not stored in a file
    Optional<std::string> type;
    Optional<std::string> URL;
    Optional<int64_t> rangeStart;  ///< characters
    Optional<int64_t> rangeLength; ///< characters

    bool operator==(const ComponentLink&) const = default;
};

template <>
struct RecordTable<Anchor> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<ContentDisplay> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<ComponentAnimation> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<Behavior> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<ANFScene> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<ComponentLink> {
    static const RecordInfo& info();
};

bool readValue(JsonElement element, ComponentAnimation& value, ReadFailure& failure);

} // namespace quillon
