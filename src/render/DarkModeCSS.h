#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillon::HTMLRenderer {

/// The rules that a page applies only in dark mode, collected while its components are rendered: the one
/// mutable thing of a render.
struct DarkModeCSS {
    std::vector<std::string> rules; ///< in the order of registration
    int counter = 0;                ///< rules issued so far
};

/// `css` with each declaration marked " !important". Split at every ";", inside values too.
std::string importantDeclarations(std::string_view css);

/// Registers a rule for `css` and gives its class name, "dk" and a number counted from 1. Empty css registers
/// nothing and gives the empty text.
std::string registerDarkRule(std::string_view css, DarkModeCSS& darkCSS);

/// What stands behind the class names of an element whose dark declarations are `css`, not yet marked
/// important: a blank and the class name of its new rule, or nothing.
std::string darkClass(std::string_view css, DarkModeCSS& darkCSS);

/// The media block of all rules; empty without rules.
std::string darkRuleBlock(const DarkModeCSS& darkCSS);

} // namespace quillon::HTMLRenderer
