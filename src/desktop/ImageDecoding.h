#pragma once

#include "preview/ImageCache.h"

namespace quillon {

/// Decodes a picture of any format the platform knows; null for bytes that are none, and for one that would
/// take more than 128 MB.
SharedImage decodeImage(std::string_view bytes);

} // namespace quillon
