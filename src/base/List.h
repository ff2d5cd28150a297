#pragma once

#include "base/Shared.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <vector>

namespace quillon {

/// A persistent sequence of shared values: copying one counts a reference; setting, inserting or erasing one
/// element gives a new list that shares all but the nodes on the way to that element. A tree of nodes of at
/// most 64 entries; `Value` may be incomplete where the list is declared.
template <typename Value>
class List {
    struct Node;
    using NodeHandle = SharedOptional<Node>;

public:
    using Item = Shared<Value>;

    List() noexcept = default;
    List(std::initializer_list<Value> values) : List(std::vector<Item>(values.begin(), values.end())) {}
    /// All elements at once, in one pass.
    explicit List(std::vector<Item> items) {
        std::vector<NodeHandle> level;
        for (size_t start = 0; start < items.size(); start += fanout) {
            const size_t end = std::min(items.size(), start + fanout);
            Node leaf;
            leaf.items.assign(std::make_move_iterator(items.begin() + static_cast<std::ptrdiff_t>(start)),
                              std::make_move_iterator(items.begin() + static_cast<std::ptrdiff_t>(end)));
            leaf.count = leaf.items.size();
            level.push_back(std::move(leaf));
        }
        while (level.size() > 1) {
            std::vector<NodeHandle> above;
            for (size_t start = 0; start < level.size(); start += fanout) {
                const size_t end = std::min(level.size(), start + fanout);
                above.push_back(parentOf({level.begin() + static_cast<std::ptrdiff_t>(start),
                                          level.begin() + static_cast<std::ptrdiff_t>(end)}));
            }
            level = std::move(above);
        }
        if (!level.empty()) {
            m_root = std::move(level.front());
        }
    }

    size_t size() const noexcept { return m_root ? m_root->count : 0; }
    bool empty() const noexcept { return !m_root; }
    /// The element at `index`, which must be below size().
    const Item& item(size_t index) const {
        const Node* node = &*m_root;
        while (!node->children.empty()) {
            node = &*node->children[childAt(*node, index)];
        }
        return node->items[index];
    }
    const Value& operator[](size_t index) const { return *item(index); }
    const Value& front() const { return (*this)[0]; }
    const Value& back() const { return (*this)[size() - 1]; }

    /// The list with the element at `index` replaced.
    List set(size_t index, Item value) const { return List(setIn(m_root, index, std::move(value))); }
    /// The list with `value` before the element at `index`, or at the end when `index` is size().
    List insert(size_t index, Item value) const {
        if (!m_root) {
            return List(std::vector<Item>{std::move(value)});
        }
        auto [first, second] = insertIn(m_root, index, std::move(value));
        return List(second ? parentOf({std::move(first), std::move(second)}) : std::move(first));
    }
    List append(Item value) const { return insert(size(), std::move(value)); }
    /// The list without the element at `index`.
    List erase(size_t index) const {
        NodeHandle root = eraseIn(m_root, index);
        while (root && root->children.size() == 1) {
            root = NodeHandle(root->children.front());
        }
        return List(std::move(root));
    }

    friend bool operator==(const List& left, const List& right) { return equal(left.m_root, right.m_root); }

    /// How many elements at the front are the very same in both lists. Nodes that both share cost one look.
    size_t sharedPrefix(const List& other) const {
        size_t count = sharedFront(m_root, other.m_root);
        const size_t most = std::min(size(), other.size());
        while (count < most && item(count).isIdentical(other.item(count))) {
            ++count;
        }
        return count;
    }
    /// The same at the back, for the elements beyond the first `prefix` of both.
    size_t sharedSuffix(const List& other, size_t prefix) const {
        const size_t most = std::min(size(), other.size()) - prefix;
        size_t count = std::min(most, sharedBack(m_root, other.m_root));
        while (count < most && item(size() - count - 1).isIdentical(other.item(other.size() - count - 1))) {
            ++count;
        }
        return count;
    }

    /// Walks the values in order.
    class Iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = Value;
        using difference_type = std::ptrdiff_t;
        using pointer = const Value*;
        using reference = const Value&;

        Iterator() = default;
        Iterator(const List* list, size_t index) : m_list(list), m_index(index) { enterLeaf(); }

        reference operator*() const { return **m_item; }
        pointer operator->() const { return &**m_item; }
        const Item& item() const { return *m_item; }
        Iterator& operator++() {
            ++m_index;
            if (++m_item == m_leafEnd) {
                enterLeaf();
            }
            return *this;
        }
        Iterator operator++(int) {
            Iterator before = *this;
            ++*this;
            return before;
        }
        friend bool operator==(const Iterator& left, const Iterator& right) {
            return left.m_index == right.m_index;
        }

    private:
        void enterLeaf() {
            if (m_index >= m_list->size()) {
                return;
            }
            const Node* node = &*m_list->m_root;
            size_t index = m_index;
            while (!node->children.empty()) {
                node = &*node->children[childAt(*node, index)];
            }
            m_item = node->items.data() + index;
            m_leafEnd = node->items.data() + node->items.size();
        }

        const List* m_list = nullptr;
        size_t m_index = 0;
        const Item* m_item = nullptr;
        const Item* m_leafEnd = nullptr;
    };

    Iterator begin() const { return Iterator(this, 0); }
    Iterator end() const { return Iterator(this, size()); }

private:
    static constexpr size_t fanout = 64;

    /// A leaf has `items`, any other node has `children`; none is ever empty.
    struct Node {
        size_t count = 0; ///< elements in and below the node
        std::vector<Item> items;
        std::vector<NodeHandle> children;
    };

