#pragma once

#include "model/TextStyles.h"

#include <string>
#include <string_view>

/// Styles put on the tags of finished HTML. A tag that has a `style` attribute keeps it as it is.
namespace quillon::HTMLRenderer {

/// Gives ` style="{css}"` to every tag of `html` that begins with `opening` ("<a") as a whole word, except
/// where the word "style=" stands between there and the next ">". Linear in the length of `html`.
void styleTags(std::string& html, std::string_view opening, std::string_view css);

/// Gives the lists of `html` the markers that `style` (or null) asks for.
void applyListMarkers(std::string& html, const ComponentTextStyle* style);

} // namespace quillon::HTMLRenderer
