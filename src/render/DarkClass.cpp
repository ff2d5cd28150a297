#include "render/DarkClass.h"

#include "render/ComponentStyleCss.h"
#include "render/Conditions.h"

namespace quillon::HTMLRenderer {

std::string componentDarkClass(const Component& component, const PageContext& context,
                               std::string_view further) {
    std::string css;
    if (const auto style = darkComponentStyle(component.style, context)) {
        componentStyleCSS(css, &*style);
    }
    css += further;
    return darkClass(css, context.darkCSS);
}

} // namespace quillon::HTMLRenderer
