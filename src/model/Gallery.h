#pragma once

#include "base/Uuid.h"
#include "model/StyleRef.h"
#include "model/TextStyles.h"

#include <string>

namespace quillon {

/// One image of a gallery or mosaic. In JSON its keys are `URL` and `caption`, which is a text, or an object
/// with `text` and `textStyle` when the caption has a style. Whatever else stands under them reads as absent.
struct GalleryItem {
    Uuid id = Uuid::random(); ///< not stored in a file
    Optional<std::string> URL;
    Optional<std::string> caption;
    Optional<StyleRef<ComponentTextStyle>> captionTextStyle;

    bool operator==(const GalleryItem&) const = default;
};

bool readValue(JsonElement element, GalleryItem& value, ReadFailure& failure);
void writeValue(JsonWriter& writer, const GalleryItem& value);

} // namespace quillon
