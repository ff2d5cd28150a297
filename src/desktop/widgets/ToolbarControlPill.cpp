#include "desktop/widgets/ToolbarControlPill.h"

#include "desktop/theme/Painting.h"
#include "desktop/theme/Theme.h"
#include "desktop/widgets/WidgetState.h"

#include <QPainter>

namespace quillon {

ToolbarControlPill::ToolbarControlPill(int spacing, QWidget* parent)
    : QWidget(parent), m_row(new QHBoxLayout(this)) {
    m_row->setContentsMargins(distance::pillInset, distance::pillInset, distance::pillInset,
                              distance::pillInset);
    m_row->setSpacing(spacing);
    m_row->setSizeConstraint(QLayout::SetFixedSize);
    connect(&theme(), &Theme::changed, this, [this] { update(); });
}

void ToolbarControlPill::add(QWidget* control) {
    m_row->addWidget(control);
}

void ToolbarControlPill::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const ThemeColors& colors = theme().colors();
    fillRounded(painter, rect(), capsule, widgetState(*this).enabled ? colors.surface : colors.window);
    strokeRounded(painter, rect(), capsule, colors.pillOutline, extent::line);
}

} // namespace quillon
