#include "render/HtmlText.h"

#include "base/Regex.h"
#include "render/Conditions.h"
#include "render/TextStyleCss.h"

namespace quillon::HTMLRenderer {

void resolveTextStyleAttributes(std::string& out, std::string_view html, const PageContext& context) {
    static const Regex attribute(R"re(data-anf-textstyle="([^"]+)")re");
    size_t copied = 0;
    if (html.find("data-anf-textstyle") != std::string_view::npos) {
        for (auto match = attribute.find(html); match; match = attribute.findNext(*match)) {
            out.append(html, copied, match->begin() - copied);
            copied = match->end();
            std::string css;
            const auto style = resolveTextStyleNamed(match->group(1), context);
            textStyleCSS(css, style ? &*style : nullptr);
            if (!css.empty()) {
                out.append("style=\"").append(css).append("\"");
            }
        }
    }
    out.append(html, copied);
}

} // namespace quillon::HTMLRenderer
