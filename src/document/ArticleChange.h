#pragma once

#include "base/Expected.h"
#include "model/ArticleDocument.h"
#include "model/ReadFailure.h"

#include <cstddef>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace quillon {

/// The way to a component: the index among its siblings at each level from the top.
using ComponentPath = std::vector<std::size_t>;

/// Everything of the article but its components became this.
struct SetArticleFields {
    ArticleDocument fields; ///< without components
};

/// Everything of one component but its children became this.
struct SetComponentFields {
    ComponentPath path;
    Component fields; ///< without children
};

/// Of the children of one component, or of the top level, some were replaced by others.
struct ReplaceChildren {
    ComponentPath parent; ///< empty for the top level
    std::size_t index = 0;
    std::size_t removed = 0;
    std::vector<Shared<Component>> inserted; ///< with all below them
    bool absent =
        false; ///< all were removed, and the parent has no list of children any more, not even an empty one
};

using ChangeStep = std::variant<SetArticleFields, SetComponentFields, ReplaceChildren>;

/// What leads from one version of an article to a later one, in the order in which it is done: each path and
/// index is that of the article as the steps before have left it. Ids are not part of it: a component that
/// is written and read again gets a new one.
using ArticleChange = std::vector<ChangeStep>;

/// The steps from `before` to `after`; empty when they are equal but for ids. Where both share what they have
/// in common, it costs what differs and the siblings on the way there.
ArticleChange changeBetween(const ArticleDocument& before, const ArticleDocument& after);

/// The article after `change`; nothing where the change does not fit it. A component whose fields are set
/// keeps its id.
std::optional<ArticleDocument> applyChange(const ArticleDocument& article, const ArticleChange& change);

/// About how many bytes of memory the newer version holds for itself alone.
std::size_t changeWeight(const ArticleChange& change);

/// The change as one line of JSON without a line end, and back: a flat list in which each step stands with
/// its parts behind its name. Writing fails for a number that is not finite.
Expected<std::string, EncodeFailure> writeChange(const ArticleChange& change);
Expected<ArticleChange, ReadFailure> readChange(std::string line);

} // namespace quillon
