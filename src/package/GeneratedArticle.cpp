#include "package/GeneratedArticle.h"

#include "base/Time.h"
#include "base/UnicodeText.h"
#include "package/BlankArticle.h"
#include "package/NewArticle.h"

namespace quillon {

ArticleFileDocument makeGeneratedDocument(std::optional<std::string_view> prompt, std::int64_t now) {
    const std::string_view idea = trimmed(prompt.value_or(std::string_view()));
    const auto ideaOr = [&](std::string_view stock) {
        return idea.empty() ? stock : idea;
    };

    ArticleDocument article = makeBlankArticle(now);
    article.identifier = "generated-article";
    article.title = "Generated Article";
    article.subtitle = "AI-assisted draft";
    Metadata metadata;
    metadata.authors = std::vector{std::string(houseAuthor)};
    metadata.excerpt = std::string(ideaOr("Generated from a story idea."));
    metadata.dateCreated = iso8601(now);
    metadata.generatorName = "Quillon";
    article.metadata = metadata;
    article.components = {
        makeTextComponent(ComponentRole::title, "Generated Article"),
        makeTextComponent(ComponentRole::intro, ideaOr("Start from an idea, draft, or source material."),
                          TextFormat::markdown),
        makeTextComponent(ComponentRole::body,
                          "Use this generated draft as a starting point, then refine the structure, "
                          "components, and preview.",
                          TextFormat::markdown),
    };
    return makeNewDocument(std::move(article));
}

} // namespace quillon
