#pragma once

#include "desktop/Settings.h"
#include "document/DocumentStore.h"
#include "editor/outline/OutlineDelegate.h"
#include "editor/outline/OutlineModel.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QTreeView>

#include <unordered_set>

namespace quillon {

class OutlineDragging;

/// The sidebar of a document window: the article as a tree of rows, in which components are selected, opened
/// and closed, dragged to other places and deleted.
class ComponentOutlineView : public QTreeView {
    Q_OBJECT

public:
    /// Both outlive the view.
    ComponentOutlineView(DocumentStore& store, Settings& settings, QWidget* parent);
    ~ComponentOutlineView() override;

    void keyboardSearch(const QString& search) override;

Q_SIGNALS:
    /// The user wants to edit what is selected.
    void editRequested();

protected:
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& options,
                 const QModelIndex& index) const override;
    void drawBranches(QPainter*, const QRect&, const QModelIndex&) const override {}
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
    void wheelEvent(QWheelEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
    void followArticle();
    void followSelection();
    /// Shows that a row has just been selected.
    void activate(const QModelIndex& index);
    void openAll(const QModelIndex& parent, int first, int last);
    bool drop(const Uuid& id, const ComponentDropIntent& intent);
    void endSwipe(bool mayPress);
    bool isOnChevron(const QModelIndex& index, const QPoint& place) const;
    bool matches(const QModelIndex& index, const QString& search) const;
    QModelIndex visibleAncestor(QModelIndex index) const;
    void showFocus(bool shows);

    DocumentStore& m_store;
    Settings& m_settings;
    OutlineModel m_model;
    OutlineDelegate::State m_state;
    OutlineDelegate m_delegate;
    std::unordered_set<Uuid> m_closed; ///< containers that the user has closed since the last edit
    std::pair<const OutlineNode*, std::size_t> m_selectedPlace; ///< parent and row of what is selected
    bool m_isFollowing = false; ///< what the view changes now comes from the document
    OutlineDragging* m_dragging;
    QTimer m_swipeEnd; ///< for devices that do not say when the fingers leave
    QPersistentModelIndex m_pressed;
    QPoint m_pressPlace;
    QString m_searched;
    QElapsedTimer m_lastSearch;
    Subscription m_subscription;
};

} // namespace quillon
