#include "base/JsonWriter.h"
#include "render/MapAddresses.h"
#include "render/MapsToken.h"
#include "render/Page.h"
#include "render/PageFixture.h"
#include "render/ReadRecord.h"

#include <gtest/gtest.h>

namespace quillon::HTMLRenderer {
namespace {

/// The JSON of a component that is a place: `members` stand behind its role, each behind a comma.
std::string place(std::string_view members) {
    return R"({"role":"place")" + std::string(members) + "}";
}
Component placeOf(std::string_view members) {
    return readRecord<Component>(place(members));
}

std::string urlMember(std::string_view url) {
    JsonWriter writer;
    writer.text(url);
    return R"(,"URL":)" + writer.take();
}

/// The base64url text of `payload`, without padding, between two dots.
std::string tokenOf(std::string_view payload) {
    constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";
    std::string token = "e30.";
    uint32_t bits = 0;
    int bitCount = 0;
    for (const char byte : payload) {
        bits = bits << 8 | static_cast<unsigned char>(byte);
        for (bitCount += 8; bitCount >= 6;) {
            bitCount -= 6;
            token += alphabet[bits >> bitCount & 63];
        }
    }
    if (bitCount > 0) {
        token += alphabet[bits << (6 - bitCount) & 63];
    }
    return token + ".sig";
}

constexpr std::string_view somewhere = R"(,"latitude":1.5,"longitude":-2)";

TEST(Maps, coordinates) {
    struct Case {
        std::string members;
        std::optional<Coordinates> expected;
    };
    const auto address = [](std::string_view query) {
        return urlMember("https://m.example/" + std::string(query));
    };
    const Case cases[] = {
        {std::string(somewhere) + address("?ll=7,8"), Coordinates{1.5, -2}},
        {R"(,"latitude":1.5)" + address("?ll=7,8"), Coordinates{7, 8}},
        {R"(,"latitude":1.5)", std::nullopt},
        {address("?ll=%20%201.5%09,%20-2e1%20"), Coordinates{1.5, -20}},
        {address("?ll=,,7,8"), Coordinates{7, 8}},
        {address("?ll=+7,.5"), Coordinates{7, 0.5}},
        {address("?ll=7,,8&sll=1,2"), Coordinates{1, 2}},
        {address("?ll=7,8,9&center=3,4"), Coordinates{3, 4}},
        {address("?ll=7&sll=here,there&center=3,4"), Coordinates{3, 4}},
        {address("?ll=x&ll=7,8"), std::nullopt},
        {address("?center=3,4&sll=1,2"), Coordinates{1, 2}},
        {address("?ll=+-7,8"), std::nullopt},
        {address("?ll=++7,8"), std::nullopt},
        {address("?ll=inf,nan"), std::nullopt},
        {address("?ll=1e999,0"), std::nullopt},
        {address("?ll=7,"), std::nullopt},
        {address("?ll=,"), std::nullopt},
        {address("?ll="), std::nullopt},
        {address("?ll"), std::nullopt},
        {address("?LL=7,8"), std::nullopt},
        {address("?q=a b&ll=7,8"), std::nullopt}, // not well-formed
        {urlMember("bundle://m?ll=7,8"), Coordinates{7, 8}},
        {urlMember("maps://m.example/?ll=7,8"), std::nullopt},
        {"", std::nullopt},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.members);
        const Component component = placeOf(test.members);
        const std::string url = component.URL ? *component.URL : "";
        EXPECT_EQ(mapCoordinates(component, url), test.expected);
    }
}

TEST(Maps, fallbackLink) {
    const std::string apple = "https://MAPS.apple.com/?ll=7,8&q=a";
    struct {
        std::string members;
        std::optional<std::string> expected;
    } const cases[] = {
        {std::string(somewhere) + urlMember(" " + apple + "\n"), apple},
        {urlMember("http://www.maps.apple.com"), "http://www.maps.apple.com"},
        {urlMember("https://amaps.apple.com/?ll=7,8"), "https://maps.apple.com/?ll=7,8&q=Place"},
        {std::string(somewhere), "https://maps.apple.com/?ll=1.5,-2&q=Place"},
        {urlMember("javascript://maps.apple.com/%0aalert(1)"), std::nullopt},
        {std::string(somewhere) + R"(,"caption":"")", "https://maps.apple.com/?ll=1.5,-2&q=Place"},
        {std::string(somewhere) + R"(,"caption":"A & B=c+ü/\"?#%")",
         "https://maps.apple.com/?ll=1.5,-2&q=A%20%26%20B%3Dc+%C3%BC/%22?%23%25"},
        {urlMember("https://m.example/a b"), "https://m.example/a b"},
        {urlMember("bundle://m"), "bundle://m"},
        {urlMember("maps.apple.com"), std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.members);
        EXPECT_EQ(mapFallbackURL(placeOf(test.members)), test.expected);
    }
}

