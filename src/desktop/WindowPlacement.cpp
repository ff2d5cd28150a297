#include "desktop/WindowPlacement.h"

#include <QMargins>
#include <QScreen>
#include <QTimer>
#include <QWidget>

#include <utility>

namespace quillon {

namespace {

constexpr int inset = 32; ///< between the window and the edges of the screen
constexpr QSize smallestWindow(1180, 720);

void place(QWidget& window) {
    const QScreen* screen = window.screen();
    const auto placement = screen ? initialPlacement(screen->availableGeometry()) : std::nullopt;
    if (!placement) {
        return;
    }
    const QSize decoration = window.frameGeometry().size() - window.geometry().size();
    window.move(placement->frame.topLeft());
    window.resize(placement->frame.size() - decoration);
    window.setMinimumSize(placement->minimumSize - decoration);
}

} // namespace

std::optional<WindowPlacement> initialPlacement(const QRect& available) {
    const QRect frame = available.marginsRemoved(QMargins(inset, inset, inset, inset));
    if (!frame.isValid()) {
        return std::nullopt;
    }
    return WindowPlacement{frame, smallestWindow.boundedTo(frame.size())};
}

void placeInitially(QWidget& window) {
    QTimer::singleShot(0, &window, [&window] { place(window); });
}

void afterPlacement(QObject& context, std::function<void()> action) {
    // The first turn may come before that of a window whose contents were shown before itself.
    QTimer::singleShot(0, &context,
                       [&context, action = std::move(action)] { QTimer::singleShot(0, &context, action); });
}

} // namespace quillon
