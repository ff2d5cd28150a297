#include "model/TextStyles.h"

#include "model/Alternatives.h"
#include "model/Fields.h"

namespace quillon {

const RecordInfo& RecordTable<TextDecorationStyle>::info() {
    static const RecordInfo table{{
        tolerant<&TextDecorationStyle::color>("color"),
    }};
    return table;
}

const RecordInfo& RecordTable<DropCapStyle>::info() {
    static const RecordInfo table{{
        optional<&DropCapStyle::numberOfLines>("numberOfLines"),
        optional<&DropCapStyle::numberOfCharacters>("numberOfCharacters"),
        optional<&DropCapStyle::numberOfRaisedLines>("numberOfRaisedLines"),
        optional<&DropCapStyle::fontName>("fontName"),
        optional<&DropCapStyle::textColor>("textColor"),
        optional<&DropCapStyle::backgroundColor>("backgroundColor"),
        optional<&DropCapStyle::padding>("padding"),
    }};
    return table;
}

const RecordInfo& RecordTable<ListItemStyle>::info() {
    static const RecordInfo table{{
        optional<&ListItemStyle::type>("type"),
        optional<&ListItemStyle::character>("character"),
    }};
    return table;
}

const RecordInfo& RecordTable<TextStrokeStyle>::info() {
    static const RecordInfo table{{
        optional<&TextStrokeStyle::color>("color"),
        optional<&TextStrokeStyle::width>("width"),
    }};
    return table;
}

const RecordInfo& RecordTable<TextShadowOffset>::info() {
    static const RecordInfo table{{
        optional<&TextShadowOffset::x>("x"),
        optional<&TextShadowOffset::y>("y"),
    }};
    return table;
}

const RecordInfo& RecordTable<TextShadow>::info() {
    static const RecordInfo table{{
        optional<&TextShadow::color>("color"),
        optional<&TextShadow::opacity>("opacity"),
        optional<&TextShadow::radius>("radius"),
        optional<&TextShadow::offset>("offset"),
    }};
    return table;
}

const RecordInfo& RecordTable<TextStyle>::info() {
    static const RecordInfo table{{
        optional<&TextStyle::fontName>("fontName"),
        optional<&TextStyle::fontFamily>("fontFamily"),
        optional<&TextStyle::fontWeight>("fontWeight"),
        optional<&TextStyle::fontStyle>("fontStyle"),
        optional<&TextStyle::fontWidth>("fontWidth"),
        optional<&TextStyle::fontSize>("fontSize"),
        optional<&TextStyle::textColor>("textColor"),
        optional<&TextStyle::backgroundColor>("backgroundColor"),
        optional<&TextStyle::strikethrough>("strikethrough"),
        optional<&TextStyle::underline>("underline"),
        optional<&TextStyle::tracking>("tracking"),
        optional<&TextStyle::textShadow>("textShadow"),
        optional<&TextStyle::stroke>("stroke"),
        optional<&TextStyle::verticalAlignment>("verticalAlignment"),
        optional<&TextStyle::orderedListItems>("orderedListItems"),
        optional<&TextStyle::unorderedListItems>("unorderedListItems"),
        optional<&TextStyle::conditional>("conditional"),
    }};
    return table;
}

const RecordInfo& RecordTable<ConditionalTextStyle>::info() {
    static const RecordInfo table(
        embedded<&ConditionalTextStyle::style>({optional<&ConditionalTextStyle::conditions>("conditions")}));
    return table;
}

const RecordInfo& RecordTable<ComponentTextStyle>::info() {
    static const RecordInfo table{{
        optional<&ComponentTextStyle::fontName>("fontName"),
        optional<&ComponentTextStyle::fontFamily>("fontFamily"),
        optional<&ComponentTextStyle::fontWeight>("fontWeight"),
        optional<&ComponentTextStyle::fontStyle>("fontStyle"),
        optional<&ComponentTextStyle::fontWidth>("fontWidth"),
        optional<&ComponentTextStyle::fontSize>("fontSize"),
        optional<&ComponentTextStyle::textColor>("textColor"),
        optional<&ComponentTextStyle::backgroundColor>("backgroundColor"),
        optional<&ComponentTextStyle::strikethrough>("strikethrough"),
        optional<&ComponentTextStyle::underline>("underline"),
        optional<&ComponentTextStyle::tracking>("tracking"),
        optional<&ComponentTextStyle::textShadow>("textShadow"),
        optional<&ComponentTextStyle::stroke>("stroke"),
        optional<&ComponentTextStyle::verticalAlignment>("verticalAlignment"),
        optional<&ComponentTextStyle::orderedListItems>("orderedListItems"),
        optional<&ComponentTextStyle::unorderedListItems>("unorderedListItems"),
        optional<&ComponentTextStyle::textAlignment>("textAlignment"),
        optional<&ComponentTextStyle::lineHeight>("lineHeight"),
        optional<&ComponentTextStyle::dropCapStyle>("dropCapStyle"),
        optional<&ComponentTextStyle::firstLineIndent>("firstLineIndent"),
        optional<&ComponentTextStyle::hangingPunctuation>("hangingPunctuation"),
        optional<&ComponentTextStyle::hyphenation>("hyphenation"),
        optional<&ComponentTextStyle::paragraphSpacing>("paragraphSpacing"),
        optional<&ComponentTextStyle::linkStyle>("linkStyle"),
        optional<&ComponentTextStyle::conditional>("conditional"),
    }};
    return table;
}

const RecordInfo& RecordTable<ConditionalComponentTextStyle>::info() {
    static const RecordInfo table(embedded<&ConditionalComponentTextStyle::style>(
        {optional<&ConditionalComponentTextStyle::conditions>("conditions")}));
    return table;
}

bool readValue(JsonElement element, ANFFontWeight& value, ReadFailure& failure) {
    return readAlternatives(element, value.form, "a whole number or text", failure);
}
void writeValue(JsonWriter& writer, const ANFFontWeight& value) {
    writeAlternative(writer, value.form);
}

bool readValue(JsonElement element, TextDecoration& value, ReadFailure& failure) {
    return readAlternatives(element, value.form, "true, false or an object", failure);
}
void writeValue(JsonWriter& writer, const TextDecoration& value) {
    writeAlternative(writer, value.form);
}

} // namespace quillon
