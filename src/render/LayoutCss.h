#pragma once

#include "render/PageContext.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Layouts and lengths as CSS. Writers append to `out`; an absent record is a null pointer or an empty
/// optional and writes what its absence means.
namespace quillon::HTMLRenderer {

/// The declarations that place a wrapper in the grid.
void layoutCSS(std::string& out, const ComponentLayout* layout, const Optional<Anchor>& anchor,
               const GridMetrics& grid);
void gridColumnCSS(std::string& out, const ComponentLayout* layout, const GridMetrics& grid);
/// How many columns a component covers, at least 1.
int64_t spanCount(const ComponentLayout* layout, const GridMetrics& grid);
/// A length as CSS, the article's own units (cw, pw, dm, dg, gut) included; nothing when it has no number.
std::optional<std::string> lengthCSS(const Optional<ANFLength>& length, int64_t span,
                                     const GridMetrics& grid);
/// Appends `opening` ("min-height: "), a length and ";"; nothing when there is no length.
void lengthDeclaration(std::string& out, std::string_view opening, const std::optional<std::string>& length);

void containerDisplayCSS(std::string& out, const Optional<ContentDisplay>& contentDisplay,
                         const GridMetrics& grid);
/// Keeps the content of a component that reaches over the document's margin aligned with the rest.
void marginInsetCSS(std::string& out, const ComponentLayout* layout, const GridMetrics& grid);
void minimumHeightCSS(std::string& out, const ComponentLayout* layout, const GridMetrics& grid);

} // namespace quillon::HTMLRenderer
