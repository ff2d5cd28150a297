#pragma once

#include <QRect>
#include <QSize>

#include <functional>
#include <optional>

class QObject;
class QWidget;

namespace quillon {

/// Where a new document window stands.
struct WindowPlacement {
    QRect frame; ///< with its decoration
    QSize minimumSize;

    bool operator==(const WindowPlacement&) const = default;
};

/// The placement on a screen with `available` room: nearly all of it. Nothing on a screen without room.
std::optional<WindowPlacement> initialPlacement(const QRect& available);

/// Places `window` one turn of the event loop from now, when the desktop has decorated it. A window without a
/// screen stays as it is.
void placeInitially(QWidget& window);

/// Calls `action` once the windows that are being shown right now have been placed; never, when `context` is
/// gone by then.
void afterPlacement(QObject& context, std::function<void()> action);

} // namespace quillon
