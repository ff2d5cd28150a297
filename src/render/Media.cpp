#include "render/Media.h"

#include "render/CssNumbers.h"
#include "render/EmbedPlaceholder.h"
#include "render/EmbedUrls.h"
#include "render/EscapeHtml.h"
#include "render/Maps.h"
#include "render/MediaParts.h"
#include "render/UsableUrl.h"

#include <algorithm>

namespace quillon::HTMLRenderer {

namespace {

// Every writer below is given `url`, the component's URL, trimmed.

void renderVideo(std::string& out, const Component& component, std::string_view url) {
    if (!isUsableURL(url)) {
        return renderEmbedPlaceholder(out, "Video", url);
    }
    out += R"(<figure class="media"><video class="media-video" controls playsinline)";
    if (const std::string_view still = textOrEmpty(component.stillURL); isUsableURL(still)) {
        out += R"( poster=")";
        escapeHTML(out, still);
        out += '"';
    }
    out += R"( src=")";
    escapeHTML(out, url);
    out += R"("></video>)";
    appendCaption(out, component.caption);
    out += "</figure>\n";
}

void renderAudio(std::string& out, const Component& component, std::string_view url, std::string_view title) {
    if (!isUsableURL(url)) {
        return renderEmbedPlaceholder(out, title, url);
    }
    out += R"(<figure class="media"><audio class="media-audio" controls src=")";
    escapeHTML(out, url);
    out += R"("></audio>)";
    appendCaption(out, component.caption);
    out += "</figure>\n";
}

void renderAppleMediaFrame(std::string& out, const Component& component, std::string_view className,
                           std::string_view title, std::string_view address) {
    out += R"(<figure class="live-embed apple-media-embed">
<iframe class=")";
    out += className;
    out += R"(" title=")";
    escapeHTML(out, title);
    out += R"(" allow="autoplay *; encrypted-media *; fullscreen *; clipboard-write" src=")";
    escapeHTML(out, address);
    out += R"(" loading="lazy"></iframe>
)";
    appendCaption(out, component.caption);
    out += "\n</figure>";
}

void renderMusic(std::string& out, const Component& component, std::string_view url) {
    if (const std::optional<std::string> address = musicEmbedURL(url)) {
        return renderAppleMediaFrame(out, component, "apple-music-embed", "Apple Music", *address);
    }
    renderAudio(out, component, url, "Music");
}

void renderPodcast(std::string& out, const Component& component, std::string_view url) {
    if (const std::optional<std::string> address = podcastEmbedURL(url)) {
        return renderAppleMediaFrame(out, component, "apple-podcast-embed", "Apple Podcasts", *address);
    }
    std::string details;
    if (const std::string_view orientation = textOrEmpty(component.orientation); !orientation.empty()) {
        appendDetail(details, "orientation: " + std::string(orientation));
    }
    if (const std::string_view theme = textOrEmpty(component.theme); !theme.empty()) {
        appendDetail(details, "theme: " + std::string(theme));
    }
    renderLinkedPlaceholder(out, "Podcast", url, details);
}

void renderWebVideo(std::string& out, const Component& component, std::string_view url) {
    if (!isUsableURL(url)) {
        return renderEmbedPlaceholder(out, "Web Video", url);
    }
    const double aspectRatio = component.aspectRatio.value_or(0);
    const double heightPercent = aspectRatio > 0 ? 100 / aspectRatio : 56.25;
    const std::optional<std::string> player = webVideoEmbedURL(url);
    out += R"(<div class="web-video" style="padding-bottom: )";
    formatNumber(out, heightPercent);
    out += R"(%;">
<iframe src=")";
    escapeHTML(out, player ? std::string_view(*player) : url);
    out +=
        R"(" allow="accelerometer; autoplay; clipboard-write; encrypted-media; gyroscope; picture-in-picture; web-share" allowfullscreen loading="lazy"></iframe>
</div>)";
}

void renderInstagram(std::string& out, std::string_view url) {
    if (!isUsableURL(url)) {
        return renderEmbedPlaceholder(out, "Instagram", url);
    }
    out += R"(<div class="live-embed social-embed instagram-embed">
<blockquote class="instagram-media" data-instgrm-permalink=")";
    escapeHTML(out, url);
    out += R"(" data-instgrm-version="14">
<a href=")";
    escapeHTML(out, url);
    out += R"(">View this post on Instagram</a>
</blockquote>
</div>)";
}

