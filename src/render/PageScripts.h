#pragma once

#include "model/Component.h"

#include <string>
#include <string_view>

namespace quillon::HTMLRenderer {

/// The scripts of the social embeds that stand anywhere among `components`; empty when there are none.
std::string embedScripts(const List<Component>& components);

/// The script at the end of each page: an image that does not load gives way to a placeholder with its
/// alternative text.
std::string_view imagePlaceholderScript();

} // namespace quillon::HTMLRenderer
