#include "render/Containers.h"

#include "render/ComponentStyleCss.h"
#include "render/Components.h"
#include "render/Conditions.h"
#include "render/DarkClass.h"
#include "render/EscapeHtml.h"
#include "render/LayoutCss.h"
#include "render/Motion.h"
#include "render/UsableUrl.h"

#include <algorithm>

namespace quillon::HTMLRenderer {

namespace {

// Whatever a container needs before its children is written by a function of its own: what stays on the stack
// while the children are rendered is multiplied by the depth of the article.

/// Whether a child is tied to the component itself, not to a component that it names. The children count as
/// the article has them, their variants left aside.
bool hasParentAnchor(const Component& component) {
    return component.components && std::any_of(component.components->begin(), component.components->end(),
                                               [](const Component& child) {
                                                   return child.anchor &&
                                                          !child.anchor->targetComponentIdentifier;
                                               });
}

std::string_view layeredClass(const Component& component) {
    return hasParentAnchor(component) ? " layered-container" : "";
}

/// Fills `place` with the dark class of the component's style. Called when the children are rendered: their
/// rules are numbered first.
void insertDarkClass(PageText& page, PageText::Place place, const Component& component,
                     const PageContext& context) {
    page.insert(place, componentDarkClass(component, context));
}

/// Writes a container up to its children; gives the place of its dark class.
PageText::Place openContainer(PageText& page, const Component& component, const PageContext& context,
                              std::string_view baseClass) {
    const auto style = resolveComponentStyle(component.style, context);
    const auto layout = resolveLayout(component.layout, context);
    const ComponentLayout* layoutRecord = layout ? &*layout : nullptr;
    page << "<div class=\"" << baseClass << layeredClass(component) << sceneClass(component.scene);
    const PageText::Place place = page.keepPlace();
    page << "\" style=\"";
    std::string& out = page.out();
    componentStyleCSS(out, style ? &*style : nullptr);
    containerDisplayCSS(out, component.contentDisplay, context.grid);
    marginInsetCSS(out, layoutRecord, context.grid);
    minimumHeightCSS(out, layoutRecord, context.grid);
    behaviorCSS(out, component.behavior, style && style->fill ? HasFill::yes : HasFill::no);
    sceneVariables(out, component.scene);
    page << "\">\n";
    return place;
}

bool hasHero(const SharedOptional<ComponentStyle>& style) {
    return style && style->fill && style->fill->type == "image" && style->fill->URL &&
           isUsableURL(*style->fill->URL);
}

/// Writes a header up to its children; gives the place of its dark class, which only one without a hero has.
std::optional<PageText::Place> openHeader(PageText& page, const Component& component,
                                          const PageContext& context) {
    const auto style = resolveComponentStyle(component.style, context);
    const auto layout = resolveLayout(component.layout, context);
    const ComponentLayout* layoutRecord = layout ? &*layout : nullptr;
    std::string& out = page.out();
    if (hasHero(style)) {
        out += "<header class=\"header\">\n<div class=\"header-hero\" style=\"background-image: url('";
        escapeHTML(out, *style->fill->URL);
        out += "'); background-position: ";
        backgroundPosition(out, *style->fill);
        out += ";";
        minimumHeightCSS(out, layoutRecord, context.grid);
        heroStyleCSS(out, *style);
        page << "\"></div>\n<div class=\"header-content" << layeredClass(component) << "\" style=\"";
        context.grid.gridStyle(out);
        marginInsetCSS(out, layoutRecord, context.grid);
        out += "\">\n";
        return std::nullopt;
    }
    page << "<header class=\"header" << layeredClass(component);
    const PageText::Place place = page.keepPlace();
    page << "\" style=\"";
    componentStyleCSS(out, style ? &*style : nullptr);
    context.grid.gridStyle(out);
    marginInsetCSS(out, layoutRecord, context.grid);
    minimumHeightCSS(out, layoutRecord, context.grid);
    out += "\">\n";
    return place;
}

void openArticleLink(PageText& page, const Component& component) {
    page << "<a class=\"article-link\"";
    const auto& target = component.articleIdentifier ? component.articleIdentifier : component.URL;
    if (target && !target->empty()) {
        page << " href=\"";
        escapeHTML(page.out(), *target);
        page << "\"";
    }
    page << ">\n";
}

} // namespace

void renderChildren(PageText& page, const Component& component, const PageContext& context) {
    if (!component.components) {
        return;
    }
    for (const Component& child : *component.components) {
        renderWrappedComponent(page, child, context);
    }
}

void renderContainer(PageText& page, const Component& component, const PageContext& context,
                     std::string_view baseClass) {
    const PageText::Place darkPlace = openContainer(page, component, context, baseClass);
    renderChildren(page, component, context);
    insertDarkClass(page, darkPlace, component, context);
    page << "</div>\n";
}

void renderHeader(PageText& page, const Component& component, const PageContext& context) {
    const auto darkPlace = openHeader(page, component, context);
    renderChildren(page, component, context);
    if (darkPlace) {
        insertDarkClass(page, *darkPlace, component, context);
        page << "</header>\n";
    } else {
        page << "</div>\n</header>";
    }
}

void renderArticleLink(PageText& page, const Component& component, const PageContext& context) {
    openArticleLink(page, component);
    const size_t sizeBefore = page.size();
    renderChildren(page, component, context);
    if (page.size() == sizeBefore) {
        page << "<span>";
        escapeHTML(page.out(),
                   component.articleIdentifier ? std::string_view(*component.articleIdentifier) : "Article");
        page << "</span>";
    }
    page << "</a>\n";
}

} // namespace quillon::HTMLRenderer
