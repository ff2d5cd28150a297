#pragma once

#include "document/outline/ComponentRoleIcon.h"
#include "document/outline/OutlineDrag.h"
#include "document/outline/RowSwipe.h"

#include <QStyledItemDelegate>
#include <QVariantAnimation>

namespace quillon {

/// The colour of a role's symbol.
QColor roleColor(const ComponentRole& role);

/// Paints the rows of an outline.
class OutlineDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// What all rows look at. It outlives the delegate.
    struct State {
        OutlineDrag drag;
        RowSwipe swipe;
        bool showsDetails = false;
        bool showsFocus = false;         ///< the selected row has the focus ring
        std::optional<Uuid> activated;   ///< the component whose selection is being shown by an effect
        bool isArticleActivated = false; ///< the same for the article's row
        ComponentRoleIcon icon;          ///< of the component that is activated
    };

    OutlineDelegate(const State& state, QObject* parent);

    /// Plays the effect of the row that has just been selected; `changed` is called for each of its pictures.
    void play(const std::function<void()>& changed);

    /// The place of the mark that opens and closes `row`, in the row's viewport.
    static QRect chevronRect(const QRect& row, int depth);
    /// Where a row's text begins, in points from its left.
    static int textStart(int depth);

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

private:
    void paintRow(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    void paintIcon(QPainter& painter, const QRectF& frame, const QModelIndex& index, bool isSelected) const;

    const State& m_state;
    QVariantAnimation m_effect; ///< from 0 to 1
};

} // namespace quillon
