#include "package/DarkModeDefaults.h"

#include <algorithm>

namespace quillon {

namespace {

constexpr const char* lightBackground = "#FFFFFF";
/// The text style that applies where no other does.
constexpr const char* defaultStyleName = "default";

Conditions whenDark() {
    return std::vector{Condition{.preferredColorScheme = "dark"}};
}

ConditionalDocumentStyle darkBackground() {
    return {.style = {.backgroundColor = "#111111"}, .conditions = whenDark()};
}

ConditionalComponentTextStyle darkText() {
    ConditionalComponentTextStyle entry;
    entry.style.textColor = "#F5F5F7";
    entry.style.linkStyle.edit().textColor = "#66AAFF";
    entry.conditions = whenDark();
    return entry;
}

template <typename Entry>
using Entries = Optional<std::vector<Entry>>;

bool isForDark(const Condition& condition) {
    return condition.preferredColorScheme == "dark";
}

/// Adds `entry` unless some entry, whatever else it asks for, is for the dark colour scheme.
template <typename Entry>
void addDarkEntry(Entries<Entry>& entries, Entry entry) {
    const auto asksForDark = [](const Entry& other) {
        return other.conditions && std::ranges::any_of(*other.conditions, isForDark);
    };
    if (!entries || std::ranges::none_of(*entries, asksForDark)) {
        entries.edit().push_back(std::move(entry));
    }
}

/// Removes all entries equal to `entry`; no list remains when none is left.
template <typename Entry>
void removeEntry(Entries<Entry>& entries, const Entry& entry) {
    std::erase(entries.edit(), entry);
    if (entries->empty()) {
        entries.reset();
    }
}

void removeDarkBackground(ArticleDocument& article) {
    if (article.documentStyle && article.documentStyle->conditional) {
        removeEntry(article.documentStyle.edit().conditional, darkBackground());
    }
}

void removeDarkText(ArticleDocument& article) {
    if (!article.componentTextStyles) {
        return;
    }
    const auto found = article.componentTextStyles->find(defaultStyleName);
    if (found == article.componentTextStyles->end() || !found->second->conditional) {
        return;
    }
    NamedStyles<ComponentTextStyle>& styles = article.componentTextStyles.edit();
    ComponentTextStyle& style = styles[defaultStyleName].edit();
    removeEntry(style.conditional, darkText());
    if (style == ComponentTextStyle()) {
        styles.erase(defaultStyleName);
    }
    if (styles.empty()) {
        article.componentTextStyles.reset();
    }
}

} // namespace

ArticleDocument applyDarkModeDefaults(ArticleDocument article) {
    DocumentStyle& page = article.documentStyle.edit();
    if (!page.backgroundColor) {
        page.backgroundColor = lightBackground;
    }
    addDarkEntry(page.conditional, darkBackground());
    addDarkEntry(article.componentTextStyles.edit()[defaultStyleName].edit().conditional, darkText());
    return article;
}

ArticleDocument removeDarkModeDefaults(ArticleDocument article) {
    removeDarkBackground(article);
    removeDarkText(article);
    return article;
}

} // namespace quillon
