#pragma once

#include "model/ArticleDocument.h"
#include "render/PageContext.h"

#include <string>
#include <string_view>

namespace quillon {

/// An article of 4 columns, 1000 points wide, with margins of 50 and gutters of 20. `components` is the
/// inside of the list, `members` are further members of the article, each behind a comma. Not JSON of an
/// article: the test fails.
ArticleDocument articleOf(std::string_view components, std::string_view members = "");

/// A desktop wide enough for that article unscaled.
PreviewEnvironment wideEnvironment(PreviewAppearance appearance = PreviewAppearance::automatic);

/// What a render changes as it goes on.
struct RenderState {
    HTMLRenderer::DarkModeCSS darkCSS;
    HTMLRenderer::VariantMemo variants;

    /// The context of a page at the time 0; all three must outlive it.
    HTMLRenderer::PageContext contextOf(const ArticleDocument& article,
                                        const PreviewEnvironment& environment);
};

/// `html` with the identifiers of components, which are new for each read, replaced by "ID".
std::string withoutIds(std::string html);

/// The body of the article's page, and what its components look like inside the wrapper of the one at the
/// top.
std::string bodyOf(const ArticleDocument& article, const PreviewEnvironment& environment = wideEnvironment());
std::string fragmentOf(std::string_view component, std::string_view members = "",
                       const PreviewEnvironment& environment = wideEnvironment());

} // namespace quillon
