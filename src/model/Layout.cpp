#include "model/Layout.h"

#include "model/Alternatives.h"
#include "model/Fields.h"

namespace quillon {

const RecordInfo& RecordTable<Layout>::info() {
    static const RecordInfo table{{
        required<&Layout::columns>("columns"),
        required<&Layout::width>("width"),
        optional<&Layout::margin>("margin"),
        optional<&Layout::gutter>("gutter"),
    }};
    return table;
}

const RecordInfo& RecordTable<Margin>::info() {
    static const RecordInfo table{{
        optional<&Margin::top>("top"),
        optional<&Margin::bottom>("bottom"),
    }};
    return table;
}

const RecordInfo& RecordTable<ContentInset>::info() {
    static const RecordInfo table{{
        optional<&ContentInset::top>("top"),
        optional<&ContentInset::right>("right"),
        optional<&ContentInset::bottom>("bottom"),
        optional<&ContentInset::left>("left"),
    }};
    return table;
}

const RecordInfo& RecordTable<ComponentLayout>::info() {
    static const RecordInfo table{{
        optional<&ComponentLayout::columnStart>("columnStart"),
        optional<&ComponentLayout::columnSpan>("columnSpan"),
        optional<&ComponentLayout::margin>("margin"),
        optional<&ComponentLayout::contentInset>("contentInset"),
        optional<&ComponentLayout::ignoreDocumentMargin>("ignoreDocumentMargin"),
        optional<&ComponentLayout::ignoreViewportPadding>("ignoreViewportPadding"),
        optional<&ComponentLayout::ignoreDocumentGutter>("ignoreDocumentGutter"),
        optional<&ComponentLayout::minimumHeight>("minimumHeight"),
        optional<&ComponentLayout::maximumContentWidth>("maximumContentWidth"),
        optional<&ComponentLayout::horizontalContentAlignment>("horizontalContentAlignment"),
        optional<&ComponentLayout::conditional>("conditional"),
    }};
    return table;
}

const RecordInfo& RecordTable<ConditionalComponentLayout>::info() {
    static const RecordInfo table(embedded<&ConditionalComponentLayout::layout>(
        {optional<&ConditionalComponentLayout::conditions>("conditions")}));
    return table;
}

bool readValue(JsonElement element, LayoutMargin& value, ReadFailure& failure) {
    return readAlternatives(element, value.form, "a number, text or an object", failure);
}
void writeValue(JsonWriter& writer, const LayoutMargin& value) {
    writeAlternative(writer, value.form);
}

bool readValue(JsonElement element, ContentInsetValue& value, ReadFailure& failure) {
    return readAlternatives(element, value.form, "true, false or an object", failure);
}
void writeValue(JsonWriter& writer, const ContentInsetValue& value) {
    writeAlternative(writer, value.form);
}

} // namespace quillon
