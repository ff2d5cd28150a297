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

/// Lists of variants up to this length are gone through each time: that is quicker than to look them up.
constexpr size_t fewVariants = 4;

/// What `workOut` gives for `record`, kept in `memo` when it takes long.
template <typename Record, typename WorkOut>
SharedOptional<Record> remembered(RecordMemo<Record>& memo, const SharedOptional<Record>& record,
                                  WorkOut workOut) {
    return record->conditional->size() > fewVariants ? memo.result(record, workOut) : workOut();
}

/// Lays `overlay` over `record`, whose own variants stay as they are.
template <typename Record>
void layOver(Record& record, const Record& overlay) {
    auto variants = record.conditional;
    mergeFields(record, overlay);
    record.conditional = std::move(variants);
}

/// Lays the variants of `base` whose conditions `applies` chooses over `record`, which becomes one only when
/// there are any.
template <typename Record, typename Applies>
SharedOptional<Record> withChosen(SharedOptional<Record> record, const SharedOptional<Record>& base,
                                  const Applies& applies) {
    for (const auto& variant : *base->conditional) {
        if (applies(variant.conditions)) {
            layOver(record.edit(), recordOf(variant));
        }
    }
    return record;
}

template <typename Record>
SharedOptional<Record> withVariants(const SharedOptional<Record>& base, const PageContext& context) {
    if (!base || !base->conditional) {
        return base;
    }
    return remembered(context.variants.matching<Record>(), base, [&] {
        return withChosen(base, base, [&context](const Conditions& conditions) {
            return conditionsMatch(conditions, context.environment);
        });
    });
}

/// What the variants of `base` for dark mode set; nothing when there are none.
template <typename Record>
SharedOptional<Record> darkVariants(const SharedOptional<Record>& base, const PageContext& context) {
    if (!base || !base->conditional) {
        return {};
    }
    return remembered(context.variants.dark<Record>(), base,
                      [&] { return withChosen(SharedOptional<Record>(), base, asksForDark); });
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

bool asksForDark(const Conditions& conditions) {
    return conditions && std::ranges::any_of(*conditions, [](const Condition& condition) {
               return condition.preferredColorScheme == darkScheme;
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

SharedOptional<ComponentTextStyle> applyVariants(const SharedOptional<ComponentTextStyle>& style,
                                                 const PageContext& context) {
    return withVariants(style, context);
}

SharedOptional<TextStyle> applyVariants(const SharedOptional<TextStyle>& style, const PageContext& context) {
    return withVariants(style, context);
}

SharedOptional<ComponentLayout> resolveLayout(const Optional<StyleRef<ComponentLayout>>& reference,
                                              const PageContext& context) {
    return withVariants(referenced(reference, context.article.componentLayouts), context);
}

SharedOptional<ComponentStyle> resolveComponentStyle(const Optional<StyleReference>& reference,
                                                     const PageContext& context) {
    return withVariants(referenced(reference, context.article.componentStyles), context);
}

SharedOptional<TextStyle> resolveTextStyle(const Optional<StyleRef<TextStyle>>& reference,
                                           const PageContext& context) {
    return withVariants(referenced(reference, context.article.textStyles), context);
}

SharedOptional<TextStyle> resolveTextStyleNamed(std::string_view name, const PageContext& context) {
    return withVariants(styleNamed(std::string(name), context.article.textStyles), context);
}

SharedOptional<ComponentTextStyle>
resolveComponentTextStyleRef(const Optional<StyleRef<ComponentTextStyle>>& reference,
                             const PageContext& context) {
    return referenced(reference, context.article.componentTextStyles);
}

SharedOptional<ComponentStyle> darkComponentStyle(const Optional<StyleReference>& reference,
                                                  const PageContext& context) {
    return darkVariants(referenced(reference, context.article.componentStyles), context);
}

SharedOptional<ComponentTextStyle> darkComponentTextStyle(const Component& component,
                                                          const PageContext& context) {
    SharedOptional<ComponentTextStyle> dark;
    const auto addVariants = [&](const SharedOptional<ComponentTextStyle>& style) {
        SharedOptional<ComponentTextStyle> upper = darkVariants(style, context);
        if (dark && upper) {
            layOver(dark.edit(), *upper);
        } else if (upper) {
            dark = std::move(upper);
        }
    };
    const auto& styles = context.article.componentTextStyles;
    if (styles) {
        addVariants(styleNamed("default", styles));
        addVariants(styleNamed("default-" + std::string(component.role.rawValue()), styles));
    }
    addVariants(referenced(component.textStyle, styles));
    return dark;
}

} // namespace quillon::HTMLRenderer
