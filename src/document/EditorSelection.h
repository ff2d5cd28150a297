#pragma once

#include "base/Uuid.h"

#include <optional>

namespace quillon {

/// What the user has selected in a document window: one component, or the article as a whole. The component
/// need not exist any more.
struct EditorSelection {
    std::optional<Uuid> component; ///< nothing when the article as a whole is selected

    static EditorSelection document() { return {}; }
    static EditorSelection ofComponent(const Uuid& id) { return {id}; }

    bool operator==(const EditorSelection&) const = default;
};

} // namespace quillon
