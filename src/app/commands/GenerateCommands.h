#pragma once

#include "package/ArticleFileDocument.h"

#include <QMenu>

#include <functional>

namespace quillon {

/// The commands that open a document with something in it already: a template, or a generated article.
struct GenerateCommands {
    std::function<void(ArticleFileDocument)> newDocument;

    /// Adds them behind the item that makes a blank document.
    void addTo(QMenu& fileMenu) const;
};

} // namespace quillon
