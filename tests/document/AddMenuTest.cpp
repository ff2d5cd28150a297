#include "document/AddMenu.h"

#include <gtest/gtest.h>

#include <map>

namespace quillon {

TEST(AddMenu, everyRoleButTheButtonIsOfferedOnce) {
    std::map<ComponentRole::Case, int> offered;
    for (const AddMenuSection& section : addMenuSections()) {
        for (const ComponentRole::Case role : section.roles) {
            ++offered[role];
        }
    }
    for (const ComponentRole::Case role : ComponentRole::allNamed()) {
        EXPECT_EQ(offered[role], role == ComponentRole::button ? 0 : 1) << ComponentRole(role).displayName();
    }
}

} // namespace quillon