    explicit List(NodeHandle root) : m_root(std::move(root)) {}

    static NodeHandle parentOf(std::vector<NodeHandle> children) {
        Node node;
        for (const NodeHandle& child : children) {
            node.count += child->count;
        }
        node.children = std::move(children);
        return node;
    }

    /// The child of `node` that holds element `index`, which becomes the index within that child.
    static size_t childAt(const Node& node, size_t& index) {
        size_t child = 0;
        while (index >= node.children[child]->count) {
            index -= node.children[child++]->count;
        }
        return child;
    }

    static NodeHandle setIn(const NodeHandle& handle, size_t index, Item value) {
        Node node = *handle;
        if (node.children.empty()) {
            node.items[index] = std::move(value);
        } else {
            const size_t child = childAt(node, index);
            node.children[child] = setIn(node.children[child], index, std::move(value));
        }
        return node;
    }

    /// The node with the value inserted, and its second half when it grew too large.
    static std::pair<NodeHandle, NodeHandle> insertIn(const NodeHandle& handle, size_t index, Item value) {
        Node node = *handle;
        ++node.count;
        if (node.children.empty()) {
            node.items.insert(node.items.begin() + static_cast<std::ptrdiff_t>(index), std::move(value));
            return splitIfLarge(std::move(node), &Node::items);
        }
        size_t child = 0;
        while (index > node.children[child]->count) {
            index -= node.children[child++]->count;
        }
        auto [first, second] = insertIn(node.children[child], index, std::move(value));
        node.children[child] = std::move(first);
        if (second) {
            node.children.insert(node.children.begin() + static_cast<std::ptrdiff_t>(child) + 1,
                                 std::move(second));
        }
        return splitIfLarge(std::move(node), &Node::children);
    }

    template <typename Entries>
    static std::pair<NodeHandle, NodeHandle> splitIfLarge(Node node, Entries Node::*entries) {
        if ((node.*entries).size() <= fanout) {
            return {NodeHandle(std::move(node)), NodeHandle()};
        }
        const auto middle = (node.*entries).begin() + fanout / 2;
        Node second;
        (second.*entries).assign(middle, (node.*entries).end());
        (node.*entries).erase(middle, (node.*entries).end());
        recount(node);
        recount(second);
        return {NodeHandle(std::move(node)), NodeHandle(std::move(second))};
    }

    static void recount(Node& node) {
        node.count = node.items.size();
        for (const NodeHandle& child : node.children) {
            node.count += child->count;
        }
    }

    /// The node without the element, or nothing when that was its last.
    static NodeHandle eraseIn(const NodeHandle& handle, size_t index) {
        if (handle->count == 1) {
            return NodeHandle();
        }
        Node node = *handle;
        --node.count;
        if (node.children.empty()) {
            node.items.erase(node.items.begin() + static_cast<std::ptrdiff_t>(index));
            return node;
        }
        const size_t child = childAt(node, index);
        NodeHandle rest = eraseIn(node.children[child], index);
        if (rest) {
            node.children[child] = std::move(rest);
        } else {
            node.children.erase(node.children.begin() + static_cast<std::ptrdiff_t>(child));
        }
        return node;
    }

    /// Shared nodes are equal without a look inside, so that two versions of a list cost what they differ in.
    static bool equal(const NodeHandle& left, const NodeHandle& right) {
        if (left.isIdentical(right)) {
            return true;
        }
        if (!left || !right || left->count != right->count) {
            return false;
        }
        const bool sameShape =
            left->items.size() == right->items.size() &&
            std::equal(
                left->children.begin(), left->children.end(), right->children.begin(), right->children.end(),
                [](const NodeHandle& one, const NodeHandle& other) { return one->count == other->count; });
        if (sameShape) {
            return left->items == right->items &&
                   std::equal(left->children.begin(), left->children.end(), right->children.begin(), equal);
        }
        const List one(left);
        const List other(right);
        for (auto leftValue = one.begin(), rightValue = other.begin(); leftValue != one.end();
             ++leftValue, ++rightValue) {
            if (!(leftValue.item() == rightValue.item())) {
                return false;
            }
        }
        return true;
    }

    /// The elements that two trees share at their front, as far as their nodes stand side by side; no more
    /// than there are.
    static size_t sharedFront(const NodeHandle& left, const NodeHandle& right) {
        size_t count = 0;
        if (left.isIdentical(right)) {
            return left ? left->count : 0;
        }
        if (!left || !right) {
            return 0;
        }
        const size_t most = std::min(left->children.size(), right->children.size());
        for (size_t child = 0; child < most; ++child) {
            const NodeHandle& one = left->children[child];
            const NodeHandle& other = right->children[child];
            const size_t shared = sharedFront(one, other);
            count += shared;
            if (shared < one->count || shared < other->count) {
                break;
            }
        }
        return count;
    }

    /// The same at their back.
    static size_t sharedBack(const NodeHandle& left, const NodeHandle& right) {
        size_t count = 0;
        if (left.isIdentical(right)) {
            return left ? left->count : 0;
        }
        if (!left || !right) {
            return 0;
        }
        const size_t most = std::min(left->children.size(), right->children.size());
        for (size_t child = 1; child <= most; ++child) {
            const NodeHandle& one = left->children[left->children.size() - child];
            const NodeHandle& other = right->children[right->children.size() - child];
            const size_t shared = sharedBack(one, other);
            count += shared;
            if (shared < one->count || shared < other->count) {
                break;
            }
        }
        return count;
    }

    NodeHandle m_root;
};

} // namespace quillon
