#pragma once

#include <string>
#include <string_view>

/// How a page names the assets of its package, "bundle://images/a.jpg", and how the web engine takes that.
namespace quillon {

inline constexpr std::string_view bundlePrefix = "bundle://";

/// The page with an empty host in every such address of a tag, a style or a script: "bundle:///images/a.jpg".
/// The engine takes the first name behind two slashes for a host, lowers its capitals and refuses most
/// characters in it. In the same places, the product's own pictures get an address in `productFolder`, so
/// that they come from the program. Text and the attributes `alt` and `title`, which are shown, stay as they
/// are.
std::string withEngineAddresses(std::string_view html);

/// The folder that stands for the product's pictures in such an address.
inline constexpr std::string_view productFolder = ".product/";

/// The asset's key that an address asks for: host and path, percent-decoded, without slashes at both ends. A
/// "%" that begins no code stands for itself. Empty for what is no such address.
std::string bundleAssetKey(std::string_view url);

/// `text` with each "%xx" turned to a byte; a "%" that begins no code stands for itself.
std::string percentDecodedLeniently(std::string_view text);

} // namespace quillon
