#include "desktop/widgets/Row.h"

#include "desktop/theme/Tokens.h"
#include "desktop/widgets/TextLabel.h"

#include <QGridLayout>

namespace quillon {

namespace {

/// The columns of the grid: the label's, the control's and that of what trails it.
enum Column { labelColumn, controlColumn, trailingColumn };

} // namespace

Row::Row(const QString& label, QWidget* control, QWidget* parent, LabelPlace place)
    : QWidget(parent), m_label(new TextLabel(label, {TextSize::Body}, this)), m_control(control),
      m_grid(new QGridLayout(this)), m_place(place) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_label->setObjectName(QStringLiteral("rowLabel"));
    m_label->setControl(control);
    if (control->accessibleName().isEmpty()) {
        control->setAccessibleName(label);
    }
    m_grid->setContentsMargins({});
    m_grid->setColumnStretch(controlColumn, 1);
    connect(m_label, &TextLabel::clicked, control, [control] { control->setFocus(Qt::OtherFocusReason); });
    setLabelPlace(place);
}

void Row::setTrailing(QWidget* widget) {
    m_trailing = widget;
    setLabelPlace(m_place);
}

void Row::setLabelPlace(LabelPlace place) {
    m_place = place;
    const bool isBeside = place == LabelPlace::beside;
    m_grid->setHorizontalSpacing(distance::beside);
    m_grid->setVerticalSpacing(distance::inside);
    // Beside a control of several lines, the label stands at the first one.
    m_label->setFixedHeight(isBeside ? extent::control : m_label->sizeHint().height());
    m_label->setMinimumWidth(isBeside ? extent::rowLabel : 0);
    m_label->setMaximumWidth(isBeside ? extent::rowLabel : QWIDGETSIZE_MAX);
    const int line = isBeside ? 0 : 1;
    for (QWidget* moved : {static_cast<QWidget*>(m_label), m_control, m_trailing}) {
        if (moved) {
            m_grid->removeWidget(moved);
        }
    }
    if (isBeside) {
        m_grid->addWidget(m_label, 0, labelColumn, Qt::AlignTop);
    } else {
        m_grid->addWidget(m_label, 0, labelColumn, 1, -1);
    }
    m_grid->addWidget(m_control, line, isBeside ? controlColumn : labelColumn, 1, isBeside ? 1 : 2);
    if (m_trailing) {
        m_grid->addWidget(m_trailing, line, trailingColumn);
        setTabOrder(m_control, m_trailing);
    }
}

} // namespace quillon
