#pragma once

#include "base/Binding.h"

#include <QPointer>

#include <type_traits>
#include <utility>

class QWidget;

namespace quillon {

/// What every control is besides its widget that shows a value standing somewhere else. Reading the value is
/// `refresh()`; it writes nothing.
class BoundControl {
public:
    BoundControl(const BoundControl&) = delete;
    BoundControl& operator=(const BoundControl&) = delete;
    virtual ~BoundControl() = default;

    /// Shows the value that stands there now.
    virtual void refresh() = 0;
    /// Whether those below it show anything now. Those that do not are not refreshed with it; the control
    /// does it when it shows them.
    virtual bool showsWhatItHolds() const { return true; }

protected:
    BoundControl() = default;
};

/// Refreshes `root` and every control below it, the outer ones first. A control may take away or replace
/// those below it when it is refreshed.
void refreshControls(QWidget& root);

/// Writes what the user gave `control`, and shows what stands there then. The write may be the end of the
/// control: its form can be built anew for the new value.
template <typename Control, typename Held>
void writeThrough(Control& control, Binding<Held> binding, std::type_identity_t<Held> value) {
    const QPointer<Control> remaining(&control);
    binding.set(std::move(value));
    if (remaining) {
        remaining->refresh();
    }
}

} // namespace quillon
