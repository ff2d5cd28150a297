#pragma once

#include <set>
#include <string>
#include <string_view>

namespace quillon {

/// Names of font families, of which the system's font matcher does not tell capitals from small letters.
class FontFamilies {
public:
    void add(std::string_view name);
    bool contains(std::string_view name) const;

private:
    std::set<std::string, std::less<>> m_names; ///< in small letters
};

/// Rules for the system's font matcher, as a configuration text of its kind: a PostScript name of the font
/// catalogue means its family with its weight, width and style, and a family that is not among `installed`
/// means the first of its stand-ins that is.
std::string fontRules(const FontFamilies& installed);

} // namespace quillon
