#pragma once

#include "model/ArticleDocument.h"

#include <cstdint>

namespace quillon::support {

/// What a generated article may hold.
struct GeneratorLimits {
    size_t components = 8;  ///< at most so many in a list of them
    size_t nesting = 4;     ///< how deep containers may stand in each other
    size_t recordDepth = 6; ///< how deep records may stand in each other within a component or style
};

/// A random article: any record, any form of a value, unknown keys and roles, nested containers; texts are
/// drawn from what is awkward (markup, line ends, controls, emoji), from what the format knows (colours,
/// lengths, addresses, names of styles) and from the empty text. The same seed gives the same article up to
/// its ids. What it gives survives being written and read.
ArticleDocument randomArticle(uint64_t seed, const GeneratorLimits& limits = {});

/// `article` with every id, at any depth, set to zero: what can be compared after a save.
ArticleDocument withoutIds(ArticleDocument article);

} // namespace quillon::support
