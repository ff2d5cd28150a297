#include "desktop/widgets/TitleDrawing.h"

#include "desktop/theme/Symbols.h"
#include "desktop/theme/Tokens.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace quillon {

namespace {

/// The part of a title's width that its symbol takes, with the distance to the text.
double symbolPart(const QString& title, std::string_view symbol) {
    if (symbol.empty()) {
        return 0;
    }
    return symbolExtent(symbolSize::control) + (title.isEmpty() ? 0 : distance::iconToText);
}

} // namespace

int titleWidth(const QString& title, std::string_view symbol, const QFont& font) {
    return static_cast<int>(
        std::ceil(symbolPart(title, symbol) + QFontMetricsF(font).horizontalAdvance(title)));
}

void drawTitle(QPainter& painter, const QRectF& area, const QString& title, std::string_view symbol,
               const QFont& font, const QColor& color, Qt::Alignment alignment) {
    const double room = area.width() - symbolPart(title, symbol);
    const QString shown = QFontMetricsF(font).elidedText(title, Qt::ElideMiddle, room);
    const double width = std::min<double>(titleWidth(shown, symbol, font), area.width());
    const bool isCentred = alignment.testFlag(Qt::AlignHCenter);
    const double start = std::floor(area.left() + (isCentred ? (area.width() - width) / 2 : 0));
    if (!symbol.empty()) {
        const double side = symbolExtent(symbolSize::control);
        drawSymbol(painter, {start, area.top(), side, area.height()}, symbol, symbolSize::control, color);
    }
    if (shown.isEmpty()) {
        return;
    }
    const double textStart = start + symbolPart(title, symbol);
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(QRectF(textStart, area.top(), area.right() - textStart, area.height()),
                     Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, shown);
}

} // namespace quillon
