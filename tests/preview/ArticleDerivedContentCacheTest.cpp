#include "preview/ArticleDerivedContentCache.h"

#include "package/NewArticle.h"

#include <gtest/gtest.h>

namespace quillon {

namespace {

PreviewRenderRequest requestOf(const std::string& title) {
    PreviewRenderRequest request;
    request.article.title = title;
    request.environment = previewEnvironment(PreviewDevice::iPhone, PreviewOrientation::portrait, 0, {});
    request.environment.viewportWidth = 393.5;
    request.environment.viewportHeight = 852;
    request.environment.appearance = PreviewAppearance::dark;
    request.environment.mapsEmbedToken = "token";
    request.environment.mapsEmbedOrigin = "https://maps.example";
    request.assetsFingerprint = std::string("a.png:3");
    return request;
}

} // namespace

TEST(ArticleDerivedContentCache, aPageIsKnownOnlyForExactlyItsRequest) {
    ArticleDerivedContentCache cache;
    const PreviewRenderRequest request = requestOf("T");
    EXPECT_FALSE(cache.renderedPreview(request));
    const std::string key = cache.storePreview(std::string("page"), request);
    EXPECT_EQ(key, "preview-1\niPhone\n394\nios\ncompact\nregular\nDark\nhttps://maps.example\na.png:3");
    EXPECT_EQ(cache.renderedPreview(requestOf("T")), (RenderedPreview{std::string("page"), key}));

    using Change = void (*)(PreviewRenderRequest&);
    const Change changes[] = {
        [](PreviewRenderRequest& other) { other.article.components = {Component{}}; },
        [](PreviewRenderRequest& other) { other.assetsFingerprint = std::string("a.png:4"); },
        [](PreviewRenderRequest& other) { other.environment.viewportWidth = 393.6; },
        [](PreviewRenderRequest& other) { other.environment.viewportHeight.reset(); },
        [](PreviewRenderRequest& other) { other.environment.mapsEmbedToken = "other"; },
        [](PreviewRenderRequest& other) { other.environment.mapsEmbedOrigin.reset(); },
        [](PreviewRenderRequest& other) { other.environment.appearance = PreviewAppearance::light; },
    };
    for (const Change& change : changes) {
        PreviewRenderRequest other = request;
        change(other);
        EXPECT_FALSE(cache.renderedPreview(other)) << &change - changes;
    }
    EXPECT_EQ(cache.storePreview(std::string("page"), request).substr(0, 10), "preview-2\n");
}

TEST(ArticleDerivedContentCache, jsonIsWhatASaveWritesAndOnlyTheLastIsKept) {
    ArticleDerivedContentCache cache;
    const ArticleDocument one = makeNewArticle("1", "One", "");
    const ArticleDocument two = makeNewArticle("2", "Two", "");
    const Shared<std::string> first = cache.jsonText(one);
    EXPECT_EQ(*first, *sharedArticleEncoder.encode(one));
    EXPECT_TRUE(cache.jsonText(one).isIdentical(first));
    EXPECT_EQ(*cache.jsonText(two), *sharedArticleEncoder.encode(two));
    EXPECT_FALSE(cache.jsonText(one).isIdentical(first));

    ArticleDocument broken = one;
    Component component;
    component.latitude = std::numeric_limits<double>::infinity();
    broken.components = {component};
    EXPECT_EQ(*cache.jsonText(broken), "{}");
}

TEST(ArticleDerivedContentCache, picturesAreDecodedOnceForTheirKeyAndSize) {
    int decoded = 0;
    ArticleDerivedContentCache cache([&](std::string_view bytes) -> SharedImage {
        ++decoded;
        return bytes == "no picture" ? nullptr : std::make_shared<DecodedImage>(DecodedImage{1, 1, {0}});
    });
    Assets assets{{"a b.png", Bytes("1234")}, {"bad.png", Bytes("no picture")}};
    EXPECT_TRUE(cache.image("bundle://a b.png", assets));
    EXPECT_TRUE(cache.image("bundle://a b.png", assets));
    EXPECT_EQ(decoded, 1);
    assets["a b.png"] = Bytes("12345");
    EXPECT_TRUE(cache.image("bundle://a b.png", assets));
    EXPECT_EQ(decoded, 2);
    for (const char* reference :
         {"bundle://a%20b.png", "bundle:///a b.png", "BUNDLE://a b.png", "https://a b.png", "a b.png",
          "bundle://none.png", "bundle://bad.png", "bundle://bad.png"}) {
        EXPECT_FALSE(cache.image(reference, assets)) << reference;
    }
    EXPECT_EQ(decoded, 4);
    EXPECT_EQ(cache.imageCache().count(), 2);
}

TEST(ImageCache, theOneNotAskedForTheLongestGoesFirst) {
    const auto image = [](std::size_t pixels) {
        return std::make_shared<DecodedImage>(DecodedImage{1, 1, std::vector<std::uint32_t>(pixels)});
    };
    ImageCache cache(40);
    cache.insert("a", image(4));
    cache.insert("b", image(4));
    EXPECT_TRUE(cache.find("a"));
    cache.insert("c", image(4));
    EXPECT_TRUE(cache.find("a"));
    EXPECT_FALSE(cache.find("b"));
    cache.insert("huge", image(11));
    EXPECT_EQ(cache.count(), 2);
}

TEST(PreviewDetail, countsTheTopLevelAndAllAssets) {
    ArticleDocument article;
    Component section;
    section.components = List<Component>{Component{}, Component{}};
    article.components = {section, Component{}};
    EXPECT_EQ(previewDetail(article, requestOf("T").environment, {{"a", Bytes("123")}, {"b", Bytes("4567")}}),
              "components=2 assets=2 bytes=7 viewport=394 label=iPhone appearance=Dark");
}

} // namespace quillon
