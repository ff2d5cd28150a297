#pragma once

#include "model/ArticleDocument.h"

#include <cstdint>

namespace quillon {

/// The article that a new empty document begins with, published `now` (seconds since 1970). Its components
/// have fresh ids at each call.
ArticleDocument makeBlankArticle(std::int64_t now);

} // namespace quillon
