#pragma once

#include "document/DocumentStore.h"

#include <QTreeWidget>

#include <vector>

namespace quillon {

/// The article's components as a tree; the selected row is what is selected in the document.
class OutlineList : public QTreeWidget {
    Q_OBJECT

public:
    /// `store` outlives the list.
    OutlineList(DocumentStore& store, QWidget* parent);

private:
    /// One row, from top to bottom.
    struct Row {
        EditorSelection selection;
        int depth = 0; ///< 0 for the article
        QString text;
        std::string symbol;

        bool operator==(const Row&) const = default;
    };

    void collect(const List<Component>& components, int depth, std::vector<Row>& rows) const;
    void refresh();
    void showSelection();

    DocumentStore& m_store;
    std::vector<Row> m_rows;
    std::vector<QTreeWidgetItem*> m_items; ///< of m_rows
    Subscription m_subscription;
};

} // namespace quillon
