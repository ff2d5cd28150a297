#include "render/Page.h"

#include "render/Components.h"
#include "render/Conditions.h"
#include "render/EscapeHtml.h"
#include "render/PageScripts.h"
#include "render/StyleSheet.h"

#include <algorithm>

namespace quillon::HTMLRenderer {

namespace {

constexpr std::string_view defaultBackground = "#FFFFFF";

/// What a page takes without its components, and about what each component adds to its text, in bytes.
constexpr size_t emptyPageSize = 32 * 1024;
constexpr size_t componentSize = 512;

/// About how long the page of `components` will be: room made once costs less than a page that outgrows it
/// again and again. What is hidden shows nothing, however much it holds.
size_t expectedSize(const List<Component>& components) {
    size_t size = 0;
    for (const Component& component : components) {
        if (component.hidden != true) {
            size += componentSize + (component.text ? component.text->size() : 0);
            size += component.components ? expectedSize(*component.components) : 0;
        }
    }
    return size;
}

/// The background of the last variant of the document's style that `applies` chooses and that has one, else
/// `background`.
template <typename Applies>
Optional<std::string> variantBackground(const ArticleDocument& article, Optional<std::string> background,
                                        const Applies& applies) {
    if (!article.documentStyle || !article.documentStyle->conditional) {
        return background;
    }
    for (const ConditionalDocumentStyle& variant : *article.documentStyle->conditional) {
        if (variant.style.backgroundColor && applies(variant.conditions)) {
            background = variant.style.backgroundColor;
        }
    }
    return background;
}

/// What the page's media queries add to the style sheet.
std::string darkModeRules(const ArticleDocument& article, const PreviewEnvironment& environment,
                          const DarkModeCSS& darkCSS) {
    if (environment.appearance != PreviewAppearance::automatic) {
        return {};
    }
    std::string rules;
    if (const auto background = darkBackgroundColor(article)) {
        rules += "@media (prefers-color-scheme: dark){body{background: ";
        escapeHTML(rules, *background);
        rules += " !important;}}";
    }
    return rules += darkRuleBlock(darkCSS);
}

} // namespace

std::string renderPage(const ArticleDocument& article, const PreviewEnvironment& environment, double now) {
    const auto background = effectiveBackgroundColor(article, environment);
    const bool automaticDark =
        !article.colorScheme || article.colorScheme->automaticDarkModeEnabled.value_or(true);
    DarkModeCSS darkCSS;
    VariantMemo variants;
    const PageContext context{
        .article = article,
        .environment = environment,
        .grid = gridMetrics(article.layout, environment.viewportWidth),
        .darkCSS = darkCSS,
        .variants = variants,
        .now = now,
    };

    PageText page;
    page.out().reserve(emptyPageSize + expectedSize(article.components));
    page << "<!DOCTYPE html>\n<html lang=\"";
    escapeHTML(page.out(), article.language);
    page << "\">\n<head>\n<meta charset=\"utf-8\">\n"
            "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<style>"
         << baseStyleSheet(background ? std::string_view(*background) : defaultBackground, automaticDark,
                           environment.appearance);
    const PageText::Place darkRules = page.keepPlace();
    page << "</style>\n</head>\n<body>\n<article class=\"anf\" style=\"";
    context.grid.gridStyle(page.out());
    context.grid.articleWidthStyle(page.out());
    page << "\">\n";
    renderBody(page, context);
    page << "\n</article>\n"
         << embedScripts(article.components) << "\n"
         << imagePlaceholderScript() << "\n</body>\n</html>";
    // The components have registered their rules by now.
    page.insert(darkRules, darkModeRules(article, environment, darkCSS));
    return page.take();
}

Optional<std::string> effectiveBackgroundColor(const ArticleDocument& article,
                                               const PreviewEnvironment& environment) {
    return variantBackground(
        article, article.documentStyle ? article.documentStyle->backgroundColor : std::nullopt,
        [&environment](const Conditions& conditions) { return conditionsMatch(conditions, environment); });
}

Optional<std::string> darkBackgroundColor(const ArticleDocument& article) {
    return variantBackground(article, std::nullopt, asksForDark);
}

} // namespace quillon::HTMLRenderer
