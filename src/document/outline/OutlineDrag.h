#pragma once

#include "document/outline/ComponentDropIntent.h"

#include <functional>
#include <optional>

namespace quillon {

/// What an outline knows of a drag of one of its rows. All of its drop delegates share one.
struct OutlineDrag {
    std::optional<Uuid> activeDraggedID; ///< none when no row is dragged, as when something else is
    std::optional<ComponentDropIntent> activeDropIntent; ///< the one that is shown

    std::function<bool(const Uuid& id, const ComponentDropIntent&)> canDrop;
    /// Performs a drop; says whether it was allowed.
    std::function<bool(const Uuid& id, const ComponentDropIntent&)> onDrop;

    void begin(const Uuid& id);
    void end();
};

/// What a drop target answers while something is over it.
enum class DropProposal { move, forbidden };

/// A row as a target of drops. The places are in points from the row's top.
struct ComponentRowDropDelegate {
    const Component& component;
    double rowHeight;
    OutlineDrag& drag;

    DropProposal enteredOrMoved(double y) const;
    void left() const;
    bool dropped(double y) const;
};

/// The article's own row, and the strip below the last row, as targets of drops.
struct ComponentRootDropDelegate {
    OutlineDrag& drag;

    DropProposal enteredOrMoved() const;
    void left() const;
    bool dropped() const;
};

} // namespace quillon
