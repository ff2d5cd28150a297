#include "render/Conditions.h"

#include <algorithm>
#include <cmath>

namespace quillon::HTMLRenderer {

namespace {

constexpr std::string_view anyValue = "any";
constexpr std::string_view darkScheme = "dark";

bool agreesWith(const Optional<std::string>& wanted, std::string_view actual) {
    return !wanted || *wanted == anyValue || *wanted == actual;
}

bool schemeAgrees(const Optional<std::string>& wanted, PreviewAppearance appearance) {
    switch (appearance) {
    case PreviewAppearance::automatic:
        // The page does not know its scheme: what asks for dark comes through the dark rules instead.
        return agreesWith(wanted, anyValue);
    case PreviewAppearance::light:
        return agreesWith(wanted, "light");
    case PreviewAppearance::dark:
        return agreesWith(wanted, darkScheme);
    }
    return false;
}

bool conditionMatches(const Condition& condition, const PreviewEnvironment& environment) {
    const double width = std::round(environment.viewportWidth);
    return schemeAgrees(condition.preferredColorScheme, environment.appearance) &&
           agreesWith(condition.platform, environment.platform) &&
           agreesWith(condition.horizontalSizeClass, environment.horizontalSizeClass) &&
           agreesWith(condition.verticalSizeClass, environment.verticalSizeClass) &&
           (!condition.minViewportWidth || width >= static_cast<double>(*condition.minViewportWidth)) &&
           (!condition.maxViewportWidth || width <= static_cast<double>(*condition.maxViewportWidth));
}

const ComponentLayout& recordOf(const ConditionalComponentLayout& variant) {
    return variant.layout;
}
template <typename Variant>
const auto& recordOf(const Variant& variant) {
    return variant.style;
}

/// Lays `overlay` over `record`, whose own variants stay as they are.
template <typename Record>
void mergeVariant(Record& record, const Record& overlay) {
    auto variants = record.conditional;
    mergeFields(record, overlay);
    record.conditional = std::move(variants);
}

template <typename Record>
SharedOptional<Record> withVariants(const SharedOptional<Record>& base,
                                    const PreviewEnvironment& environment) {
    SharedOptional<Record> result = base;
    if (base && base->conditional) {
        for (const auto& variant : *base->conditional) {
            if (conditionsMatch(variant.conditions, environment)) {
                mergeVariant(result.edit(), recordOf(variant));
            }
        }
    }
    return result;
}

template <typename Style>
SharedOptional<Style> styleNamed(const std::string& name, const SharedOptional<NamedStyles<Style>>& styles) {
    if (styles) {
        if (const auto found = styles->find(name); found != styles->end()) {
            return found->second.handle();
        }
    }
    return {};
}

/// The record that a StyleRef or StyleReference leads to, without variants.
template <typename Style, typename Reference>
SharedOptional<Style> referenced(const SharedOptional<Reference>& reference,
                                 const SharedOptional<NamedStyles<Style>>& styles) {
    if (!reference) {
        return {};
    }
    if (const std::string* name = reference->named()) {
        return styleNamed(*name, styles);
    }
    return std::get<Shared<Style>>(reference->form).handle();
}

bool asksForDark(const Conditions& conditions) {
    return conditions && std::ranges::any_of(*conditions, [](const Condition& condition) {
               return condition.preferredColorScheme == darkScheme;
           });
}

/// Lays the variants of `style` that ask for dark mode over `dark`, made when there is one.
template <typename Style>
void addDarkVariants(std::optional<Style>& dark, const SharedOptional<Style>& style) {
    if (!style || !style->conditional) {
        return;
    }
    for (const auto& variant : *style->conditional) {
        if (asksForDark(variant.conditions)) {
            mergeVariant(dark ? *dark : dark.emplace(), recordOf(variant));
        }
    }
}

void mergeVariant(Component& component, const ConditionalComponent& variant) {
    const auto replace = [](auto& field, const auto& value) {
        if (value) {
            field = value;
        }
    };
    replace(component.hidden, variant.hidden);
    replace(component.anchor, variant.anchor);
    replace(component.animation, variant.animation);
    replace(component.behavior, variant.behavior);
    replace(component.scene, variant.scene);
    replace(component.contentDisplay, variant.contentDisplay);
    replace(component.layout, variant.layout);
    replace(component.style, variant.style);
    replace(component.textStyle, variant.textStyle);
    replace(component.accessibilityCaption, variant.accessibilityCaption);
}

} // namespace

bool conditionsMatch(const Conditions& conditions, const PreviewEnvironment& environment) {
    return !conditions || std::ranges::all_of(*conditions, [&](const Condition& condition) {
        return conditionMatches(condition, environment);
    });
}

const Component& resolveComponent(const Component& component, const PreviewEnvironment& environment,
                                  std::optional<Component>& copy) {
    copy.reset();
    if (component.conditional) {
        for (const ConditionalComponent& variant : *component.conditional) {
            if (conditionsMatch(variant.conditions, environment)) {
                mergeVariant(copy ? *copy : copy.emplace(component), variant);
            }
        }
    }
    return copy ? *copy : component;
}

SharedOptional<ComponentTextStyle> applyVariants(const Shared<ComponentTextStyle>& style,
                                                 const PreviewEnvironment& environment) {
    return withVariants(style.handle(), environment);
}

SharedOptional<TextStyle> applyVariants(const Shared<TextStyle>& style,
                                        const PreviewEnvironment& environment) {
    return withVariants(style.handle(), environment);
}

TextStyle applyVariants(const TextStyle& style, const PreviewEnvironment& environment) {
    return *withVariants(SharedOptional<TextStyle>(style), environment);
}

SharedOptional<ComponentLayout> resolveLayout(const Optional<StyleRef<ComponentLayout>>& reference,
                                              const PageContext& context) {
    return withVariants(referenced(reference, context.article.componentLayouts), context.environment);
}

SharedOptional<ComponentStyle> resolveComponentStyle(const Optional<StyleReference>& reference,
                                                     const PageContext& context) {
    return withVariants(referenced(reference, context.article.componentStyles), context.environment);
}

SharedOptional<TextStyle> resolveTextStyle(const Optional<StyleRef<TextStyle>>& reference,
                                           const PageContext& context) {
    return withVariants(referenced(reference, context.article.textStyles), context.environment);
}

SharedOptional<TextStyle> resolveTextStyleNamed(std::string_view name, const PageContext& context) {
    return withVariants(styleNamed(std::string(name), context.article.textStyles), context.environment);
}

SharedOptional<ComponentTextStyle>
resolveComponentTextStyleRef(const Optional<StyleRef<ComponentTextStyle>>& reference,
                             const PageContext& context) {
    return referenced(reference, context.article.componentTextStyles);
}

std::optional<ComponentStyle> darkComponentStyle(const Optional<StyleReference>& reference,
                                                 const PageContext& context) {
    std::optional<ComponentStyle> dark;
    addDarkVariants(dark, referenced(reference, context.article.componentStyles));
    return dark;
}

std::optional<ComponentTextStyle> darkComponentTextStyle(const Component& component,
                                                         const PageContext& context) {
    std::optional<ComponentTextStyle> dark;
    const auto& styles = context.article.componentTextStyles;
    if (styles) {
        addDarkVariants(dark, styleNamed("default", styles));
        addDarkVariants(dark, styleNamed("default-" + std::string(component.role.rawValue()), styles));
    }
    addDarkVariants(dark, referenced(component.textStyle, styles));
    return dark;
}

} // namespace quillon::HTMLRenderer
