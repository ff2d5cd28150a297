#include "render/EmbedPlaceholder.h"

#include <gtest/gtest.h>

namespace quillon::HTMLRenderer {
namespace {

TEST(EmbedPlaceholder, textsAndLinks) {
    const auto plain = [](std::string_view title, std::string_view detail) {
        std::string out = "before";
        renderEmbedPlaceholder(out, title, detail);
        return out;
    };
    EXPECT_EQ(plain("<A>", ""), "before<div class=\"embed-placeholder\">\n"
                                "<div class=\"embed-title\">&lt;A&gt;</div>\n\n</div>");
    EXPECT_EQ(plain("A", "\"b\""), "before<div class=\"embed-placeholder\">\n"
                                   "<div class=\"embed-title\">A</div>\n"
                                   "<div class=\"embed-detail\">&quot;b&quot;</div>\n</div>");

    const auto linked = [](std::string_view url, std::string_view detail) {
        std::string out;
        renderLinkedPlaceholder(out, "A", url, detail);
        return out;
    };
    const std::string unlinkedStart =
        "<div class=\"embed-placeholder\">\n<div class=\"embed-title\">A</div>\n";
    EXPECT_EQ(linked("", ""), unlinkedStart + "\n</div>");
    EXPECT_EQ(linked("", "d"), unlinkedStart + "<div class=\"embed-detail\">d</div>\n</div>");
    EXPECT_EQ(linked("a.usdz", ""), unlinkedStart + "<div class=\"embed-detail\">a.usdz</div>\n</div>");
    EXPECT_EQ(linked("a&b", "<d>"),
              unlinkedStart + "<div class=\"embed-detail\">a&amp;b · &lt;d&gt;</div>\n</div>");

    const std::string linkedStart = "<div class=\"embed-placeholder linked-embed-placeholder\">\n"
                                    "<div class=\"embed-title\">A</div>\n";
    EXPECT_EQ(linked("https://a.example/?b&c", ""),
              linkedStart + "<div class=\"embed-detail\">https://a.example/?b&amp;c</div>\n"
                            "<a class=\"embed-fallback-link\" href=\"https://a.example/?b&amp;c\">"
                            "Open source</a>\n</div>");
    EXPECT_EQ(linked("bundle://a", "d"),
              linkedStart + "<div class=\"embed-detail\">bundle://a · d</div>\n"
                            "<a class=\"embed-fallback-link\" href=\"bundle://a\">Open source</a>\n</div>");
}

} // namespace
} // namespace quillon::HTMLRenderer
