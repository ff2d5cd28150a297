#pragma once

#include "render/PageContext.h"
#include "render/ReadRecord.h"
#include "render/TextContent.h"
#include "render/TextStyleCss.h"

#include <string>
#include <utility>

namespace quillon::HTMLRenderer {

/// An article of `tables` (members of its JSON, each followed by a comma) and a context to render in.
struct TextFixture {
    explicit TextFixture(const std::string& tables = {},
                         PreviewAppearance appearance = PreviewAppearance::automatic)
        : article(readRecord<ArticleDocument>(
              "{" + tables +
              R"("version":"1","identifier":"a","language":"en","title":"T","layout":{"columns":7,"width":1024},"components":[]})")) {
        environment.appearance = appearance;
    }

    /// What a component shows with the style that it has in the article.
    std::string contentOf(const Component& component) const {
        const auto style = effectiveComponentTextStyle(component, context);
        std::string out;
        renderTextContent(out, component, context, style ? &*style : nullptr);
        return out;
    }
    std::string contentOf(std::string componentJson) const {
        return contentOf(readRecord<Component>(std::move(componentJson)));
    }

    ArticleDocument article;
    PreviewEnvironment environment;
    mutable DarkModeCSS darkCSS;
    mutable VariantMemo variants;
    PageContext context{article, environment, gridMetrics(article.layout, 1024), darkCSS, variants, 0};
};

} // namespace quillon::HTMLRenderer
