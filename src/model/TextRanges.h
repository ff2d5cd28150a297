#pragma once

#include "base/Shared.h"
#include "base/Uuid.h"
#include "model/Placement.h"
#include "model/Record.h"
#include "model/StyleRef.h"
#include "model/TextStyles.h"

#include <string>
#include <vector>

namespace quillon {

/// One styled range of a component's text.
struct InlineTextStyle {
    Uuid id = Uuid::random();      ///< not stored in a file
    Optional<int64_t> rangeStart;  ///< characters
    Optional<int64_t> rangeLength; ///< characters
    Optional<StyleRef<TextStyle>> textStyle;

    bool operator==(const InlineTextStyle&) const = default;
};

/// The object form of a gallery item's caption, known to its reader alone.
struct CaptionDescriptor {
    Optional<std::string> text;
    Optional<StyleRef<ComponentTextStyle>> textStyle;
    Optional<std::vector<ComponentLink>> additions;

    bool operator==(const CaptionDescriptor&) const = default;
};

template <>
struct RecordTable<InlineTextStyle> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<CaptionDescriptor> {
    static const RecordInfo& info();
};

} // namespace quillon
