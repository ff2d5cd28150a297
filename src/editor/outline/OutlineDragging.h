#pragma once

#include "document/outline/OutlineDrag.h"

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QLabel>
#include <QObject>
#include <QPersistentModelIndex>
#include <QPoint>
#include <QPointer>

class QTreeView;

namespace quillon {

/// A row of an outline on its way with the pointer: what it is over, the picture that goes along, scrolling
/// at the edges, and containers that open while it waits over them. The drag goes on within the view alone.
class OutlineDragging : public QObject {
    Q_OBJECT

public:
    /// `drag` is shared with whatever paints the rows; both outlive this.
    OutlineDragging(QTreeView& view, OutlineDrag& drag);
    ~OutlineDragging() override;

    bool isActive() const { return m_ghost != nullptr; }
    /// `place` is in the viewport, as in all of these.
    void begin(const QModelIndex& row, const QPoint& place);
    void moveTo(const QPoint& place);
    void dropAt(const QPoint& place);
    void cancel();
    /// The rows below the pointer are others now.
    void follow();

    /// The height of the strip below the rows.
    static constexpr int rootDropZoneHeight = 14;
    /// The strip below the last row where a drop goes to the end of the article.
    QRect rootDropZone() const;

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    enum class Target { none, row, root };

    Target targetAt(const QPoint& place) const;
    void leave();
    void scrollAtEdge();
    void openWhatWaits();
    void end();

    QTreeView& m_view;
    OutlineDrag& m_drag;
    QPointer<QLabel> m_ghost; ///< while a row is dragged
    QPoint m_place;
    QPersistentModelIndex m_over; ///< the row that the last event was for
    bool m_isOverRoot = false;
    QElapsedTimer m_waiting; ///< since the pointer came to m_over
    QBasicTimer m_ticks;
};

} // namespace quillon
