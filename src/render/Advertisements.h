#pragma once

#include "render/PageContext.h"
#include "render/PageText.h"

#include <optional>

namespace quillon::HTMLRenderer {

/// The advertisement roles: marked, not shown, but for a replica with an image.
void renderAdvertisement(PageText& page, const Component& component, const PageContext& context);

/// After how many top-level components an automatic advertisement stands, at least 2; nothing when there are
/// none.
std::optional<size_t> advertisementInterval(const Optional<AdvertisingSettings>& settings);
/// Appends the mark of an automatic advertisement.
void renderAdvertisementMarker(PageText& page);

} // namespace quillon::HTMLRenderer
