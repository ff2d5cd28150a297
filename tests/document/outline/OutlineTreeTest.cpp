#include "document/outline/OutlineTree.h"

#include "model/ComponentTree.h"
#include "package/NewArticle.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace quillon {

namespace {

using Role = ComponentRole;

/// What a view would hold that knows of the tree only by what it is told.
struct Mirror {
    struct Row {
        const OutlineNode* node;
        std::vector<Row> children;
    };
    Row article{};
    OutlineTree tree{{
        .willInsert =
            [this](const OutlineNode& parent, std::size_t first, std::size_t count) {
                told += count;
                pending = [this, &parent, first, count] {
                    auto& rows = at(parent).children;
                    for (std::size_t row = first; row < first + count; ++row) {
                        rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(row),
                                    copy(*parent.children[row]));
                    }
                };
            },
        .inserted = [this] { pending(); },
        .willRemove =
            [this](const OutlineNode& parent, std::size_t first, std::size_t count) {
                told += count;
                auto& rows = at(parent).children;
                const auto begin = rows.begin() + static_cast<std::ptrdiff_t>(first);
                rows.erase(begin, begin + static_cast<std::ptrdiff_t>(count));
            },
        .removed = [] {},
        .changed = [this](const OutlineNode&) { ++told; },
    }};
    std::function<void()> pending;
    std::size_t told = 0; ///< rows

    static Row copy(const OutlineNode& node) {
        Row row{&node, {}};
        for (const auto& child : node.children) {
            row.children.push_back(copy(*child));
        }
        return row;
    }
    Row& at(const OutlineNode& node) { return node.parent ? at(*node.parent).children[node.row] : article; }

    static bool shows(const Row& row, const List<Component>& components) {
        if (row.children.size() != components.size()) {
            return false;
        }
        for (std::size_t index = 0; index < components.size(); ++index) {
            const OutlineNode& node = *row.children[index].node;
            const Component& component = components[index];
            const bool isShown = component.role.isContainer() && component.components;
            if (node.row != index || !(**node.component == component) ||
                !shows(row.children[index], isShown ? *component.components : List<Component>())) {
                return false;
            }
        }
        return true;
    }
};

Component make(Role::Case role, List<Component> children = {}) {
    Component component = makeTextComponent(role, "text");
    component.components = std::move(children);
    return component;
}

void collectIds(const List<Component>& list, std::vector<Uuid>& ids) {
    for (const Component& each : list) {
        ids.push_back(each.id);
        if (each.components) {
            collectIds(*each.components, ids);
        }
    }
}

} // namespace

TEST(OutlineTree, tellsEveryEditSoThatAViewCanFollow) {
    std::mt19937 random(7);
    Mirror mirror;
    List<Component> list;
    for (int edit = 0; edit < 2000; ++edit) {
        std::vector<Uuid> ids;
        collectIds(list, ids);
        const auto any = [&] {
            return ids[random() % ids.size()];
        };
        const auto choice = ids.size() > 60 ? 1 : random() % 5;
        if (ids.empty() || choice == 0) {
            const auto parent = ids.empty() || random() % 2 ? std::optional<Uuid>() : any();
            const Role::Case role = random() % 2 ? Role::section : Role::body;
            list = insertComponent(make(role, {make(Role::photo), make(Role::aside)}), parent,
                                   static_cast<std::int64_t>(random() % 5), list);
        } else if (choice == 1) {
            list = removeComponent(any(), list);
        } else if (choice == 2) {
            list = moveComponent(any(), random() % 2 ? std::optional<Uuid>() : any(),
                                 static_cast<std::int64_t>(random() % 5), list);
        } else {
            // Another text, or another role, which may hide or show what the component holds.
            Component changed = *findComponent(any(), list);
            changed.text = std::to_string(edit);
            changed.role = choice == 3 ? changed.role : Role(random() % 2 ? Role::container : Role::quote);
            const Uuid id = changed.id;
            list = replaceComponent(id, changed, list);
        }
        mirror.tree.update(list);
        ASSERT_TRUE(Mirror::shows(mirror.article, list)) << edit;
    }
    // As undo does it, and as another file does it.
    std::vector<Shared<Component>> turned;
    for (std::size_t index = list.size(); index > 0; --index) {
        turned.push_back(list.item(index - 1));
    }
    mirror.tree.update(List<Component>(turned));
    EXPECT_TRUE(Mirror::shows(mirror.article, List<Component>(turned)));
    mirror.tree.update({make(Role::title)});
    mirror.tree.update({});
    EXPECT_TRUE(mirror.article.children.empty());
}

TEST(OutlineTree, anEditTouchesOneRowAndFindsByWhatIsShown) {
    const Component hidden = make(Role::body);
    const Component shown = make(Role::body);
    const Component quote = make(Role::quote, {hidden});
    std::vector<Shared<Component>> many(1000, Shared<Component>(make(Role::body)));
    for (auto& each : many) {
        each = Shared<Component>(make(Role::body));
    }
    List<Component> list(std::move(many));
    list = insertComponent(make(Role::section, {shown, quote}), std::nullopt, 500, list);
    Mirror mirror;
    mirror.tree.update(list);
    EXPECT_EQ(mirror.tree.find(hidden.id), nullptr);
    EXPECT_EQ(mirror.tree.find(shown.id)->depth(), 1);
    EXPECT_EQ(mirror.tree.find(list[0].id)->depth(), 0);
    const auto cost = [&](const List<Component>& next) {
        mirror.told = 0;
        mirror.tree.update(next);
        return mirror.told;
    };
    Component changed = shown;
    changed.text = "other";
    EXPECT_EQ(cost(replaceComponent(shown.id, changed, list)), 2U)
        << "the component and the section that holds it";
    EXPECT_EQ(cost(removeComponent(list[900].id, list)), 1U + 2U);
    EXPECT_EQ(mirror.tree.find(list[900].id), nullptr);
    EXPECT_LE(cost(list), 1U + 2U);
    EXPECT_EQ(cost(moveComponent(list[10].id, std::nullopt, 990, list)), 2U);
    mirror.tree.update(list);
    EXPECT_EQ(cost(moveComponent(list[990].id, std::nullopt, 10, list)), 2U);
}

} // namespace quillon
