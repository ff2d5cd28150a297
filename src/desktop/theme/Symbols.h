#pragma once

#include <QColor>
#include <QIcon>
#include <QRectF>

#include <span>
#include <string_view>

class QPainter;

namespace quillon {

enum class SymbolWeight { Regular, Medium, Semibold };

/// The side of the square that a symbol of `pointSize` is drawn in, in points.
double symbolExtent(double pointSize);

/// Draws the symbol called `name` into the middle of `rect`, in `color`, at the point size of the text it
/// stands beside. An unknown name draws a question mark in a square.
void drawSymbol(QPainter& painter, const QRectF& rect, std::string_view name, double pointSize,
                const QColor& color, SymbolWeight weight = SymbolWeight::Regular);

/// The symbol for a menu, in the colour of the theme's text whatever the theme becomes.
QIcon symbolIcon(std::string_view name);

bool hasSymbol(std::string_view name);
/// The names that draw something of their own.
std::span<const std::string_view> symbolNames();

} // namespace quillon
