#pragma once

#include "base/Shared.h"
#include "model/Condition.h"
#include "model/Record.h"

#include <string>
#include <vector>

namespace quillon {

/// A weight given as a number or by name; it keeps its form.
struct ANFFontWeight {
    std::variant<int64_t, std::string> form;

    bool operator==(const ANFFontWeight&) const = default;
};

/// The object form of a decoration.
struct TextDecorationStyle {
    Optional<std::string> color;

    bool operator==(const TextDecorationStyle&) const = default;
};

/// An underline or strikethrough: on or off, or on with a style of its own; it keeps its form.
struct TextDecoration {
    std::variant<bool, TextDecorationStyle> form;

    bool operator==(const TextDecoration&) const = default;
};

/// The enlarged first characters of a text.
struct DropCapStyle {
    Optional<int64_t> numberOfLines;
    Optional<int64_t> numberOfCharacters;
    Optional<int64_t> numberOfRaisedLines;
    Optional<std::string> fontName;
    Optional<std::string> textColor;
    Optional<std::string> backgroundColor;
    Optional<int64_t> padding; ///< points

    bool operator==(const DropCapStyle&) const = default;
};

/// The mark before the items of a list.
struct ListItemStyle {
    Optional<std::string> type;
    Optional<std::string> character;

    bool operator==(const ListItemStyle&) const = default;
};

/// The outline of characters.
struct TextStrokeStyle {
    Optional<std::string> color;
    Optional<int64_t> width; ///< percent of the font size

    bool operator==(const TextStrokeStyle&) const = default;
};

/// How far a text's shadow stands from it, in points.
struct TextShadowOffset {
    Optional<double> x;
    Optional<double> y;

    bool operator==(const TextShadowOffset&) const = default;
};

/// The shadow of a text; lengths in points.
struct TextShadow {
    Optional<std::string> color;
    Optional<double> opacity; ///< 0 to 1
    Optional<double> radius;
    Optional<TextShadowOffset> offset;

    bool operator==(const TextShadow&) const = default;
};

struct ConditionalTextStyle;
struct ConditionalComponentTextStyle;

/// How a run of text looks. Font names, colours and alignments are kept as given.
struct TextStyle {
    Optional<std::string> fontName; ///< PostScript name
    Optional<std::string> fontFamily;
    Optional<ANFFontWeight> fontWeight;
    Optional<std::string> fontStyle;
    Optional<std::string> fontWidth;
    Optional<int64_t> fontSize; ///< points
    Optional<std::string> textColor;
    Optional<std::string> backgroundColor;
    Optional<TextDecoration> strikethrough;
    Optional<TextDecoration> underline;
    Optional<double> tracking; ///< ems
    Optional<TextShadow> textShadow;
    Optional<TextStrokeStyle> stroke;
    Optional<std::string> verticalAlignment;
    Optional<ListItemStyle> orderedListItems;
    Optional<ListItemStyle> unorderedListItems;
    Optional<std::vector<ConditionalTextStyle>> conditional;

    bool operator==(const TextStyle&) const = default;
};

/// A text style for where some `conditions` hold; its keys stand flat beside `conditions`.
struct ConditionalTextStyle {
    TextStyle style;
    Conditions conditions;

    bool operator==(const ConditionalTextStyle&) const = default;
};

/// How the text of a whole component looks.
struct ComponentTextStyle {
    Optional<std::string> fontName; ///< PostScript name
    Optional<std::string> fontFamily;
    Optional<ANFFontWeight> fontWeight;
    Optional<std::string> fontStyle;
    Optional<std::string> fontWidth;
    Optional<int64_t> fontSize; ///< points
    Optional<std::string> textColor;
    Optional<std::string> backgroundColor;
    Optional<TextDecoration> strikethrough;
    Optional<TextDecoration> underline;
    Optional<double> tracking; ///< ems
    Optional<TextShadow> textShadow;
    Optional<TextStrokeStyle> stroke;
    Optional<std::string> verticalAlignment;
    Optional<ListItemStyle> orderedListItems;
    Optional<ListItemStyle> unorderedListItems;
    Optional<std::string> textAlignment;
    Optional<int64_t> lineHeight; ///< points
    Optional<DropCapStyle> dropCapStyle;
    Optional<int64_t> firstLineIndent; ///< points
    Optional<bool> hangingPunctuation;
    Optional<bool> hyphenation;
    Optional<int64_t> paragraphSpacing; ///< points
    Optional<TextStyle> linkStyle;
    Optional<std::vector<ConditionalComponentTextStyle>> conditional;

    bool operator==(const ComponentTextStyle&) const = default;
};

/// A component text style for where some `conditions` hold; its keys stand flat beside `conditions`.
struct ConditionalComponentTextStyle {
    ComponentTextStyle style;
    Conditions conditions;

    bool operator==(const ConditionalComponentTextStyle&) const = default;
};

template <>
struct RecordTable<TextDecorationStyle> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<DropCapStyle> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<ListItemStyle> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<TextStrokeStyle> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<TextShadowOffset> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<TextShadow> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<TextStyle> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<ConditionalTextStyle> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<ComponentTextStyle> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<ConditionalComponentTextStyle> {
    static const RecordInfo& info();
};

bool readValue(JsonElement element, ANFFontWeight& value, ReadFailure& failure);
void writeValue(JsonWriter& writer, const ANFFontWeight& value);
bool readValue(JsonElement element, TextDecoration& value, ReadFailure& failure);
void writeValue(JsonWriter& writer, const TextDecoration& value);

} // namespace quillon
