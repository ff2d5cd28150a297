#pragma once

#include "model/ArticleDocument.h"
#include "package/ArticleFileDocument.h"

#include <optional>
#include <string>
#include <string_view>

/// What articles that begin in the program, and not in a file, have in common.
namespace quillon {

/// Who wrote them, until the user says otherwise.
inline constexpr std::string_view houseAuthor = "Robin Vale";

/// An article with the house's version, language, grid, page and dark mode (switched on, with its defaults),
/// and as yet without metadata and components.
ArticleDocument makeNewArticle(std::string_view identifier, std::string_view title,
                               std::string_view subtitle);

/// A component of its own `id` with a text and, where given, a format.
Component makeTextComponent(ComponentRole role, std::string_view text,
                            std::optional<TextFormat> format = std::nullopt);

/// The document of an article that was never saved: no assets.
ArticleFileDocument makeNewDocument(ArticleDocument article);

} // namespace quillon
