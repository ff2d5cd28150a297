#include "render/Maps.h"

#include "render/EmbedPlaceholder.h"
#include "render/EscapeHtml.h"
#include "render/MapAddresses.h"
#include "render/MapsToken.h"
#include "render/MediaParts.h"

namespace quillon::HTMLRenderer {

namespace {

void appendFallbackLink(std::string& out, std::string_view fallback) {
    out += R"(<a class="embed-fallback-link" href=")";
    escapeHTML(out, fallback);
    out += R"(">Open in Apple Maps</a>
)";
}

void renderWarning(std::string& out, const Component& component, std::string_view title,
                   std::string_view message, std::string_view fallback) {
    out += R"(<figure class="live-embed map-embed">
<div class="embed-placeholder map-embed-warning">
<div class="embed-title">)";
    escapeHTML(out, title);
    out += R"(</div>
<div class="embed-detail">)";
    escapeHTML(out, message);
    out += "</div>\n";
    appendFallbackLink(out, fallback);
    out += "</div>\n";
    appendCaption(out, component.caption);
    out += "\n</figure>";
}

void renderLiveMap(std::string& out, const Component& component, std::string_view title,
                   std::string_view address, std::string_view fallback) {
    out += R"(<figure class="live-embed map-embed">
<iframe class="apple-map" title=")";
    escapeHTML(out, title);
    out += R"(" src=")";
    escapeHTML(out, address);
    out += R"(" allow="geolocation" loading="lazy" referrerpolicy="origin"></iframe>
)";
    appendCaption(out, component.caption);
    out += '\n';
    appendFallbackLink(out, fallback);
    out += "</figure>";
}

} // namespace

void renderMap(PageText& page, const Component& component, const PageContext& context) {
    std::string& out = page.out();
    const std::optional<std::string> fallback = mapFallbackURL(component);
    if (!fallback) {
        // Coordinates are no part of the details: with both of them there would be a link.
        return renderLinkedPlaceholder(out, component.role.displayName(), trimmedURL(component.URL),
                                       textOrEmpty(component.caption));
    }
    const bool isPlace = component.role == ComponentRole::place;
    const std::string_view title = isPlace ? "Apple Maps Place" : "Apple Maps";
    if (const auto message = validateMapsToken(component, context.environment, context.now)) {
        return renderWarning(out, component, title, *message, *fallback);
    }
    const std::optional<std::string> address = mapEmbedURL(component, context.environment);
    if (!address) {
        return renderWarning(out, component, title, missingMapsToken, *fallback);
    }
    renderLiveMap(out, component, title, *address, *fallback);
}

} // namespace quillon::HTMLRenderer
