#pragma once

#include "model/TextStyles.h"

#include <cstdint>
#include <string>

namespace quillon::HTMLRenderer {

/// How many characters `style` (or null) enlarges at the beginning of a text; below 1 for none.
int64_t dropCapCount(const ComponentTextStyle* style);

/// Puts the first characters of `html` behind its leading tags and white space into a span: at most
/// dropCapCount(style) of them, and none beyond the next tag or entity.
void insertDropCap(std::string& html, const ComponentTextStyle* style);

} // namespace quillon::HTMLRenderer
