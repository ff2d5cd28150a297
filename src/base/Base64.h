#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillon {

/// The bytes that `text` writes in base64 (RFC 4648, the alphabet with "+" and "/"). Nothing for a length
/// that is no multiple of four, for any other character, blanks and line ends included, and for "=" anywhere
/// but in the last two places. Bits left over in the last character are not looked at.
std::optional<std::string> base64Decoded(std::string_view text);

} // namespace quillon
