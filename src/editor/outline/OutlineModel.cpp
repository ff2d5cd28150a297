#include "editor/outline/OutlineModel.h"

#include "desktop/DocumentText.h"

namespace quillon {

OutlineModel::OutlineModel(QObject* parent) : QAbstractItemModel(parent), m_tree(watcher()) {}

OutlineTree::Watcher OutlineModel::watcher() {
    const auto last = [](std::size_t first, std::size_t count) {
        return static_cast<int>(first + count) - 1;
    };
    return {
        .willInsert =
            [this, last](const OutlineNode& parent, std::size_t first, std::size_t count) {
                beginInsertRows(indexOf(parent), static_cast<int>(first), last(first, count));
            },
        .inserted = [this] { endInsertRows(); },
        .willRemove =
            [this, last](const OutlineNode& parent, std::size_t first, std::size_t count) {
                beginRemoveRows(indexOf(parent), static_cast<int>(first), last(first, count));
            },
        .removed = [this] { endRemoveRows(); },
        .changed =
            [this](const OutlineNode& node) {
                const QModelIndex index = indexOf(node);
                Q_EMIT dataChanged(index, index);
            },
    };
}

bool OutlineModel::setArticle(const QString& title, const List<Component>& components) {
    const bool isNew = !(components == m_tree.components());
    m_tree.update(components);
    if (title != m_title) {
        m_title = title;
        Q_EMIT dataChanged(articleIndex(), articleIndex());
    }
    return isNew;
}

QModelIndex OutlineModel::indexOf(const OutlineNode& node) const {
    return createIndex(static_cast<int>(node.row), 0, &node);
}

QModelIndex OutlineModel::indexOf(const Uuid& id) const {
    const OutlineNode* node = m_tree.find(id);
    return node ? indexOf(*node) : QModelIndex();
}

const OutlineNode& OutlineModel::node(const QModelIndex& index) {
    return *static_cast<const OutlineNode*>(index.constInternalPointer());
}

const Component* OutlineModel::component(const QModelIndex& index) {
    return index.isValid() && node(index).component ? &**node(index).component : nullptr;
}

bool OutlineModel::isContainer(const QModelIndex& index) {
    const Component* shown = component(index);
    return index.isValid() && (!shown || shown->role.isContainer());
}

QModelIndex OutlineModel::index(int row, int, const QModelIndex& parent) const {
    if (row < 0 || row >= rowCount(parent)) {
        return {};
    }
    return parent.isValid() ? indexOf(*node(parent).children[static_cast<std::size_t>(row)]) : articleIndex();
}

QModelIndex OutlineModel::parent(const QModelIndex& index) const {
    const OutlineNode* above = index.isValid() ? node(index).parent : nullptr;
    return above ? indexOf(*above) : QModelIndex();
}

int OutlineModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? static_cast<int>(node(parent).children.size()) : 1;
}

/// An empty container can be opened all the same: that is where the next drop goes.
bool OutlineModel::hasChildren(const QModelIndex& parent) const {
    return !parent.isValid() || isContainer(parent);
}

QVariant OutlineModel::data(const QModelIndex& index, int role) const {
    const Component* shown = component(index);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        return shown ? QString::fromStdString(shown->role.displayName()) : tr("Article");
    case Qt::AccessibleDescriptionRole: {
        const QString text = shown ? shownLine(shown->summary()) : m_title;
        const int level = node(index).depth() + 2;
        const QString place = tr("level %1").arg(level);
        return text.isEmpty() ? place : text + QStringLiteral(", ") + place;
    }
    default:
        return {};
    }
}

} // namespace quillon