TEST(Maps, whereTheTokenComesFrom) {
    const std::string inURL = urlMember("https://m.example/?a=1&token=u%20rl&token=x");
    struct {
        std::optional<std::string> configured;
        std::string members;
        std::optional<std::string> expected;
    } const cases[] = {
        {" conf\n", inURL + R"(,"mapsToken":"m")", "conf"},
        {" \n", inURL + R"(,"mapsToken":"m")", "u rl"},
        {std::nullopt, urlMember("https://m.example/?token=") + R"(,"token":"t")", "t"},
        {std::nullopt, urlMember("https://m.example/?token&token=x") + R"(,"token":"t")", "t"},
        {std::nullopt, urlMember("m.example/?token=u") + R"(,"token":"t","mapkitToken":"k")", "k"},
        {std::nullopt, R"(,"mapkitToken":"k","mapKitToken":"K","mapsToken":7)", "K"},
        {std::nullopt, R"(,"mapsToken":"","mapKitToken":"K")", ""},
        {std::nullopt, R"(,"token":null,"placeID":"p")", std::nullopt},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.members);
        const Component component = placeOf(test.members);
        PreviewEnvironment environment;
        environment.mapsEmbedToken = test.configured;
        const std::string url = component.URL ? *component.URL : "";
        EXPECT_EQ(mapsToken(component, environment, url), test.expected);
    }
}

