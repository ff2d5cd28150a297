#pragma once

#include "base/List.h"
#include "base/Uuid.h"
#include "model/Component.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace quillon {

/// One row of an outline. Its address stays as long as its component stands in the same parent.
struct OutlineNode {
    std::optional<Shared<Component>> component; ///< nothing for the article's own row
    OutlineNode* parent = nullptr;              ///< null for the article's own row
    std::size_t row = 0;                        ///< among the parent's children
    std::vector<std::unique_ptr<OutlineNode>> children;

    /// 0 for the rows of the top level.
    int depth() const;
};

/// The rows of an outline, which follow the article from value to value. Only container roles show what they
/// hold. An update costs what changed, and tells it as steps, each of which leaves the tree whole.
class OutlineTree {
public:
    /// What is told of an update. Rows are counted among the children of `parent`.
    struct Watcher {
        std::function<void(const OutlineNode& parent, std::size_t first, std::size_t count)> willInsert;
        std::function<void()> inserted;
        std::function<void(const OutlineNode& parent, std::size_t first, std::size_t count)> willRemove;
        std::function<void()> removed;
        std::function<void(const OutlineNode& node)> changed; ///< its component, but not what it holds
    };

    explicit OutlineTree(Watcher watcher = {});

    void update(const List<Component>& components);

    const List<Component>& components() const { return m_components; }
    const OutlineNode& article() const { return m_article; }
    /// Null where no row shows the component.
    const OutlineNode* find(const Uuid& id) const;

private:
    using Children = std::vector<std::unique_ptr<OutlineNode>>;

    void updateChildren(OutlineNode& parent, const List<Component>& before, const List<Component>& after);
    void removeOthers(OutlineNode& parent, std::size_t first, std::size_t end,
                      const std::unordered_map<Uuid, std::size_t>& places);
    void updateNode(OutlineNode& node, const Shared<Component>& component);
    void insert(OutlineNode& parent, std::size_t first, const List<Component>& from, std::size_t count);
    void remove(OutlineNode& parent, std::size_t first, std::size_t count);
    std::unique_ptr<OutlineNode> made(OutlineNode& parent, const Shared<Component>& component);
    void forget(const OutlineNode& node);

    Watcher m_watcher;
    OutlineNode m_article;
    List<Component> m_components;
    std::unordered_map<Uuid, OutlineNode*> m_nodes;
};

} // namespace quillon