void renderFacebookPost(std::string& out, std::string_view url) {
    if (!isUsableURL(url)) {
        return renderEmbedPlaceholder(out, "Facebook Post", url);
    }
    out += R"(<div class="live-embed social-embed facebook-embed">
<div class="fb-post" data-href=")";
    escapeHTML(out, url);
    out += R"(" data-width="500" data-show-text="true">
<blockquote cite=")";
    escapeHTML(out, url);
    out += R"("><a href=")";
    escapeHTML(out, url);
    out += R"(">View this post on Facebook</a></blockquote>
</div>
</div>)";
}

/// The numerals behind the first "/video/" that has any.
std::string_view tiktokVideoId(std::string_view url) {
    constexpr std::string_view mark = "/video/";
    constexpr std::string_view numerals = "0123456789";
    for (size_t at = url.find(mark); at != std::string_view::npos; at = url.find(mark, at + 1)) {
        const std::string_view rest = url.substr(at + mark.size());
        if (const std::string_view id = rest.substr(0, rest.find_first_not_of(numerals)); !id.empty()) {
            return id;
        }
    }
    return {};
}

void renderTikTok(std::string& out, std::string_view url) {
    constexpr std::string_view title = "TikTok";
    if (!isUsableURL(url)) {
        return renderEmbedPlaceholder(out, title, url);
    }
    const std::string_view id = tiktokVideoId(url);
    if (id.empty()) {
        return renderLinkedPlaceholder(out, title, url, {});
    }
    out += R"(<div class="live-embed social-embed tiktok-wrapper">
<blockquote class="tiktok-embed" cite=")";
    escapeHTML(out, url);
    out += R"(" data-video-id=")";
    out += id;
    out += R"(" style="max-width: 605px; min-width: 325px;">
<section><a href=")";
    escapeHTML(out, url);
    out += R"(">View this TikTok</a></section>
</blockquote>
</div>)";
}

void renderTweet(std::string& out, std::string_view url) {
    if (!isUsableURL(url)) {
        return renderEmbedPlaceholder(out, "Tweet", url);
    }
    out += R"(<div class="live-embed social-embed tweet-embed">
<blockquote class="twitter-tweet"><a href=")";
    escapeHTML(out, url);
    out += R"(">View this post</a></blockquote>
</div>)";
}

/// Where a button leads: its own URL, as it stands, or else that of its first link.
std::string_view buttonTarget(const Component& component) {
    if (const std::string_view url = textOrEmpty(component.URL); !url.empty() || !component.additions) {
        return url;
    }
    const auto isLink = [](const ComponentLink& addition) {
        return !addition.type || *addition.type == "link";
    };
    const auto link = std::ranges::find_if(*component.additions, isLink);
    return link == component.additions->end() ? std::string_view() : textOrEmpty(link->URL);
}

} // namespace

void renderButton(std::string& out, const Component& component, std::string_view className,
                  std::string_view fallbackLabel) {
    out += R"(<a class=")";
    out += className;
    out += '"';
    if (const std::string_view target = buttonTarget(component); isUsableURL(target)) {
        out += R"( href=")";
        escapeHTML(out, target);
        out += '"';
    }
    out += '>';
    const std::string_view text = textOrEmpty(component.text);
    escapeHTML(out, text.empty() ? fallbackLabel : text);
    out += "</a>\n";
}

void renderMedia(PageText& page, const Component& component, const PageContext& context) {
    std::string& out = page.out();
    const std::string_view url = trimmedURL(component.URL);
    switch (component.role.kind()) {
    case ComponentRole::video:
        return renderVideo(out, component, url);
    case ComponentRole::audio:
        return renderAudio(out, component, url, component.role.displayName());
    case ComponentRole::music:
        return renderMusic(out, component, url);
    case ComponentRole::podcast:
        return renderPodcast(out, component, url);
    case ComponentRole::embedWebVideo:
        return renderWebVideo(out, component, url);
    case ComponentRole::instagram:
        return renderInstagram(out, url);
    case ComponentRole::facebookPost:
        return renderFacebookPost(out, url);
    case ComponentRole::tiktok:
        return renderTikTok(out, url);
    case ComponentRole::tweet:
        return renderTweet(out, url);
    case ComponentRole::button:
    case ComponentRole::linkButton:
        return renderButton(out, component, "anf-button", "Button");
    case ComponentRole::arkit:
        return renderLinkedPlaceholder(out, "ARKit Scene", url,
                                       url.empty() ? "" : "USDZ preview opens in a supported Apple viewer.");
    case ComponentRole::map:
    case ComponentRole::place:
        return renderMap(page, component, context);
    default:
        return; // no other role shows foreign content
    }
}

} // namespace quillon::HTMLRenderer
