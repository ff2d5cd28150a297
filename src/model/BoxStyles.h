#pragma once

#include "base/Shared.h"
#include "model/Length.h"
#include "model/Record.h"

#include <string>
#include <vector>

namespace quillon {

/// One colour of a gradient.
struct ColorStop {
    Optional<std::string> color;
    Optional<double> location; ///< percent

    bool operator==(const ColorStop&) const = default;
};

/// What fills the box of a component: one record for image, video and gradient fills, told apart by `type`.
struct Fill {
    Optional<std::string> type;
    Optional<std::string> URL;
    Optional<std::string> fillMode;
    Optional<std::string> horizontalAlignment;
    Optional<std::string> verticalAlignment;
    Optional<std::string> attachment;
    Optional<std::string> repeatMode; ///< JSON key `repeat`
    Optional<int64_t> width;          ///< points
    Optional<int64_t> height;         ///< points
    Optional<std::string> stillURL;
    Optional<bool> loop;
    Optional<double> angle; ///< degrees
    Optional<std::vector<ColorStop>> colorStops;

    bool operator==(const Fill&) const = default;
};

/// A line.
struct ANFStrokeStyle {
    Optional<int64_t> width; ///< points
    Optional<std::string> color;
    Optional<std::string> style;

    bool operator==(const ANFStrokeStyle&) const = default;
};

/// The lines round a box, and which sides have them.
struct Border {
    Optional<ANFStrokeStyle> all;
    Optional<bool> top;
    Optional<bool> bottom;
    Optional<bool> left;
    Optional<bool> right;

    bool operator==(const Border&) const = default;
};

/// The rounding of a box.
struct CornerMask {
    Optional<std::string> type;
    Optional<ANFLength> radius;
    Optional<bool> topLeft;
    Optional<bool> topRight;
    Optional<bool> bottomLeft;
    Optional<bool> bottomRight;

    bool operator==(const CornerMask&) const = default;
};

/// How far a box's shadow stands from it.
struct ComponentShadowOffset {
    Optional<ANFLength> x;
    Optional<ANFLength> y;

    bool operator==(const ComponentShadowOffset&) const = default;
};

/// The shadow of a box.
struct ComponentShadow {
    Optional<std::string> color;
    Optional<double> opacity; ///< 0 to 1
    Optional<ANFLength> radius;
    Optional<ComponentShadowOffset> offset;

    bool operator==(const ComponentShadow&) const = default;
};

template <>
struct RecordTable<ColorStop> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<Fill> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<ANFStrokeStyle> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<Border> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<CornerMask> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<ComponentShadowOffset> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<ComponentShadow> {
    static const RecordInfo& info();
};

} // namespace quillon
