#include "render/StyleSheet.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>

namespace quillon::HTMLRenderer {
namespace {

using enum PreviewAppearance;
using testing::HasSubstr;
using testing::StartsWith;

/// Each run of white space as one blank, so that the sheet's own line breaks do not count.
std::string onOneLine(std::string_view text) {
    std::string line;
    for (const char character : text) {
        const bool isBlank = character == ' ' || character == '\n';
        if (!isBlank || (!line.empty() && line.back() != ' ')) {
            line += isBlank ? ' ' : character;
        }
    }
    return line;
}

TEST(StyleSheet, darkColorsByAppearance) {
    constexpr auto nowhere = std::string::npos;
    const struct {
        PreviewAppearance appearance;
        bool automaticDark;
        std::string_view scheme;
        bool aheadOfTheRules;
        bool inMediaBlock;
    } cases[] = {
        {automatic, true, "light dark", false, true},
        {automatic, false, "light", false, false},
        {light, true, "light", false, false},
        {light, false, "light", false, false},
        {dark, true, "dark", true, false},
        {dark, false, "dark", false, false},
    };
    for (const auto& expected : cases) {
        SCOPED_TRACE(std::string(rawValue(expected.appearance)) + (expected.automaticDark ? " on" : " off"));
        const std::string sheet = baseStyleSheet("#FFFFFF", expected.automaticDark, expected.appearance);
        EXPECT_THAT(sheet, StartsWith(":root { color-scheme: " + std::string(expected.scheme) + "; }\n"));

        const size_t rules = sheet.find(".component.anf-focus-flash");
        const size_t media = sheet.find("@media (prefers-color-scheme: dark) {");
        const size_t colors = sheet.find("body { color: #f5f5f7; }");
        ASSERT_NE(rules, nowhere);
        EXPECT_EQ(media != nowhere, expected.inMediaBlock);
        if (expected.aheadOfTheRules) {
            EXPECT_LT(sheet.find(".component { min-width: 0; }"), colors);
            EXPECT_LT(colors, rules);
        } else if (expected.inMediaBlock) {
            EXPECT_LT(sheet.find(".unknown-role-label"), media);
            EXPECT_LT(media, colors);
        } else {
            EXPECT_EQ(colors, nowhere);
        }
        EXPECT_EQ(sheet.find("body { color: #f5f5f7; }", colors + (colors != nowhere)), nowhere);
    }
}

TEST(StyleSheet, beginsWithThePageItself) {
    const std::string sheet = onOneLine(baseStyleSheet("</style>", true, light));
    EXPECT_THAT(sheet,
                StartsWith(":root { color-scheme: light; } * { box-sizing: border-box; } "
                           "html, body { margin: 0; padding: 0; } body { background: </style>; "
                           R"(font-family: -apple-system, "SF Pro Text", "Helvetica Neue", sans-serif; )"
                           "color: #1d1d1f; -webkit-font-smoothing: antialiased; } "
                           ".anf { max-width: 700px; margin: 0 auto; padding: 48px 28px 96px; } "
                           ".component { min-width: 0; } .component.anf-focus-flash { outline: 2px solid"));
}

TEST(StyleSheet, laterRulesOfEqualWeightWin) {
    const std::string sheet = baseStyleSheet("#FFFFFF", true, automatic);
    const std::string_view inOrder[] = {
        ".anf p {",           ".role-title {",    ".role-article_title { font-weight",
        ".flexible-spacer {", "@keyframes anf-f", ".anim-fade-in {",
        ".anim-scale-fade {", ".unknown-role {",  ".unknown-role-label {",
    };
    size_t last = 0;
    for (const std::string_view rule : inOrder) {
        const size_t at = sheet.find(rule);
        ASSERT_NE(at, std::string::npos) << rule;
        EXPECT_LT(last, at) << rule;
        last = at;
    }
    EXPECT_LT(sheet.find(".social-embed {"), sheet.find(".twitter-tweet,\n.instagram-media,"));
    EXPECT_EQ(std::count(sheet.begin(), sheet.end(), '{'), std::count(sheet.begin(), sheet.end(), '}'));
}

/// Whether a selector of `sheet` has the class `name`, the whole of it.
bool hasClass(const std::string& sheet, std::string_view name) {
    const std::string selector = "." + std::string(name);
    for (size_t at = sheet.find(selector); at != std::string::npos; at = sheet.find(selector, at + 1)) {
        const char next = sheet[at + selector.size()]; // behind the last character stands a zero
        if (next != '-' && next != '_' && std::isalnum(static_cast<unsigned char>(next)) == 0) {
            return true;
        }
    }
    return false;
}

/// A class that a writer sets and the sheet forgets goes unnoticed everywhere else.
TEST(StyleSheet, knowsTheClassesOfThePage) {
    const std::string sheet = baseStyleSheet("#FFFFFF", true, automatic);
    for (const std::string_view name : {"component",
                                        "layered-container",
                                        "anchor-parent-top",
                                        "anchor-parent-center",
                                        "anchor-parent-bottom",
                                        "anchor-target-top",
                                        "anchor-target-center",
                                        "anchor-target-bottom",
                                        "data-table",
                                        "html-table",
                                        "image",
                                        "image-placeholder",
                                        "divider",
                                        "container",
                                        "section",
                                        "header",
                                        "header-hero",
                                        "header-content",
                                        "scene-fading-sticky-header",
                                        "scene-parallax-scale",
                                        "gallery",
                                        "mosaic",
                                        "embed-placeholder",
                                        "embed-title",
                                        "embed-detail",
                                        "media",
                                        "media-video",
                                        "media-audio",
                                        "web-video",
                                        "live-embed",
                                        "apple-media-embed",
                                        "apple-music-embed",
                                        "apple-podcast-embed",
                                        "apple-map",
                                        "social-embed",
                                        "embed-fallback-link",
                                        "anf-button",
                                        "article-link",
                                        "flexible-spacer-component",
                                        "flexible-spacer",
                                        "anim-fade-in",
                                        "anim-appear",
                                        "anim-move-in",
                                        "anim-scale-fade",
                                        "unknown-role",
                                        "unknown-role-label"}) {
        EXPECT_TRUE(hasClass(sheet, name)) << name;
    }
    for (const std::string_view property : {"--anf-initial-alpha", "--anf-initial-scale", "--anf-move-x",
                                            "--anf-move-y", "--anf-scene-fade-color"}) {
        EXPECT_THAT(sheet, HasSubstr("var(" + std::string(property) + ", "));
    }
}

} // namespace
} // namespace quillon::HTMLRenderer
