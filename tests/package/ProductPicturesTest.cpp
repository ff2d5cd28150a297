#include "package/ProductPictures.h"

#include "package/ComponentSamples.h"
#include "package/Templates.h"
#include "support/JsonData.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <set>
#include <sstream>

namespace quillon {
namespace {

constexpr std::string_view assets = "https://quillon.example/assets/";

struct Picture {
    const char* address; ///< below `assets`
    const char* source;  ///< in assets/pictures
    std::uint32_t width;
    std::uint32_t height;
};

constexpr Picture pictures[] = {
    {"hero.png", "hero.png", 1600, 1000},
    {"examples/light-on-the-water.png", "light-on-the-water.png", 1200, 900},
    {"examples/numbers-with-a-pulse.png", "numbers-with-a-pulse.png", 1200, 900},
    {"examples/inside-the-edit.png", "inside-the-edit.png", 1200, 900},
    {"examples/shape-of-a-story.png", "shape-of-a-story.png", 1200, 900},
    {"examples/quiet-table.png", "quiet-table.png", 1200, 900},
    {"examples/culture-desk.png", "culture-desk.png", 1200, 900},
    {"examples/beyond-the-horizon.png", "beyond-the-horizon.png", 1200, 900},
    {"examples/signal-in-the-city.png", "signal-in-the-city.png", 1200, 900},
    {"icon.png", "icon.png", 1024, 1024},
};

std::string urlOf(const Picture& picture) {
    return std::string(assets) + picture.address;
}

std::uint32_t bigEndian(std::string_view bytes) {
    std::uint32_t number = 0;
    for (const char byte : bytes) {
        number = number << 8 | static_cast<unsigned char>(byte);
    }
    return number;
}

std::string fileBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

/// Adds the addresses of the product's assets that `json` names.
void collectAssets(const std::string& json, std::set<std::string>& found) {
    for (size_t at = json.find(assets); at != std::string::npos; at = json.find(assets, at + 1)) {
        found.insert(json.substr(at, json.find('"', at) - at));
    }
}

TEST(ProductPictures, eachAddressGivesItsWholePicture) {
    for (const Picture& picture : pictures) {
        SCOPED_TRACE(picture.address);
        const auto png = productPicture(urlOf(picture));
        ASSERT_TRUE(png);
        ASSERT_GE(png->size(), 24U);
        EXPECT_EQ(png->substr(0, 16), std::string_view("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16));
        EXPECT_EQ(bigEndian(png->substr(16, 4)), picture.width);
        EXPECT_EQ(bigEndian(png->substr(20, 4)), picture.height);
        EXPECT_TRUE(*png == fileBytes(std::string(QUILLON_SOURCE_DIR "/assets/pictures/") + picture.source));
    }
    ASSERT_EQ(productPictureURLs().size(), std::size(pictures));
    for (size_t index = 0; index < std::size(pictures); ++index) {
        EXPECT_EQ(productPictureURLs()[index], urlOf(pictures[index]));
    }
}

TEST(ProductPictures, noOtherAddressGivesOne) {
    for (const std::string_view url : {
             "",
             "hero.png",
             "/assets/hero.png",
             "http://quillon.example/assets/hero.png",
             "https://quillon.example/assets/hero.png?size=2",
             "https://quillon.example/assets/hero.png#top",
             "https://quillon.example/assets/hero.png ",
             "https://quillon.example/assets/HERO.png",
             "https://quillon.example/assets/hero",
             "https://quillon.example/assets/",
             "https://quillon.example/assets/examples/",
             "https://quillon.example/assets/examples/hero.png",
             "https://quillon.example/assets/quiet-table.png",
             "https://quillon.example.org/assets/hero.png",
             "bundle://hero.png",
         }) {
        EXPECT_FALSE(productPicture(url)) << url;
    }
}

TEST(ProductPictures, whateverTemplatesAndSamplesNameIsServed) {
    std::set<std::string> named;
    for (const ArticleTemplate& entry : allTemplates()) {
        collectAssets(test::jsonOf(entry.makeArticle(0)), named);
    }
    for (const ComponentRole role : ComponentRole::allNamed()) {
        collectAssets(test::jsonOf(makeSampleComponent(role)), named);
    }
    for (const std::string& url : named) {
        EXPECT_TRUE(productPicture(url)) << url;
    }
    EXPECT_EQ(named.size(), productPictureURLs().size())
        << "a picture that nothing shows, or an escaped address";
}

} // namespace
} // namespace quillon
