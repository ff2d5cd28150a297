#pragma once

#include "model/ComponentRole.h"

#include <string_view>

namespace quillon {

/// The symbol of the row that has the selection, and the effects with which it came to it.
struct ComponentRoleIcon {
    ComponentRole role;
    bool isSelected = false;
    std::string_view displayedSystemImage; ///< empty before the first appearance
    int activationCount = 0;               ///< each step plays a bounce
    bool drawOnActive = false;             ///< while it is, the symbol draws itself, once

    void appear();
    /// A `byline` that is selected must be told `drawOn` in a later turn, so that its effect runs from its
    /// start.
    void setSelected(bool selected);
    void drawOn() { drawOnActive = true; }
    void setRole(const ComponentRole& next);

    /// What it shows, also before it has appeared.
    std::string_view systemImage() const;
    bool drawsOn() const { return role == ComponentRole::byline; }
};

} // namespace quillon
