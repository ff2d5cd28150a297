#include "desktop/theme/Painting.h"

#include "desktop/theme/Symbols.h"
#include "desktop/theme/Theme.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace quillon {

namespace {

constexpr double disabledOpacity = 0.5;
constexpr double ringGap = 1; ///< between a filled body and its focus ring

double fitting(const QRectF& rect, double radius) {
    return std::min(radius, std::min(rect.width(), rect.height()) / 2);
}

QRectF shrunk(const QRectF& rect, double by) {
    return rect.adjusted(by, by, -by, -by);
}

/// The veil of the pointer over a body.
void drawVeil(QPainter& painter, const QRectF& rect, double corner, const ControlState& state) {
    const ThemeColors& colors = theme().colors();
    if (state.enabled && state.pressed) {
        fillRounded(painter, rect, corner, colors.pressed);
    } else if (state.enabled && state.hovered) {
        fillRounded(painter, rect, corner, colors.hover);
    }
}

} // namespace

void fillRounded(QPainter& painter, const QRectF& rect, double radius, const QColor& color) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    const double corner = fitting(rect, radius);
    painter.drawRoundedRect(rect, corner, corner);
    painter.restore();
}

void strokeRounded(QPainter& painter, const QRectF& rect, double radius, const QColor& color, double width) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, width));
    painter.setBrush(Qt::NoBrush);
    const QRectF middle = shrunk(rect, width / 2);
    const double corner = std::max(0.0, fitting(rect, radius) - width / 2);
    painter.drawRoundedRect(middle, corner, corner);
    painter.restore();
}

void drawFocusRing(QPainter& painter, const QRectF& rect, double radius) {
    strokeRounded(painter, rect, radius, theme().colors().accent, extent::focusRing);
}

void drawFieldBody(QPainter& painter, const QRectF& rect, const ControlState& state) {
    const ThemeColors& colors = theme().colors();
    fillRounded(painter, rect, radius::field, state.enabled ? colors.surface : colors.window);
    drawVeil(painter, rect, radius::field, {state.enabled, state.hovered && !state.focused});
    if (state.focused && state.enabled) {
        drawFocusRing(painter, rect, radius::field);
    } else {
        strokeRounded(painter, rect, radius::field, colors.separator, extent::line);
    }
}

void drawButtonBody(QPainter& painter, const QRectF& rect, ButtonKind kind, const ControlState& state) {
    const ThemeColors& colors = theme().colors();
    if (kind == ButtonKind::Borderless) {
        if (state.selected) {
            fillRounded(painter, rect, radius::field, colors.pillSelected);
        }
        drawQuietBody(painter, rect, radius::field, state);
        return;
    }
    const bool isFilled = kind == ButtonKind::Prominent;
    const double inset = state.focused && isFilled ? extent::focusRing + ringGap : 0;
    const QRectF body = shrunk(rect, inset);
    const double corner = radius::field - inset / 2;
    QColor fill = isFilled ? colors.accent : colors.surface;
    if (!state.enabled) {
        fill = isFilled ? faded(fill, disabledOpacity) : colors.window;
    }
    fillRounded(painter, body, corner, fill);
    if (state.selected) {
        // On the accent itself a second veil tells the chosen one from one that is pressed.
        fillRounded(painter, body, corner, isFilled ? faded(colors.pressed, 2) : colors.pillSelected);
    }
    drawVeil(painter, body, corner, state);
    if (!isFilled) {
        strokeRounded(painter, body, corner, colors.separator, extent::line);
    }
    if (state.focused) {
        drawFocusRing(painter, rect, radius::field);
    }
}

void drawQuietBody(QPainter& painter, const QRectF& rect, double radius, const ControlState& state) {
    drawVeil(painter, rect, radius, state);
    if (state.focused) {
        drawFocusRing(painter, rect, radius);
    }
}

void drawCheckBox(QPainter& painter, const QRectF& rect, const ControlState& state, bool isMixed) {
    const ThemeColors& colors = theme().colors();
    const bool isOn = state.selected || isMixed;
    const double opacity = state.enabled ? 1 : disabledOpacity;
    if (state.focused) {
        constexpr double outside = extent::focusRing + ringGap;
        drawFocusRing(painter, shrunk(rect, -outside), radius::swatch + outside);
    }
    fillRounded(painter, rect, radius::swatch, isOn ? faded(colors.accent, opacity) : colors.surface);
    drawVeil(painter, rect, radius::swatch, state);
    if (!isOn) {
        strokeRounded(painter, rect, radius::swatch, faded(colors.textTertiary, opacity), extent::line);
        return;
    }
    drawSymbol(painter, rect, isMixed ? "minus" : "checkmark", rect.height() * 0.6, colors.onAccent,
               SymbolWeight::Semibold);
}

QColor buttonTextColor(ButtonKind kind, const ControlState& state) {
    const ThemeColors& colors = theme().colors();
    if (kind == ButtonKind::Prominent) {
        return colors.onAccent;
    }
    if (!state.enabled) {
        return colors.textTertiary;
    }
    return kind == ButtonKind::Destructive ? colors.danger : colors.text;
}

} // namespace quillon
