#include "desktop/WebView.h"

#include "desktop/widgets/WidgetState.h"

#include <QApplication>
#include <QChildEvent>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QTimer>

#include <cstdlib>

namespace quillon {

/// What is dropped on a page belongs to the window. The engine's own widgets come and go with its process and
/// take all drops.
void WebView::childEvent(QChildEvent* event) {
    QWebEngineView::childEvent(event);
    if (event->added() && event->child()->isWidgetType()) {
        auto* widget = static_cast<QWidget*>(event->child());
        QTimer::singleShot(0, widget, [widget] { widget->setAcceptDrops(false); });
        widget->installEventFilter(this);
    }
}

bool WebView::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
        followPress(*static_cast<QMouseEvent*>(event));
        break;
    case QEvent::Wheel:
        followWheel(*static_cast<QWheelEvent*>(event));
        break;
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        followFocus(*static_cast<QFocusEvent*>(event));
        break;
    default:
        break;
    }
    return QWebEngineView::eventFilter(watched, event);
}

void WebView::followPress(const QMouseEvent& event) {
    const bool isLeft = event.button() == Qt::LeftButton && !event.modifiers();
    if (event.type() == QEvent::MouseButtonPress) {
        m_isByKeyboard = false;
        Q_EMIT keyboardShown(false);
        m_press = isLeft ? std::optional(event.position()) : std::nullopt;
    } else if (isLeft && m_press &&
               (event.position() - *m_press).manhattanLength() < QApplication::startDragDistance()) {
        Q_EMIT clicked(event.position());
    }
}

/// As the engine takes it: Shift turns the wheel sideways, and with Ctrl it is for the zoom.
void WebView::followWheel(const QWheelEvent& event) {
    QPoint turn = event.angleDelta();
    if (event.modifiers() & Qt::ShiftModifier && turn.x() == 0) {
        turn = turn.transposed();
    }
    (std::abs(turn.x()) > std::abs(turn.y()) ? turn.ry() : turn.rx()) = 0;
    if (!turn.isNull() && !(event.modifiers() & Qt::ControlModifier)) {
        Q_EMIT wheelTurned(event.position(), turn);
    }
}

void WebView::followFocus(const QFocusEvent& event) {
    if (event.gotFocus()) {
        followFocusReason(m_isByKeyboard, event.reason());
    }
    Q_EMIT keyboardShown(event.gotFocus() && m_isByKeyboard);
}

void WebView::contextMenuEvent(QContextMenuEvent* event) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction* copy = menu->addAction(tr("Copy"));
    copy->setEnabled(hasSelection());
    connect(copy, &QAction::triggered, this, [this] { triggerPageAction(QWebEnginePage::Copy); });
    connect(menu->addAction(tr("Reload Preview")), &QAction::triggered, this, &WebView::reloadRequested);
    menu->popup(event->globalPos());
}

} // namespace quillon
