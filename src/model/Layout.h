#pragma once

#include "base/Shared.h"
#include "model/Condition.h"
#include "model/Length.h"
#include "model/Record.h"

#include <string>
#include <vector>

namespace quillon {

/// The column grid of an article; lengths in points.
struct Layout {
    int64_t columns = 0;
    int64_t width = 0;
    Optional<int64_t> margin;
    Optional<int64_t> gutter;

    bool operator==(const Layout&) const = default;
};

/// The margin above and below a component.
struct Margin {
    Optional<ANFLength> top;
    Optional<ANFLength> bottom;

    bool operator==(const Margin&) const = default;
};

/// A margin given once for both sides or for each; it keeps its form.
struct LayoutMargin {
    std::variant<ANFLength, Margin> form;

    bool operator==(const LayoutMargin&) const = default;
};

/// Which sides of a component's content are inset.
struct ContentInset {
    Optional<bool> top;
    Optional<bool> right;
    Optional<bool> bottom;
    Optional<bool> left;

    bool operator==(const ContentInset&) const = default;
};

/// An inset given once for all sides or for each; it keeps its form.
struct ContentInsetValue {
    std::variant<bool, ContentInset> form;

    bool operator==(const ContentInsetValue&) const = default;
};

struct ConditionalComponentLayout;

/// Where a component stands in the grid, and its distances.
struct ComponentLayout {
    Optional<int64_t> columnStart; ///< counted from 0
    Optional<int64_t> columnSpan;
    Optional<LayoutMargin> margin;
    Optional<ContentInsetValue> contentInset;
    Optional<ANFFlag> ignoreDocumentMargin;
    Optional<ANFFlag> ignoreViewportPadding;
    Optional<ANFFlag> ignoreDocumentGutter;
    Optional<ANFLength> minimumHeight;
    Optional<ANFLength> maximumContentWidth;
    Optional<std::string> horizontalContentAlignment;
    Optional<std::vector<ConditionalComponentLayout>> conditional;

    bool operator==(const ComponentLayout&) const = default;
};

/// A layout for where all of some `conditions` hold; its keys stand flat beside `conditions`.
struct ConditionalComponentLayout {
    ComponentLayout layout;
    Conditions conditions;

    bool operator==(const ConditionalComponentLayout&) const = default;
};

template <>
struct RecordTable<Layout> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<Margin> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<ContentInset> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<ComponentLayout> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<ConditionalComponentLayout> {
    static const RecordInfo& info();
};

bool readValue(JsonElement element, LayoutMargin& value, ReadFailure& failure);
void writeValue(JsonWriter& writer, const LayoutMargin& value);
bool readValue(JsonElement element, ContentInsetValue& value, ReadFailure& failure);
void writeValue(JsonWriter& writer, const ContentInsetValue& value);

} // namespace quillon
