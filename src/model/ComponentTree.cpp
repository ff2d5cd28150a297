#include "model/ComponentTree.h"

#include <algorithm>

namespace quillon {

namespace {

using Components = List<Component>;

bool hasChildren(const Component& component) {
    return component.components && !component.components->empty();
}

/// `list` with the children of the component at `index` replaced.
Components withChildren(const Components& list, size_t index, Components children) {
    Component parent = list[index];
    parent.components = std::move(children);
    return list.set(index, std::move(parent));
}

/// `list` with `change` applied to the list that directly holds the first component of `id`, found a
/// component before its children; nothing when there is no such component. `change` takes that list and the
/// component's index.
template <typename Change>
std::optional<Components> changedAt(const Uuid& id, const Components& list, const Change& change) {
    size_t index = 0;
    for (const Component& component : list) {
        if (component.id == id) {
            return change(list, index);
        }
        if (hasChildren(component)) {
            if (auto children = changedAt(id, *component.components, change)) {
                return withChildren(list, index, std::move(*children));
            }
        }
        ++index;
    }
    return std::nullopt;
}

/// The children lists from the top to the one that holds the component of `id`, each with the index of the
/// way on; a whole level is searched before what lies below it. Empty when there is no such component.
struct Step {
    const Components* list;
    size_t index;
};
std::vector<Step> wayTo(const Uuid& id, const Components& list) {
    size_t index = 0;
    for (const Component& component : list) {
        if (component.id == id) {
            return {{&list, index}};
        }
        ++index;
    }
    index = 0;
    for (const Component& component : list) {
        if (hasChildren(component)) {
            auto way = wayTo(id, *component.components);
            if (!way.empty()) {
                way.insert(way.begin(), {&list, index});
                return way;
            }
        }
        ++index;
    }
    return {};
}

Components inserted(const Components& list, Shared<Component> component, std::optional<int64_t> index) {
    const auto size = static_cast<int64_t>(list.size());
    return list.insert(static_cast<size_t>(std::clamp<int64_t>(index.value_or(size), 0, size)),
                       std::move(component));
}

void collectExpandable(const Components& list, std::unordered_set<Uuid>& ids) {
    for (const Component& component : list) {
        if (component.role.isContainer()) {
            ids.insert(component.id);
            if (component.components) {
                collectExpandable(*component.components, ids);
            }
        }
    }
}

} // namespace

const Component* findComponent(const Uuid& id, const Components& list) {
    for (const Component& component : list) {
        if (component.id == id) {
            return &component;
        }
        if (hasChildren(component)) {
            if (const Component* found = findComponent(id, *component.components)) {
                return found;
            }
        }
    }
    return nullptr;
}

Components replaceComponent(const Uuid& id, Component component, const Components& list) {
    Shared<Component> replacement(std::move(component));
    return changedAt(id, list,
                     [&](const Components& level, size_t index) { return level.set(index, replacement); })
        .value_or(list);
}

Components removeComponent(const Uuid& id, const Components& list) {
    Components remaining = list;
    while (auto removed = changedAt(
               id, remaining, [](const Components& level, size_t index) { return level.erase(index); })) {
        remaining = std::move(*removed);
    }
    return remaining;
}

std::optional<ExtractedComponent> extractComponent(const Uuid& id, const Components& list) {
    auto way = wayTo(id, list);
    if (way.empty()) {
        return std::nullopt;
    }
    const Step last = way.back();
    way.pop_back();
    Components rest = last.list->erase(last.index);
    for (auto step = way.rbegin(); step != way.rend(); ++step) {
        rest = withChildren(*step->list, step->index, std::move(rest));
    }
    return ExtractedComponent{last.list->item(last.index), std::move(rest)};
}

Components insertComponent(Shared<Component> component, std::optional<Uuid> parent,
                           std::optional<int64_t> index, const Components& list) {
    if (!parent) {
        return inserted(list, std::move(component), index);
    }
    return changedAt(*parent, list,
                     [&](const Components& level, size_t at) {
                         const Components children = level[at].components.value_or(Components());
                         return withChildren(level, at, inserted(children, component, index));
                     })
        .value_or(list);
}

std::optional<ComponentLocation> locateComponent(const Uuid& id, const Components& list) {
    const auto way = wayTo(id, list);
    if (way.empty()) {
        return std::nullopt;
    }
    ComponentLocation location{.index = way.back().index};
    if (way.size() > 1) {
        const Step above = way[way.size() - 2];
        location.parent = (*above.list)[above.index].id;
    }
    return location;
}

bool isInSubtree(const Uuid& id, const Uuid& root, const Components& list) {
    const Component* component = findComponent(root, list);
    return component && component->components && findComponent(id, *component->components);
}

Components moveComponent(const Uuid& id, std::optional<Uuid> parent, int64_t index, const Components& list) {
    const auto extracted = extractComponent(id, list);
    if (!extracted) {
        return list;
    }
    if (!parent) {
        return inserted(extracted->rest, extracted->component, index);
    }
    const Component& moved = *extracted->component;
    if (*parent == id || (moved.components && findComponent(*parent, *moved.components))) {
        return list;
    }
    const Component* target = findComponent(*parent, extracted->rest);
    if (!target || !target->role.isContainer()) {
        return list;
    }
    return insertComponent(extracted->component, parent, index, extracted->rest);
}

std::unordered_set<Uuid> expandableComponentIDs(const Components& list) {
    std::unordered_set<Uuid> ids;
    collectExpandable(list, ids);
    return ids;
}

} // namespace quillon
