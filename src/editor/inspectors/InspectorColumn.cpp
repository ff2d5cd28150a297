#include "editor/inspectors/InspectorColumn.h"

#include "desktop/DocumentText.h"
#include "desktop/theme/Theme.h"
#include "desktop/widgets/EmptyState.h"
#include "desktop/widgets/Header.h"
#include "document/EditorOperations.h"

#include <QPainter>
#include <QStackedLayout>
#include <QVBoxLayout>

namespace quillon {

struct InspectorColumn::Parts {
    DocumentStore& store;
    QStackedLayout* pages = nullptr;
    EmptyState* empty = nullptr;
    QWidget* selected = nullptr;
    Header* header = nullptr;
    Subscription subscription = {};
};

InspectorColumn::InspectorColumn(DocumentStore& store, QWidget* parent)
    : QWidget(parent), m_parts(new Parts{.store = store}) {
    Parts& parts = *m_parts;
    setObjectName(QStringLiteral("inspector"));
    setAccessibleName(tr("Inspector"));
    parts.pages = new QStackedLayout(this);
    parts.empty = new EmptyState({.symbol = "square.dashed", .title = tr("No Component Selected")}, this);
    parts.selected = new QWidget(this);
    parts.header = new Header("newspaper", QString(), QString(), parts.selected);
    auto* column = new QVBoxLayout(parts.selected);
    column->addWidget(parts.header);
    column->addStretch(1);
    parts.pages->addWidget(parts.empty);
    parts.pages->addWidget(parts.selected);
    parts.subscription = store.observe([this](const StoreChange& change) {
        if (change.article || change.selection) {
            refresh();
        }
    });
    connect(&theme(), &Theme::changed, this, [this] { update(); });
    refresh();
}

InspectorColumn::~InspectorColumn() = default;

void InspectorColumn::refresh() {
    Parts& parts = *m_parts;
    const auto& selected = parts.store.selection().component;
    if (!selected) {
        parts.header->setContent("newspaper", tr("Article"), shownTitle(parts.store.article().title));
        parts.pages->setCurrentWidget(parts.selected);
        return;
    }
    const auto access = componentAccess(parts.store, *selected);
    if (!access) {
        parts.pages->setCurrentWidget(parts.empty);
        return;
    }
    const Component component = access->read();
    parts.header->setContent(std::string(component.role.filledSymbolName()),
                             QString::fromStdString(component.role.displayName()),
                             shownLine(component.summary()));
    parts.pages->setCurrentWidget(parts.selected);
}

void InspectorColumn::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), theme().colors().window);
}

} // namespace quillon
