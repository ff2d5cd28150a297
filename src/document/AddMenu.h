#pragma once

#include "model/ComponentRole.h"

#include <span>
#include <string_view>

namespace quillon {

/// A group of the menus that add a component.
struct AddMenuSection {
    std::string_view title;
    std::span<const ComponentRole::Case> roles;
};

/// What can be added, the same in every place. A `button` is not offered: it comes from files alone.
std::span<const AddMenuSection> addMenuSections();

} // namespace quillon
