#pragma once

#include "render/PreviewEnvironment.h"

#include <string>
#include <string_view>

namespace quillon::HTMLRenderer {

/// The page's style sheet, without the rules that the article's own styles ask for. `background` is written
/// as it is.
std::string baseStyleSheet(std::string_view background, bool automaticDark, PreviewAppearance appearance);

} // namespace quillon::HTMLRenderer
