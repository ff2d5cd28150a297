#pragma once

#include "model/ArticleDocument.h"
#include "render/DarkModeCSS.h"
#include "render/GridMetrics.h"
#include "render/PreviewEnvironment.h"
#include "render/VariantMemo.h"

namespace quillon::HTMLRenderer {

/// What every writer of one page is given beside the component.
struct PageContext {
    const ArticleDocument& article;
    const PreviewEnvironment& environment;
    GridMetrics grid;
    DarkModeCSS& darkCSS;
    VariantMemo& variants;
    double now = 0; ///< seconds since 1970, for what expires
};

} // namespace quillon::HTMLRenderer
