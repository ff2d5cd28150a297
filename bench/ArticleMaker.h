#pragma once

#include <cstddef>
#include <string>

namespace quillon::bench {

enum class ArticleShape { mixed, flat };

/// The saved JSON of an article of `components` components, about 500 bytes each: body texts of 200 to 600
/// characters, headings, photos, quotes with styled ranges, layouts and styles by name and inline. `mixed`
/// has containers with components within; `flat` has them all at the top level. Always the same.
std::string makeArticle(size_t components, ArticleShape shape);

} // namespace quillon::bench
