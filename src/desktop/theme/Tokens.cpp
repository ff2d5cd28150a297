#include "desktop/theme/Tokens.h"

#include <algorithm>
#include <cmath>

namespace quillon {

namespace {

QColor color(QRgb rgb, double opacity = 1) {
    QColor made = QColor::fromRgb(rgb);
    made.setAlphaF(static_cast<float>(opacity));
    return made;
}

ThemeColors lightColors() {
    ThemeColors colors;
    colors.window = color(0xF5F5F7);
    colors.sidebar = color(0xEFEFF2);
    colors.surface = color(0xFFFFFF);
    colors.separator = color(0x3C3C43, 0.18);
    colors.text = color(0x1D1D1F);
    colors.textSecondary = color(0x6E6E73);
    colors.textTertiary = color(0x8E8E93);
    colors.accent = color(0x0A6CFF);
    colors.onAccent = color(0xFFFFFF);
    colors.selection = color(0xD9D9DE);
    colors.danger = color(0xD70015);
    colors.onDanger = color(0xFFFFFF);
    colors.good = color(0x248A3D);
    colors.warn = color(0xC93400);
    colors.hover = color(0x1D1D1F, 0.05);
    colors.pressed = color(0x1D1D1F, 0.11);
    colors.track = color(0x3C3C43, 0.12);
    colors.raised = color(0xFFFFFF);
    colors.match = color(0xFFCC00, 0.28);
    colors.matchCurrent = color(0xFFCC00, 0.75);
    colors.knob = color(0xFFFFFF);
    colors.shadow = color(0x000000, 0.14);
    return colors;
}

ThemeColors darkColors() {
    ThemeColors colors;
    colors.window = color(0x1E1E20);
    colors.sidebar = color(0x232326);
    colors.surface = color(0x2A2A2D);
    colors.separator = color(0xEBEBF5, 0.16);
    colors.text = color(0xF5F5F7);
    colors.textSecondary = color(0xA1A1A6);
    colors.textTertiary = color(0x7C7C80);
    colors.accent = color(0x4C93FF);
    colors.onAccent = color(0x0B1524);
    colors.selection = color(0x3C3C40);
    colors.danger = color(0xFF6961);
    colors.onDanger = color(0x2B0604);
    colors.good = color(0x30D158);
    colors.warn = color(0xFF9F0A);
    colors.hover = color(0xF5F5F7, 0.07);
    colors.pressed = color(0xF5F5F7, 0.14);
    colors.track = color(0xEBEBF5, 0.14);
    colors.raised = color(0x5A5A60);
    colors.match = color(0xFFD60A, 0.18);
    colors.matchCurrent = color(0xFFD60A, 0.45);
    colors.knob = color(0xFFFFFF);
    colors.shadow = color(0x000000, 0.4);
    return colors;
}

/// Adds the colours that are made of others.
ThemeColors completed(ThemeColors colors) {
    colors.accentTint = faded(colors.accent, 0.12);
    colors.pillSelected = faded(colors.accent, 0.28);
    colors.pillOutline = faded(colors.separator, 0.45);
    colors.columnLine = faded(colors.separator, 0.55);
    colors.frameShadow = color(0x000000, 0.12);
    colors.frameOutline = faded(colors.textSecondary, 0.22);
    colors.overPage = faded(colors.surface, 0.97);
    return colors;
}

double linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

} // namespace

const ThemeColors& themeColors(Appearance appearance) {
    static const ThemeColors light = completed(lightColors());
    static const ThemeColors dark = completed(darkColors());
    return appearance == Appearance::Light ? light : dark;
}

double contrast(const QColor& one, const QColor& other) {
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor faded(QColor color, double opacity) {
    color.setAlphaF(static_cast<float>(color.alphaF() * opacity));
    return color;
}

} // namespace quillon
