#include "document/outline/KeyboardMove.h"

#include "model/ComponentTree.h"

namespace quillon {

namespace {

const List<Component>& siblings(const std::optional<Uuid>& parent, const List<Component>& components) {
    return parent ? *findComponent(*parent, components)->components : components;
}

} // namespace

std::optional<DropPlace> movedPlace(const Uuid& id, KeyboardMove move, const List<Component>& components) {
    const auto place = locateComponent(id, components);
    if (!place) {
        return std::nullopt;
    }
    const List<Component>& level = siblings(place->parent, components);
    const auto index = static_cast<std::int64_t>(place->index);
    switch (move) {
    case KeyboardMove::up:
        return index > 0 ? std::optional(DropPlace{place->parent, index - 1}) : std::nullopt;
    case KeyboardMove::down:
        return place->index + 1 < level.size() ? std::optional(DropPlace{place->parent, index + 1})
                                               : std::nullopt;
    case KeyboardMove::in:
        return index > 0
                   ? dropPlace(id, ComponentDropIntent::appendChild(level[place->index - 1].id), components)
                   : std::nullopt;
    case KeyboardMove::out:
        return place->parent ? dropPlace(id, ComponentDropIntent::insertAfter(*place->parent), components)
                             : std::nullopt;
    }
    return std::nullopt;
}

} // namespace quillon
