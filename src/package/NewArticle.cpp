#include "package/NewArticle.h"

#include "package/DarkModeDefaults.h"

namespace quillon {

ArticleDocument makeNewArticle(std::string_view identifier, std::string_view title,
                               std::string_view subtitle) {
    ArticleDocument article;
    article.version = "1.7";
    article.identifier = identifier;
    article.language = "en";
    article.title = title;
    article.subtitle = std::string(subtitle);
    article.layout = {.columns = 7, .width = 1024, .margin = 60, .gutter = 20};
    article.colorScheme = ColorScheme{.automaticDarkModeEnabled = true};
    return applyDarkModeDefaults(std::move(article));
}

Component makeTextComponent(ComponentRole role, std::string_view text, std::optional<TextFormat> format) {
    Component component;
    component.role = std::move(role);
    component.text = std::string(text);
    component.format = format;
    return component;
}

ArticleFileDocument makeNewDocument(ArticleDocument article) {
    ArticleFileDocument document{std::move(article), {}, {}};
    document.assetsFingerprint = assetsFingerprintText(*document.assets);
    return document;
}

} // namespace quillon
