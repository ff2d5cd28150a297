#include "render/TextStyleCss.h"

#include "base/Numbers.h"
#include "render/ComponentStyleCss.h"
#include "render/Conditions.h"
#include "render/CssNumbers.h"
#include "render/EscapeHtml.h"

#include <algorithm>
#include <utility>

namespace quillon::HTMLRenderer {

namespace {

constexpr std::string_view defaultColor = "#000000";

void textDeclaration(std::string& out, std::string_view property, std::string_view value) {
    out += property;
    escapeHTML(out, value);
    out += ';';
}

void optionalDeclaration(std::string& out, std::string_view property, const Optional<std::string>& value) {
    if (value) {
        textDeclaration(out, property, *value);
    }
}

void pixelDeclaration(std::string& out, std::string_view property, const Optional<int64_t>& value) {
    if (value) {
        out += property;
        appendInteger(out, *value);
        out += "px;";
    }
}

void fontFamilyDeclaration(std::string& out, const Optional<std::string>& name) {
    if (name) {
        out += "font-family: ";
        fontFamilyValue(out, *name);
        out += ';';
    }
}

void fontWeightDeclaration(std::string& out, const ANFFontWeight& weight) {
    out += "font-weight: ";
    if (const auto* number = std::get_if<int64_t>(&weight.form)) {
        appendInteger(out, *number);
    } else {
        escapeHTML(out, std::get<std::string>(weight.form));
    }
    out += ';';
}

/// The declarations that both families begin with.
template <typename Style>
void fontAndColorCSS(std::string& out, const Style& style) {
    fontFamilyDeclaration(out, style.fontName ? style.fontName : style.fontFamily);
    pixelDeclaration(out, "font-size: ", style.fontSize);
    if (style.fontWeight) {
        fontWeightDeclaration(out, *style.fontWeight);
    }
    optionalDeclaration(out, "font-style: ", style.fontStyle);
    if (style.fontWidth) {
        std::string width = *style.fontWidth;
        std::ranges::replace(width, '_', '-');
        textDeclaration(out, "font-stretch: ", width);
    }
    optionalDeclaration(out, "color: ", style.textColor);
    optionalDeclaration(out, "background-color: ", style.backgroundColor);
}

void trackingCSS(std::string& out, const Optional<double>& tracking) {
    if (tracking) {
        out += "letter-spacing: ";
        formatNumber(out, *tracking);
        out += "em;";
    }
}

bool isOn(const Optional<TextDecoration>& decoration) {
    if (!decoration) {
        return false;
    }
    const bool* plain = std::get_if<bool>(&decoration->form);
    return !plain || *plain;
}

/// The colour of a styled decoration, or null.
const std::string* colorOf(const Optional<TextDecoration>& decoration) {
    const auto* style = decoration ? std::get_if<TextDecorationStyle>(&decoration->form) : nullptr;
    return style && style->color ? &*style->color : nullptr;
}

void decorationCSS(std::string& out, const Optional<TextDecoration>& underline,
                   const Optional<TextDecoration>& strikethrough) {
    if (!isOn(underline) && !isOn(strikethrough)) {
        return;
    }
    out += "text-decoration: ";
    out += !isOn(strikethrough) ? "underline" : isOn(underline) ? "underline line-through" : "line-through";
    out += ';';
    // CSS has one colour for all lines of a text.
    const std::string* color = colorOf(underline) ? colorOf(underline) : colorOf(strikethrough);
    if (color) {
        textDeclaration(out, "text-decoration-color: ", *color);
    }
}

void textShadowCSS(std::string& out, const TextShadow& shadow) {
    const auto length = [&out](const Optional<double>& value) {
        formatNumber(out, value.value_or(0));
        out += "px ";
    };
    out += "text-shadow: ";
    length(shadow.offset ? shadow.offset->x : std::nullopt);
    length(shadow.offset ? shadow.offset->y : std::nullopt);
    length(shadow.radius);
    colorWithOpacity(out, shadow.color ? std::string_view(*shadow.color) : defaultColor, shadow.opacity);
    out += ';';
}

void textStrokeCSS(std::string& out, const TextStrokeStyle& stroke) {
    out += "-webkit-text-stroke: ";
    appendInteger(out, stroke.width.value_or(1));
    textDeclaration(out, "px ", stroke.color ? std::string_view(*stroke.color) : defaultColor);
}

/// Decoration, shadow and stroke, which both families have behind one another.
template <typename Style>
void effectsCSS(std::string& out, const Style& style) {
    decorationCSS(out, style.underline, style.strikethrough);
    if (style.textShadow) {
        textShadowCSS(out, *style.textShadow);
    }
    if (style.stroke) {
        textStrokeCSS(out, *style.stroke);
    }
}

std::string_view verticalAlignmentCSS(std::string_view alignment) {
    if (alignment == "superscript") {
        return "vertical-align: super; font-size: smaller;";
    }
    if (alignment == "subscript") {
        return "vertical-align: sub; font-size: smaller;";
    }
    return {};
}

} // namespace

SharedOptional<ComponentTextStyle> effectiveComponentTextStyle(const Component& component,
                                                               const PageContext& context) {
    SharedOptional<ComponentTextStyle> result;
    const auto layOver = [&](const Shared<ComponentTextStyle>& style) {
        SharedOptional<ComponentTextStyle> upper = applyVariants(style.handle(), context);
        if (result) {
            mergeFields(result.edit(), *upper);
        } else {
            result = std::move(upper); // a lone style is shared, not copied
        }
    };
    const auto layNamedOver = [&](const std::string& name) {
        const auto& styles = *context.article.componentTextStyles;
        if (const auto found = styles.find(name); found != styles.end()) {
            layOver(found->second);
        }
    };

    const auto* own = component.textStyle ? &component.textStyle->form : nullptr;
    if (context.article.componentTextStyles) {
        layNamedOver("default");
        layNamedOver(std::string("default-").append(component.role.rawValue()));
        if (const auto* name = own ? std::get_if<std::string>(own) : nullptr) {
            layNamedOver(*name);
        }
    }
    if (const auto* inlined = own ? std::get_if<Shared<ComponentTextStyle>>(own) : nullptr) {
        layOver(*inlined);
    }
    return result;
}

void componentTextStyleCSS(std::string& out, const ComponentTextStyle* style) {
    if (!style) {
        return;
    }
    fontAndColorCSS(out, *style);
    if (style->textAlignment) {
        const std::string_view alignment = *style->textAlignment;
        textDeclaration(out, "text-align: ", alignment == "justified" ? "justify" : alignment);
    }
    pixelDeclaration(out, "line-height: ", style->lineHeight);
    trackingCSS(out, style->tracking);
    if (style->hyphenation) {
        out += *style->hyphenation ? "hyphens: auto;" : "hyphens: none;";
    }
    if (style->hangingPunctuation.value_or(false)) {
        out += "hanging-punctuation: first last;";
    }
    effectsCSS(out, *style);
}

void textStyleCSS(std::string& out, const TextStyle* style) {
    if (!style) {
        return;
    }
    fontAndColorCSS(out, *style);
    trackingCSS(out, style->tracking);
    effectsCSS(out, *style);
    if (style->verticalAlignment) {
        out += verticalAlignmentCSS(*style->verticalAlignment);
    }
}

std::string linkCSS(const ComponentTextStyle* style, const PageContext& context) {
    std::string css;
    if (style && style->linkStyle) {
        const auto link = applyVariants(style->linkStyle, context);
        textStyleCSS(css, &*link);
    }
    return css;
}

void dropCapCSS(std::string& out, const DropCapStyle& style) {
    constexpr int64_t defaultLines = 3;
    out += "float: left; line-height: 1; margin: 0.05em 0.08em 0 0;font-size: ";
    appendInteger(out, style.numberOfLines.value_or(defaultLines));
    out += "em;";
    fontFamilyDeclaration(out, style.fontName);
    optionalDeclaration(out, "color: ", style.textColor);
    optionalDeclaration(out, "background-color: ", style.backgroundColor);
    pixelDeclaration(out, "padding: ", style.padding);
}

std::optional<std::string> listMarkerValue(const ListItemStyle& style) {
    constexpr std::pair<std::string_view, std::string_view> values[] = {
        {"decimal", "decimal"},
        {"decimal_leading_zero", "decimal-leading-zero"},
        {"lower_roman", "lower-roman"},
        {"upper_roman", "upper-roman"},
        {"lower_alphabetical", "lower-alpha"},
        {"upper_alphabetical", "upper-alpha"},
        {"bullet", "disc"},
        {"none", "none"},
    };
    if (!style.type) {
        return std::nullopt;
    }
    if (*style.type == "character") {
        if (!style.character || style.character->empty()) {
            return std::nullopt;
        }
        std::string character = *style.character;
        std::erase(character, '\'');
        return "'" + character + "'";
    }
    for (const auto& [type, value] : values) {
        if (*style.type == type) {
            return std::string(value);
        }
    }
    return std::nullopt;
}

void fontFamilyValue(std::string& out, std::string_view name) {
    // What would end the quoted name, the declaration or the attribute.
    constexpr std::string_view removed = "'\";<>";
    out += '\'';
    for (const char c : name) {
        if (removed.find(c) == std::string_view::npos) {
            out += c;
        }
    }
    out += "', -apple-system, 'SF Pro Text', 'Helvetica Neue', sans-serif";
}

} // namespace quillon::HTMLRenderer
