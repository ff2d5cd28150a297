#include "desktop/widgets/Toggle.h"

#include "desktop/theme/Theme.h"
#include "desktop/widgets/WidgetState.h"

#include <QPainter>

#include <utility>

namespace quillon {

namespace {

/// Round the switch, for its focus ring.
constexpr int margin = extent::focusRing + 1;
constexpr int knobInset = 2;

} // namespace

Toggle::Toggle(const QString& name, Binding<bool> binding, QWidget* parent)
    : QCheckBox(parent), m_binding(std::move(binding)) {
    setAccessibleName(name);
    setObjectName(name);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_slide.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_slide, &QVariantAnimation::valueChanged, this, [this] { update(); });
    connect(&theme(), &Theme::changed, this, [this] { update(); });
    Toggle::refresh();
}

void Toggle::refresh() {
    const bool isOn = m_binding.get();
    if (isOn == isChecked()) {
        return;
    }
    setChecked(isOn);
    m_slide.stop();
    if (const int duration = theme().duration(motion::quick); isVisible() && duration > 0) {
        m_slide.setStartValue(isOn ? 0.0 : 1.0);
        m_slide.setEndValue(isOn ? 1.0 : 0.0);
        m_slide.setDuration(duration);
        m_slide.start();
    }
}

void Toggle::nextCheckState() {
    writeThrough(*this, m_binding, !isChecked());
}

QSize Toggle::sizeHint() const {
    return {extent::switchWidth + 2 * margin, extent::control};
}

void Toggle::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const ThemeColors& colors = theme().colors();
    const ControlState state = widgetState(*this);
    const QRectF body(margin, (height() - extent::switchHeight) / 2.0, extent::switchWidth,
                      extent::switchHeight);
    const double opacity = state.enabled ? 1 : 0.5;
    fillRounded(painter, body, capsule, faded(state.selected ? colors.accent : colors.track, opacity));
    drawQuietBody(painter, body, capsule, {state.enabled, state.hovered, state.pressed});
    if (!state.selected) {
        strokeRounded(painter, body, capsule, faded(colors.textTertiary, opacity), extent::line);
    }
    const bool isSliding = m_slide.state() == QAbstractAnimation::Running;
    const double way = isSliding ? m_slide.currentValue().toDouble() : state.selected ? 1 : 0;
    const double side = extent::switchHeight - 2 * knobInset;
    const QRectF knob(body.left() + knobInset + way * (extent::switchWidth - extent::switchHeight),
                      body.top() + knobInset, side, side);
    fillRounded(painter, knob.translated(0, extent::line), capsule, faded(colors.shadow, opacity));
    fillRounded(painter, knob, capsule, state.enabled ? colors.knob : colors.raised);
    if (state.focused) {
        drawFocusRing(painter, body.adjusted(-margin, -margin, margin, margin), capsule);
    }
}

} // namespace quillon
