#include "editor/EditorView.h"

#include "desktop/DeleteAtRest.h"
#include "desktop/ImageDecoding.h"
#include "desktop/PreviewWebWidget.h"
#include "desktop/theme/Theme.h"
#include "document/EditorOperations.h"
#include "editor/EditorColumns.h"
#include "editor/EditorToolbar.h"
#include "editor/EditorWindowState.h"
#include "editor/FindBar.h"
#include "editor/JSONSourceView.h"
#include "editor/PreviewPane.h"
#include "editor/inspectors/InspectorColumn.h"
#include "editor/outline/ComponentOutlineView.h"
#include "editor/outline/OutlineDragging.h"
#include "preview/ArticleDerivedContentCache.h"

#include <QList>
#include <QPainter>
#include <QPointer>
#include <QVBoxLayout>
#include <QWebEngineView>

#include <functional>
#include <utility>
#include <vector>

namespace quillon {

namespace {

/// The outline with a little room above its first row, and below the last one the strip where drops go to the
/// end of the article.
class OutlineColumn : public QWidget {
public:
    OutlineColumn(QWidget& outline, QWidget* parent) : QWidget(parent) {
        auto* column = new QVBoxLayout(this);
        column->setContentsMargins(0, distance::inside, 0, OutlineDragging::rootDropZoneHeight);
        column->addWidget(&outline);
        setFocusProxy(&outline);
        connect(&theme(), &Theme::changed, this, [this] { update(); });
    }

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), theme().colors().sidebar); }
};

} // namespace

struct EditorView::Parts {
    Parts(DocumentStore& theStore, Settings& theSettings, Scheduler& theScheduler)
        : store(theStore), settings(theSettings), scheduler(theScheduler) {}

    DocumentStore& store;
    Settings& settings;
    Scheduler& scheduler;
    EditorWindowState state;
    ArticleDerivedContentCache derivedContentCache{decodeImage};
    EditorColumns* columns = nullptr;
    QWidget* outline = nullptr;
    QWidget* middle = nullptr;
    QWidget* inspector = nullptr;
    std::unique_ptr<PreviewPane> preview; ///< only while the page is shown
    QList<QPointer<PreviewPane>> retired; ///< that wait to be deleted
    std::unique_ptr<JSONSourceView> json; ///< only while the JSON is shown
    std::unique_ptr<FindBar> find;        ///< of the JSON
    Subscription subscription;

    bool hasFocus(const QWidget* part) const {
        const QWidget* focused = part->window()->focusWidget();
        return focused && (focused == part || part->isAncestorOf(focused));
    }
};

EditorView::EditorView(DocumentStore& store, Settings& settings, Scheduler& scheduler, QWidget* parent)
    : QWidget(parent), m_parts(std::make_unique<Parts>(store, settings, scheduler)) {
    Parts& parts = *m_parts;
    setObjectName(QStringLiteral("editorView"));
    parts.middle = new QWidget(this);
    auto* middle = new QVBoxLayout(parts.middle);
    middle->setContentsMargins({});
    middle->setSpacing(0);
    auto* toolbar = new EditorToolbar(
        parts.state, [&store](const ComponentRole& role) { addComponent(store, role); }, this);
    auto* outline = new ComponentOutlineView(store, settings, this);
    parts.outline = new OutlineColumn(*outline, this);
    parts.inspector = new InspectorColumn(store, this);
    parts.columns = new EditorColumns(parts.outline, parts.middle, parts.inspector, this);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(0);
    column->addWidget(toolbar);
    column->addWidget(parts.columns, 1);
    connect(outline, &ComponentOutlineView::editRequested, this, [&parts] {
        if (parts.state.sidebars().inspector) {
            parts.inspector->setFocus();
        }
    });
    connect(&parts.state, &EditorWindowState::changed, this, [this] { refresh(); });
    parts.subscription = store.observe([this](const StoreChange& change) {
        if (change.article) {
            refresh();
        }
    });
    refresh();
}

EditorView::~EditorView() {
    for (const QPointer<PreviewPane>& pane : m_parts->retired) {
        delete pane.data();
    }
}

void EditorView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    // Else the first control of the toolbar would have the keyboard, and show it, in every new window.
    if (!window()->focusWidget()) {
        m_parts->outline->setFocus();
    }
}

DocumentStore& EditorView::store() const {
    return m_parts->store;
}

EditorWindowState& EditorView::state() const {
    return m_parts->state;
}

PreviewPane* EditorView::preview() const {
    return m_parts->preview.get();
}

