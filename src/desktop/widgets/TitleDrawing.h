#pragma once

#include <QFont>
#include <QRectF>
#include <QString>

#include <string_view>

class QColor;
class QPainter;

namespace quillon {

/// The width, in points, of `title` with `symbol` before it; either may be empty.
int titleWidth(const QString& title, std::string_view symbol, const QFont& font);

/// Draws `symbol` with `title` beside it into `area`, in the middle or at the leading edge as `alignment`
/// says. A title that is too long loses its middle.
void drawTitle(QPainter& painter, const QRectF& area, const QString& title, std::string_view symbol,
               const QFont& font, const QColor& color, Qt::Alignment alignment);

} // namespace quillon
