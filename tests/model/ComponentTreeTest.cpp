#include "model/ComponentTree.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <functional>

namespace quillon {
namespace {

/// A tree as anyone would write it down first: nodes with a number for an id, copied whole at every step.
struct Node {
    uint64_t id = 0;
    ComponentRole::Case role = ComponentRole::body;
    std::optional<std::vector<Node>> children;

    bool operator==(const Node&) const = default;
};
using Nodes = std::vector<Node>;

Uuid uuidOf(uint64_t id) {
    return Uuid{0, id};
}

Component componentOf(const Node& node);
List<Component> componentsOf(const Nodes& nodes) {
    std::vector<Shared<Component>> items;
    for (const Node& node : nodes) {
        items.emplace_back(componentOf(node));
    }
    return List<Component>(std::move(items));
}
Component componentOf(const Node& node) {
    Component component;
    component.id = uuidOf(node.id);
    component.role = node.role;
    if (node.children) {
        component.components = componentsOf(*node.children);
    }
    return component;
}
Nodes nodesOf(const List<Component>& list) {
    Nodes nodes;
    for (const Component& component : list) {
        nodes.push_back({component.id.low, component.role.kind(), std::nullopt});
        if (component.components) {
            nodes.back().children = nodesOf(*component.components);
        }
    }
    return nodes;
}

/// "a(b c()) d": a tree on one line, a letter for an id; capitals are sections, small letters bodies.
std::string lineOf(const Nodes& nodes) {
    std::string line;
    for (const Node& node : nodes) {
        line += (line.empty() ? "" : " ") + std::string(1, static_cast<char>(node.id));
        line += node.children ? "(" + lineOf(*node.children) + ")" : "";
    }
    return line;
}
Nodes nodesIn(std::string_view& line) {
    Nodes nodes;
    while (!line.empty() && line.front() != ')') {
        const char c = line.front();
        line.remove_prefix(1);
        if (c == '(') {
            nodes.back().children = nodesIn(line);
            line.remove_prefix(1);
        } else if (c != ' ') {
            nodes.push_back({static_cast<uint64_t>(c), c < 'a' ? ComponentRole::section : ComponentRole::body,
                             std::nullopt});
        }
    }
    return nodes;
}
List<Component> tree(std::string_view line) {
    return componentsOf(nodesIn(line));
}
std::string lineOf(const List<Component>& list) {
    return lineOf(nodesOf(list));
}
Uuid id(char letter) {
    return uuidOf(static_cast<uint64_t>(letter));
}
Component node(char letter) {
    return tree(std::string(1, letter))[0];
}

TEST(ComponentTree, findAndReplace) {
    const auto list = tree("a(b c(d)) E(f)");
    EXPECT_EQ(findComponent(id('d'), list)->id, id('d'));
    EXPECT_EQ(findComponent(id('E'), list)->role, ComponentRole::section);
    EXPECT_EQ(findComponent(id('x'), list), nullptr);
    EXPECT_EQ(findComponent(id('x'), {}), nullptr);
    EXPECT_EQ(lineOf(replaceComponent(id('c'), node('x'), list)), "a(b x) E(f)");
    EXPECT_EQ(lineOf(replaceComponent(id('E'), tree("y(z)")[0], list)), "a(b c(d)) y(z)");
    EXPECT_EQ(lineOf(replaceComponent(id('x'), node('y'), list)), "a(b c(d)) E(f)");
    EXPECT_EQ(lineOf(replaceComponent(id('c'), tree("c(c)")[0], list)), "a(b c(c)) E(f)");
}

TEST(ComponentTree, removeAndExtract) {
    const auto list = tree("a(b c(d)) E(f)");
    EXPECT_EQ(lineOf(removeComponent(id('f'), list)), "a(b c(d)) E()");
    EXPECT_EQ(lineOf(removeComponent(id('c'), list)), "a(b) E(f)");
    EXPECT_EQ(removeComponent(id('x'), list), list);
    EXPECT_EQ(lineOf(removeComponent(id('d'), tree("d a(d b(d c)) d(d)"))), "a(b(c))");
    const auto extracted = extractComponent(id('c'), list);
    ASSERT_TRUE(extracted);
    EXPECT_EQ(extracted->component->id, id('c'));
    EXPECT_EQ(lineOf(*extracted->component->components), "d");
    EXPECT_EQ(lineOf(extracted->rest), "a(b) E(f)");
    EXPECT_FALSE(extractComponent(id('x'), list));
    // The level comes before what lies below it, and only the first goes.
    EXPECT_EQ(lineOf(extractComponent(id('d'), tree("a(d) d d"))->rest), "a(d) d");
    EXPECT_EQ(lineOf(extractComponent(id('d'), tree("a(b(d)) c(d)"))->rest), "a(b()) c(d)");
}

TEST(ComponentTree, insert) {
    struct Case {
        char parent; ///< '-' for the top level
        std::optional<int64_t> index;
        std::string_view after;
    };
    const Case cases[] = {
        {'-', 0, "x a(b) E()"},
        {'-', 1, "a(b) x E()"},
        {'-', 9, "a(b) E() x"},
        {'-', -4, "x a(b) E()"},
        {'-', std::nullopt, "a(b) E() x"},
        {'a', 0, "a(x b) E()"},
        {'a', std::nullopt, "a(b x) E()"},
        {'a', INT64_MIN, "a(x b) E()"},
        {'a', INT64_MAX, "a(b x) E()"},
        {'b', 0, "a(b(x)) E()"},
        {'E', 3, "a(b) E(x)"},
        {'z', 0, "a(b) E()"},
    };
    for (const Case& expected : cases) {
        SCOPED_TRACE(expected.after);
        const auto parent = expected.parent == '-' ? std::nullopt : std::optional(id(expected.parent));
        EXPECT_EQ(lineOf(insertComponent(node('x'), parent, expected.index, tree("a(b) E()"))),
                  expected.after);
    }
}

TEST(ComponentTree, move) {
    struct Case {
        std::string_view before;
        char moved;
        char parent; ///< '-' for the top level
        int64_t index;
        std::string_view after;
    };
    const Case cases[] = {
        {"a b c", 'a', '-', 2, "b c a"},
        {"a b c", 'a', '-', 1, "b a c"},
        {"a b c", 'c', '-', 0, "c a b"},
        {"a b c", 'b', '-', -1, "b a c"},
        {"a b c", 'b', '-', 99, "a c b"},
        {"a b c", 'x', '-', 0, "a b c"},
        {"a B(c)", 'a', 'B', 0, "B(a c)"},
        {"a B(c)", 'a', 'B', 5, "B(c a)"},
        {"a B", 'a', 'B', 0, "B(a)"},
        {"a b(c)", 'a', 'b', 0, "a b(c)"},
        {"a B(c)", 'c', '-', 0, "c a B()"},
        {"A(B(c))", 'A', 'B', 0, "A(B(c))"},
        {"A(B(c))", 'A', 'A', 0, "A(B(c))"},
        {"A(B(C))", 'A', 'C', 0, "A(B(C))"},
        {"A(B(C))", 'C', 'A', 0, "A(C B())"},
        {"A(b c d)", 'b', 'A', 2, "A(c d b)"},
        {"a B(c)", 'a', 'Z', 0, "a B(c)"},
        // Of two with the same id the one that moves cannot be its own parent.
        {"A(b) A(c)", 'A', 'A', 0, "A(b) A(c)"},
        {"A(B) c B", 'A', 'B', 0, "A(B) c B"},
    };
    for (const Case& expected : cases) {
        SCOPED_TRACE(std::string(expected.before) + " -> " + std::string(expected.after));
        const auto parent = expected.parent == '-' ? std::nullopt : std::optional(id(expected.parent));
        EXPECT_EQ(lineOf(moveComponent(id(expected.moved), parent, expected.index, tree(expected.before))),
                  expected.after);
    }
}

TEST(ComponentTree, placesAndSubtrees) {
    const auto list = tree("a(b c(d)) E(F(g) h) i(J(k))");
    EXPECT_EQ(locateComponent(id('d'), list), (ComponentLocation{id('c'), 0}));
    EXPECT_EQ(locateComponent(id('h'), list), (ComponentLocation{id('E'), 1}));
    EXPECT_EQ(locateComponent(id('i'), list), (ComponentLocation{std::nullopt, 2}));
    EXPECT_EQ(locateComponent(id('x'), list), std::nullopt);
    EXPECT_TRUE(isInSubtree(id('d'), id('a'), list));
    EXPECT_FALSE(isInSubtree(id('a'), id('a'), list));
    EXPECT_FALSE(isInSubtree(id('a'), id('d'), list));
    EXPECT_FALSE(isInSubtree(id('g'), id('a'), list));
    EXPECT_FALSE(isInSubtree(id('g'), id('x'), list));
    // A body hides the containers within it.
    EXPECT_EQ(expandableComponentIDs(list), (std::unordered_set{id('E'), id('F')}));
}

TEST(ComponentTree, editsShareWhatTheyLeaveAlone) {
    const auto list = tree("A(b C(d e) f) G(h)");
    const auto edited = replaceComponent(id('d'), node('x'), list);
    EXPECT_TRUE(edited.item(1).isIdentical(list.item(1)));
    const List<Component>& before = *list[0].components;
    const List<Component>& after = *edited[0].components;
    EXPECT_TRUE(after.item(0).isIdentical(before.item(0)));
    EXPECT_TRUE(after.item(2).isIdentical(before.item(2)));
    EXPECT_TRUE(after[1].components->item(1).isIdentical(before[1].components->item(1)));
    EXPECT_FALSE(after.item(1).isIdentical(before.item(1)));
    EXPECT_EQ(lineOf(list), "A(b C(d e) f) G(h)");
    EXPECT_TRUE(extractComponent(id('C'), list)->component.isIdentical(before.item(1)));
}

/// The rules once more, over the naive tree.
namespace naive {

Node* find(uint64_t id, Nodes& nodes) {
    for (Node& node : nodes) {
        if (node.id == id) {
            return &node;
        }
        if (Node* found = node.children ? find(id, *node.children) : nullptr) {
            return found;
        }
    }
    return nullptr;
}

bool remove(uint64_t id, Nodes& nodes) {
    bool removed = std::erase_if(nodes, [id](const Node& node) { return node.id == id; }) > 0;
    for (Node& node : nodes) {
        removed |= node.children && remove(id, *node.children);
    }
    return removed;
}

void insert(Node node, std::optional<uint64_t> parent, int64_t index, Nodes& nodes) {
    Nodes* target = &nodes;
    if (parent) {
        Node* found = find(*parent, nodes);
        if (!found) {
            return;
        }
        target = found->children ? &*found->children : &found->children.emplace();
    }
    const auto size = static_cast<int64_t>(target->size());
    target->insert(target->begin() + std::min(std::max<int64_t>(index, 0), size), std::move(node));
}

void move(uint64_t id, std::optional<uint64_t> parent, int64_t index, Nodes& nodes) {
    const Node* found = find(id, nodes);
    if (!found) {
        return;
    }
    Node moved = *found;
    if (parent) {
        Nodes within{moved};
        const Node* target = find(*parent, nodes);
        if (find(*parent, within) || !target || target->role != ComponentRole::section) {
            return;
        }
    }
    remove(id, nodes);
    insert(std::move(moved), parent, index, nodes);
}

} // namespace naive

RC_GTEST_PROP(ComponentTree, behavesAsATreeOfPlainVectors, ()) {
    Nodes expected;
    List<Component> list;
    uint64_t newest = 0;
    const auto steps =
        *rc::gen::container<std::vector<std::tuple<int, uint8_t, uint8_t, int>>>(rc::gen::tuple(
            rc::gen::weightedElement<int>({{4, 0}, {1, 1}, {1, 2}, {3, 3}}), rc::gen::arbitrary<uint8_t>(),
            rc::gen::arbitrary<uint8_t>(), rc::gen::inRange(-2, 12)));
    for (const auto& [operation, first, second, index] : steps) {
        const uint64_t id = first % (newest + 2);
        const auto parent = second % 4 == 0 ? std::nullopt : std::optional<uint64_t>(second % (newest + 2));
        const auto parentUuid = parent ? std::optional(uuidOf(*parent)) : std::nullopt;
        Node fresh{++newest, second % 3 == 0 ? ComponentRole::body : ComponentRole::section, std::nullopt};
        switch (operation) {
        case 0:
            list = insertComponent(componentOf(fresh), parentUuid, index, list);
            naive::insert(fresh, parent, index, expected);
            break;
        case 1:
            list = removeComponent(uuidOf(id), list);
            naive::remove(id, expected);
            break;
        case 2:
            list = replaceComponent(uuidOf(id), componentOf(fresh), list);
            if (Node* found = naive::find(id, expected)) {
                *found = fresh;
            }
            break;
        default:
            list = moveComponent(uuidOf(id), parentUuid, index, list);
            naive::move(id, parent, index, expected);
        }
        RC_ASSERT(lineOf(nodesOf(list)) == lineOf(expected));
        RC_ASSERT(nodesOf(list) == expected);
    }
    // Every component stands where it says it stands.
    std::function<void(const Nodes&, std::optional<Uuid>)> check = [&](const Nodes& nodes,
                                                                       std::optional<Uuid> parent) {
        for (size_t at = 0; at < nodes.size(); ++at) {
            const Uuid uuid = uuidOf(nodes[at].id);
            RC_ASSERT(locateComponent(uuid, list) == (ComponentLocation{parent, at}));
            RC_ASSERT(findComponent(uuid, list)->id == uuid);
            RC_ASSERT(!parent || isInSubtree(uuid, *parent, list));
            if (nodes[at].children) {
                check(*nodes[at].children, uuid);
            }
        }
    };
    check(expected, std::nullopt);
}

} // namespace
} // namespace quillon
