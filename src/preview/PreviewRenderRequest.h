#pragma once

#include "base/Shared.h"
#include "model/ArticleDocument.h"
#include "render/PreviewEnvironment.h"

#include <string>

namespace quillon {

/// What a page is wanted for. Equal requests have equal pages, but for assets of the same name and size.
struct PreviewRenderRequest {
    ArticleDocument article;
    PreviewEnvironment environment;
    Shared<std::string> assetsFingerprint;

    bool operator==(const PreviewRenderRequest&) const = default;
};

/// A finished page.
struct RenderedPreview {
    Shared<std::string> html;
    std::string key; ///< names this render within its window

    bool operator==(const RenderedPreview&) const = default;
};

} // namespace quillon
