#pragma once

#include "model/ArticleDocument.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace quillon {

/// A starting article that the launch window offers, as it stands on its card.
struct ArticleTemplate {
    /// The groups of the launch window, in their order.
    enum class Category { news, magazines, article };

    std::string_view id; ///< also the article's `identifier`
    Category category = Category::news;
    std::string_view title;       ///< also of the article
    std::string_view subtitle;    ///< also of the article, and its excerpt
    std::string_view systemImage; ///< name of the card's symbol
    std::string_view accentColor; ///< of the card's symbol, "#0A84FF"
    List<Component> components;   ///< of every article made from it, ids included

    /// A new article, created `now` (seconds since 1970).
    ArticleDocument makeArticle(std::int64_t now) const;
};

inline constexpr std::array allTemplateCategories = {ArticleTemplate::Category::news,
                                                     ArticleTemplate::Category::magazines,
                                                     ArticleTemplate::Category::article};

/// The visible name of a category, which also identifies it: "Magazines".
std::string_view rawValue(ArticleTemplate::Category category);

/// The catalogue in its order. Built once, on first use, from any thread.
std::span<const ArticleTemplate> allTemplates();

/// The article of a template with these texts and components, created `now` (seconds since 1970).
ArticleDocument makeTemplateArticle(std::string_view identifier, std::string_view title,
                                    std::string_view subtitle, const List<Component>& components,
                                    std::int64_t now);

} // namespace quillon
