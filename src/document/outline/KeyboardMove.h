#pragma once

#include "document/outline/ComponentDropIntent.h"

#include <optional>

namespace quillon {

/// The ways to move a component by the keyboard.
enum class KeyboardMove {
    up,   ///< before the sibling above
    down, ///< behind the sibling below
    in,   ///< to the end of the container above
    out,  ///< behind the container that holds it
};

/// Where `move` takes the component `id`; nothing where it leads nowhere.
std::optional<DropPlace> movedPlace(const Uuid& id, KeyboardMove move, const List<Component>& components);

} // namespace quillon
