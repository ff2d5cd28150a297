#pragma once

#include "base/Expected.h"
#include "model/Component.h"

#include <string>
#include <string_view>
#include <vector>

/// Components as JSON text, as they travel through the clipboard.
namespace quillon {

/// The component with all below it, in the form in which articles are saved. Empty where it holds a number
/// that JSON cannot express.
std::string componentText(const Component& component);

/// The components in a piece of an article's JSON: one, a list of them, or an object whose "components" they
/// are, such as a whole article. Each has a fresh id. The failure is a sentence about what the text lacks.
Expected<std::vector<Component>, std::string> readComponents(std::string_view text);

} // namespace quillon
