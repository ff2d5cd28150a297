#include "editor/EditorView.h"

#include "desktop/ImageDecoding.h"
#include "desktop/PreviewWebWidget.h"
#include "desktop/theme/Theme.h"
#include "editor/EditorToolbar.h"
#include "editor/EditorWindowState.h"
#include "editor/FindBar.h"
#include "editor/JSONSourceView.h"
#include "editor/PreviewPane.h"
#include "preview/ArticleDerivedContentCache.h"

#include <QVBoxLayout>
#include <QWebEngineView>

namespace quillon {

struct EditorView::Parts {
    Parts(DocumentStore& theStore, Settings& theSettings, Scheduler& theScheduler)
        : store(theStore), settings(theSettings), scheduler(theScheduler) {}

    DocumentStore& store;
    Settings& settings;
    Scheduler& scheduler;
    EditorWindowState state;
    ArticleDerivedContentCache derivedContentCache{decodeImage};
    QWidget* middle = nullptr;
    std::unique_ptr<PreviewPane> preview; ///< only while the page is shown
    std::unique_ptr<JSONSourceView> json; ///< only while the JSON is shown
    std::unique_ptr<FindBar> find;        ///< of the JSON
    Subscription subscription;
};

EditorView::EditorView(DocumentStore& store, Settings& settings, Scheduler& scheduler, QWidget* parent)
    : QWidget(parent), m_parts(std::make_unique<Parts>(store, settings, scheduler)) {
    setObjectName(QStringLiteral("editorView"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(0);
    column->addWidget(new EditorToolbar(m_parts->state, this));
    m_parts->middle = new QWidget(this);
    auto* middle = new QVBoxLayout(m_parts->middle);
    middle->setContentsMargins({});
    middle->setSpacing(0);
    column->addWidget(m_parts->middle, 1);
    connect(&m_parts->state, &EditorWindowState::changed, this, [this] { refresh(); });
    m_parts->subscription = store.observe([this](const StoreChange& change) {
        if (change.article) {
            refresh();
        }
    });
    refresh();
    // Else the first control of the toolbar would have the keyboard, and show it, in every new window.
    m_parts->preview->webWidget().view()->setFocus();
}

EditorView::~EditorView() = default;

/// Switching makes a view anew; what was derived for it stays in the cache.
void EditorView::refresh() {
    Parts& parts = *m_parts;
    if (parts.state.mode() == PreviewMode::json) {
        parts.preview.reset();
        if (!parts.json) {
            parts.json = std::make_unique<JSONSourceView>(parts.middle);
            parts.find = std::make_unique<FindBar>(*parts.json, parts.middle);
            parts.middle->layout()->addWidget(parts.find.get());
            parts.middle->layout()->addWidget(parts.json.get());
            // Else it would be there, and could take the keyboard, only in the next turn of the event loop.
            parts.json->show();
            parts.json->setFocus();
        }
        parts.json->setJSON(parts.derivedContentCache.jsonText(parts.store.article()));
        return;
    }
    parts.find.reset();
    parts.json.reset();
    if (!parts.preview) {
        parts.preview = std::make_unique<PreviewPane>(parts.store, parts.derivedContentCache, parts.settings,
                                                      parts.scheduler, parts.middle);
        parts.middle->layout()->addWidget(parts.preview.get());
        connect(parts.preview.get(), &PreviewPane::pageShown, this, &EditorView::pageShown);
    }
    parts.preview->setChoice(parts.state.choice());
}

} // namespace quillon
