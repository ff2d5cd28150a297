#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace quillon {

/// The PNG of one of the product's own pictures, by its address: templates and samples name them, and they
/// show without a network because they are part of the program. The bytes stay valid. The address must be
/// exactly one of `productPictureURLs`; nothing for any other.
std::optional<std::string_view> productPicture(std::string_view url);

/// The addresses of all those pictures: the hero, the eight examples, the icon.
std::span<const std::string_view> productPictureURLs();

} // namespace quillon
