#pragma once

#include "ArticleMaker.h"
#include "BareWindow.h"

#include <QDir>
#include <QStringList>
#include <QTemporaryDir>

#include <fstream>

namespace quillon::bench {

/// Folder packages of the same article, and its page for a bare window.
class Packages {
public:
    Packages(int count, std::size_t components) {
        const std::string article = makeArticle(components, ArticleShape::mixed);
        const QString page = m_folder.filePath("page.html");
        std::ofstream(page.toStdString()) << articlePage(components);
        for (int index = 0; index < count; ++index) {
            const QString package = m_folder.filePath(QString::number(index));
            QDir().mkpath(package);
            std::ofstream(package.toStdString() + "/article.json") << article;
            m_paths.append(package);
            m_pages.append(page);
        }
    }

    const QStringList& paths() const { return m_paths; }
    const QStringList& pages() const { return m_pages; } ///< as many; files

private:
    QTemporaryDir m_folder;
    QStringList m_paths;
    QStringList m_pages;
};

} // namespace quillon::bench
