#include "package/BlankArticle.h"

#include "base/Time.h"
#include "package/NewArticle.h"

namespace quillon {

ArticleDocument makeBlankArticle(std::int64_t now) {
    ArticleDocument article = makeNewArticle("new-article", "New Article", "A new Apple News article");
    Metadata& metadata = article.metadata.edit();
    metadata.authors = std::vector{std::string(houseAuthor)};
    metadata.excerpt = "Start writing your story here.";
    metadata.datePublished = iso8601(now);
    article.components = {
        makeTextComponent(ComponentRole::title, "New Article"),
        makeTextComponent(ComponentRole::byline, "By Robin Vale"),
        makeTextComponent(ComponentRole::body,
                          "Start writing your story here. Select a component on the left to edit it, or add "
                          "new components with the + button.",
                          TextFormat::markdown),
    };
    return article;
}

} // namespace quillon
