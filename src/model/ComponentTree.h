#pragma once

#include "model/Component.h"

#include <optional>
#include <unordered_set>

/// What the editor does with a tree of components. Components are found by `id`, a component before its
/// children; no operation changes its input, and each costs the way to the component, not the size of the
/// tree.
namespace quillon {

/// The component of `id`, good as long as `list` lives; null when there is none.
const Component* findComponent(const Uuid& id, const List<Component>& list);

/// The list with the component of `id` replaced where it stands, its children going with it.
List<Component> replaceComponent(const Uuid& id, Component component, const List<Component>& list);

/// The list without any component of `id`, at any depth. A parent that loses its last child keeps an empty
/// list.
List<Component> removeComponent(const Uuid& id, const List<Component>& list);

struct ExtractedComponent {
    Shared<Component> component;
    List<Component> rest; ///< the list without it
};
/// The component of `id` and the list without it. The whole of a level is searched before the children of its
/// components.
std::optional<ExtractedComponent> extractComponent(const Uuid& id, const List<Component>& list);

/// The list with `component` added to the children of `parent`, or to the list itself without one: before the
/// child at `index`, which is brought into range, or at the end without one. Without a component of id
/// `parent` it is the input.
List<Component> insertComponent(Shared<Component> component, std::optional<Uuid> parent,
                                std::optional<int64_t> index, const List<Component>& list);

struct ComponentLocation {
    std::optional<Uuid> parent; ///< nothing for the top level
    size_t index = 0;           ///< within the parent

    bool operator==(const ComponentLocation&) const = default;
};
/// Where the component of `id` stands, searched for as by extractComponent.
std::optional<ComponentLocation> locateComponent(const Uuid& id, const List<Component>& list);

/// Whether the component of `id` lies below the component of `root`, at any depth.
bool isInSubtree(const Uuid& id, const Uuid& root, const List<Component>& list);

/// The list with the component of `id` moved to `parent` (the top level without one), which must be of a
/// container role and neither the component itself nor below it; else the input. `index` counts the target's
/// children as they stand once the component has left them.
List<Component> moveComponent(const Uuid& id, std::optional<Uuid> parent, int64_t index,
                              const List<Component>& list);

/// The ids of all components of a container role that are reached through container roles alone.
std::unordered_set<Uuid> expandableComponentIDs(const List<Component>& list);

} // namespace quillon
