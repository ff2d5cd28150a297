#pragma once

#include "document/outline/OutlineTree.h"

#include <QAbstractItemModel>

namespace quillon {

/// An outline's rows for a view: one row for the article, and below it those of its components.
class OutlineModel : public QAbstractItemModel {
    Q_OBJECT

public:
    explicit OutlineModel(QObject* parent);

    /// Follows the article; says whether its components are others. Rows that stay keep their indexes.
    bool setArticle(const QString& title, const List<Component>& components);

    QModelIndex articleIndex() const { return createIndex(0, 0, &m_tree.article()); }
    QModelIndex indexOf(const OutlineNode& node) const;
    /// Invalid where no row shows the component.
    QModelIndex indexOf(const Uuid& id) const;
    /// The node of a valid index.
    static const OutlineNode& node(const QModelIndex& index);
    /// The component of an index; null for the article's row and for an invalid one.
    static const Component* component(const QModelIndex& index);
    static bool isContainer(const QModelIndex& index);
    const QString& title() const { return m_title; }

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex&) const override { return 1; }
    bool hasChildren(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    OutlineTree::Watcher watcher();

    QString m_title;
    OutlineTree m_tree;
};

} // namespace quillon