TEST(Maps, tokenPayload) {
    const auto payload = decodeTokenPayload(tokenOf(R"({"a":[1,"ÿ?>"]})"));
    ASSERT_TRUE(payload);
    EXPECT_EQ((*payload)->size(), 1u);
    for (const std::string_view text : {R"({})", R"({"a":1})", R"({"ab":1})", R"({"abc":1})"}) {
        EXPECT_TRUE(decodeTokenPayload(tokenOf(text))) << text; // each length of padding
    }
    EXPECT_TRUE(decodeTokenPayload(".e30"));
    EXPECT_TRUE(decodeTokenPayload(".e30="));

    const std::string deep = std::string(100'000, '[');
    const std::string failures[] = {
        "",
        "e30",
        "e30.",
        "e30..e30",
        "e30.e3 0",
        "e30.e30==.",
        "e30.e",
        "e30.%7B%7D",
        tokenOf("[]"),
        tokenOf("\"text\""),
        tokenOf("{} {}"),
        tokenOf("{\"a\":\"\xFF\"}"),
        tokenOf("{\"a\":" + deep),
        std::string(1'000'000, '.'),
        "." + std::string(1'000'000, 'A'),
    };
    for (const std::string& token : failures) {
        EXPECT_FALSE(decodeTokenPayload(token)) << token.substr(0, 40);
    }
}

TEST(Maps, normalFormOfOrigins) {
    struct {
        std::string_view text;
        std::optional<std::string> expected;
    } const cases[] = {
        {" HTTPS://A.Example:8443/Path/?q#f\n", "https://a.example:8443"},
        {"http://a.example", "http://a.example"},
        {"A.example/", "https://a.example"},
        {"a.example:80", "https://a.example:80"},
        {"localhost", "https://localhost"},
        {"https://[2001:DB8::1]:7/", "https://[2001:db8::1]:7"},
        {"https://\xC3\xA4.example", std::nullopt},
        {"ftp://a.example", std::nullopt},
        {"bundle://a", std::nullopt},
        {"https://", std::nullopt},
        {"https:///path", std::nullopt},
        {"a b", std::nullopt},
        {"://a", std::nullopt},
        {"/", std::nullopt},
        {" \n", std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.text);
        EXPECT_EQ(normalizedOrigin(test.text), test.expected);
    }
}

constexpr std::string_view missing = "This app build does not include a Maps Embed API token.";
constexpr std::string_view undecoded =
    "The Maps Embed API token could not be decoded. Create a new token with "
    "scope embed_api and an origin.";
constexpr std::string_view expired = "The Maps Embed API token is expired.";
constexpr std::string_view badPreview = "This app build has an invalid Maps preview origin.";

std::string noOrigin(std::string_view origin) {
    return "The Maps Embed API token is missing an origin claim. Create a new embed_api token for " +
           std::string(origin) + ".";
}

std::string otherOrigin(std::string_view origins, std::string_view preview) {
    return "The Maps Embed API token origin does not match the preview origin. Token: " +
           std::string(origins) + ". Preview: " + std::string(preview) + ".";
}

TEST(Maps, messagesAboutTheToken) {
    constexpr double now = 1000;
    constexpr std::string_view preview = "https://p.example";
    struct Case {
        std::string token;
        std::optional<std::string> origin;
        std::optional<std::string> expected;
    };
    const auto withOrigin = [](std::string_view claim) {
        return tokenOf(R"({"origin":)" + std::string(claim) + "}");
    };
    const std::string good = withOrigin(R"("https://p.example")");
    const Case cases[] = {
        {"", "p.example", std::string(missing)},
        {"abc", "p.example", std::string(undecoded)},
        {tokenOf("[1]"), "p.example", std::string(undecoded)},
        {tokenOf(R"({"exp":999.5,"origin":"p.example"})"), "p.example", std::string(expired)},
        {tokenOf(R"({"exp":999})"), "ftp://x", std::string(expired)},
        {tokenOf(R"({"exp":1000,"origin":"p.example"})"), "p.example", std::nullopt},
        {tokenOf(R"({"exp":"1","origin":"p.example"})"), "p.example", std::nullopt},
        {tokenOf(R"({"exp":false,"origin":"p.example"})"), "p.example", std::nullopt},
        {good, "HTTPS://P.example/preview?x", std::nullopt},
        {withOrigin(R"("https://o.example/, p.example")"), "p.example", std::nullopt},
        {withOrigin(R"(["https://o.example","HTTPS://P.EXAMPLE/"])"), "p.example", std::nullopt},
        {withOrigin(R"("https://o.example/,,ftp://x,q.example")"), "p.example",
         otherOrigin("https://o.example, https://q.example", preview)},
        {withOrigin(R"(["a.example,p.example"])"), "p.example",
         otherOrigin("https://a.example,p.example", preview)}, // not split in a list
        {good, "https://p.example:8443", otherOrigin(preview, "https://p.example:8443")},
        {good, "http://p.example", otherOrigin(preview, "http://p.example")},
        {good, "ftp://p.example", std::string(badPreview)},
        {good, std::nullopt, std::string(badPreview)},
        {withOrigin("[]"), "P.example/x", noOrigin(preview)},
        {withOrigin(R"("ftp://x, ")"), "p.example", noOrigin(preview)},
        {withOrigin(R"(["p.example",1])"), "p.example", noOrigin(preview)},
        {withOrigin(R"({"p.example":1})"), "p.example", noOrigin(preview)},
        {tokenOf("{}"), "ftp://p.example", noOrigin("https://quillon.example")},
        {tokenOf("{}"), std::nullopt, noOrigin("https://quillon.example")},
    };
    const Component component = placeOf(somewhere);
    for (const Case& test : cases) {
        SCOPED_TRACE(test.token + " for " + test.origin.value_or("none"));
        PreviewEnvironment environment;
        environment.mapsEmbedToken = test.token;
        environment.mapsEmbedOrigin = test.origin;
        EXPECT_EQ(validateMapsToken(component, environment, now), test.expected);
    }
    PreviewEnvironment bare;
    EXPECT_EQ(validateMapsToken(placeOf(""), bare, now), std::nullopt);
    EXPECT_EQ(validateMapsToken(placeOf(urlMember("https://embed.apple-mapkit.com/v1/embed")), bare, now),
              missing);
    EXPECT_EQ(validateMapsToken(placeOf(R"(,"latitude":1)"), bare, now), std::nullopt);
    EXPECT_EQ(validateMapsToken(placeOf(R"(,"mapsToken":"")" + std::string(somewhere)), bare, now),
              undecoded);
}

TEST(Maps, addressOfTheFrame) {
    const std::string frame = "https://embed.apple-mapkit.com/v1/embed?center=1.5,-2&cameraDistance=";
    const std::string here(somewhere);
    struct {
        std::string component;
        std::string_view token;
        std::optional<std::string> expected;
    } const cases[] = {
        {R"({"role":"map")" + here + "}", "a.b_-=&+ c", frame + "2500&token=a.b_-%3D%26+%20c"},
        {R"({"role":"place")" + here + "}", "t", frame + "1200&token=t"},
        {R"({"role":"place","placeId":"I1")" + here + "}", "t",
         frame + "1200&annotations=%5B%7B%22place%22:%20%22I1%22,%20%22selected%22:%20true%7D%5D&token=t"},
        {R"({"role":"map","placeID":"a\"ü","placeId":"I1")" + here + "}", "t",
         frame + "2500&annotations=%5B%7B%22place%22:%20%22a%22%C3%BC%22,%20%22selected%22:%20true%7D%5D&"
                 "token=t"},
        {R"({"role":"place","placeID":"","placeId":"I1")" + here + "}", "t",
         frame + "1200&annotations=%5B%7B%22place%22:%20%22I1%22,%20%22selected%22:%20true%7D%5D&token=t"},
        {R"({"role":"place","placeID":7,"placeId":"")" + here + "}", "t", frame + "1200&token=t"},
        {R"({"role":"place")" + here + "}", "", std::nullopt},
        {R"({"role":"place"})", "t", std::nullopt},
        {R"({"role":"place","URL":"javascript://embed.apple-mapkit.com/%0aalert","latitude":1.5,"longitude":-2})",
         "t", frame + "1200&token=t"},
        {R"({"role":"place","URL":" https://Embed.apple-mapkit.com/x ","latitude":1.5,"longitude":-2})", "t",
         "https://Embed.apple-mapkit.com/x"},
        {R"({"role":"place","URL":"http://my-embed.apple-mapkit.com"})", "t",
         "http://my-embed.apple-mapkit.com"},
        {R"({"role":"place","URL":"http://embedapple-mapkit.com"})", "t", "http://embedapple-mapkit.com"},
        {R"({"role":"place","URL":"https://cdn.apple-mapkit.com/embed"})", "t", std::nullopt},
        {R"({"role":"place","URL":"https://embed.example"})", "t", std::nullopt},
        {R"({"role":"place","URL":"https://embed.apple-mapkit.com/a b"})", "t", std::nullopt},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.component);
        PreviewEnvironment environment;
        environment.mapsEmbedToken = test.token;
        EXPECT_EQ(mapEmbedURL(readRecord<Component>(test.component), environment), test.expected);
    }
}

std::string rendered(std::string_view component) {
    PreviewEnvironment environment = wideEnvironment();
    environment.mapsEmbedOrigin = "https://p.example";
    return fragmentOf(component, "", environment);
}

TEST(Maps, whatStandsInThePage) {
    const std::string token = tokenOf(R"({"origin":"p.example"})");
    EXPECT_EQ(
        rendered(R"({"role":"map","caption":"A&B","mapsToken":")" + token + "\"" + std::string(somewhere) +
                 "}"),
        "<figure class=\"live-embed map-embed\">\n<iframe class=\"apple-map\" title=\"Apple Maps\" "
        "src=\"https://embed.apple-mapkit.com/v1/embed?center=1.5,-2&amp;cameraDistance=2500&amp;token=" +
            token +
            "\" allow=\"geolocation\" loading=\"lazy\" "
            "referrerpolicy=\"origin\"></iframe>\n<figcaption>A&amp;B</figcaption>\n<a "
            "class=\"embed-fallback-link\" "
            "href=\"https://maps.apple.com/?ll=1.5,-2&amp;q=A%26B\">Open in Apple Maps</a>\n</figure>");
    // A public address without coordinates asks for no token, and there is no frame for it either.
    EXPECT_EQ(rendered(place(urlMember("https://maps.apple.com/?q=a&z=1"))),
              "<figure class=\"live-embed map-embed\">\n<div class=\"embed-placeholder "
              "map-embed-warning\">\n<div class=\"embed-title\">Apple Maps Place</div>\n<div "
              "class=\"embed-detail\">" +
                  std::string(missing) +
                  "</div>\n<a class=\"embed-fallback-link\" "
                  "href=\"https://maps.apple.com/?q=a&amp;z=1\">Open in Apple Maps</a>\n</div>\n\n</figure>");
    const std::string wrong = rendered(place(R"(,"caption":"C","token":"secret")" + std::string(somewhere)));
    EXPECT_NE(wrong.find("embed-detail\">" + std::string(undecoded) + "</div>"), std::string::npos);
    EXPECT_NE(wrong.find("</div>\n<figcaption>C</figcaption>\n</figure>"), std::string::npos);
    EXPECT_EQ(wrong.find("secret"), std::string::npos);
    EXPECT_EQ(rendered(place(R"(,"URL":" x ","caption":"C")")),
              "<div class=\"embed-placeholder\">\n<div class=\"embed-title\">Place</div>\n<div "
              "class=\"embed-detail\">x · C</div>\n</div>");
}

TEST(Maps, theTimeOfThePageDecidesWhatHasExpired) {
    const ArticleDocument article = articleOf(place(
        R"(,"token":")" + tokenOf(R"({"exp":1000,"origin":"p.example"})") + "\"" + std::string(somewhere)));
    PreviewEnvironment environment = wideEnvironment();
    environment.mapsEmbedOrigin = "https://p.example";
    EXPECT_EQ(renderPage(article, environment, 1000).find(expired), std::string::npos);
    EXPECT_NE(renderPage(article, environment, 1001).find(expired), std::string::npos);
}

TEST(Maps, longAddressesAndTokens) {
    const std::string letters(1'000'000, 'a');
    const std::string url = "https://maps.apple.com/?q=" + letters + "&ll=1,2&token=." + letters;
    const std::string html = rendered(place(urlMember(url)));
    EXPECT_NE(html.find(undecoded), std::string::npos);
    const std::string origins = tokenOf(R"({"origin":")" + std::string(1'000'000, ',') + "p.example\"}");
    EXPECT_NE(rendered(place(R"(,"token":")" + origins + "\"" + std::string(somewhere))).find("<iframe"),
              std::string::npos);
}

} // namespace
} // namespace quillon::HTMLRenderer
