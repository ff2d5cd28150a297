#pragma once

#include <string>
#include <string_view>

namespace quillon::support {

/// What is wrong with the tags of an HTML page, with the text around it; empty when nothing is: every element
/// that is not void is closed in its turn, the attributes stand in quotation marks behind a blank each, and
/// no "<" or quotation mark stands where a tag or an attribute could take it for its own.
std::string tagFault(std::string_view html);

} // namespace quillon::support
