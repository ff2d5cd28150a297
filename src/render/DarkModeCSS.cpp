#include "render/DarkModeCSS.h"

#include <algorithm>

namespace quillon::HTMLRenderer {

std::string importantDeclarations(std::string_view css) {
    std::string out;
    while (!css.empty()) {
        const size_t end = std::min(css.find(';'), css.size());
        if (end > 0) {
            out.append(css.substr(0, end)).append(" !important;");
        }
        css.remove_prefix(std::min(end + 1, css.size()));
    }
    return out;
}

std::string registerDarkRule(std::string_view css, DarkModeCSS& darkCSS) {
    if (css.empty()) {
        return {};
    }
    std::string name = "dk" + std::to_string(++darkCSS.counter);
    darkCSS.rules.push_back("." + name + "{" + std::string(css) + "}");
    return name;
}

std::string darkClass(std::string_view css, DarkModeCSS& darkCSS) {
    const std::string name = registerDarkRule(importantDeclarations(css), darkCSS);
    return name.empty() ? name : " " + name;
}

std::string darkRuleBlock(const DarkModeCSS& darkCSS) {
    if (darkCSS.rules.empty()) {
        return {};
    }
    std::string block = "@media (prefers-color-scheme: dark){";
    for (const std::string& rule : darkCSS.rules) {
        block += rule;
    }
    return block + "}";
}

} // namespace quillon::HTMLRenderer
