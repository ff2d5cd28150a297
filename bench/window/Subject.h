#pragma once

#include "ArticleMaker.h"
#include "Measure.h"

#include "desktop/PreviewWebWidget.h"
#include "desktop/QtScheduler.h"
#include "desktop/Settings.h"
#include "document/DocumentStore.h"
#include "editor/PreviewPane.h"
#include "preview/ArticleDerivedContentCache.h"
#include "preview/ResponsiveArticlePreview.h"

#include <QTemporaryDir>

namespace quillon::bench {

/// The program's scheduler without the pause ahead of a render.
class EagerScheduler : public QtScheduler {
public:
    void after(double delay, std::function<void()> action) override {
        QtScheduler::after(delay == ResponsiveArticlePreview::pause ? 0 : delay, std::move(action));
    }
};

/// Gives the first body behind the middle of the article another text.
inline void typeInto(DocumentStore& store, const std::string& text) {
    ArticleDocument article = store.article();
    std::size_t place = article.components.size() / 2;
    while (!(article.components[place].role == ComponentRole::body)) {
        ++place;
    }
    Component component = article.components[place];
    component.text = text;
    article.components = article.components.set(place, std::move(component));
    store.edit({"Text", "text"}, std::move(article));
}

/// An open document with its pane, and an edit of it like a keystroke.
class Subject {
public:
    explicit Subject(std::size_t components)
        : store({sharedArticleDecoder.decode(makeArticle(components, ArticleShape::mixed)).value(), {}, {}},
                file::NeverSaved{}, seconds) {
        pane.resize(1000, 800);
        timed([&](const auto& finish) {
            QObject::connect(&pane, &PreviewPane::pageShown, &pane, finish, Qt::SingleShotConnection);
            pane.show();
        });
    }

    void edit() { typeInto(store, "Text number " + std::to_string(++edits)); }

    QTemporaryDir folder;
    EagerScheduler scheduler;
    Settings settings{folder.filePath("settings.ini"), nullptr};
    ArticleDerivedContentCache cache;
    DocumentStore store;
    PreviewPane pane{store, cache, settings, scheduler};
    int edits = 0;
};

} // namespace quillon::bench
