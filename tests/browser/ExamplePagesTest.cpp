#include "base/JsonText.h"
#include "browser/BrowserPage.h"
#include "package/PackageFile.h"
#include "render/GridMetrics.h"
#include "render/Page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace quillon::test {
namespace {

namespace fs = std::filesystem;
using ::testing::IsEmpty;

/// Where the components of `list` that stand in the page hang in the tree, as JSON: "[0,1,1,0]".
void appendDepths(std::string& out, const List<Component>& list, const std::string& html, int depth) {
    for (const Component& component : list) {
        if (html.find("data-component-id=\"" + component.id.text()) != std::string::npos) {
            out += (out.empty() ? "" : ",") + std::to_string(depth);
            if (component.components) {
                appendDepths(out, *component.components, html, depth + 1);
            }
        }
    }
}

/// The way a browser writes `color`.
std::string asComputed(BrowserPage& page, const std::string& color) {
    return page.run("(function (probe) { probe.style.color = `" + color +
                    "`; document.body.append(probe); const color = getComputedStyle(probe).color;"
                    " probe.remove(); return color; })(document.createElement('i'))");
}

void expectSoundPage(const ArticleFileDocument& document, PreviewDevice device,
                     PreviewAppearance appearance) {
    const ArticleDocument& article = document.article;
    PreviewEnvironment environment =
        previewEnvironment(device, PreviewOrientation::portrait, 0, std::nullopt);
    environment.appearance = appearance;
    const std::string html = HTMLRenderer::renderPage(article, environment, 0);
    BrowserPage page(static_cast<int>(environment.viewportWidth),
                     static_cast<int>(environment.viewportHeight.value_or(0)));
    ASSERT_TRUE(page.load(html, *document.assets));

    EXPECT_THAT(page.scriptErrors(), IsEmpty());
    EXPECT_EQ(page.run("innerWidth"), std::to_string(static_cast<int>(environment.viewportWidth)));
    for (const std::string& address : page.refusedRequests()) {
        EXPECT_TRUE(address.starts_with("https://")) << address;
    }

    const auto grid = HTMLRenderer::gridMetrics(article.layout, environment.viewportWidth);
    EXPECT_EQ(
        page.run("getComputedStyle(document.querySelector('.anf')).gridTemplateColumns.split(' ').length"),
        std::to_string(grid.effectiveColumnCount()));

    // An element that the parser closed early, or moved, would leave a component in another one's place.
    std::string depths;
    appendDepths(depths, article.components, html, 0);
    EXPECT_EQ(page.run("[...document.querySelectorAll('[data-component-id]')].map(function depth(element) {"
                       "  const outer = element.parentElement.closest('[data-component-id]');"
                       "  return outer ? 1 + depth(outer) : 0; })"),
              "[" + depths + "]");

    // Each picture either came or gave way to its placeholder.
    EXPECT_EQ(page.run("[...document.images].filter(i => !(i.complete && i.naturalWidth)).map(i => i.src)"),
              "[]");
    const auto placeholders =
        JsonText::parse(page.run("[...document.querySelectorAll('.image-placeholder')].map(div => {"
                                 " const text = div.textContent; try { return decodeURIComponent(text); }"
                                 " catch (error) { return text; } })"));
    ASSERT_TRUE(placeholders);
    for (JsonElements walk(placeholders->root()); walk.next();) {
        const std::string label(walk.value().text().value_or(""));
        constexpr std::string_view scheme = "bundle://";
        EXPECT_FALSE(label.starts_with(scheme) && document.assets->contains(label.substr(scheme.size())))
            << label << " is in the package";
    }

    const bool isDark = appearance == PreviewAppearance::dark;
    const bool followsDark =
        !article.colorScheme || article.colorScheme->automaticDarkModeEnabled.value_or(true);
    EXPECT_EQ(page.styleOf("html", "color-scheme"), isDark ? "dark" : "light");
    EXPECT_EQ(page.styleOf("body", "color"),
              isDark && followsDark ? "rgb(245, 245, 247)" : "rgb(29, 29, 31)");
    EXPECT_EQ(page.styleOf("body", "background-color"),
              asComputed(page, HTMLRenderer::effectiveBackgroundColor(article, environment)
                                   .value_or(std::string("#FFFFFF"))));
}

void expectSoundPages(const ArticleFileDocument& document) {
    for (const PreviewDevice device : {PreviewDevice::iPhone, PreviewDevice::iPad, PreviewDevice::mac}) {
        for (const PreviewAppearance appearance : {PreviewAppearance::light, PreviewAppearance::dark}) {
            SCOPED_TRACE(std::string(rawValue(device)) + ", " + std::string(rawValue(appearance)));
            expectSoundPage(document, device, appearance);
        }
    }
}

TEST(ExamplePages, areSoundOnAllDevices) {
    int packages = 0;
    for (const fs::directory_entry& entry : fs::directory_iterator(QUILLON_SOURCE_DIR "/examples")) {
        if (isPackage(entry.path())) {
            SCOPED_TRACE(entry.path().filename());
            const auto document = openPackage(entry.path());
            ASSERT_TRUE(document) << document.error().message(entry.path());
            expectSoundPages(*document);
            ++packages;
        }
    }
    EXPECT_GE(packages, 4);
}

/// Articles of others, whose pictures are not there.
TEST(ExamplePages, ofOthersAreSoundOnAllDevices) {
    const char* named = std::getenv("QUILLON_ARTICLES");
    const fs::path folder = named ? named : QUILLON_SOURCE_DIR "/../shared/articles";
    if (!fs::is_directory(folder)) {
        GTEST_SKIP() << "no " << folder;
    }
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        const std::string name = entry.path().filename();
        if (entry.path().extension() == ".json" && !name.starts_with("invalid")) {
            SCOPED_TRACE(name);
            std::ifstream file(entry.path(), std::ios::binary);
            auto article = sharedArticleDecoder.decode({std::istreambuf_iterator<char>(file), {}});
            ASSERT_TRUE(article) << article.error().message();
            expectSoundPages({std::move(*article), {}, {}});
        }
    }
}

} // namespace
} // namespace quillon::test
