#include "render/PageFixture.h"

#include "render/Components.h"

#include <gtest/gtest.h>

namespace quillon {

using namespace HTMLRenderer;

ArticleDocument articleOf(std::string_view components, std::string_view members) {
    std::string json = R"({"version":"1.7","identifier":"a","language":"en","title":"T",)"
                       R"("layout":{"columns":4,"width":1000,"margin":50,"gutter":20})";
    json.append(members).append(R"(,"components":[)").append(components).append("]}");
    const auto article = sharedArticleDecoder.decode(json);
    if (!article) {
        ADD_FAILURE() << json << ": " << article.error().message();
        return {};
    }
    return *article;
}

PreviewEnvironment wideEnvironment(PreviewAppearance appearance) {
    PreviewEnvironment environment =
        previewEnvironment(PreviewDevice::mac, PreviewOrientation::portrait, 0, std::nullopt);
    environment.appearance = appearance;
    return environment;
}

std::string withoutIds(std::string html) {
    constexpr std::string_view attribute = "data-component-id=\"";
    for (size_t at = html.find(attribute); at != std::string::npos; at = html.find(attribute, at)) {
        at += attribute.size();
        const std::string id = html.substr(at, 36);
        EXPECT_TRUE(parseUuid(id)) << id;
        html.replace(at, 36, "ID");
    }
    return html;
}

PageContext RenderState::contextOf(const ArticleDocument& article, const PreviewEnvironment& environment) {
    return {article, environment, gridMetrics(article.layout, environment.viewportWidth),
            darkCSS, variants,    0};
}

std::string bodyOf(const ArticleDocument& article, const PreviewEnvironment& environment) {
    RenderState state;
    PageText page;
    renderBody(page, state.contextOf(article, environment));
    return withoutIds(page.take());
}

std::string fragmentOf(std::string_view component, std::string_view members,
                       const PreviewEnvironment& environment) {
    const ArticleDocument article = articleOf(component, members);
    RenderState state;
    PageText page;
    renderComponent(page, article.components.front(), state.contextOf(article, environment));
    return withoutIds(page.take());
}

} // namespace quillon
