#include "model/TextRanges.h"

#include "model/Fields.h"

namespace quillon {

const RecordInfo& RecordTable<InlineTextStyle>::info() {
    static const RecordInfo table{{
        tolerant<&InlineTextStyle::rangeStart>("rangeStart"),
        tolerant<&InlineTextStyle::rangeLength>("rangeLength"),
        tolerant<&InlineTextStyle::textStyle>("textStyle"),
    }};
    return table;
}

const RecordInfo& RecordTable<CaptionDescriptor>::info() {
    static const RecordInfo table{{
        optional<&CaptionDescriptor::text>("text"),
        optional<&CaptionDescriptor::textStyle>("textStyle"),
        optional<&CaptionDescriptor::additions>("additions"),
    }};
    return table;
}

} // namespace quillon
