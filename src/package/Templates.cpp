#include "package/Templates.h"

#include "base/Time.h"
#include "base/endpoints.h"
#include "package/NewArticle.h"
#include "package/TemplateCatalogue.h"

namespace quillon {

namespace {

Component componentOf(const TemplatePiece& piece) {
    Component component;
    component.role = piece.role;
    if (piece.role == ComponentRole::photo) {
        component.URL = std::string(endpoints::heroImage);
        component.caption = std::string(piece.words);
        return component;
    }
    if (!piece.words.empty()) {
        component.text = std::string(piece.words);
    }
    if (piece.role == ComponentRole::intro || piece.role == ComponentRole::body) {
        component.format = TextFormat::markdown;
    }
    return component;
}

List<Component> componentsOf(const TemplateRow& row) {
    std::vector<List<Component>::Item> components = {makeTextComponent(ComponentRole::title, row.title)};
    for (const TemplatePiece& piece : row.pieces) {
        components.emplace_back(componentOf(piece));
    }
    return List<Component>(std::move(components));
}

} // namespace

ArticleDocument ArticleTemplate::makeArticle(std::int64_t now) const {
    return makeTemplateArticle(id, title, subtitle, components, now);
}

std::string_view rawValue(ArticleTemplate::Category category) {
    constexpr std::array<std::string_view, allTemplateCategories.size()> names = {"News", "Magazines",
                                                                                  "Article"};
    return names[static_cast<size_t>(category)];
}

std::span<const ArticleTemplate> allTemplates() {
    static const std::vector<ArticleTemplate> templates = [] {
        std::vector<ArticleTemplate> made;
        for (const TemplateRow& row : templateRows()) {
            made.push_back({row.id, row.category, row.title, row.subtitle, row.systemImage, row.accentColor,
                            componentsOf(row)});
        }
        return made;
    }();
    return templates;
}

ArticleDocument makeTemplateArticle(std::string_view identifier, std::string_view title,
                                    std::string_view subtitle, const List<Component>& components,
                                    std::int64_t now) {
    ArticleDocument article = makeNewArticle(identifier, title, subtitle);
    Metadata& metadata = article.metadata.edit();
    metadata.authors = std::vector{std::string(houseAuthor)};
    metadata.excerpt = std::string(subtitle);
    metadata.dateCreated = iso8601(now);
    metadata.generatorName = "Quillon Template";
    article.components = components;
    return article;
}

} // namespace quillon
