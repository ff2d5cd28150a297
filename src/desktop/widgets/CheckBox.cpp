#include "desktop/widgets/CheckBox.h"

#include "desktop/theme/Theme.h"
#include "desktop/widgets/TitleDrawing.h"
#include "desktop/widgets/WidgetState.h"

#include <QPainter>

#include <algorithm>
#include <utility>

namespace quillon {

namespace {

/// Round the box, for its focus ring.
constexpr int boxMargin = distance::inside;
constexpr int titleStart = boxMargin + extent::checkMark + distance::beside;

Binding<std::optional<bool>> withMixed(const Binding<bool>& binding) {
    return binding.converted([](bool value) { return std::optional<bool>(value); },
                             [](std::optional<bool> value) { return value.value_or(false); });
}

} // namespace

CheckBox::CheckBox(const QString& title, Binding<bool> binding, QWidget* parent)
    : CheckBox(title, withMixed(binding), parent) {}

CheckBox::CheckBox(const QString& title, Binding<std::optional<bool>> binding, QWidget* parent)
    : QCheckBox(title, parent), m_binding(std::move(binding)) {
    setAccessibleName(title);
    setObjectName(title);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(&theme(), &Theme::changed, this, [this] { update(); });
    CheckBox::refresh();
}

void CheckBox::refresh() {
    const std::optional<bool> value = m_binding.get();
    setTristate(!value);
    setCheckState(!value ? Qt::PartiallyChecked : *value ? Qt::Checked : Qt::Unchecked);
}

void CheckBox::nextCheckState() {
    writeThrough(*this, m_binding, checkState() != Qt::Checked);
}

QSize CheckBox::sizeHint() const {
    const int title = titleWidth(text(), {}, theme().font(TextSize::Body));
    return {text().isEmpty() ? 2 * boxMargin + extent::checkMark : titleStart + title + distance::inside,
            extent::control};
}

void CheckBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const ControlState state = widgetState(*this);
    const QRectF box(boxMargin, (height() - extent::checkMark) / 2.0, extent::checkMark, extent::checkMark);
    drawCheckBox(painter, box, state, checkState() == Qt::PartiallyChecked);
    const ThemeColors& colors = theme().colors();
    drawTitle(painter, QRectF(rect()).adjusted(titleStart, 0, 0, 0), text(), {}, theme().font(TextSize::Body),
              state.enabled ? colors.text : colors.textTertiary, Qt::AlignLeft);
}

} // namespace quillon
