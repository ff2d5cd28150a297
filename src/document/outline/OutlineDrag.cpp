#include "document/outline/OutlineDrag.h"

namespace quillon {

void OutlineDrag::begin(const Uuid& id) {
    activeDraggedID = id;
    activeDropIntent.reset();
}

void OutlineDrag::end() {
    activeDraggedID.reset();
    activeDropIntent.reset();
}

DropProposal ComponentRowDropDelegate::enteredOrMoved(double y) const {
    if (drag.activeDraggedID) {
        const ComponentDropIntent intent = dropIntent(component, rowHeight, y);
        if (drag.canDrop(*drag.activeDraggedID, intent)) {
            drag.activeDropIntent = intent;
            return DropProposal::move;
        }
    }
    left();
    return DropProposal::forbidden;
}

/// What another row shows stays: the events of two rows come in no fixed order.
void ComponentRowDropDelegate::left() const {
    if (drag.activeDropIntent && drag.activeDropIntent->isOf(component.id)) {
        drag.activeDropIntent.reset();
    }
}

bool ComponentRowDropDelegate::dropped(double y) const {
    if (!drag.activeDraggedID) {
        drag.end();
        return false;
    }
    const Uuid id = *drag.activeDraggedID;
    std::optional<ComponentDropIntent> intent = dropIntent(component, rowHeight, y);
    if (!drag.canDrop(id, *intent)) {
        intent = drag.activeDropIntent;
    }
    const bool isDone = intent && drag.canDrop(id, *intent) && drag.onDrop(id, *intent);
    drag.end();
    return isDone;
}

DropProposal ComponentRootDropDelegate::enteredOrMoved() const {
    if (drag.activeDraggedID && drag.canDrop(*drag.activeDraggedID, ComponentDropIntent::appendToRoot())) {
        drag.activeDropIntent = ComponentDropIntent::appendToRoot();
        return DropProposal::move;
    }
    left();
    return DropProposal::forbidden;
}

void ComponentRootDropDelegate::left() const {
    if (drag.activeDropIntent == ComponentDropIntent::appendToRoot()) {
        drag.activeDropIntent.reset();
    }
}

bool ComponentRootDropDelegate::dropped() const {
    const bool isDone =
        drag.activeDraggedID && drag.onDrop(*drag.activeDraggedID, ComponentDropIntent::appendToRoot());
    drag.end();
    return isDone;
}

} // namespace quillon
