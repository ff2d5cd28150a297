#include "editor/outline/OutlineDragging.h"

#include "desktop/theme/Theme.h"
#include "editor/outline/OutlineModel.h"

#include <QLabel>
#include <QPainter>
#include <QScrollBar>
#include <QTimerEvent>
#include <QTreeView>

#include <algorithm>

namespace quillon {

namespace {

constexpr int tick = 16;         ///< milliseconds
constexpr int openingTime = 600; ///< milliseconds of waiting that open a container
constexpr int edgeHeight = 28;   ///< of the strips in which the view scrolls, in points
constexpr int fastest = 16;      ///< points a tick
constexpr int zoneHeight = 14;
constexpr double ghostOpacity = 0.75;

} // namespace

OutlineDragging::OutlineDragging(QTreeView& view, OutlineDrag& drag)
    : QObject(&view), m_view(view), m_drag(drag) {}

OutlineDragging::~OutlineDragging() = default;

void OutlineDragging::begin(const QModelIndex& row, const QPoint& place) {
    const QRect rect = m_view.visualRect(row);
    QPixmap picture(rect.size() * m_view.devicePixelRatioF());
    picture.setDevicePixelRatio(m_view.devicePixelRatioF());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setOpacity(ghostOpacity);
    painter.drawPixmap(QPoint(), m_view.viewport()->grab(rect));
    painter.end();
    m_ghost = std::make_unique<QLabel>(m_view.viewport());
    m_ghost->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_ghost->setPixmap(picture);
    m_ghost->resize(rect.size());
    m_ghost->show();
    m_grip = place - rect.topLeft();
    m_drag.begin(OutlineModel::component(row)->id);
    m_ticks.start(tick, this);
    moveTo(place);
}

QRect OutlineDragging::rootDropZone() const {
    const QAbstractItemModel& model = *m_view.model();
    QModelIndex last = model.index(0, 0);
    while (m_view.isExpanded(last) && model.rowCount(last) > 0) {
        last = model.index(model.rowCount(last) - 1, 0, last);
    }
    return {0, m_view.visualRect(last).bottom() + 1, m_view.viewport()->width(), zoneHeight};
}

OutlineDragging::Target OutlineDragging::targetAt(const QPoint& place) const {
    const QRect& viewport = m_view.viewport()->rect();
    if (place.x() < viewport.left() || place.x() > viewport.right()) {
        return Target::none;
    }
    const QModelIndex index = m_view.indexAt(place);
    if (index.isValid()) {
        return OutlineModel::component(index) ? Target::row : Target::root;
    }
    return place.y() >= rootDropZone().top() ? Target::root : Target::none;
}

void OutlineDragging::leave() {
    if (const Component* component = OutlineModel::component(m_over)) {
        ComponentRowDropDelegate{*component, 0, m_drag}.left();
    }
    if (m_isOverRoot) {
        ComponentRootDropDelegate{m_drag}.left();
    }
    m_isOverRoot = false;
}

void OutlineDragging::moveTo(const QPoint& place) {
    if (!isActive()) {
        return;
    }
    m_place = place;
    m_ghost->move(place - m_grip);
    m_ghost->raise();
    follow();
}

/// Tells the row below the pointer of it, which may have come there by scrolling.
void OutlineDragging::follow() {
    const Target target = targetAt(m_place);
    const QModelIndex over = m_view.indexAt(m_place);
    if (over != m_over) {
        leave();
        m_over = over;
        m_waiting.restart();
    }
    DropProposal proposal = DropProposal::forbidden;
    if (target == Target::row) {
        const QRect rect = m_view.visualRect(over);
        const ComponentRowDropDelegate row{*OutlineModel::component(over), 1.0 * rect.height(), m_drag};
        proposal = row.enteredOrMoved(m_place.y() - rect.top());
    } else if (target == Target::root) {
        m_isOverRoot = true;
        proposal = ComponentRootDropDelegate{m_drag}.enteredOrMoved();
    } else {
        leave();
    }
    m_view.viewport()->setCursor(proposal == DropProposal::move ? Qt::ClosedHandCursor : Qt::ForbiddenCursor);
    m_view.viewport()->update();
}

void OutlineDragging::dropAt(const QPoint& place) {
    moveTo(place);
    const Target target = targetAt(place);
    if (target == Target::row) {
        const QModelIndex index = m_view.indexAt(place);
        const QRect rect = m_view.visualRect(index);
        // The drop changes the rows.
        const Component component = *OutlineModel::component(index);
        (void)ComponentRowDropDelegate{component, 1.0 * rect.height(), m_drag}.dropped(place.y() -
                                                                                       rect.top());
    } else if (target == Target::root) {
        (void)ComponentRootDropDelegate{m_drag}.dropped();
    }
    end();
}

void OutlineDragging::cancel() {
    end();
}

void OutlineDragging::end() {
    m_drag.end();
    m_ticks.stop();
    m_ghost.reset();
    m_over = QModelIndex();
    m_isOverRoot = false;
    m_view.viewport()->unsetCursor();
    m_view.viewport()->update();
}

void OutlineDragging::timerEvent(QTimerEvent* event) {
    if (event->timerId() == m_ticks.timerId()) {
        scrollAtEdge();
        openWhatWaits();
    }
}

void OutlineDragging::scrollAtEdge() {
    const int height = m_view.viewport()->height();
    const int above = edgeHeight - m_place.y();
    const int below = m_place.y() - (height - edgeHeight);
    const int depth = std::max(above, below);
    if (depth <= 0) {
        return;
    }
    const int step = std::clamp(depth * fastest / edgeHeight, 1, fastest);
    QScrollBar& bar = *m_view.verticalScrollBar();
    const int before = bar.value();
    bar.setValue(before + (above > below ? -step : step));
    if (bar.value() != before) {
        m_ghost->move(m_place - m_grip);
        follow();
    }
}

void OutlineDragging::openWhatWaits() {
    const bool isClosed = m_over.isValid() && OutlineModel::isContainer(m_over) && !m_view.isExpanded(m_over);
    const Component* component = OutlineModel::component(m_over);
    const bool isInside =
        !component || m_drag.activeDropIntent == ComponentDropIntent::appendChild(component->id);
    if (isClosed && isInside && m_waiting.elapsed() >= openingTime) {
        m_view.expand(m_over);
    }
}

} // namespace quillon
