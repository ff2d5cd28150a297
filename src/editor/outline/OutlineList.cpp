#include "editor/outline/OutlineList.h"

#include "desktop/DocumentText.h"
#include "desktop/theme/Symbols.h"
#include "desktop/theme/Theme.h"

#include <QHeaderView>

#include <algorithm>
#include <utility>

namespace quillon {

OutlineList::OutlineList(DocumentStore& store, QWidget* parent) : QTreeWidget(parent), m_store(store) {
    setObjectName(QStringLiteral("outline"));
    setAccessibleName(tr("Outline"));
    setFrameShape(QFrame::NoFrame);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setIndentation(distance::around);
    viewport()->setBackgroundRole(QPalette::NoRole);
    connect(this, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        const auto place = std::find(m_items.begin(), m_items.end(), item);
        if (place != m_items.end()) {
            m_store.select(m_rows[static_cast<std::size_t>(place - m_items.begin())].selection);
        }
    });
    m_subscription = store.observe([this](const StoreChange& change) {
        if (change.article) {
            refresh();
        }
        if (change.article || change.selection) {
            showSelection();
        }
    });
    refresh();
    showSelection();
}

void OutlineList::collect(const List<Component>& components, int depth, std::vector<Row>& rows) const {
    for (const Component& component : components) {
        rows.push_back({EditorSelection::ofComponent(component.id), depth,
                        QString::fromStdString(component.role.displayName()),
                        std::string(component.role.symbolName())});
        if (component.role.isContainer() && component.components) {
            collect(*component.components, depth + 1, rows);
        }
    }
}

void OutlineList::refresh() {
    std::vector<Row> rows = {{EditorSelection::document(), 0, tr("Article"), "newspaper"}};
    collect(m_store.article().components, 1, rows);
    if (rows == m_rows) {
        return;
    }
    const QSignalBlocker quiet(this);
    m_items.clear();
    clear();
    m_rows = std::move(rows);
    std::vector<QTreeWidgetItem*> path; // the last row of each depth
    for (const Row& row : m_rows) {
        path.resize(static_cast<std::size_t>(row.depth));
        auto* item = path.empty() ? new QTreeWidgetItem(this) : new QTreeWidgetItem(path.back());
        item->setText(0, row.text);
        item->setIcon(0, symbolIcon(row.symbol));
        path.push_back(item);
        m_items.push_back(item);
    }
    expandAll();
}

void OutlineList::showSelection() {
    const auto row = std::find_if(m_rows.begin(), m_rows.end(),
                                  [&](const Row& each) { return each.selection == m_store.selection(); });
    const QSignalBlocker quiet(this);
    setCurrentItem(row == m_rows.end() ? nullptr : m_items[static_cast<std::size_t>(row - m_rows.begin())]);
}

} // namespace quillon
