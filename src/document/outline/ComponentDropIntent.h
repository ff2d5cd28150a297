#pragma once

#include "base/List.h"
#include "base/Uuid.h"
#include "model/Component.h"

#include <cstdint>
#include <optional>

namespace quillon {

/// What letting go of a dragged row would do.
struct ComponentDropIntent {
    enum class Kind { insertBefore, insertAfter, appendChild, appendToRoot };

    Kind kind = Kind::appendToRoot;
    Uuid target = {}; ///< the component of the row below the pointer; of no meaning for `appendToRoot`

    static ComponentDropIntent insertBefore(const Uuid& target) { return {Kind::insertBefore, target}; }
    static ComponentDropIntent insertAfter(const Uuid& target) { return {Kind::insertAfter, target}; }
    static ComponentDropIntent appendChild(const Uuid& target) { return {Kind::appendChild, target}; }
    static ComponentDropIntent appendToRoot() { return {}; }

    /// Whether it is one of the three kinds that belong to the row of `component`.
    bool isOf(const Uuid& component) const { return kind != Kind::appendToRoot && target == component; }

    friend bool operator==(const ComponentDropIntent& left, const ComponentDropIntent& right) {
        return left.kind == right.kind && (left.kind == Kind::appendToRoot || left.target == right.target);
    }
};

/// The intent of a pointer at `y` in the row of `component`, `rowHeight` high, both in points from the row's
/// top. The upper and lower quarter of a container's row are before and after it, and what lies between is
/// inside; the row of any other role has two halves.
ComponentDropIntent dropIntent(const Component& component, double rowHeight, double y);

/// Whether the component `id` may be dropped so. A place beside a row inside of the dragged component counts
/// as allowed; the move itself then changes nothing.
bool canDrop(const Uuid& id, const ComponentDropIntent& intent, const List<Component>& components);

/// Where a drop takes its component: a place as `moveComponent` counts it.
struct DropPlace {
    std::optional<Uuid> parent;
    std::int64_t index = 0;

    bool operator==(const DropPlace&) const = default;
};

/// The place that `intent` means for the component `id`; nothing where the drop is not allowed.
std::optional<DropPlace> dropPlace(const Uuid& id, const ComponentDropIntent& intent,
                                   const List<Component>& components);

/// `index` among the children of `parent` once the component `id` has been taken out of them.
std::int64_t adjusted(const Uuid& id, const std::optional<Uuid>& parent, std::int64_t index,
                      const List<Component>& components);

} // namespace quillon
