#pragma once

#include "package/Templates.h"

#include <span>
#include <string_view>

/// The data that the templates are built from. A new template is a new row.
namespace quillon {

/// One component of a template.
struct TemplatePiece {
    ComponentRole::Case role;
    std::string_view words = {}; ///< the caption of a photo, else the text; empty for none
};

/// One template: its card, and its article below the title.
struct TemplateRow {
    std::string_view id;
    ArticleTemplate::Category category;
    std::string_view title;
    std::string_view subtitle;
    std::string_view systemImage;
    std::string_view accentColor;
    std::span<const TemplatePiece> pieces;
};

/// All rows, in the order of the launch window.
std::span<const TemplateRow> templateRows();

} // namespace quillon
