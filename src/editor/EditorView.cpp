#include "editor/EditorView.h"

#include "desktop/ImageDecoding.h"
#include "editor/PreviewPane.h"
#include "preview/ArticleDerivedContentCache.h"

#include <QVBoxLayout>

namespace quillon {

struct EditorView::Parts {
    Parts(DocumentStore& store, Settings& settings, Scheduler& scheduler, QWidget* parent)
        : preview(store, derivedContentCache, settings, scheduler, parent) {}

    ArticleDerivedContentCache derivedContentCache{decodeImage};
    PreviewPane preview;
};

EditorView::EditorView(DocumentStore& store, Settings& settings, Scheduler& scheduler, QWidget* parent)
    : QWidget(parent), m_parts(std::make_unique<Parts>(store, settings, scheduler, this)) {
    setObjectName(QStringLiteral("editorView"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(&m_parts->preview);
    connect(&m_parts->preview, &PreviewPane::pageShown, this, &EditorView::pageShown);
}

EditorView::~EditorView() = default;

} // namespace quillon
