#pragma once

#include "base/Shared.h"

#include <string>
#include <string_view>

/// What the writers of images and of foreign content have in common.
namespace quillon::HTMLRenderer {

/// An optional text; absent reads as empty.
inline std::string_view textOrEmpty(const Optional<std::string>& text) {
    return text ? std::string_view(*text) : std::string_view();
}

/// A URL without white space and line ends at its ends; empty when absent.
std::string_view trimmedURL(const Optional<std::string>& url);

/// Appends a caption as a `figcaption`; nothing when it is absent or empty.
void appendCaption(std::string& out, const Optional<std::string>& caption);

/// Appends `piece` to a line of details, behind a middle dot when something stands there already; an empty
/// piece leaves the line as it is.
void appendDetail(std::string& details, std::string_view piece);

} // namespace quillon::HTMLRenderer
