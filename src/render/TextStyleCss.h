#pragma once

#include "render/PageContext.h"

#include <optional>
#include <string>
#include <string_view>

/// Text styles as CSS declarations, each closed with ";" and nothing between them. Writers append to `out`;
/// an absent style (null) writes nothing.
namespace quillon::HTMLRenderer {

/// What the article says about the text of a component: the style "default", the style of its role and its
/// own style, laid over one another; nothing when there is none of them.
SharedOptional<ComponentTextStyle> effectiveComponentTextStyle(const Component& component,
                                                               const PageContext& context);

void componentTextStyleCSS(std::string& out, const ComponentTextStyle* style);
void textStyleCSS(std::string& out, const TextStyle* style);
/// The declarations of the links in a text of `style` (or null), its matching variants included.
std::string linkCSS(const ComponentTextStyle* style, const PageContext& context);
void dropCapCSS(std::string& out, const DropCapStyle& style);
/// The list-style-type of a list; nothing when the style names none.
std::optional<std::string> listMarkerValue(const ListItemStyle& style);
void fontFamilyValue(std::string& out, std::string_view name);

} // namespace quillon::HTMLRenderer
