#include "model/Gallery.h"

#include "model/TextRanges.h"

namespace quillon {

bool readValue(JsonElement element, GalleryItem& value, ReadFailure& failure) {
    if (element.kind() != JsonKind::object) {
        return expect("an object", element, failure);
    }
    ReadFailure ignored;
    for (JsonMembers members(element); members.next();) {
        if (members.key() == "URL") {
            value.URL.reset();
            readValue(members.value(), value.URL, ignored);
        } else if (members.key() == "caption") {
            CaptionDescriptor descriptor;
            value.caption.reset();
            value.captionTextStyle.reset();
            if (!readValue(members.value(), value.caption, ignored) &&
                readValue(members.value(), descriptor, ignored)) {
                value.caption = descriptor.text;
                value.captionTextStyle = descriptor.textStyle;
            }
        }
    }
    return true;
}

void writeValue(JsonWriter& writer, const GalleryItem& value) {
    writer.beginObject();
    if (value.URL) {
        writer.key("URL");
        writeValue(writer, *value.URL);
    }
    if (value.captionTextStyle) {
        writer.key("caption");
        writeValue(writer, CaptionDescriptor{.text = value.caption, .textStyle = value.captionTextStyle});
    } else if (value.caption) {
        writer.key("caption");
        writeValue(writer, *value.caption);
    }
    writer.endObject();
}

} // namespace quillon
