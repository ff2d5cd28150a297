#pragma once

#include <QPointF>
#include <QWebEngineView>

#include <optional>

namespace quillon {

/// The engine's view with what a preview needs of its events, which the engine keeps to itself, and with a
/// menu of what makes sense there.
class WebView : public QWebEngineView {
    Q_OBJECT

public:
    using QWebEngineView::QWebEngineView;

Q_SIGNALS:
    void reloadRequested();
    /// A press and a release in one place, in points from the upper left corner.
    void clicked(const QPointF& place);
    /// The wheel was turned at a place, in one direction, in eighths of a degree.
    void wheelTurned(const QPointF& place, const QPoint& turn);
    /// Whether the page has the keyboard and got it by a key.
    void keyboardShown(bool isShown);

protected:
    void childEvent(QChildEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void followPress(const QMouseEvent& event);
    void followWheel(const QWheelEvent& event);
    void followFocus(const QFocusEvent& event);

    std::optional<QPointF> m_press;
    bool m_isByKeyboard = false;
};

} // namespace quillon
