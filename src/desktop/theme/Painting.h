#pragma once

#include "desktop/theme/Tokens.h"

#include <QRectF>

class QPainter;

namespace quillon {

/// What a control shows of itself besides its contents.
struct ControlState {
    bool enabled = true;
    bool hovered = false;
    bool pressed = false;
    bool focused = false;  ///< shows the focus ring
    bool selected = false; ///< chosen, on, checked
};

/// The looks of a button's body.
enum class ButtonKind { Bordered, Prominent, Borderless, Destructive };

/// A radius that makes a capsule of any rectangle.
constexpr double capsule = 1e6;

/// Fills `rect` with corners of `radius`, at most half its shorter side.
void fillRounded(QPainter& painter, const QRectF& rect, double radius, const QColor& color);
/// Draws a line of `width` along the edge of `rect`, wholly inside of it.
void strokeRounded(QPainter& painter, const QRectF& rect, double radius, const QColor& color, double width);

/// The body of a field: surface, outline, and the focus ring in its place.
void drawFieldBody(QPainter& painter, const QRectF& rect, const ControlState& state);
/// The body of a button. A focused one leaves room for its ring.
void drawButtonBody(QPainter& painter, const QRectF& rect, ButtonKind kind, const ControlState& state);
/// The hover and pressed looks of what has no body of its own, and its focus ring.
void drawQuietBody(QPainter& painter, const QRectF& rect, double radius, const ControlState& state);
void drawFocusRing(QPainter& painter, const QRectF& rect, double radius);
/// A check box: a box, with a mark when selected. `isMixed` draws a bar in place of the mark.
void drawCheckBox(QPainter& painter, const QRectF& rect, const ControlState& state, bool isMixed);

/// The colour of a button's title and symbol.
QColor buttonTextColor(ButtonKind kind, const ControlState& state);

} // namespace quillon
