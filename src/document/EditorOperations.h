#pragma once

#include "document/DocumentStore.h"
#include "document/outline/KeyboardMove.h"
#include "model/Component.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// What changes the shape of an article's tree, and the selection with it. Ids that no longer exist leave the
/// tree as it is, and so does what would nest deeper than a file may. Each is one step to undo.
namespace quillon {

/// Adds a sample component of `role` as the last child of `parent`; without one, of `defaultAddParent`;
/// without that, at the end of the article. Selects it, also where `parent` does not exist.
void addComponent(DocumentStore& store, const ComponentRole& role, std::optional<Uuid> parent = std::nullopt);

/// The selected component if it is a container; nothing otherwise.
std::optional<Uuid> defaultAddParent(const DocumentStore& store);

/// Deletes a component with all below it. When exactly that one was selected, the article is afterwards.
/// `verb` is what the step is called in front of the component's name.
void deleteComponent(DocumentStore& store, const Uuid& id, const char* verb = "Delete");

/// Moves a component to `index` among the children of `parent`, or of the top level without one, counted
/// without the component itself. Selects it, also when the move is refused.
void moveComponent(DocumentStore& store, const Uuid& id, std::optional<Uuid> parent, std::int64_t index);

/// Moves a component one step by the keyboard, and selects it; nothing happens where the step leads nowhere.
void moveComponent(DocumentStore& store, const Uuid& id, KeyboardMove move);

/// Puts a copy of a component, with new ids, behind it, and selects the copy.
void duplicateComponent(DocumentStore& store, const Uuid& id);

/// Puts `components` behind the selected component, or into it where it is a container without children, or
/// at the end of the article where none is selected; selects the last of them.
void pasteComponents(DocumentStore& store, std::vector<Component> components);

/// Reads and writes one component of a store, wherever it stands by then.
class ComponentAccess {
public:
    /// The component; where it is gone, an empty one with a new id.
    Component read() const;
    /// Replaces the component; nothing happens where it is gone.
    void write(const EditKind& kind, Component component) const;

private:
    friend std::optional<ComponentAccess> componentAccess(DocumentStore& store, const Uuid& id);
    ComponentAccess(DocumentStore& store, const Uuid& id) : m_store(&store), m_id(id) {}

    DocumentStore* m_store;
    Uuid m_id;
};

/// Access to the component of `id`, which the store must outlive; nothing where there is none.
std::optional<ComponentAccess> componentAccess(DocumentStore& store, const Uuid& id);

/// Which columns stand beside the middle of a document window.
struct Sidebars {
    bool outline = true;
    bool inspector = true;

    bool operator==(const Sidebars&) const = default;
};

/// Hides both where both show; else brings both back.
Sidebars toggledSidebars(const Sidebars& sidebars);

} // namespace quillon
