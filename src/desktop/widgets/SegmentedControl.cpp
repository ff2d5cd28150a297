#include "desktop/widgets/SegmentedControl.h"

#include "desktop/theme/Theme.h"
#include "desktop/widgets/TitleDrawing.h"

#include <QAbstractButton>
#include <QPainter>

#include <utility>

namespace quillon {

namespace {

constexpr int inset = distance::segments;
constexpr double corner = radius::field - inset;

QFont titleFont() {
    return theme().font(TextSize::Label, QFont::Medium);
}

} // namespace

SegmentedControl::SegmentedControl(const QString& name, std::vector<Choice> choices, Binding<int> binding,
                                   ChoiceLook look, QWidget* parent)
    : ChoiceRow(name, std::move(choices), std::move(binding), parent), m_look(look) {
    row().setContentsMargins(inset, inset, inset, inset);
    row().setSpacing(distance::segments);
    if (look == ChoiceLook::SymbolOnly) {
        for (QAbstractButton* segment : segments()) {
            segment->setToolTip(segment->accessibleName());
        }
    }
}

QSize SegmentedControl::segmentSize(const Choice& choice) const {
    const QString title = m_look == ChoiceLook::TitleAndSymbol ? choice.title : QString();
    const int padding = title.isEmpty() ? distance::beside : extent::buttonPadding;
    return {titleWidth(title, choice.symbol, titleFont()) + 2 * padding, extent::control - 2 * inset};
}

void SegmentedControl::paintSegment(QPainter& painter, const QRectF& area, const Choice& choice,
                                    const ControlState& state) const {
    drawQuietBody(painter, area, corner, state);
    const ThemeColors& colors = theme().colors();
    const QColor color = state.enabled ? colors.text : colors.textTertiary;
    const int padding = distance::inside;
    drawTitle(painter, area.adjusted(padding, 0, -padding, 0),
              m_look == ChoiceLook::TitleAndSymbol ? choice.title : QString(), choice.symbol, titleFont(),
              color, Qt::AlignHCenter);
}

void SegmentedControl::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const ThemeColors& colors = theme().colors();
    fillRounded(painter, rect(), radius::field, colors.track);
    const QRectF mark = markArea();
    if (mark.isEmpty()) {
        return;
    }
    if (!isEnabled()) {
        fillRounded(painter, mark, corner, faded(colors.raised, 0.5));
        return;
    }
    fillRounded(painter, mark.translated(0, extent::line), corner, colors.shadow);
    fillRounded(painter, mark, corner, colors.raised);
}

} // namespace quillon
