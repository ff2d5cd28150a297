#include "desktop/widgets/TextLabel.h"

#include "desktop/theme/Theme.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace quillon {

TextLabel::TextLabel(const QString& text, const TextLook& look, QWidget* parent)
    : QLabel(parent), m_look(look) {
    setTextFormat(Qt::PlainText);
    setFont(theme().font(look.size, look.weight));
    setWordWrap(look.flow == TextFlow::wrapped);
    showColor();
    connect(&theme(), &Theme::changed, this, &TextLabel::showColor);
    setPlainText(text);
}

void TextLabel::setPlainText(const QString& text) {
    m_text = text;
    setAccessibleName(text);
    // The label of a control takes a single one for the mark of a key.
    setText(buddy() ? QString(text).replace(QLatin1Char('&'), QStringLiteral("&&")) : text);
}

void TextLabel::setControl(QWidget* control) {
    setBuddy(control);
    setPlainText(m_text);
}

void TextLabel::showColor() {
    QPalette colors;
    colors.setColor(QPalette::WindowText, theme().colors().*m_look.color);
    colors.setColor(QPalette::Disabled, QPalette::WindowText, theme().colors().textTertiary);
    setPalette(colors);
}

QSize TextLabel::minimumSizeHint() const {
    const QSize whole = QLabel::minimumSizeHint();
    if (m_look.flow == TextFlow::wrapped) {
        return whole;
    }
    return {fontMetrics().horizontalAdvance(QChar(0x2026)), whole.height()};
}

void TextLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    const bool isWrapped = m_look.flow == TextFlow::wrapped;
    const QString shown = isWrapped ? m_text : fontMetrics().elidedText(m_text, Qt::ElideRight, width());
    painter.drawText(rect(), static_cast<int>(alignment()) | (isWrapped ? Qt::TextWordWrap : 0), shown);
}

bool TextLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && m_look.flow == TextFlow::elided) {
        const bool isElided = fontMetrics().horizontalAdvance(m_text) > width();
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), isElided ? m_text : toolTip(), this);
        return true;
    }
    return QLabel::event(event);
}

void TextLabel::mousePressEvent(QMouseEvent* event) {
    QLabel::mousePressEvent(event);
    Q_EMIT clicked();
}

} // namespace quillon
