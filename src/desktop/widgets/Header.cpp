#include "desktop/widgets/Header.h"

#include "desktop/theme/Symbols.h"
#include "desktop/theme/Theme.h"
#include "desktop/widgets/TextLabel.h"

#include <QPainter>
#include <QVBoxLayout>

#include <utility>

namespace quillon {

Header::Header(std::string symbol, const QString& title, const QString& secondary, QWidget* parent)
    : QWidget(parent), m_title(new TextLabel({}, {TextSize::Heading, QFont::DemiBold}, this)),
      m_secondary(new TextLabel({}, {TextSize::Label, QFont::Normal, &ThemeColors::textSecondary}, this)) {
    m_title->setObjectName(QStringLiteral("headerTitle"));
    m_secondary->setObjectName(QStringLiteral("headerSecondary"));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    const int side = static_cast<int>(symbolExtent(symbolSize::header));
    setMinimumHeight(side);
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(side + distance::beside, 0, 0, 0);
    lines->setSpacing(0);
    lines->addWidget(m_title);
    lines->addWidget(m_secondary);
    connect(&theme(), &Theme::changed, this, [this] { update(); });
    setContent(std::move(symbol), title, secondary);
}

void Header::setContent(std::string symbol, const QString& title, const QString& secondary) {
    m_symbol = std::move(symbol);
    m_title->setPlainText(title);
    m_secondary->setPlainText(secondary);
    m_secondary->setVisible(!secondary.isEmpty());
    setAccessibleName(title);
    update();
}

void Header::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const double side = symbolExtent(symbolSize::header);
    const ThemeColors& colors = theme().colors();
    drawSymbol(painter, {0, 0, side, 1.0 * height()}, m_symbol, symbolSize::header,
               isEnabled() ? colors.text : colors.textTertiary);
}

} // namespace quillon
