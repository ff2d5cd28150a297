#include "desktop/widgets/WidgetState.h"

#include <QAbstractButton>
#include <QVariant>

namespace quillon {

namespace {

constexpr auto pretended = "quillonPretendedState";

} // namespace

ControlState widgetState(const QWidget& widget) {
    if (const QVariant state = widget.property(pretended); state.isValid()) {
        return state.value<ControlState>();
    }
    ControlState state = {.enabled = widget.isEnabled(),
                          .hovered = widget.isEnabled() && widget.underMouse(),
                          .focused = widget.hasFocus() && widget.isActiveWindow()};
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        state.pressed = button->isDown();
        state.selected = button->isChecked();
    }
    return state;
}

void followFocusReason(bool& isByKeyboard, Qt::FocusReason reason) {
    switch (reason) {
    case Qt::ActiveWindowFocusReason:
    case Qt::PopupFocusReason:
    case Qt::MenuBarFocusReason:
        return;
    default:
        isByKeyboard = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                       reason == Qt::ShortcutFocusReason;
    }
}

void pretendState(QWidget& widget, const ControlState& state) {
    widget.setProperty(pretended, QVariant::fromValue(state));
    widget.setEnabled(state.enabled);
    widget.update();
}

} // namespace quillon
