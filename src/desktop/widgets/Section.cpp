#include "desktop/widgets/Section.h"

#include "desktop/theme/Painting.h"
#include "desktop/theme/Theme.h"
#include "desktop/widgets/Separator.h"
#include "desktop/widgets/TextLabel.h"

#include <QPainter>
#include <QVBoxLayout>

namespace quillon {

Section::Section(const QString& title, QWidget* parent) : QWidget(parent), m_rows(new QVBoxLayout(this)) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setAccessibleName(title);
    m_rows->setContentsMargins(distance::around, distance::around, distance::around, distance::around);
    m_rows->setSpacing(distance::beside);
    if (!title.isEmpty()) {
        auto* label = new TextLabel(title, {TextSize::Body, QFont::DemiBold}, this);
        label->setObjectName(QStringLiteral("sectionTitle"));
        m_rows->addWidget(label);
        m_rows->addSpacing(distance::groups - distance::beside);
    }
    connect(&theme(), &Theme::changed, this, [this] { update(); });
}

void Section::add(QWidget* row) {
    m_rows->addWidget(row);
}

void Section::addSeparator() {
    m_rows->addWidget(new Separator(Qt::Horizontal, this));
}

void Section::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    fillRounded(painter, rect(), radius::card, theme().colors().surface);
    strokeRounded(painter, rect(), radius::card, theme().colors().pillOutline, extent::line);
}

} // namespace quillon
