#include "desktop/widgets/TabStrip.h"

#include "desktop/theme/Theme.h"
#include "desktop/widgets/TitleDrawing.h"

#include <QPainter>

#include <utility>

namespace quillon {

namespace {

QFont titleFont(const ControlState& state) {
    return theme().font(TextSize::Label, state.selected ? QFont::DemiBold : QFont::Normal);
}

} // namespace

TabStrip::TabStrip(const QString& name, std::vector<Choice> choices, Binding<int> binding, QWidget* parent)
    : ChoiceRow(name, std::move(choices), std::move(binding), parent) {
    row().setContentsMargins(0, 0, 0, 0);
    row().setSpacing(0);
}

QSize TabStrip::segmentSize(const Choice& choice) const {
    // As wide as when it is chosen, so that a choice moves nothing.
    const int width = titleWidth(choice.title, choice.symbol, titleFont({.selected = true}));
    return {width + 2 * extent::buttonPadding, extent::tab};
}

void TabStrip::paintSegment(QPainter& painter, const QRectF& area, const Choice& choice,
                            const ControlState& state) const {
    const ThemeColors& colors = theme().colors();
    const double gap = distance::segments;
    drawQuietBody(painter, area.adjusted(gap, gap, -gap, -gap - extent::underline), radius::field, state);
    const QColor color = !state.enabled   ? colors.textTertiary
                         : state.selected ? colors.accent
                                          : colors.textSecondary;
    drawTitle(painter, area.adjusted(distance::inside, 0, -distance::inside, -extent::underline),
              choice.title, choice.symbol, titleFont(state), color, Qt::AlignHCenter);
}

void TabStrip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const ThemeColors& colors = theme().colors();
    const int bottom = height();
    painter.fillRect(0, bottom - extent::line, width(), extent::line, colors.separator);
    const QRectF mark = markArea();
    if (!mark.isEmpty()) {
        const QRectF line(mark.left() + distance::inside, bottom - extent::underline,
                          mark.width() - 2 * distance::inside, extent::underline);
        fillRounded(painter, line, capsule, isEnabled() ? colors.accent : colors.textTertiary);
    }
}

} // namespace quillon
