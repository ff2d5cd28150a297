#include "document/outline/OutlineDrag.h"
#include "document/outline/RoleTint.h"

#include "model/ComponentTree.h"
#include "package/NewArticle.h"

#include <gtest/gtest.h>

namespace quillon {

namespace {

using Intent = ComponentDropIntent;
using Role = ComponentRole;

Component make(Role::Case role, std::initializer_list<Component> children = {}) {
    Component component = makeTextComponent(role, "");
    if (Role(role).isContainer()) {
        component.components =
            List<Component>(std::vector<Shared<Component>>(children.begin(), children.end()));
    }
    return component;
}

/// "a b s(c t(d)) e", the letters naming the components.
struct OutlineDropTest : testing::Test {
    Component a = make(Role::body);
    Component b = make(Role::body);
    Component c = make(Role::photo);
    Component d = make(Role::photo);
    Component t = make(Role::section, {d});
    Component s = make(Role::section, {c, t});
    Component e = make(Role::body);
    List<Component> list = {a, b, s, e};

    std::string shape(const List<Component>& components) const {
        std::string text;
        for (const Component& each : components) {
            for (const auto& [component, name] :
                 {std::pair{&a, "a"}, {&b, "b"}, {&c, "c"}, {&d, "d"}, {&t, "t"}, {&s, "s"}, {&e, "e"}}) {
                text += each.id == component->id ? name : "";
            }
            text += each.components && !each.components->empty() ? "(" + shape(*each.components) + ")" : "";
        }
        return text;
    }
    /// What the list is after a drop; "refused" where it is not allowed.
    std::string dropped(const Component& component, const Intent& intent) const {
        const auto place = dropPlace(component.id, intent, list);
        return place ? shape(moveComponent(component.id, place->parent, place->index, list)) : "refused";
    }
};

} // namespace

TEST_F(OutlineDropTest, theIntentFollowsThePlaceInTheRow) {
    const struct {
        const Component& row;
        double height;
        double y;
        Intent intent;
    } rows[] = {
        {s, 30, -5, Intent::insertBefore(s.id)},   {s, 30, 7, Intent::insertBefore(s.id)},
        {s, 30, 7.5, Intent::appendChild(s.id)},   {s, 30, 22.5, Intent::appendChild(s.id)},
        {s, 30, 23, Intent::insertAfter(s.id)},    {s, 30, 99, Intent::insertAfter(s.id)},
        {a, 30, 14.9, Intent::insertBefore(a.id)}, {a, 30, 15, Intent::insertAfter(a.id)},
        {a, 0, 0.4, Intent::insertBefore(a.id)},   {a, 0, 0.5, Intent::insertAfter(a.id)},
        {s, 0, 0.5, Intent::appendChild(s.id)},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(dropIntent(row.row, row.height, row.y), row.intent) << row.height << " " << row.y;
    }
}

TEST_F(OutlineDropTest, dropsEndWhereTheyAreShown) {
    const struct {
        const Component& dragged;
        Intent intent;
        const char* result;
    } rows[] = {
        {a, Intent::insertAfter(b.id), "bas(ct(d))e"},
        {b, Intent::insertBefore(a.id), "bas(ct(d))e"},
        {e, Intent::insertBefore(a.id), "eabs(ct(d))"},
        {a, Intent::insertBefore(b.id), "abs(ct(d))e"},
        {c, Intent::insertBefore(s.id), "abcs(t(d))e"},
        {d, Intent::insertAfter(t.id), "abs(ctd)e"},
        {a, Intent::insertAfter(c.id), "bs(cat(d))e"},
        {a, Intent::appendChild(t.id), "bs(ct(da))e"},
        {c, Intent::appendChild(s.id), "abs(t(d)c)e"},
        {a, Intent::appendToRoot(), "bs(ct(d))ea"},
        {e, Intent::appendToRoot(), "abs(ct(d))e"},
        {s, Intent::insertAfter(d.id), "abs(ct(d))e"}, // shown, but no move
        {s, Intent::appendChild(t.id), "refused"},
        {s, Intent::appendChild(s.id), "refused"},
        {a, Intent::insertBefore(a.id), "refused"},
        {a, Intent::insertAfter(a.id), "refused"},
        {a, Intent::appendChild(b.id), "refused"},
        {a, Intent::insertAfter(Uuid::random()), "refused"},
        {make(Role::body), Intent::appendToRoot(), "refused"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(dropped(row.dragged, row.intent), row.result) << shape({row.dragged});
    }
}

TEST_F(OutlineDropTest, rowsAndTheRootShareOneDrag) {
    std::vector<Intent> done;
    OutlineDrag drag;
    drag.canDrop = [&](const Uuid& id, const Intent& intent) {
        return canDrop(id, intent, list);
    };
    drag.onDrop = [&](const Uuid&, const Intent& intent) {
        done.push_back(intent);
        return true;
    };
    const ComponentRowDropDelegate overA{a, 30, drag};
    const ComponentRowDropDelegate overS{s, 30, drag};
    const ComponentRootDropDelegate overRoot{drag};
    EXPECT_EQ(overA.enteredOrMoved(3), DropProposal::forbidden) << "what comes from elsewhere";
    EXPECT_EQ(overRoot.enteredOrMoved(), DropProposal::forbidden);
    EXPECT_FALSE(overA.dropped(3));

    drag.begin(s.id);
    EXPECT_EQ(overA.enteredOrMoved(3), DropProposal::move);
    EXPECT_EQ(drag.activeDropIntent, Intent::insertBefore(a.id));
    EXPECT_EQ(overS.enteredOrMoved(15), DropProposal::forbidden);
    overS.left();
    EXPECT_EQ(drag.activeDropIntent, Intent::insertBefore(a.id)) << "another row's is left alone";
    EXPECT_EQ(overRoot.enteredOrMoved(), DropProposal::move);
    overA.left();
    EXPECT_EQ(drag.activeDropIntent, Intent::appendToRoot());
    overRoot.left();
    EXPECT_FALSE(drag.activeDropIntent);
    (void)overA.enteredOrMoved(29);
    overA.left();
    EXPECT_FALSE(drag.activeDropIntent);

    // A drop where none is allowed falls back on the one that was shown last.
    (void)overA.enteredOrMoved(29);
    EXPECT_TRUE(overS.dropped(15));
    EXPECT_EQ(done, std::vector{Intent::insertAfter(a.id)});
    EXPECT_FALSE(drag.activeDraggedID);
    drag.begin(a.id);
    EXPECT_TRUE(overRoot.dropped());
    EXPECT_EQ(done.back(), Intent::appendToRoot());
    EXPECT_FALSE(overRoot.dropped());
}

TEST(RoleTint, everyRoleHasAColour) {
    for (const Role::Case role : Role::allNamed()) {
        const std::string tint(roleTint(role));
        EXPECT_EQ(tint.size(), 7U);
        EXPECT_EQ(tint.front(), '#');
    }
    EXPECT_EQ(roleTint(Role::fromRawValue("unheard_of")), "#8E8E93");
}

} // namespace quillon
