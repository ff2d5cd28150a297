#pragma once

#include "model/ArticleDocument.h"
#include "render/PreviewEnvironment.h"

#include <optional>
#include <string>
#include <string_view>

/// An article as one self-contained HTML page. Nothing is read but the arguments, and no article makes it
/// fail: what cannot be shown is replaced by a visible placeholder.
namespace quillon::HTMLRenderer {

/// The whole page. `now` is in seconds since 1970 and decides which tokens have expired; the page of the same
/// values is the same text.
std::string renderPage(const ArticleDocument& article, const PreviewEnvironment& environment, double now);

/// The page's style sheet, without the rules that the article's own styles ask for. `background` is written
/// as it is.
std::string baseStyleSheet(std::string_view background, bool automaticDark, PreviewAppearance appearance);

/// The scripts of the social embeds that stand anywhere among `components`; empty when there are none.
std::string embedScripts(const List<Component>& components);

/// The article's background in an environment; nothing when it has none.
Optional<std::string> effectiveBackgroundColor(const ArticleDocument& article,
                                               const PreviewEnvironment& environment);
/// The background that the article asks for in dark mode; nothing when it asks for none.
Optional<std::string> darkBackgroundColor(const ArticleDocument& article);

} // namespace quillon::HTMLRenderer
