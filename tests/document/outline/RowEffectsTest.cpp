#include "document/outline/ComponentRoleIcon.h"
#include "document/outline/RowSwipe.h"

#include <gtest/gtest.h>

namespace quillon {

TEST(ComponentRoleIcon, theEffectsFollowTheSelection) {
    ComponentRoleIcon photo{.role = ComponentRole::photo};
    EXPECT_EQ(photo.systemImage(), "photo");
    photo.appear();
    photo.setSelected(true);
    EXPECT_EQ(photo.systemImage(), "photo.fill");
    EXPECT_EQ(photo.activationCount, 1);
    photo.setSelected(true);
    EXPECT_EQ(photo.activationCount, 1) << "it was selected already";
    photo.setSelected(false);
    EXPECT_EQ(photo.systemImage(), "photo");
    photo.setSelected(true);
    EXPECT_EQ(photo.activationCount, 2);
    photo.setRole(ComponentRole::map);
    EXPECT_EQ(photo.systemImage(), "map.fill");

    ComponentRoleIcon byline{.role = ComponentRole::byline};
    for (int time = 0; time < 2; ++time) {
        byline.setSelected(true);
        EXPECT_FALSE(byline.drawOnActive) << "not before a later turn";
        byline.drawOn();
        EXPECT_TRUE(byline.drawOnActive);
        byline.setSelected(false);
        EXPECT_FALSE(byline.drawOnActive);
    }
    EXPECT_EQ(byline.activationCount, 0);
}

TEST(RowSwipe, opensClosesAndPresses) {
    const Uuid row = Uuid::random();
    const struct {
        double pushed;
        bool mayPress;
        RowSwipe::End end;
        double offset;
    } rows[] = {
        {-20, true, RowSwipe::End::closed, 0},
        {-40, true, RowSwipe::End::open, RowSwipe::buttonWidth},
        {-151, false, RowSwipe::End::open, RowSwipe::buttonWidth},
        {-151, true, RowSwipe::End::pressed, 151},
        {60, true, RowSwipe::End::closed, 0},
    };
    for (const auto& each : rows) {
        RowSwipe swipe;
        swipe.push(row, each.pushed, 300);
        EXPECT_EQ(swipe.release(each.mayPress), each.end) << each.pushed;
        EXPECT_EQ(swipe.offset(), each.offset);
    }
    RowSwipe swipe;
    swipe.push(row, -100, 300);
    swipe.push(Uuid::random(), -10, 300);
    EXPECT_EQ(swipe.offset(), 10) << "another row begins anew";
    swipe.push(*swipe.row(), 30, 300);
    EXPECT_FALSE(swipe.row());
}

} // namespace quillon
