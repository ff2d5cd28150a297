#include "editor/PreviewCaption.h"

#include "desktop/theme/Painting.h"
#include "desktop/theme/Theme.h"

#include <QFontMetrics>
#include <QPainter>

namespace quillon {

namespace {

constexpr int paddingAcross = 10; ///< beside the text, in points
constexpr int paddingDown = 5;

} // namespace

PreviewCaption::PreviewCaption(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("previewCaption"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    connect(&theme(), &Theme::changed, this, [this] { update(); });
}

void PreviewCaption::setText(const QString& text) {
    m_text = text;
    setAccessibleName(text);
    setFixedSize(sizeHint());
    update();
}

QSize PreviewCaption::sizeHint() const {
    const QFontMetrics metrics(theme().font(TextSize::Caption));
    return {metrics.horizontalAdvance(m_text) + 2 * paddingAcross, metrics.height() + 2 * paddingDown};
}

void PreviewCaption::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    fillRounded(painter, rect(), capsule, theme().colors().overPage);
    painter.setPen(theme().colors().textSecondary);
    painter.setFont(theme().font(TextSize::Caption));
    painter.drawText(rect(), Qt::AlignCenter, m_text);
}

} // namespace quillon
