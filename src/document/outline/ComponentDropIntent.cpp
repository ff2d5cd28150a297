#include "document/outline/ComponentDropIntent.h"

#include "model/ComponentTree.h"

#include <algorithm>

namespace quillon {

namespace {

constexpr double edge = 0.25; ///< share of a container's row that stands for before, and for after it
constexpr double middle = 0.5;

using Kind = ComponentDropIntent::Kind;

} // namespace

ComponentDropIntent dropIntent(const Component& component, double rowHeight, double y) {
    const double height = std::max(rowHeight, 1.0);
    const double place = std::clamp(y, 0.0, height);
    if (!component.role.isContainer()) {
        return place < height * middle ? ComponentDropIntent::insertBefore(component.id)
                                       : ComponentDropIntent::insertAfter(component.id);
    }
    if (place < height * edge) {
        return ComponentDropIntent::insertBefore(component.id);
    }
    if (place > height - height * edge) {
        return ComponentDropIntent::insertAfter(component.id);
    }
    return ComponentDropIntent::appendChild(component.id);
}

bool canDrop(const Uuid& id, const ComponentDropIntent& intent, const List<Component>& components) {
    if (!findComponent(id, components)) {
        return false;
    }
    if (intent.kind == Kind::appendToRoot) {
        return true;
    }
    const Component* target = findComponent(intent.target, components);
    if (intent.target == id || !target) {
        return false;
    }
    return intent.kind != Kind::appendChild ||
           (target->role.isContainer() && !isInSubtree(intent.target, id, components));
}

std::optional<DropPlace> dropPlace(const Uuid& id, const ComponentDropIntent& intent,
                                   const List<Component>& components) {
    if (!canDrop(id, intent, components)) {
        return std::nullopt;
    }
    switch (intent.kind) {
    case Kind::appendToRoot:
        return DropPlace{std::nullopt, static_cast<std::int64_t>(components.size())};
    case Kind::appendChild: {
        const auto& children = findComponent(intent.target, components)->components;
        return DropPlace{intent.target, children ? static_cast<std::int64_t>(children->size()) : 0};
    }
    case Kind::insertBefore:
    case Kind::insertAfter:
        break;
    }
    const auto place = locateComponent(intent.target, components);
    if (!place) {
        return std::nullopt;
    }
    const auto index = static_cast<std::int64_t>(place->index) + (intent.kind == Kind::insertAfter ? 1 : 0);
    return DropPlace{place->parent, adjusted(id, place->parent, index, components)};
}

std::int64_t adjusted(const Uuid& id, const std::optional<Uuid>& parent, std::int64_t index,
                      const List<Component>& components) {
    const auto present = locateComponent(id, components);
    const bool leavesHole =
        present && present->parent == parent && static_cast<std::int64_t>(present->index) < index;
    return leavesHole ? index - 1 : index;
}

} // namespace quillon
