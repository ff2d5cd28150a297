#pragma once

#include <string_view>

/// The fixed addresses of the product and of the services that a page embeds, each written down once.
namespace quillon::endpoints {

using namespace std::string_view_literals;

inline constexpr auto productOrigin = "https://quillon.example"sv;
inline constexpr auto productHome = "https://quillon.example/"sv;
inline constexpr auto heroImage = "https://quillon.example/assets/hero.png"sv;
inline constexpr auto exampleImagePrefix =
    "https://quillon.example/assets/examples/"sv;                                ///< stem, ".png" follow
inline constexpr auto productIcon = "https://quillon.example/assets/icon.png"sv; ///< 1024 px
inline constexpr auto makerHome = "https://tarnwell.example/"sv;
inline constexpr auto feedbackMailbox = "feedback@tarnwell.example"sv;
inline constexpr auto formatDocumentation = "https://developer.apple.com/documentation/applenewsformat"sv;
inline constexpr auto appleNewsRoot = "https://apple.news/"sv;

inline constexpr auto facebookSdkHost = "connect.facebook.net"sv;
inline constexpr auto instagramEmbedHost = "www.instagram.com"sv;
inline constexpr auto tiktokEmbedHost = "www.tiktok.com"sv;
inline constexpr auto twitterWidgetHost = "platform.twitter.com"sv;

inline constexpr auto youtubeShortHost = "youtu.be"sv;
inline constexpr auto youtubeHost = "www.youtube.com"sv;
inline constexpr auto youtubeDomain = "youtube.com"sv;
inline constexpr auto vimeoPlayerHost = "player.vimeo.com"sv;
inline constexpr auto vimeoDomain = "vimeo.com"sv;
inline constexpr auto dailymotionShortHost = "dai.ly"sv;
inline constexpr auto dailymotionHost = "www.dailymotion.com"sv;
inline constexpr auto dailymotionDomain = "dailymotion.com"sv;

inline constexpr auto appleMusicHost = "music.apple.com"sv;
inline constexpr auto appleMusicEmbedHost = "embed.music.apple.com"sv;
inline constexpr auto applePodcastsHost = "podcasts.apple.com"sv;
inline constexpr auto applePodcastsEmbedHost = "embed.podcasts.apple.com"sv;
inline constexpr auto appleMapsHost = "maps.apple.com"sv;
inline constexpr auto appleMapsEmbedHost = "embed.apple-mapkit.com"sv;
inline constexpr auto appleMapsDomain = "apple-mapkit.com"sv;

} // namespace quillon::endpoints
