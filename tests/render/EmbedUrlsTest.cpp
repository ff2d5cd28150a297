#include "render/EmbedUrls.h"

#include <gtest/gtest.h>

namespace quillon::HTMLRenderer {
namespace {

struct RewriteCase {
    std::string_view url;
    std::optional<std::string> expected;
};

TEST(EmbedUrls, webVideo) {
    const std::string player = "https://www.youtube.com/embed/";
    const std::string vimeo = "https://player.vimeo.com/video/";
    const std::string dailymotion = "https://www.dailymotion.com/embed/video/";
    const RewriteCase cases[] = {
        // One video, in all the forms of its address
        {"https://youtu.be/abc", player + "abc"},
        {"https://YOUTU.BE//abc/more?t=3", player + "abc"},
        {"https://youtu.be/", std::nullopt},
        {"https://youtu.be/?v=abc", std::nullopt},
        {"https://www.youtube.com/watch?v=abc", player + "abc"},
        {"https://m.youtube.com/watch?x=1&v=abc&v=def", player + "abc"},
        {"https://www.youtube.com/watch?v=a%20b", player + "a b"},
        {"https://www.youtube.com/watch?v=", player},
        {"https://www.youtube.com/watch?v&v=abc", std::nullopt},
        {"https://www.youtube.com/shorts/abc?v", player + "abc"},
        {"https://www.youtube.com/shorts/abc/def", player + "abc"},
        {"https://www.youtube.com/shorts/", std::nullopt},
        {"https://www.youtube.com/x/shorts/abc", std::nullopt},
        {"https://www.youtube.com/embed/abc?start=3", "https://www.youtube.com/embed/abc?start=3"},
        {"https://www.youtube.com/embed", std::nullopt},
        {"https://www.youtube.com/@channel", std::nullopt},
        {"https://notyoutube.com/watch?v=abc", player + "abc"},
        {"https://youtube.com.example/watch?v=abc", std::nullopt},

        {"https://player.vimeo.com/video/12?h=1", "https://player.vimeo.com/video/12?h=1"},
        {"https://player.vimeo.com/12", vimeo + "12"},
        {"https://vimeo.com/channels/staff/0123", vimeo + "0123"},
        {"https://vimeo.com/12/34", vimeo + "12"},
        {"https://vimeo.com/1a/b2", std::nullopt},

        {"https://dai.ly/x1", dailymotion + "x1"},
        {"https://dai.ly", std::nullopt},
        {"https://www.dailymotion.com/video/x1?a=b", dailymotion + "x1"},
        {"https://www.dailymotion.com/embed/video/x1", dailymotion + "x1"},
        {"https://www.dailymotion.com/x1/video", std::nullopt},
        {"https://www.dailymotion.com/video/video/x1", dailymotion + "video"},

        {"https://video.example/1.mp4", std::nullopt},
        {"youtube.com/watch?v=abc", std::nullopt},
        {"//youtube.com/watch?v=abc", player + "abc"},
        {"https:///watch?v=abc", std::nullopt},
        {"https://www.youtube.com/watch?v=a b", std::nullopt},
        {"https://www.youtube.com/w\xC3\xA4tch?v=a", std::nullopt},
        {"", std::nullopt},
    };
    for (const RewriteCase& test : cases) {
        SCOPED_TRACE(test.url);
        EXPECT_EQ(webVideoEmbedURL(test.url), test.expected);
    }
}

TEST(EmbedUrls, musicAndPodcasts) {
    const RewriteCase music[] = {
        {"https://music.apple.com/us/album/1?i=2", "https://embed.music.apple.com/us/album/1?i=2"},
        {"http://Music.Apple.com:8080/a%20b#c", "https://embed.music.apple.com:8080/a%20b#c"},
        {"https://embed.music.apple.com/us/1", "https://embed.music.apple.com/us/1"},
        {"https://geo.music.apple.com/us/1", std::nullopt},
        {"https://podcasts.apple.com/us/1", std::nullopt},
        {"music.apple.com/us", std::nullopt},
    };
    for (const RewriteCase& test : music) {
        SCOPED_TRACE(test.url);
        EXPECT_EQ(musicEmbedURL(test.url), test.expected);
    }
    const RewriteCase podcasts[] = {
        {"http://podcasts.apple.com/us/podcast/id1?i=2",
         "https://embed.podcasts.apple.com/us/podcast/id1?i=2"},
        {"https://embed.podcasts.apple.com", "https://embed.podcasts.apple.com"},
        {"https://music.apple.com/us/1", std::nullopt},
    };
    for (const RewriteCase& test : podcasts) {
        SCOPED_TRACE(test.url);
        EXPECT_EQ(podcastEmbedURL(test.url), test.expected);
    }
}

TEST(EmbedUrls, longAddresses) {
    const std::string path(1'000'000, '/');
    EXPECT_EQ(webVideoEmbedURL("https://youtu.be" + path + "a"), "https://www.youtube.com/embed/a");
    std::string query = "https://www.youtube.com/watch?";
    for (int i = 0; i < 100'000; ++i) {
        query += "a=b&";
    }
    EXPECT_EQ(webVideoEmbedURL(query + "v=1"), "https://www.youtube.com/embed/1");
}

} // namespace
} // namespace quillon::HTMLRenderer
