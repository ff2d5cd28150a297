#include "render/Advertisements.h"
#include "render/PageFixture.h"

#include <gtest/gtest.h>

namespace quillon::HTMLRenderer {
namespace {

constexpr std::string_view marker =
    "<div class=\"component\" style=\"grid-column: 1 / -1;\"><div class=\"embed-placeholder\">\n"
    "<div class=\"embed-title\">Advertisement</div>\n<div class=\"embed-detail\">Auto-placed</div>\n"
    "</div></div>\n";

/// The body of an article of dividers as a picture: "d" for each of them, "A" for each advertisement.
std::string picture(std::string_view components, std::string_view settings) {
    std::string body = bodyOf(articleOf(components, R"(,"advertisingSettings":)" + std::string(settings)));
    std::string drawn;
    for (std::string_view rest = body; !rest.empty();) {
        const std::string_view divider =
            "<div class=\"component\" data-component-id=\"ID\" style=\"grid-column: 1 / -1;\">"
            "<hr class=\"divider\">\n</div>\n";
        if (rest.starts_with(divider)) {
            drawn += 'd';
            rest.remove_prefix(divider.size());
        } else if (rest.starts_with(marker)) {
            drawn += 'A';
            rest.remove_prefix(marker.size());
        } else {
            return drawn.append(rest);
        }
    }
    return drawn;
}

std::string dividers(size_t count) {
    std::string components;
    for (size_t i = 0; i < count; ++i) {
        components += i == 0 ? "" : ",";
        components += R"({"role":"divider"})";
    }
    return components;
}

TEST(Advertisements, standBetweenTopLevelComponents) {
    const std::string hidden = R"({"role":"divider","hidden":true})";
    const struct {
        std::string components;
        std::string_view settings;
        std::string_view picture;
    } cases[] = {
        {dividers(4), R"({"frequency":9})", "ddAdd"},
        {dividers(5), R"({"frequency":9})", "ddAddAd"},
        {dividers(5), R"({"frequency":1})", "ddddd"},
        {dividers(11), R"({"frequency":1})", "ddddddddddAd"},
        {dividers(7), R"({"frequency":5})", "ddddddAd"},
        {dividers(4), R"({"frequency":10})", "ddAdd"},
        {dividers(4), R"({"frequency":9223372036854775807})", "ddAdd"},
        {dividers(4), R"({"frequency":0})", "dddd"},
        {dividers(4), R"({"frequency":-9223372036854775808})", "dddd"},
        {dividers(4), R"({"layout":{"margin":{"top":3}}})", "dddd"},
        {dividers(0), R"({"frequency":9})", ""},
        // Hidden components count, and so do those of which nothing stands around the advertisement.
        {hidden + "," + dividers(3), R"({"frequency":9})", "dAdd"},
        {hidden + "," + hidden + "," + hidden, R"({"frequency":9})", "A"},
    };
    for (const auto& expected : cases) {
        SCOPED_TRACE(expected.settings);
        EXPECT_EQ(picture(expected.components, expected.settings), expected.picture);
    }
    // Components inside a container are not counted.
    EXPECT_EQ(bodyOf(articleOf(R"({"role":"container","components":[)" + dividers(6) + "]}",
                               R"(,"advertisingSettings":{"frequency":9})"))
                  .find(marker),
              std::string::npos);
}

TEST(Advertisements, roles) {
    const auto placeholder = [](std::string_view title, std::string_view detail) {
        return "<div class=\"embed-placeholder\">\n<div class=\"embed-title\">" + std::string(title) +
               "</div>\n" + std::string(detail) + "\n</div>";
    };
    const auto replica = [](std::string_view url) {
        return R"({"role":"replica_advertisement","URL":")" + std::string(url) + R"("})";
    };
    const auto shown = [](std::string_view url) {
        return "<figure class=\"image replica-ad\">\n<img src=\"" + std::string(url) +
               "\" alt=\"Replica advertisement\">\n</figure>";
    };
    const auto notShown = [&placeholder](std::string_view url) {
        return placeholder("Replica Ad", "<div class=\"embed-detail\">" + std::string(url) + "</div>");
    };
    const struct {
        std::string component;
        std::string fragment;
    } cases[] = {
        {R"({"role":"banner_advertisement","URL":"https://a.example/x.png","caption":"c"})",
         placeholder("Banner Ad", "")},
        {R"({"role":"medium_rectangle_advertisement"})", placeholder("Medium Rectangle Ad", "")},
        {R"({"role":"replica_advertisement"})", placeholder("Replica Ad", "")},
        {replica(" \\n"), placeholder("Replica Ad", "")},
        {replica("bundle://ad.png"), shown("bundle://ad.png")},
        {replica("  https://a.example/AD.PNG\\n"), shown("https://a.example/AD.PNG")},
        {replica("https://a.example/a.webp?w=1&h=2"), shown("https://a.example/a.webp?w=1&amp;h=2")},
        {replica("https://a.example/a.JpEg?b?c"), shown("https://a.example/a.JpEg?b?c")},
        {replica("https://a.example/a?f=b.png"), notShown("https://a.example/a?f=b.png")},
        {replica("https://a.example/a.png#b"), notShown("https://a.example/a.png#b")},
        {replica("http://a.example/a.jpg"), shown("http://a.example/a.jpg")},
        {replica("ad.png"), notShown("ad.png")},
        {replica("HTTPS://a.example/a.png"), notShown("HTTPS://a.example/a.png")},
        {R"({"role":"replica_advertisement","URL":"bundle://a.gif","accessibilityCaption":"\"<",)"
         R"("style":{"opacity":0.5}})",
         "<figure class=\"image replica-ad\" style=\"opacity: 0.5;\">\n"
         "<img src=\"bundle://a.gif\" alt=\"&quot;&lt;\">\n</figure>"},
        {R"({"role":"replica_advertisement","URL":"bundle://a.gif","accessibilityCaption":""})",
         "<figure class=\"image replica-ad\">\n<img src=\"bundle://a.gif\" alt=\"\">\n</figure>"},
    };
    for (const auto& expected : cases) {
        SCOPED_TRACE(expected.component);
        EXPECT_EQ(fragmentOf(expected.component), expected.fragment);
    }
}

} // namespace
} // namespace quillon::HTMLRenderer
