#include "render/Components.h"

#include "render/Advertisements.h"
#include "render/Conditions.h"
#include "render/Containers.h"
#include "render/EscapeHtml.h"
#include "render/Images.h"
#include "render/LayoutCss.h"
#include "render/Media.h"
#include "render/Motion.h"
#include "render/Tables.h"
#include "render/TextRoles.h"

#include <memory>

namespace quillon::HTMLRenderer {

namespace {

/// Writes the start tag of a component's wrapper.
void openWrapper(PageText& page, const Component& resolved, const PageContext& context) {
    page << "<div class=\"component";
    if (resolved.role == ComponentRole::spacer) {
        page << " flexible-spacer-component";
    }
    if (const auto animation = animationClass(resolved.animation); !animation.empty()) {
        page << " " << animation;
    }
    page << anchorClass(resolved.anchor) << "\"";
    if (resolved.identifier && !resolved.identifier->empty()) {
        page << " id=\"";
        escapeHTML(page.out(), *resolved.identifier);
        page << "\"";
    }
    page << " data-component-id=\"" << resolved.id.text() << "\" style=\"";
    const auto layout = resolveLayout(resolved.layout, context);
    layoutCSS(page.out(), layout ? &*layout : nullptr, resolved.anchor, context.grid);
    animationVariables(page.out(), resolved.animation);
    page << "\">";
}

void renderResolved(PageText& page, const Component& resolved, const PageContext& context) {
    if (resolved.hidden == true) {
        return;
    }
    openWrapper(page, resolved, context);
    renderComponent(page, resolved, context);
    page << "</div>\n";
}

} // namespace

void renderBody(PageText& page, const PageContext& context) {
    const auto interval = advertisementInterval(context.article.advertisingSettings);
    const size_t count = context.article.components.size();
    size_t index = 0;
    size_t sinceMarker = 0;
    for (const Component& component : context.article.components) {
        renderWrappedComponent(page, component, context);
        ++index;
        if (++sinceMarker == interval && index < count) {
            renderAdvertisementMarker(page);
            sinceMarker = 0;
        }
    }
}

void renderWrappedComponent(PageText& page, const Component& component, const PageContext& context) {
    if (!component.conditional) {
        renderResolved(page, component, context);
        return;
    }
    // Not on the stack, which it would take up while all that the component holds is rendered.
    const auto copy = std::make_unique<std::optional<Component>>();
    renderResolved(page, resolveComponent(component, context.environment, *copy), context);
}

void renderComponent(PageText& page, const Component& resolved, const PageContext& context) {
    using enum ComponentRole::Case;
    switch (resolved.role.kind()) {
    case title:
    case heading:
    case heading1:
    case heading2:
    case heading3:
    case heading4:
    case heading5:
    case heading6:
    case intro:
    case body:
    case caption:
    case author:
    case byline:
    case photographer:
    case illustrator:
    case quote:
    case pullquote:
    case articleTitle:
        return renderTextRole(page, resolved, context);
    case photo:
    case image:
    case figure:
    case portrait:
    case logo:
    case articleThumbnail:
        return renderImage(page, resolved, context);
    case gallery:
        return renderCollection(page, resolved, context, "gallery");
    case mosaic:
        return renderCollection(page, resolved, context, "mosaic");
    case dataTable:
        return renderDataTable(page, resolved, context);
    case htmlTable:
        return renderHTMLTable(page, resolved, context);
    case divider:
        page << "<hr class=\"divider\">\n";
        return;
    case spacer:
        page << "<div class=\"flexible-spacer\"></div>\n";
        return;
    case container:
        return renderContainer(page, resolved, context, "container");
    case aside:
        return renderContainer(page, resolved, context, "container aside");
    case section:
        return renderContainer(page, resolved, context, "section");
    case chapter:
        return renderContainer(page, resolved, context, "section chapter");
    case header:
        return renderHeader(page, resolved, context);
    case articleLink:
        return renderArticleLink(page, resolved, context);
    case video:
    case audio:
    case music:
    case podcast:
    case embedWebVideo:
    case map:
    case place:
    case instagram:
    case facebookPost:
    case tiktok:
    case button:
    case linkButton:
    case arkit:
    case tweet:
        return renderMedia(page, resolved, context);
    case bannerAdvertisement:
    case mediumRectangleAdvertisement:
    case replicaAdvertisement:
        return renderAdvertisement(page, resolved, context);
    case other:
        return renderUnknownRole(page, resolved, context);
    }
}

} // namespace quillon::HTMLRenderer
