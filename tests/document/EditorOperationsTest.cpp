#include "document/EditorOperations.h"

#include "model/ComponentTree.h"
#include "package/NewArticle.h"

#include <gtest/gtest.h>

namespace quillon {

namespace {

class EditorOperationsTest : public testing::Test {
protected:
    EditorOperationsTest() {
        Component section = makeTextComponent(ComponentRole::section, "");
        section.components = List<Component>{inner};
        sectionId = section.id;
        ArticleDocument article = makeNewArticle("id", "T", "");
        article.components = {body, section};
        store.emplace(makeNewDocument(article), file::NeverSaved{}, [] { return 0.0; });
    }

    /// "body section(body heading)", a letter for each role.
    static std::string shape(const List<Component>& list) {
        std::string text;
        for (const Component& component : list) {
            text += std::string(component.role.rawValue()) + " ";
            if (component.components) {
                text += "( " + shape(*component.components) + ") ";
            }
        }
        return text;
    }
    std::string shape() const { return shape(store->article().components); }
    void select(const Uuid& id) { store->select(EditorSelection::ofComponent(id)); }
    const Component* selected() const {
        return store->selection().component
                   ? findComponent(*store->selection().component, store->article().components)
                   : nullptr;
    }

    Component body = makeTextComponent(ComponentRole::body, "one");
    Component inner = makeTextComponent(ComponentRole::body, "two");
    Uuid sectionId;
    std::optional<DocumentStore> store;
};

} // namespace

TEST_F(EditorOperationsTest, addingGoesIntoAContainerAndElseToTheEnd) {
    addComponent(*store, ComponentRole::heading);
    EXPECT_EQ(shape(), "body section ( body ) heading ");
    EXPECT_EQ(selected()->role, ComponentRole::heading);
    EXPECT_EQ(store->undoTitle(), "Undo Add Heading");
    select(sectionId);
    addComponent(*store, ComponentRole::quote);
    EXPECT_EQ(shape(), "body section ( body quote ) heading ");
    select(body.id);
    addComponent(*store, ComponentRole::photo);
    EXPECT_EQ(shape(), "body section ( body quote ) heading photo ");
    addComponent(*store, ComponentRole::divider, sectionId);
    EXPECT_EQ(shape(), "body section ( body quote divider ) heading photo ");

    const ArticleDocument before = store->article();
    addComponent(*store, ComponentRole::divider, Uuid::random());
    EXPECT_EQ(store->article(), before);
    EXPECT_FALSE(selected()) << "an id that does not exist";
    EXPECT_FALSE(defaultAddParent(*store));
}

TEST_F(EditorOperationsTest, deletingKeepsASelectionElsewhere) {
    select(inner.id);
    deleteComponent(*store, body.id);
    EXPECT_EQ(store->selection(), EditorSelection::ofComponent(inner.id));
    deleteComponent(*store, sectionId);
    EXPECT_EQ(store->selection(), EditorSelection::ofComponent(inner.id)) << "the lost child";
    EXPECT_EQ(shape(), "");
    store->undo();
    deleteComponent(*store, inner.id);
    EXPECT_EQ(store->selection(), EditorSelection::document());
    EXPECT_EQ(store->undoTitle(), "Undo Delete Body");
    store->undo();
    EXPECT_EQ(store->selection(), EditorSelection::ofComponent(inner.id));
}

TEST_F(EditorOperationsTest, movingSelectsAlsoWhenItIsRefused) {
    moveComponent(*store, body.id, sectionId, 0);
    EXPECT_EQ(shape(), "section ( body body ) ");
    EXPECT_EQ(store->selection(), EditorSelection::ofComponent(body.id));
    const ArticleDocument before = store->article();
    moveComponent(*store, sectionId, sectionId, 0);
    EXPECT_EQ(store->article(), before);
    EXPECT_EQ(store->selection(), EditorSelection::ofComponent(sectionId));
    EXPECT_EQ(store->undoTitle(), "Undo Move Body");
}

TEST_F(EditorOperationsTest, aDuplicateStandsBehindItsOriginalUnderIdsOfItsOwn) {
    duplicateComponent(*store, sectionId);
    EXPECT_EQ(shape(), "body section ( body ) section ( body ) ");
    EXPECT_NE(selected()->id, sectionId);
    EXPECT_NE(selected()->components->front().id, inner.id);
    EXPECT_EQ(store->selection(), EditorSelection::ofComponent(store->article().components.back().id));
}

TEST_F(EditorOperationsTest, pastedComponentsStandBehindTheSelectedOneOrFillAnEmptyContainer) {
    const auto paste = [&](std::initializer_list<ComponentRole> roles) {
        std::vector<Component> components;
        for (const ComponentRole& role : roles) {
            components.push_back(makeTextComponent(role, ""));
        }
        pasteComponents(*store, components);
    };
    paste({ComponentRole::intro});
    EXPECT_EQ(shape(), "body section ( body ) intro ");
    select(inner.id);
    paste({ComponentRole::quote, ComponentRole::author});
    EXPECT_EQ(shape(), "body section ( body quote author ) intro ");
    EXPECT_EQ(store->undoTitle(), "Undo Paste Components");
    EXPECT_EQ(selected()->role, ComponentRole::author);
    select(sectionId);
    paste({ComponentRole::title});
    EXPECT_EQ(shape(), "body section ( body quote author ) title intro ");
    addComponent(*store, ComponentRole::chapter);
    paste({ComponentRole::caption});
    EXPECT_EQ(shape(), "body section ( body quote author ) title intro chapter ( caption ) ");
    paste({});
    EXPECT_EQ(store->undoTitle(), "Undo Paste Caption");
}

TEST_F(EditorOperationsTest, theKeyboardMovesWithinOutOfAndIntoContainers) {
    const auto moved = [&](const Uuid& id, KeyboardMove move) {
        moveComponent(*store, id, move);
        return shape();
    };
    EXPECT_EQ(moved(body.id, KeyboardMove::up), "body section ( body ) ");
    EXPECT_FALSE(store->canUndo()) << "a step that leads nowhere";
    EXPECT_EQ(moved(body.id, KeyboardMove::down), "section ( body ) body ");
    EXPECT_EQ(moved(body.id, KeyboardMove::down), "section ( body ) body ");
    EXPECT_EQ(moved(body.id, KeyboardMove::in), "section ( body body ) ");
    EXPECT_EQ(moved(body.id, KeyboardMove::in), "section ( body body ) ")
        << "what stands above is no container";
    EXPECT_EQ(moved(body.id, KeyboardMove::up), "section ( body body ) ");
    EXPECT_EQ(selected()->id, body.id);
    EXPECT_EQ(moved(body.id, KeyboardMove::out), "section ( body ) body ");
    EXPECT_EQ(moved(body.id, KeyboardMove::out), "section ( body ) body ");
    EXPECT_EQ(store->undoTitle(), "Undo Move Body");
}

TEST_F(EditorOperationsTest, nothingNestsDeeperThanAFileCanHold) {
    select(sectionId);
    std::string last;
    for (int level = 0; level < 300; ++level) {
        const ArticleDocument before = store->article();
        addComponent(*store, ComponentRole::container);
        if (store->article() == before) {
            break;
        }
        ASSERT_TRUE(sharedArticleDecoder.decode(*sharedArticleEncoder.encode(store->article()))) << level;
        last = store->undoTitle();
    }
    EXPECT_FALSE(selected()) << "the last one was refused";
    EXPECT_EQ(last, "Undo Add Container");
}

TEST_F(EditorOperationsTest, accessFollowsItsComponentAndOutlivesIt) {
    const auto access = componentAccess(*store, inner.id);
    ASSERT_TRUE(access);
    moveComponent(*store, inner.id, std::nullopt, 0);
    Component changed = access->read();
    changed.text = std::string("three");
    access->write({"Change Text", "text"}, changed);
    EXPECT_EQ(store->article().components.front().text, "three");
    deleteComponent(*store, inner.id);
    const ArticleDocument before = store->article();
    EXPECT_NE(access->read().id, inner.id);
    access->write({"Change Text", "text"}, changed);
    EXPECT_EQ(store->article(), before);
    EXPECT_FALSE(componentAccess(*store, inner.id));
}

TEST(Sidebars, aHiddenOneBringsBothBack) {
    EXPECT_EQ(toggledSidebars({true, true}), (Sidebars{false, false}));
    for (const Sidebars hidden : {Sidebars{false, true}, Sidebars{true, false}, Sidebars{false, false}}) {
        EXPECT_EQ(toggledSidebars(hidden), (Sidebars{true, true}));
    }
}

} // namespace quillon
