#include "BareWindow.h"

#include "ArticleMaker.h"
#include "FreshProgram.h"

#include "base/Log.h"
#include "model/ArticleDocument.h"
#include "preview/PreviewFrame.h"
#include "render/Page.h"

#include <QApplication>
#include <QVBoxLayout>
#include <QWebEngineProfile>

#include <memory>
#include <vector>

namespace quillon::bench {

namespace {

constexpr char option[] = "--bare-windows";

} // namespace

std::string articlePage(std::size_t components) {
    const ArticleDocument article =
        sharedArticleDecoder.decode(makeArticle(components, ArticleShape::mixed)).value();
    const PreviewEnvironment environment = previewEnvironment(
        PreviewDevice::automatic, PreviewOrientation::portrait, panePlace.width(), panePlace.height());
    return HTMLRenderer::renderPage(article, environment, 0);
}

BareWindow::BareWindow(QWebEngineProfile& profile, const QString& page) : m_page(&profile) {
    m_view.setPage(&m_page);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(panePlace.left(), panePlace.top(), windowSize.width() - 1 - panePlace.right(),
                               windowSize.height() - 1 - panePlace.bottom());
    layout->addWidget(&m_view);
    resize(windowSize);
    m_view.load(QUrl::fromLocalFile(page));
    show();
}

QStringList bareArguments(const QStringList& pages) {
    return QStringList(QLatin1String(option)) + pages;
}

std::optional<int> runAsBareWindows(int argc, char** argv) {
    if (argc < 2 || argv[1] != std::string_view(option)) {
        return std::nullopt;
    }
    const QApplication application(argc, argv);
    QWebEngineProfile profile;
    std::vector<std::unique_ptr<BareWindow>> windows;
    for (const QString& page : QApplication::arguments().mid(2)) {
        windows.push_back(std::make_unique<BareWindow>(profile, page));
        QObject::connect(&windows.back()->view(), &QWebEngineView::loadFinished,
                         [] { logEvent(FreshProgram::pageShown); });
    }
    return QApplication::exec();
}

} // namespace quillon::bench
