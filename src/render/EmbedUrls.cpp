#include "render/EmbedUrls.h"

#include "base/Url.h"
#include "base/endpoints.h"

#include <algorithm>
#include <vector>

namespace quillon::HTMLRenderer {

namespace {

struct EmbedSource {
    std::string_view url;
    UrlParts parts;
    std::string host; ///< in lower case

    std::vector<std::string> segments() const { return parts.pathSegments(); }
    bool pathBeginsWith(std::string_view prefix) const { return parts.path().starts_with(prefix); }
};

std::optional<EmbedSource> embedSource(std::string_view url) {
    std::optional<UrlParts> parts = parseUrl(url);
    std::optional<std::string> host = parts ? parts->lowercasedHost() : std::nullopt;
    if (!host) {
        return std::nullopt;
    }
    return EmbedSource{url, *std::move(parts), *std::move(host)};
}

std::string embedAddress(std::string_view host, std::string_view path, std::string_view id) {
    std::string address = "https://";
    address += host;
    address += path;
    address += id;
    return address;
}

std::string youtubeAddress(std::string_view id) {
    return embedAddress(endpoints::youtubeHost, "/embed/", id);
}

std::string dailymotionAddress(std::string_view id) {
    return embedAddress(endpoints::dailymotionHost, "/embed/video/", id);
}

bool consistsOfNumerals(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

std::optional<std::string> youtubeShortURL(const EmbedSource& source) {
    const std::vector<std::string> segments = source.segments();
    return segments.empty() ? std::nullopt : std::optional(youtubeAddress(segments.front()));
}

std::optional<std::string> youtubeURL(const EmbedSource& source) {
    if (source.pathBeginsWith("/embed/")) {
        return std::string(source.url);
    }
    if (const std::optional<std::string> id = source.parts.queryValue("v")) {
        return youtubeAddress(*id);
    }
    if (const std::vector<std::string> segments = source.segments();
        source.pathBeginsWith("/shorts/") && segments.size() >= 2) {
        return youtubeAddress(segments[1]);
    }
    return std::nullopt;
}

std::optional<std::string> vimeoPlayerURL(const EmbedSource& source) {
    return source.pathBeginsWith("/video/") ? std::optional<std::string>(source.url) : std::nullopt;
}

std::optional<std::string> vimeoURL(const EmbedSource& source) {
    const std::vector<std::string> segments = source.segments();
    const auto id = std::ranges::find_if(segments, consistsOfNumerals);
    return id == segments.end() ? std::nullopt
                                : std::optional(embedAddress(endpoints::vimeoPlayerHost, "/video/", *id));
}

std::optional<std::string> dailymotionShortURL(const EmbedSource& source) {
    const std::vector<std::string> segments = source.segments();
    return segments.empty() ? std::nullopt : std::optional(dailymotionAddress(segments.front()));
}

std::optional<std::string> dailymotionURL(const EmbedSource& source) {
    const std::vector<std::string> segments = source.segments();
    const auto mark = std::ranges::find(segments, "video");
    if (mark == segments.end() || mark + 1 == segments.end()) {
        return std::nullopt;
    }
    return dailymotionAddress(*(mark + 1));
}

enum class HostTest { equals, endsWith };
enum class Otherwise { tryNext, giveUp };

struct EmbedRule {
    HostTest test;
    std::string_view host;
    std::optional<std::string> (*rewrite)(const EmbedSource&);
    Otherwise otherwise = Otherwise::tryNext;

    /// A suffix is compared as text: a host that merely ends in the letters of the domain counts too.
    bool applies(std::string_view sourceHost) const {
        return test == HostTest::equals ? sourceHost == host : sourceHost.ends_with(host);
    }
};

/// In the order in which they are tried.
constexpr EmbedRule webVideoRules[] = {
    {HostTest::equals, endpoints::youtubeShortHost, youtubeShortURL, Otherwise::giveUp},
    {HostTest::endsWith, endpoints::youtubeDomain, youtubeURL},
    {HostTest::equals, endpoints::vimeoPlayerHost, vimeoPlayerURL},
    {HostTest::endsWith, endpoints::vimeoDomain, vimeoURL},
    {HostTest::equals, endpoints::dailymotionShortHost, dailymotionShortURL},
    {HostTest::endsWith, endpoints::dailymotionDomain, dailymotionURL},
};

/// The URL with the embed host of a service, when its host is that or the service's web host.
std::optional<std::string> withEmbedHost(std::string_view url, std::string_view webHost,
                                         std::string_view embedHost) {
    std::optional<EmbedSource> source = embedSource(url);
    if (!source || (source->host != webHost && source->host != embedHost)) {
        return std::nullopt;
    }
    source->parts.scheme = "https";
    source->parts.setHost(embedHost);
    return buildUrl(source->parts);
}

} // namespace

std::optional<std::string> webVideoEmbedURL(std::string_view url) {
    const std::optional<EmbedSource> source = embedSource(url);
    if (!source) {
        return std::nullopt;
    }
    for (const EmbedRule& rule : webVideoRules) {
        if (!rule.applies(source->host)) {
            continue;
        }
        std::optional<std::string> rewritten = rule.rewrite(*source);
        if (rewritten || rule.otherwise == Otherwise::giveUp) {
            return rewritten;
        }
    }
    return std::nullopt;
}

std::optional<std::string> musicEmbedURL(std::string_view url) {
    return withEmbedHost(url, endpoints::appleMusicHost, endpoints::appleMusicEmbedHost);
}

std::optional<std::string> podcastEmbedURL(std::string_view url) {
    return withEmbedHost(url, endpoints::applePodcastsHost, endpoints::applePodcastsEmbedHost);
}

} // namespace quillon::HTMLRenderer
