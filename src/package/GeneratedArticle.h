#pragma once

#include "package/ArticleFileDocument.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace quillon {

/// A first article around a story idea, created `now` (seconds since 1970): the idea stands whole, trimmed at
/// its ends, as excerpt and as intro. Without an idea, or with one that is all blank, stock texts stand
/// there. `prompt` is UTF-8.
ArticleFileDocument makeGeneratedDocument(std::optional<std::string_view> prompt, std::int64_t now);

} // namespace quillon
