#include "render/Page.h"
#include "render/PageFixture.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

namespace quillon::HTMLRenderer {
namespace {

std::string textOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

/// Whole pages as a person has read them. QUILLON_REWRITE_GOLDEN=1 writes what the renderer gives now, to be
/// read again.
TEST(GoldenPages, areUnchanged) {
    using Device = PreviewDevice;
    using Appearance = PreviewAppearance;
    const struct {
        std::string_view article;
        std::string_view page;
        Device device;
        Appearance appearance;
    } cases[] = {
        {"harbour.json", "harbour-mac-auto.html", Device::mac, Appearance::automatic},
        {"harbour.json", "harbour-iphone-light.html", Device::iPhone, Appearance::light},
        {"post.json", "post-ipad-dark.html", Device::iPad, Appearance::dark},
    };
    const std::string folder = QUILLON_SOURCE_DIR "/tests/render/golden/";
    for (const auto& expected : cases) {
        SCOPED_TRACE(expected.page);
        const auto article = sharedArticleDecoder.decode(textOf(folder + std::string(expected.article)));
        ASSERT_TRUE(article) << article.error().message();
        PreviewEnvironment environment =
            previewEnvironment(expected.device, PreviewOrientation::portrait, 0, std::nullopt);
        environment.appearance = expected.appearance;
        const std::string page = withoutIds(renderPage(*article, environment, 0));
        const std::string path = folder + std::string(expected.page);
        if (std::getenv("QUILLON_REWRITE_GOLDEN")) {
            std::ofstream(path, std::ios::binary) << page;
        }
        EXPECT_EQ(page, textOf(path));
    }
}

} // namespace
} // namespace quillon::HTMLRenderer
