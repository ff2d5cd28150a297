#pragma once

#include "model/Component.h"

#include <vector>

namespace quillon {

/// A component of `role`, with a fresh id, that shows something the moment it is added. All its pictures and
/// media are remote, so no asset comes with it. A role without a name has nothing but itself.
Component makeSampleComponent(const ComponentRole& role);

/// The pictures of a new gallery or mosaic; empty for any other role.
std::vector<GalleryItem> sampleGalleryItems(const ComponentRole& role);

/// The columns and rows of a new data table.
RecordStore sampleRecordStore();

} // namespace quillon
