#include "desktop/widgets/ToolbarControlPill.h"

#include "desktop/theme/Theme.h"

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
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(theme().colors().surface);
    painter.setPen(QPen(theme().colors().pillOutline, extent::line));
    const QRectF capsule = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.drawRoundedRect(capsule, capsule.height() / 2, capsule.height() / 2);
}

} // namespace quillon
