#include "render/Advertisements.h"

#include "base/UnicodeText.h"
#include "render/ComponentStyleCss.h"
#include "render/Conditions.h"
#include "render/EmbedPlaceholder.h"
#include "render/EscapeHtml.h"
#include "render/MediaParts.h"
#include "render/StyleAttribute.h"
#include "render/UsableUrl.h"

#include <algorithm>
#include <array>

namespace quillon::HTMLRenderer {

namespace {

constexpr int64_t highestFrequency = 10;
constexpr int64_t shortestInterval = 2;

constexpr std::array<std::string_view, 5> imageEndings = {".jpg", ".jpeg", ".png", ".gif", ".webp"};

/// Whether a URL names an image file by its ending, a query behind it left aside.
bool namesImageFile(std::string_view url) {
    const std::string file = lowercased(url.substr(0, url.find('?')));
    return std::any_of(imageEndings.begin(), imageEndings.end(),
                       [&file](std::string_view ending) { return file.ends_with(ending); });
}

void renderReplica(std::string& out, const Component& component, const PageContext& context) {
    const std::string_view url = trimmedURL(component.URL);
    if (!isUsableURL(url) || !namesImageFile(url)) {
        renderEmbedPlaceholder(out, "Replica Ad", url);
        return;
    }
    out += "<figure class=\"image replica-ad\"";
    const auto style = resolveComponentStyle(component.style, context);
    writeStyleAttribute(out, [&] { componentStyleCSS(out, style ? &*style : nullptr); });
    out += ">\n<img src=\"";
    escapeHTML(out, url);
    out += "\" alt=\"";
    escapeHTML(out, component.accessibilityCaption ? std::string_view(*component.accessibilityCaption)
                                                   : "Replica advertisement");
    out += "\">\n</figure>";
}

} // namespace

void renderAdvertisement(PageText& page, const Component& component, const PageContext& context) {
    if (component.role == ComponentRole::replicaAdvertisement) {
        renderReplica(page.out(), component, context);
    } else {
        renderEmbedPlaceholder(page.out(), component.role.displayName(), {});
    }
}

std::optional<size_t> advertisementInterval(const Optional<AdvertisingSettings>& settings) {
    if (!settings || settings->frequency.value_or(0) < 1) {
        return std::nullopt;
    }
    const int64_t frequency = std::min(*settings->frequency, highestFrequency);
    return static_cast<size_t>(std::max(highestFrequency + 1 - frequency, shortestInterval));
}

void renderAdvertisementMarker(PageText& page) {
    page << "<div class=\"component\" style=\"grid-column: 1 / -1;\">";
    renderEmbedPlaceholder(page.out(), "Advertisement", "Auto-placed");
    page << "</div>\n";
}

} // namespace quillon::HTMLRenderer
