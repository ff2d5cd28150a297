#pragma once

#include "desktop/theme/Painting.h"

#include <Qt>

class QWidget;

namespace quillon {

/// How `widget` stands: enabled, below the pointer, with the keyboard; of a button, pressed and chosen, too.
/// The keyboard shows only in the active window.
ControlState widgetState(const QWidget& widget);

/// What a focus that comes for `reason` means for whether a widget shows that it has the keyboard: it does
/// after a key, not after the pointer, and as before where the window or a menu gives the keyboard back.
void followFocusReason(bool& isByKeyboard, Qt::FocusReason reason);

/// Makes `widget` look, from now on, as if it stood like `state`: for pictures of it.
void pretendState(QWidget& widget, const ControlState& state);

} // namespace quillon
