#include "render/ComponentStyleCss.h"

#include "base/Numbers.h"
#include "render/CssNumbers.h"
#include "render/EscapeHtml.h"
#include "render/UsableUrl.h"

#include <array>

namespace quillon::HTMLRenderer {

namespace {

constexpr std::string_view black = "#000000";

std::string_view valueOr(const Optional<std::string>& text, std::string_view fallback) {
    return text ? std::string_view(*text) : fallback;
}

/// A side or corner is meant unless it is switched off.
bool isMeant(std::optional<bool> flag) {
    return flag.value_or(true);
}

/// The number of a length, whatever its unit.
double numberOf(const Optional<ANFLength>& length) {
    return length ? length->numericValue().value_or(0) : 0;
}

void opacityCSS(std::string& out, std::optional<double> opacity) {
    if (opacity) {
        out += "opacity: ";
        formatNumber(out, *opacity);
        out += ';';
    }
}

/// Opens the declaration of a fill's image; false, and nothing written, for an address that cannot be loaded.
bool fillImageCSS(std::string& out, const Optional<std::string>& url) {
    if (!url || !isUsableURL(*url)) {
        return false;
    }
    out += "background-image: url('";
    escapeHTML(out, *url);
    out += "'); ";
    return true;
}

void placedImageCSS(std::string& out, const Fill& fill, const Optional<std::string>& url) {
    if (!fillImageCSS(out, url)) {
        return;
    }
    out += fill.fillMode == "fit" ? "background-size: contain;" : "background-size: cover;";
    out += " background-repeat: no-repeat; background-position: ";
    backgroundPosition(out, fill);
    out += ';';
}

std::string_view repeatValue(const Optional<std::string>& repeatMode) {
    if (repeatMode == "x") {
        return "repeat-x";
    }
    if (repeatMode == "y") {
        return "repeat-y";
    }
    return repeatMode == "none" ? "no-repeat" : "repeat";
}

void repeatedImageCSS(std::string& out, const Fill& fill) {
    if (!fillImageCSS(out, fill.URL)) {
        return;
    }
    out.append("background-repeat: ").append(repeatValue(fill.repeatMode)).append(";");
    if (fill.width && fill.height) {
        out += "background-size: ";
        appendInteger(out, *fill.width);
        out += "px ";
        appendInteger(out, *fill.height);
        out += "px;";
    }
}

void gradientCSS(std::string& out, const Fill& fill) {
    if (!fill.colorStops || fill.colorStops->empty()) {
        return;
    }
    constexpr double downwards = 180;
    out += "background-image: linear-gradient(";
    formatNumber(out, fill.angle.value_or(downwards));
    out += "deg";
    for (const ColorStop& stop : *fill.colorStops) {
        out += ", ";
        escapeHTML(out, valueOr(stop.color, black));
        if (stop.location) {
            out += ' ';
            formatNumber(out, *stop.location);
            out += '%';
        }
    }
    out += ");";
}

struct Channels {
    std::array<int, 3> values; ///< red, green, blue, each 0 to 255
};

/// The channels of "#abc" or "#aabbcc"; nothing for any other colour.
std::optional<Channels> channelsOf(std::string_view color) {
    if (!color.starts_with('#') || (color.size() != 4 && color.size() != 7)) {
        return std::nullopt;
    }
    color.remove_prefix(1);
    const size_t width = color.size() / 3;
    Channels channels{};
    for (size_t channel = 0; channel < channels.values.size(); ++channel) {
        const int high = hexadecimalValue(color[channel * width]);
        const int low = hexadecimalValue(color[channel * width + width - 1]);
        if (high < 0 || low < 0) {
            return std::nullopt;
        }
        channels.values[channel] = high * 16 + low;
    }
    return channels;
}

} // namespace

void componentStyleCSS(std::string& out, const ComponentStyle* style) {
    if (!style) {
        return;
    }
    if (style->backgroundColor) {
        out += "background-color: ";
        escapeHTML(out, *style->backgroundColor);
        out += ';';
    }
    fillCSS(out, style->fill);
    opacityCSS(out, style->opacity);
    borderCSS(out, style->border);
    maskCSS(out, style->mask);
    shadowCSS(out, style->shadow);
}

void heroStyleCSS(std::string& out, const ComponentStyle& style) {
    borderCSS(out, style.border);
    maskCSS(out, style.mask);
    shadowCSS(out, style.shadow);
    opacityCSS(out, style.opacity);
}

void fillCSS(std::string& out, const Optional<Fill>& fill) {
    if (!fill || !fill->type) {
        return;
    }
    const std::string& type = *fill->type;
    if (type == "image") {
        placedImageCSS(out, *fill, fill->URL);
    } else if (type == "video") {
        placedImageCSS(out, *fill, fill->stillURL);
    } else if (type == "repeatable_image") {
        repeatedImageCSS(out, *fill);
    } else if (type == "linear_gradient") {
        gradientCSS(out, *fill);
    }
    if (fill->attachment == "fixed") {
        out += "background-attachment: fixed;";
    }
}

void backgroundPosition(std::string& out, const Fill& fill) {
    escapeHTML(out, valueOr(fill.horizontalAlignment, "center"));
    out += ' ';
    escapeHTML(out, valueOr(fill.verticalAlignment, "center"));
}

void borderCSS(std::string& out, const Optional<Border>& border) {
    if (!border || !border->all) {
        return;
    }
    const auto sideCSS = [&](std::string_view opening, std::optional<bool> flag) {
        if (isMeant(flag)) {
            out += opening;
            strokeCSS(out, *border->all);
            out += ';';
        }
    };
    sideCSS("border-top: ", border->top);
    sideCSS("border-bottom: ", border->bottom);
    sideCSS("border-left: ", border->left);
    sideCSS("border-right: ", border->right);
}

void strokeCSS(std::string& out, const ANFStrokeStyle& stroke) {
    appendInteger(out, stroke.width.value_or(1));
    out += "px ";
    escapeHTML(out, valueOr(stroke.style, "solid"));
    out += ' ';
    escapeHTML(out, valueOr(stroke.color, black));
}

void maskCSS(std::string& out, const Optional<CornerMask>& mask) {
    if (!mask) {
        return;
    }
    const double radius = numberOf(mask->radius);
    std::string_view opening = "border-radius: ";
    for (const auto corner : {mask->topLeft, mask->topRight, mask->bottomRight, mask->bottomLeft}) {
        out += opening;
        opening = " ";
        if (isMeant(corner)) {
            formatNumber(out, radius);
            out += "px";
        } else {
            out += '0';
        }
    }
    out += "; overflow: hidden;";
}

void shadowCSS(std::string& out, const Optional<ComponentShadow>& shadow) {
    if (!shadow) {
        return;
    }
    const ComponentShadowOffset none;
    const ComponentShadowOffset& offset = shadow->offset ? *shadow->offset : none;
    out += "box-shadow: ";
    for (const auto* length : {&offset.x, &offset.y, &shadow->radius}) {
        formatNumber(out, numberOf(*length));
        out += "px ";
    }
    colorWithOpacity(out, valueOr(shadow->color, black), shadow->opacity);
    out += ';';
}

void colorWithOpacity(std::string& out, std::string_view color, std::optional<double> opacity) {
    const std::optional<Channels> channels = opacity ? channelsOf(color) : std::nullopt;
    if (!channels) {
        escapeHTML(out, color);
        return;
    }
    out += "rgba(";
    for (const int channel : channels->values) {
        appendInteger(out, channel);
        out += ", ";
    }
    formatNumber(out, *opacity);
    out += ')';
}

} // namespace quillon::HTMLRenderer
