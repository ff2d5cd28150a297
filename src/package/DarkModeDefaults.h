#pragma once

#include "model/ArticleDocument.h"

namespace quillon {

/// The article with a dark page background and a dark default text, each unless a variant for the dark colour
/// scheme already stands in its place. A page without a background becomes white.
ArticleDocument applyDarkModeDefaults(ArticleDocument article);

/// The article without what `applyDarkModeDefaults` adds. Variants that were changed since, in whatever way,
/// stay, and so does the white background.
ArticleDocument removeDarkModeDefaults(ArticleDocument article);

} // namespace quillon
