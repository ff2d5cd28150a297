#include "document/EditorOperations.h"

#include "base/JsonText.h"
#include "base/JsonWriter.h"
#include "model/Codec.h"
#include "model/ComponentTree.h"
#include "package/ComponentSamples.h"

#include <utility>
#include <vector>

namespace quillon {

namespace {

/// "Add Body"; a component that is not there has no name.
EditKind kindOf(const char* verb, const Component* component) {
    const std::string name = component ? component->role.displayName() : "Component";
    return {std::string(verb) + " " + name, {}};
}

/// Whether a file can hold `components` as far as the nesting at the component `id` goes.
bool isReadable(const List<Component>& components, const std::optional<Uuid>& id) {
    const Component* component = id ? findComponent(*id, components) : nullptr;
    if (!component) {
        return true;
    }
    JsonWriter writer;
    writeValue(writer, *component);
    constexpr std::size_t levelsEach = 2; // the object and the list that it stands in
    std::size_t depth = levelsEach + writer.maximumDepth();
    for (auto place = locateComponent(*id, components); place && place->parent;
         place = locateComponent(*place->parent, components)) {
        depth += levelsEach;
    }
    return depth <= JsonText::maximumDepth;
}

void setComponents(DocumentStore& store, const EditKind& kind, List<Component> components,
                   const EditorSelection& selection) {
    if (!isReadable(components, selection.component)) {
        return;
    }
    ArticleDocument article = store.article();
    article.components = std::move(components);
    store.edit(kind, std::move(article), selection);
}

/// The component and all below it, under ids of their own.
Component withNewIds(Component component) {
    component.id = Uuid::random();
    if (component.components) {
        std::vector<Shared<Component>> children;
        for (const Component& child : *component.components) {
            children.emplace_back(withNewIds(child));
        }
        component.components = List<Component>(std::move(children));
    }
    return component;
}

} // namespace

void addComponent(DocumentStore& store, const ComponentRole& role, std::optional<Uuid> parent) {
    const List<Component>& before = store.article().components;
    Component component = makeSampleComponent(role);
    const Uuid id = component.id;
    const EditKind kind = kindOf("Add", &component);
    const std::optional<Uuid> target = parent ? parent : defaultAddParent(store);
    setComponents(store, kind, insertComponent(std::move(component), target, std::nullopt, before),
                  EditorSelection::ofComponent(id));
    // Where the parent does not exist there was nothing to edit.
    store.select(EditorSelection::ofComponent(id));
}

std::optional<Uuid> defaultAddParent(const DocumentStore& store) {
    const auto& selected = store.selection().component;
    const Component* component = selected ? findComponent(*selected, store.article().components) : nullptr;
    return component && component->role.isContainer() ? selected : std::nullopt;
}

void deleteComponent(DocumentStore& store, const Uuid& id, const char* verb) {
    const List<Component>& before = store.article().components;
    const bool isSelected = store.selection() == EditorSelection::ofComponent(id);
    const EditorSelection after = isSelected ? EditorSelection::document() : store.selection();
    setComponents(store, kindOf(verb, findComponent(id, before)), removeComponent(id, before), after);
    store.select(after);
}

void moveComponent(DocumentStore& store, const Uuid& id, std::optional<Uuid> parent, std::int64_t index) {
    const List<Component>& before = store.article().components;
    setComponents(store, kindOf("Move", findComponent(id, before)), moveComponent(id, parent, index, before),
                  EditorSelection::ofComponent(id));
    store.select(EditorSelection::ofComponent(id));
}

void moveComponent(DocumentStore& store, const Uuid& id, KeyboardMove move) {
    if (const auto place = movedPlace(id, move, store.article().components)) {
        moveComponent(store, id, place->parent, place->index);
    }
}

void duplicateComponent(DocumentStore& store, const Uuid& id) {
    const List<Component>& before = store.article().components;
    const Component* component = findComponent(id, before);
    const auto place = locateComponent(id, before);
    if (!component || !place) {
        return;
    }
    Component copy = withNewIds(*component);
    const EditorSelection selection = EditorSelection::ofComponent(copy.id);
    const auto index = static_cast<std::int64_t>(place->index) + 1;
    setComponents(store, kindOf("Duplicate", component),
                  insertComponent(std::move(copy), place->parent, index, before), selection);
}

void pasteComponents(DocumentStore& store, std::vector<Component> components) {
    if (components.empty()) {
        return;
    }
    List<Component> list = store.article().components;
    const auto& selected = store.selection().component;
    const Component* component = selected ? findComponent(*selected, list) : nullptr;
    std::optional<Uuid> parent;
    auto index = static_cast<std::int64_t>(list.size());
    if (component && component->role.isContainer() &&
        (!component->components || component->components->empty())) {
        parent = selected;
        index = 0;
    } else if (const auto place = component ? locateComponent(*selected, list) : std::nullopt) {
        parent = place->parent;
        index = static_cast<std::int64_t>(place->index) + 1;
    }
    const EditKind kind =
        components.size() == 1 ? kindOf("Paste", &components.front()) : EditKind{"Paste Components", {}};
    const EditorSelection selection = EditorSelection::ofComponent(components.back().id);
    for (Component& each : components) {
        const Uuid id = each.id;
        list = insertComponent(std::move(each), parent, index++, list);
        if (!isReadable(list, id)) {
            return;
        }
    }
    setComponents(store, kind, std::move(list), selection);
}

Component ComponentAccess::read() const {
    const Component* component = findComponent(m_id, m_store->article().components);
    return component ? *component : Component();
}

void ComponentAccess::write(const EditKind& kind, Component component) const {
    ArticleDocument article = m_store->article();
    article.components = replaceComponent(m_id, std::move(component), article.components);
    m_store->edit(kind, std::move(article));
}

std::optional<ComponentAccess> componentAccess(DocumentStore& store, const Uuid& id) {
    if (!findComponent(id, store.article().components)) {
        return std::nullopt;
    }
    return ComponentAccess(store, id);
}

Sidebars toggledSidebars(const Sidebars& sidebars) {
    const bool show = !(sidebars.outline && sidebars.inspector);
    return {show, show};
}

} // namespace quillon
