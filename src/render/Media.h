#pragma once

#include "render/PageContext.h"
#include "render/PageText.h"

#include <optional>
#include <string>
#include <string_view>

namespace quillon::HTMLRenderer {

/// The roles that show foreign content: media, web video, social posts, buttons, maps.
void renderMedia(PageText& page, const Component& component, const PageContext& context);

/// Appends a link styled as a button.
void renderButton(std::string& out, const Component& component, std::string_view className,
                  std::string_view fallbackLabel);

/// The address under which a service's player can be framed; nothing when `url` is none of that service's.
std::optional<std::string> webVideoEmbedURL(std::string_view url);
std::optional<std::string> musicEmbedURL(std::string_view url);
std::optional<std::string> podcastEmbedURL(std::string_view url);

} // namespace quillon::HTMLRenderer
