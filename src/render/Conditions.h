#pragma once

#include "render/PageContext.h"

#include <optional>

/// Which conditional variants hold in an environment, and the records that come of them. A resolved record
/// shares the article's own value where no variant changes it.
namespace quillon::HTMLRenderer {

/// Whether all of `conditions` hold; absent or empty conditions do.
bool conditionsMatch(const Conditions& conditions, const PreviewEnvironment& environment);

/// Whether `conditions` choose what the page shows in dark mode: one of them asks for that scheme.
bool asksForDark(const Conditions& conditions);

/// The component with its matching variants laid over it: `component` itself when none matches, else a copy
/// that is kept in `copy`. The children are left as they are.
const Component& resolveComponent(const Component& component, const PreviewEnvironment& environment,
                                  std::optional<Component>& copy);

/// `style` with its matching variants laid over it; `style` itself when none matches.
SharedOptional<ComponentTextStyle> applyVariants(const SharedOptional<ComponentTextStyle>& style,
                                                 const PageContext& context);
SharedOptional<TextStyle> applyVariants(const SharedOptional<TextStyle>& style, const PageContext& context);

/// The record that a reference leads to, its matching variants laid over it; nothing for an absent reference
/// or an unknown name.
SharedOptional<ComponentLayout> resolveLayout(const Optional<StyleRef<ComponentLayout>>& reference,
                                              const PageContext& context);
SharedOptional<ComponentStyle> resolveComponentStyle(const Optional<StyleReference>& reference,
                                                     const PageContext& context);
SharedOptional<TextStyle> resolveTextStyle(const Optional<StyleRef<TextStyle>>& reference,
                                           const PageContext& context);
SharedOptional<TextStyle> resolveTextStyleNamed(std::string_view name, const PageContext& context);
/// Without variants.
SharedOptional<ComponentTextStyle>
resolveComponentTextStyleRef(const Optional<StyleRef<ComponentTextStyle>>& reference,
                             const PageContext& context);

/// Only what the variants for dark mode set; nothing when there are none.
SharedOptional<ComponentStyle> darkComponentStyle(const Optional<StyleReference>& reference,
                                                  const PageContext& context);
SharedOptional<ComponentTextStyle> darkComponentTextStyle(const Component& component,
                                                          const PageContext& context);

} // namespace quillon::HTMLRenderer