JSONSourceView* EditorView::json() const {
    return m_parts->json.get();
}

FindBar* EditorView::find() const {
    return m_parts->find.get();
}

/// Switching makes a view anew; what was derived for it stays in the cache. A new one is shown at once: else
/// it would be there, and could take the keyboard, only in the next turn of the event loop.
void EditorView::refresh() {
    Parts& parts = *m_parts;
    const Sidebars& sidebars = parts.state.sidebars();
    const bool isJSON = parts.state.mode() == PreviewMode::json;
    const bool isSwitch = isJSON ? !parts.json : !parts.preview;
    // What had the keyboard and goes away would hand it to some control of the toolbar.
    const bool isFocusLost = (isSwitch && parts.hasFocus(parts.middle)) ||
                             (!sidebars.outline && parts.hasFocus(parts.outline)) ||
                             (!sidebars.inspector && parts.hasFocus(parts.inspector));
    if (isFocusLost) {
        // What is hidden with the keyboard would hand it on as Tab does, and a page that gets it so scrolls
        // to its first link.
        setFocus();
    }
    parts.columns->setSidebars(sidebars);
    if (isJSON) {
        showJSON();
    } else {
        showPreview();
    }
    if (isFocusLost) {
        focusMiddle();
    }
}

void EditorView::focusMiddle() {
    if (m_parts->json) {
        m_parts->json->setFocus(Qt::ShortcutFocusReason);
    } else {
        m_parts->preview->webWidget().view()->setFocus(Qt::ShortcutFocusReason);
    }
}

void EditorView::focusNextColumn() {
    Parts& parts = *m_parts;
    const auto canHaveFocus = [](QWidget* column) {
        return column->isVisible() && (column->focusProxy() || column->focusPolicy() != Qt::NoFocus);
    };
    std::vector<std::pair<QWidget*, std::function<void()>>> columns;
    if (canHaveFocus(parts.outline)) {
        columns.emplace_back(parts.outline, [&parts] { parts.outline->setFocus(Qt::TabFocusReason); });
    }
    columns.emplace_back(parts.middle, [this] { focusMiddle(); });
    if (canHaveFocus(parts.inspector)) {
        columns.emplace_back(parts.inspector, [&parts] { parts.inspector->setFocus(Qt::TabFocusReason); });
    }
    std::size_t current = columns.size() - 1;
    for (std::size_t column = 0; column < columns.size(); ++column) {
        current = parts.hasFocus(columns[column].first) ? column : current;
    }
    columns[(current + 1) % columns.size()].second();
}

void EditorView::showJSON() {
    Parts& parts = *m_parts;
    retirePreview();
    if (!parts.json) {
        parts.json = std::make_unique<JSONSourceView>(parts.middle);
        parts.find = std::make_unique<FindBar>(*parts.json, parts.middle);
        parts.middle->layout()->addWidget(parts.find.get());
        parts.middle->layout()->addWidget(parts.json.get());
        parts.json->show();
    }
    parts.json->setJSON(parts.derivedContentCache.jsonText(parts.store.article()));
}

/// Not deleted at once: the engine may be in the middle of an event, and while it goes it hands back the keys
/// that its page has not taken up, which are commands of the window.
void EditorView::retirePreview() {
    Parts& parts = *m_parts;
    if (PreviewPane* pane = parts.preview.release()) {
        parts.middle->layout()->removeWidget(pane);
        pane->retire();
        parts.retired.removeIf([](const QPointer<PreviewPane>& each) { return each.isNull(); });
        parts.retired.append(pane);
        deleteAtRest(pane);
    }
}

void EditorView::showPreview() {
    Parts& parts = *m_parts;
    parts.find.reset();
    parts.json.reset();
    if (!parts.preview) {
        parts.preview = std::make_unique<PreviewPane>(parts.store, parts.derivedContentCache, parts.settings,
                                                      parts.scheduler, parts.middle);
        // Before it is shown, as it begins to render then.
        parts.preview->setChoice(parts.state.choice());
        parts.middle->layout()->addWidget(parts.preview.get());
        parts.preview->show();
        connect(parts.preview.get(), &PreviewPane::pageShown, this, &EditorView::pageShown);
        connect(parts.preview.get(), &PreviewPane::componentClicked, this,
                [&parts](const Uuid& id) { parts.store.select(EditorSelection::ofComponent(id)); });
    }
    parts.preview->setChoice(parts.state.choice());
}

} // namespace quillon
