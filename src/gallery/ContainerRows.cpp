#include "gallery/GalleryRow.h"

namespace quillon {

std::vector<GalleryRow> containerRows() {
    return {};
}

} // namespace quillon
