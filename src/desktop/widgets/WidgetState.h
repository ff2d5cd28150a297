#pragma once

#include "desktop/theme/Painting.h"

class QWidget;

namespace quillon {

/// How `widget` stands: enabled, below the pointer, with the keyboard; of a button, pressed and chosen, too.
/// The keyboard shows only in the active window.
ControlState widgetState(const QWidget& widget);

/// Makes `widget` look, from now on, as if it stood like `state`: for pictures of it.
void pretendState(QWidget& widget, const ControlState& state);

} // namespace quillon
