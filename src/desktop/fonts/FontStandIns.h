#pragma once

#include <array>
#include <span>
#include <string_view>

namespace quillon {

/// Free faces to show a family with where the machine lacks it. Each list is in the order of preference: the
/// first family that is installed serves. A list that is empty, or of which nothing is installed, leaves its
/// texts to `faces`.
struct FontStandIn {
    using Families = std::array<std::string_view, 3>;

    std::string_view family; ///< as articles and style sheets name it
    Families faces;
    Families condensed = {};    ///< for condensed text
    Families otherWeights = {}; ///< for light and medium text, where `faces` have but regular and bold
    bool isBold = false;        ///< the family is bold all through, whatever the text asks for
};

/// Every family of the font catalogue in its order, then the names that stand for the platform's own faces.
std::span<const FontStandIn> fontStandIns();

} // namespace quillon
