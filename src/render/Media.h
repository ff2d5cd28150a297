#pragma once

#include "render/PageContext.h"
#include "render/PageText.h"

#include <string>
#include <string_view>

namespace quillon::HTMLRenderer {

/// The roles that show foreign content: media, web video, social posts, buttons, maps.
void renderMedia(PageText& page, const Component& component, const PageContext& context);

/// Appends a link styled as a button.
void renderButton(std::string& out, const Component& component, std::string_view className,
                  std::string_view fallbackLabel);

} // namespace quillon::HTMLRenderer
