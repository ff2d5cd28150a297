#pragma once

#include "model/ComponentStyle.h"

#include <optional>
#include <string>
#include <string_view>

/// The look of a component's box as CSS declarations, each closed with ";" and nothing between them. Writers
/// append to `out`.
namespace quillon::HTMLRenderer {

/// An absent style (null) writes nothing.
void componentStyleCSS(std::string& out, const ComponentStyle* style);
/// Border, mask, shadow and opacity alone, for the hero element of a header.
void heroStyleCSS(std::string& out, const ComponentStyle& style);

void fillCSS(std::string& out, const Optional<Fill>& fill);
void backgroundPosition(std::string& out, const Fill& fill);
void borderCSS(std::string& out, const Optional<Border>& border);
/// A line's "width style colour", with its defaults.
void strokeCSS(std::string& out, const ANFStrokeStyle& stroke);
void maskCSS(std::string& out, const Optional<CornerMask>& mask);
void shadowCSS(std::string& out, const Optional<ComponentShadow>& shadow);

/// A colour of three or six hexadecimal digits with `opacity` as rgba(); any other colour, or one without an
/// opacity, as it stands, escaped.
void colorWithOpacity(std::string& out, std::string_view color, std::optional<double> opacity);

} // namespace quillon::HTMLRenderer
