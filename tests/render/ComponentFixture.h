#pragma once

#include "model/ArticleDocument.h"
#include "render/PageContext.h"
#include "render/PageText.h"

#include <string>
#include <string_view>

namespace quillon {

/// An article of one component, for tests of the writer of a role: what it writes without its wrapper.
struct ComponentFixture {
    /// `component` is the JSON of the component, `members` further members of the article, each behind a
    /// comma. Not JSON of an article: the test fails.
    explicit ComponentFixture(std::string_view component, std::string_view members = "");

    const Component& component() const { return article.components.front(); }

    using Writer = void (*)(HTMLRenderer::PageText&, const Component&, const HTMLRenderer::PageContext&);
    std::string written(Writer writer);

    ArticleDocument article;
    PreviewEnvironment environment;
    HTMLRenderer::DarkModeCSS darkCSS;
    double now = 0; ///< seconds since 1970
};

/// `text` as the text of a JSON value, in its quotation marks.
std::string jsonText(std::string_view text);

} // namespace quillon
