#pragma once

#include "model/ComponentRole.h"

#include <string_view>

namespace quillon {

/// The colour of a role in the outline, "#AF52DE".
std::string_view roleTint(const ComponentRole& role);

/// The colour of the article's own row.
inline constexpr std::string_view articleTint = "#007AFF";

} // namespace quillon
