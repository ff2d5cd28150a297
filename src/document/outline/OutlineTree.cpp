#include "document/outline/OutlineTree.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace quillon {

namespace {

/// The components that an outline shows below `component`.
const List<Component>& shownChildren(const Component& component) {
    static const List<Component> none;
    return component.role.isContainer() && component.components ? *component.components : none;
}

void renumber(OutlineNode& parent, std::size_t from) {
    for (std::size_t row = from; row < parent.children.size(); ++row) {
        parent.children[row]->row = row;
    }
}

template <typename Action, typename... Arguments>
void tell(const Action& action, const Arguments&... arguments) {
    if (action) {
        action(arguments...);
    }
}

} // namespace

int OutlineNode::depth() const {
    int depth = -1;
    for (const OutlineNode* above = parent; above; above = above->parent) {
        ++depth;
    }
    return depth;
}

OutlineTree::OutlineTree(Watcher watcher) : m_watcher(std::move(watcher)) {}

const OutlineNode* OutlineTree::find(const Uuid& id) const {
    const auto entry = m_nodes.find(id);
    return entry == m_nodes.end() ? nullptr : entry->second;
}

void OutlineTree::update(const List<Component>& components) {
    const List<Component> before = std::exchange(m_components, components);
    updateChildren(m_article, before, components);
}

/// What is the same at both ends of the lists stays as it is. In between, what is gone goes; then, from the
/// front, each place gets the row it should have. Of two rows that have changed places the one that went
/// further is taken out and put in again.
void OutlineTree::updateChildren(OutlineNode& parent, const List<Component>& before,
                                 const List<Component>& after) {
    const std::size_t first = after.sharedPrefix(before);
    const std::size_t same = after.sharedSuffix(before, first);
    const std::size_t end = after.size() - same;
    std::unordered_map<Uuid, std::size_t> places;
    for (std::size_t row = first; row < end; ++row) {
        places[after[row].id] = row;
    }
    const auto idAt = [&](std::size_t row) -> const Uuid& {
        return (*parent.children[row]->component)->id;
    };
    removeOthers(parent, first, before.size() - same, places);
    std::unordered_set<Uuid> present;
    for (std::size_t row = first; row + same < parent.children.size(); ++row) {
        present.insert(idAt(row));
    }
    for (std::size_t row = first; row < end;) {
        const std::size_t fresh = [&] {
            std::size_t count = 0;
            while (row + count < end && !present.contains(after[row + count].id)) {
                ++count;
            }
            return count;
        }();
        if (fresh > 0) {
            insert(parent, row, after, fresh);
            row += fresh;
        } else if (idAt(row) == after[row].id) {
            updateNode(*parent.children[row], after.item(row));
            ++row;
        } else {
            const std::size_t wanted = m_nodes.at(after[row].id)->row;
            const bool isWantedFurther = wanted - row >= places.at(idAt(row)) - row;
            const std::size_t leaving = isWantedFurther ? wanted : row;
            present.erase(idAt(leaving));
            remove(parent, leaving, 1);
        }
    }
}

/// Takes the rows from `first` to `end` that have no place any more.
void OutlineTree::removeOthers(OutlineNode& parent, std::size_t first, std::size_t end,
                               const std::unordered_map<Uuid, std::size_t>& places) {
    while (end > first) {
        std::size_t count = 0;
        while (end - count > first && !places.contains((*parent.children[end - count - 1]->component)->id)) {
            ++count;
        }
        if (count > 0) {
            remove(parent, end - count, count);
        }
        end -= std::max<std::size_t>(count, 1);
    }
}

void OutlineTree::updateNode(OutlineNode& node, const Shared<Component>& component) {
    if (node.component->isIdentical(component)) {
        return;
    }
    const Shared<Component> before = std::exchange(*node.component, component);
    tell(m_watcher.changed, node);
    updateChildren(node, shownChildren(*before), shownChildren(*component));
}

void OutlineTree::insert(OutlineNode& parent, std::size_t first, const List<Component>& from,
                         std::size_t count) {
    Children fresh;
    for (std::size_t row = first; row < first + count; ++row) {
        fresh.push_back(made(parent, from.item(row)));
    }
    tell(m_watcher.willInsert, std::as_const(parent), first, count);
    parent.children.insert(parent.children.begin() + static_cast<std::ptrdiff_t>(first),
                           std::make_move_iterator(fresh.begin()), std::make_move_iterator(fresh.end()));
    renumber(parent, first);
    tell(m_watcher.inserted);
}

void OutlineTree::remove(OutlineNode& parent, std::size_t first, std::size_t count) {
    tell(m_watcher.willRemove, std::as_const(parent), first, count);
    const auto begin = parent.children.begin() + static_cast<std::ptrdiff_t>(first);
    const auto end = begin + static_cast<std::ptrdiff_t>(count);
    for (auto each = begin; each != end; ++each) {
        forget(**each);
    }
    parent.children.erase(begin, end);
    renumber(parent, first);
    tell(m_watcher.removed);
}

std::unique_ptr<OutlineNode> OutlineTree::made(OutlineNode& parent, const Shared<Component>& component) {
    auto node = std::make_unique<OutlineNode>();
    node->component = component;
    node->parent = &parent;
    m_nodes[component->id] = node.get();
    const List<Component>& children = shownChildren(*component);
    for (std::size_t row = 0; row < children.size(); ++row) {
        node->children.push_back(made(*node, children.item(row)));
        node->children.back()->row = row;
    }
    return node;
}

void OutlineTree::forget(const OutlineNode& node) {
    const auto entry = m_nodes.find((*node.component)->id);
    // What moved to another parent may stand there already.
    if (entry != m_nodes.end() && entry->second == &node) {
        m_nodes.erase(entry);
    }
    for (const auto& child : node.children) {
        forget(*child);
    }
}

} // namespace quillon
