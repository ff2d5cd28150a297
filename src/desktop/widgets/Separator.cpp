#include "desktop/widgets/Separator.h"

#include "desktop/theme/Theme.h"

#include <QPainter>

namespace quillon {

Separator::Separator(Qt::Orientation orientation, QWidget* parent)
    : QWidget(parent), m_orientation(orientation) {
    const bool isAcross = orientation == Qt::Horizontal;
    setSizePolicy(isAcross ? QSizePolicy::Expanding : QSizePolicy::Fixed,
                  isAcross ? QSizePolicy::Fixed : QSizePolicy::Expanding);
    connect(&theme(), &Theme::changed, this, [this] { update(); });
}

QSize Separator::sizeHint() const {
    return {extent::line, extent::line};
}

void Separator::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), theme().colors().separator);
}

} // namespace quillon
