#pragma once

#include "render/PageContext.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Plain text with ranges that style or link it. Positions count characters as readers see them, from the
/// start of the whole text; the separator between two paragraphs counts 2.
namespace quillon::HTMLRenderer {

struct StyledRange {
    int64_t start = 0;               ///< first character; may lie before or behind the text
    int64_t end = 0;                 ///< one past the last character
    std::string css;                 ///< may be empty, for a link without style
    std::optional<std::string> href; ///< written only when it is http or https

    bool operator==(const StyledRange&) const = default;
};

/// The ranges of a component: its inline styles, then its links, which look like `textStyle` (or null) says.
std::vector<StyledRange> styledRanges(const Component& component, const PageContext& context,
                                      const ComponentTextStyle* textStyle);

/// Appends the paragraphs of `text`, each with `paragraphAttribute` (with its leading blank, or empty). Where
/// ranges overlap, their css adds up in their order and the last link counts. Takes the time of the text, the
/// ranges and what is written.
void renderPlainText(std::string& out, std::string_view text, const std::vector<StyledRange>& ranges,
                     std::string_view paragraphAttribute);

} // namespace quillon::HTMLRenderer
