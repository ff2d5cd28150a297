#pragma once

#include "model/ArticleDocument.h"
#include "render/PreviewEnvironment.h"

#include <optional>
#include <string>

/// An article as one self-contained HTML page. Nothing is read but the arguments, and no article makes it
/// fail: what cannot be shown is replaced by a visible placeholder.
namespace quillon::HTMLRenderer {

/// The whole page. `now` is in seconds since 1970 and decides which tokens have expired; the page of the same
/// values is the same text.
std::string renderPage(const ArticleDocument& article, const PreviewEnvironment& environment, double now);

/// The article's background in an environment; nothing when it has none.
Optional<std::string> effectiveBackgroundColor(const ArticleDocument& article,
                                               const PreviewEnvironment& environment);
/// The background that the article asks for in dark mode; nothing when it asks for none.
Optional<std::string> darkBackgroundColor(const ArticleDocument& article);

} // namespace quillon::HTMLRenderer
