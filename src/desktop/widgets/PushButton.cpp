#include "desktop/widgets/PushButton.h"

#include "desktop/theme/Theme.h"
#include "desktop/widgets/TitleDrawing.h"
#include "desktop/widgets/WidgetState.h"

#include <QKeyEvent>
#include <QPainter>

#include <utility>

namespace quillon {

PushButton::PushButton(const QString& title, ButtonKind kind, std::string symbol, QWidget* parent)
    : QAbstractButton(parent), m_kind(kind), m_symbol(std::move(symbol)) {
    setText(title);
    setAccessibleName(title);
    setObjectName(title);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    connect(&theme(), &Theme::changed, this, [this] { update(); });
}

PushButton* PushButton::ofSymbol(std::string symbol, const QString& name, ButtonKind kind, QWidget* parent) {
    auto* button = new PushButton(name, kind, std::move(symbol), parent);
    button->m_shows = Shows::SymbolOnly;
    button->setToolTip(name);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    return button;
}

QSize PushButton::sizeHint() const {
    if (m_shows == Shows::SymbolOnly) {
        return {extent::control, extent::control};
    }
    const int padding = m_kind == ButtonKind::Borderless ? distance::beside : extent::buttonPadding;
    return {titleWidth(text(), m_symbol, theme().font(TextSize::Body)) + 2 * padding, extent::control};
}

void PushButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const ControlState state = widgetState(*this);
    drawButtonBody(painter, rect(), m_kind, state);
    drawTitle(painter, rect(), m_shows == Shows::Title ? text() : QString(), m_symbol,
              theme().font(TextSize::Body), buttonTextColor(m_kind, state), Qt::AlignHCenter);
}

void PushButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

} // namespace quillon
