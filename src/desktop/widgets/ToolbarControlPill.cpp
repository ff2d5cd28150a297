#include "desktop/widgets/ToolbarControlPill.h"

#include "desktop/theme/Painting.h"
#include "desktop/theme/Theme.h"
#include "desktop/widgets/WidgetState.h"

#include <QPainter>

namespace quillon {

ToolbarControlPill::ToolbarControlPill(const QString& name, int spacing, QWidget* parent)
    : QWidget(parent), m_row(new QHBoxLayout(this)) {
    setAccessibleName(name);
    m_row->setContentsMargins(distance::pillInset, distance::pillInset, distance::pillInset,
                              distance::pillInset);
    m_row->setSpacing(spacing);
    m_row->setSizeConstraint(QLayout::SetFixedSize);
    connect(&theme(), &Theme::changed, this, [this] { update(); });
}

void ToolbarControlPill::add(QWidget* control) {
    m_row->addWidget(control);
}

void ToolbarControlPill::addChoice(QAbstractButton* choice) {
    choice->setCheckable(true);
    choice->setAutoExclusive(true);
    choice->setFocusPolicy(Qt::NoFocus);
    connect(choice, &QAbstractButton::toggled, choice,
            [choice](bool isChosen) { choice->setFocusPolicy(isChosen ? Qt::TabFocus : Qt::NoFocus); });
    add(choice);
}

void ToolbarControlPill::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const ThemeColors& colors = theme().colors();
    fillRounded(painter, rect(), capsule, widgetState(*this).enabled ? colors.surface : colors.window);
    strokeRounded(painter, rect(), capsule, colors.pillOutline, extent::line);
}

} // namespace quillon
