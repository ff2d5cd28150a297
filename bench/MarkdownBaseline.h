#pragma once

#include <string>

namespace quillon::bench {

/// Appends the HTML that a widespread fast library makes of `markdown`.
void appendBaselineHtml(std::string& out, const std::string& markdown);

} // namespace quillon::bench
