#include "editor/outline/OutlineDragging.h"

#include "desktop/theme/Painting.h"
#include "desktop/theme/Symbols.h"
#include "desktop/theme/Theme.h"
#include "editor/outline/OutlineDelegate.h"
#include "editor/outline/OutlineModel.h"

#include <QFontMetricsF>
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
constexpr double ghostOpacity = 0.9;
constexpr QPoint ghostPlace(14, 10); ///< from the pointer, so that it hides neither line nor tint

/// The symbol and the name of a component on a card.
QPixmap ghostPicture(const Component& component, double scale) {
    const QFont font = theme().font(TextSize::Body);
    const QString name = QString::fromStdString(component.role.displayName());
    const double symbol = symbolExtent(symbolSize::pill);
    const QSizeF size(3 * distance::beside + symbol + QFontMetricsF(font).horizontalAdvance(name),
                      extent::control);
    QPixmap picture((size * scale).toSize());
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    const ThemeColors& colors = theme().colors();
    const QRectF card({0, 0}, size);
    fillRounded(painter, card, radius::row, faded(colors.surface, ghostOpacity));
    strokeRounded(painter, card, radius::row, colors.separator, extent::line);
    drawSymbol(painter, {distance::beside, 0, symbol, size.height()}, component.role.symbolName(),
               symbolSize::pill, roleColor(component.role), SymbolWeight::Medium);
    painter.setFont(font);
    painter.setPen(colors.text);
    painter.drawText(card.adjusted(2 * distance::beside + symbol, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                     name);
    return picture;
}

} // namespace

OutlineDragging::OutlineDragging(QTreeView& view, OutlineDrag& drag)
    : QObject(&view), m_view(view), m_drag(drag) {}

OutlineDragging::~OutlineDragging() = default;

void OutlineDragging::begin(const QModelIndex& row, const QPoint& place) {
    m_ghost = new QLabel(m_view.viewport());
    m_ghost->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_ghost->setPixmap(ghostPicture(*OutlineModel::component(row), m_view.devicePixelRatioF()));
    m_ghost->adjustSize();
    m_ghost->show();
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
    // Where the rows fill the view the strip lies below it.
    const QRect& viewport = m_view.viewport()->rect();
    const int top = std::min(m_view.visualRect(last).bottom() + 1, viewport.bottom() + 1);
    return {0, top, viewport.width(), rootDropZoneHeight};
}

OutlineDragging::Target OutlineDragging::targetAt(const QPoint& place) const {
    const QRect zone = rootDropZone();
    if (zone.contains(place)) {
        return Target::root;
    }
    if (!m_view.viewport()->rect().contains(place)) {
        return Target::none;
    }
    const QModelIndex index = m_view.indexAt(place);
    if (index.isValid()) {
        return OutlineModel::component(index) ? Target::row : Target::root;
    }
    return Target::root;
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
    m_ghost->move(place + ghostPlace);
    m_ghost->raise();
    follow();
}

/// Tells the row below the pointer of it, which may have come there by scrolling.
void OutlineDragging::follow() {
    if (!isActive()) {
        return;
    }
    const Target target = targetAt(m_place);
    const QModelIndex over = target == Target::none ? QModelIndex() : m_view.indexAt(m_place);
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
    if (!isActive()) {
        return;
    }
    m_drag.end();
    m_ticks.stop();
    delete m_ghost.data();
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
        m_ghost->move(m_place + ghostPlace);
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
