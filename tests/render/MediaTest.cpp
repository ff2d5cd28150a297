#include "render/Media.h"
#include "render/PageFixture.h"

#include <gtest/gtest.h>

namespace quillon::HTMLRenderer {
namespace {

struct FragmentCase {
    std::string_view component;
    std::string_view expected;
};

template <size_t count>
void expectFragments(const FragmentCase (&cases)[count]) {
    for (const FragmentCase& test : cases) {
        SCOPED_TRACE(test.component);
        EXPECT_EQ(fragmentOf(test.component), test.expected);
    }
}

/// What the two placeholders look like, for the roles that end in one.
std::string placeholder(std::string_view title, std::string_view detail) {
    std::string out = "<div class=\"embed-placeholder\">\n<div class=\"embed-title\">";
    out += title;
    out += "</div>\n";
    if (!detail.empty()) {
        out += "<div class=\"embed-detail\">" + std::string(detail) + "</div>";
    }
    return out + "\n</div>";
}

std::string linkedPlaceholder(std::string_view title, const std::string& url, const std::string& detail) {
    std::string out =
        "<div class=\"embed-placeholder linked-embed-placeholder\">\n<div class=\"embed-title\">";
    out += title;
    return out + "</div>\n<div class=\"embed-detail\">" + url + detail +
           "</div>\n<a class=\"embed-fallback-link\" href=\"" + url + "\">Open source</a>\n</div>";
}

TEST(Media, playersOfThePage) {
    expectFragments({
        {R"({"role":"audio","URL":"bundle://a","caption":""})",
         "<figure class=\"media\"><audio class=\"media-audio\" controls "
         "src=\"bundle://a\"></audio></figure>\n"},
        {R"({"role":"video","URL":" https://a.example/1.mp4?a&b\n","stillURL":"bundle://s\"t.jpg"})",
         "<figure class=\"media\"><video class=\"media-video\" controls playsinline "
         "poster=\"bundle://s&quot;t.jpg\" src=\"https://a.example/1.mp4?a&amp;b\"></video></figure>\n"},
        {R"({"role":"video","URL":"bundle://v","stillURL":"still.jpg","caption":" <b> "})",
         "<figure class=\"media\"><video class=\"media-video\" controls playsinline "
         "src=\"bundle://v\"></video><figcaption> &lt;b&gt; </figcaption></figure>\n"},
        {R"({"role":"video","URL":"bundle://v","stillURL":" https://blank.example"})",
         "<figure class=\"media\"><video class=\"media-video\" controls playsinline "
         "src=\"bundle://v\"></video></figure>\n"},
        {R"({"role":"audio","URL":"http://a.example/ü 1","caption":"C"})",
         "<figure class=\"media\"><audio class=\"media-audio\" controls "
         "src=\"http://a.example/ü 1\"></audio><figcaption>C</figcaption></figure>\n"},
        {R"({"role":"music","URL":"https://a.example/1.mp3"})",
         "<figure class=\"media\"><audio class=\"media-audio\" controls "
         "src=\"https://a.example/1.mp3\"></audio></figure>\n"},
    });
}

TEST(Media, framesOfServices) {
    expectFragments({
        {R"({"role":"music","URL":"http://music.apple.com/a?b=1&c=2","caption":"C"})",
         "<figure class=\"live-embed apple-media-embed\">\n<iframe class=\"apple-music-embed\" "
         "title=\"Apple Music\" allow=\"autoplay *; encrypted-media *; fullscreen *; clipboard-write\" "
         "src=\"https://embed.music.apple.com/a?b=1&amp;c=2\" "
         "loading=\"lazy\"></iframe>\n<figcaption>C</figcaption>\n</figure>"},
        {R"({"role":"podcast","URL":"https://podcasts.apple.com/p","theme":"dark"})",
         "<figure class=\"live-embed apple-media-embed\">\n<iframe class=\"apple-podcast-embed\" "
         "title=\"Apple Podcasts\" allow=\"autoplay *; encrypted-media *; fullscreen *; clipboard-write\" "
         "src=\"https://embed.podcasts.apple.com/p\" loading=\"lazy\"></iframe>\n\n</figure>"},
        {R"({"role":"embedwebvideo","URL":"https://www.youtube.com/@a","caption":"C","aspectRatio":2})",
         "<div class=\"web-video\" style=\"padding-bottom: 50%;\">\n<iframe "
         "src=\"https://www.youtube.com/@a\" allow=\"accelerometer; autoplay; clipboard-write; "
         "encrypted-media; gyroscope; picture-in-picture; web-share\" allowfullscreen "
         "loading=\"lazy\"></iframe>\n</div>"},
    });
    struct {
        std::string_view ratio;
        std::string_view padding;
    } const ratios[] = {{"0", "56.25"}, {"-1", "56.25"}, {"null", "56.25"}, {"1.6", "62.5"}, {"1e-320", "0"}};
    for (const auto& test : ratios) {
        const std::string json =
            R"({"role":"embedwebvideo","URL":"bundle://v","aspectRatio":)" + std::string(test.ratio) + "}";
        EXPECT_NE(fragmentOf(json).find("bottom: " + std::string(test.padding) + "%;\">"), std::string::npos)
            << json;
    }
}

TEST(Media, socialPosts) {
    expectFragments({
        {R"({"role":"instagram","URL":"https://i.example/?a&b"})",
         "<div class=\"live-embed social-embed instagram-embed\">\n<blockquote class=\"instagram-media\" "
         "data-instgrm-permalink=\"https://i.example/?a&amp;b\" data-instgrm-version=\"14\">\n<a "
         "href=\"https://i.example/?a&amp;b\">View this post on Instagram</a>\n</blockquote>\n</div>"},
        {R"({"role":"facebook_post","URL":"bundle://f"})",
         "<div class=\"live-embed social-embed facebook-embed\">\n<div class=\"fb-post\" "
         "data-href=\"bundle://f\" data-width=\"500\" data-show-text=\"true\">\n<blockquote "
         "cite=\"bundle://f\"><a href=\"bundle://f\">View this post on "
         "Facebook</a></blockquote>\n</div>\n</div>"},
        {R"({"role":"tiktok","URL":"https://t.example/video/x/video/12a/video/3"})",
         "<div class=\"live-embed social-embed tiktok-wrapper\">\n<blockquote class=\"tiktok-embed\" "
         "cite=\"https://t.example/video/x/video/12a/video/3\" data-video-id=\"12\" style=\"max-width: "
         "605px; "
         "min-width: 325px;\">\n<section><a href=\"https://t.example/video/x/video/12a/video/3\">View this "
         "TikTok</a></section>\n</blockquote>\n</div>"},
        {R"({"role":"tweet","URL":"https://x.example/1"})",
         "<div class=\"live-embed social-embed tweet-embed\">\n<blockquote class=\"twitter-tweet\"><a "
         "href=\"https://x.example/1\">View this post</a></blockquote>\n</div>"},
    });
}

TEST(Media, placeholders) {
    struct {
        std::string_view component;
        std::string expected;
    } const cases[] = {
        {R"({"role":"video","URL":"v.mp4"})", placeholder("Video", "v.mp4")},
        {R"({"role":"audio","caption":"C"})", placeholder("Audio", "")},
        {R"({"role":"music","URL":"ftp://<"})", placeholder("Music", "ftp://&lt;")},
        {R"({"role":"embedwebvideo","URL":"HTTPS://youtu.be/a"})",
         placeholder("Web Video", "HTTPS://youtu.be/a")},
        {R"({"role":"instagram","URL":" \n "})", placeholder("Instagram", "")},
        {R"({"role":"facebook_post","URL":"f"})", placeholder("Facebook Post", "f")},
        {R"({"role":"tiktok","URL":"/video/12"})", placeholder("TikTok", "/video/12")},
        {R"({"role":"tiktok","URL":"https://t.example/video/"})",
         linkedPlaceholder("TikTok", "https://t.example/video/", "")},
        {R"({"role":"tweet"})", placeholder("Tweet", "")},
        {R"({"role":"arkit"})", placeholder("ARKit Scene", "")},
        {R"({"role":"arkit","URL":"s.usdz"})",
         placeholder("ARKit Scene", "s.usdz · USDZ preview opens in a supported Apple viewer.")},
        {R"({"role":"arkit","URL":"bundle://s"})",
         linkedPlaceholder("ARKit Scene", "bundle://s",
                           " · USDZ preview opens in a supported Apple viewer.")},
        {R"({"role":"podcast","URL":"https://p.example","orientation":"","theme":"<dark>"})",
         linkedPlaceholder("Podcast", "https://p.example", " · theme: &lt;dark&gt;")},
        {R"({"role":"podcast","orientation":"wide","theme":"dark"})",
         placeholder("Podcast", "orientation: wide · theme: dark")},
        {R"({"role":"podcast"})", placeholder("Podcast", "")},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.component);
        EXPECT_EQ(fragmentOf(test.component), test.expected);
    }
}

TEST(Media, buttons) {
    expectFragments({
        {R"({"role":"button"})", "<a class=\"anf-button\">Button</a>\n"},
        {R"({"role":"link_button","text":"","URL":"mailto:a@b.example"})",
         "<a class=\"anf-button\">Button</a>\n"},
        {R"({"role":"button","text":"A<B","URL":"https://a.example/?\"&"})",
         "<a class=\"anf-button\" href=\"https://a.example/?&quot;&amp;\">A&lt;B</a>\n"},
        {R"({"role":"button","URL":" https://a.example"})", "<a class=\"anf-button\">Button</a>\n"},
        {R"({"role":"link_button","URL":"","additions":[{"type":"event","URL":"https://e.example"},)"
         R"({"type":"link","URL":"https://l.example"},{"URL":"https://m.example"}]})",
         "<a class=\"anf-button\" href=\"https://l.example\">Button</a>\n"},
        {R"({"role":"button","additions":[{"URL":"https://n.example"},{"type":"link","URL":"https://l.example"}]})",
         "<a class=\"anf-button\" href=\"https://n.example\">Button</a>\n"},
        {R"({"role":"button","additions":[{"type":"link"},{"type":"link","URL":"https://l.example"}]})",
         "<a class=\"anf-button\">Button</a>\n"},
        {R"({"role":"button","URL":"x:y","additions":[{"type":"link","URL":"https://l.example"}]})",
         "<a class=\"anf-button\">Button</a>\n"},
    });
}

TEST(Media, longAddress) {
    std::string url = "https://t.example";
    while (url.size() < 1'000'000) {
        url += "/video/";
    }
    const std::string json = R"({"role":"tiktok","URL":")" + url + "7\"}";
    const std::string html = fragmentOf(json);
    EXPECT_NE(html.find(" data-video-id=\"7\""), std::string::npos);
}

} // namespace
} // namespace quillon::HTMLRenderer
