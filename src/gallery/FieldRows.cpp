#include "gallery/GalleryRow.h"

namespace quillon {

std::vector<GalleryRow> fieldRows() {
    return {};
}

} // namespace quillon
