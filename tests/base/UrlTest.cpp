#include "base/Url.h"

#include <rapidcheck/gtest.h>

namespace quillon {
namespace {

using Items = std::vector<QueryItem>;
using Segments = std::vector<std::string>;

TEST(UrlTests, takesUrlsApart) {
    const auto url = parseUrl("HTTPS://me:pw@WWW.Video.Example:8080/a%20b//c/?v=1%262&w&v=3&x=&=y#end%21");
    ASSERT_TRUE(url);
    EXPECT_EQ(url->scheme, "HTTPS");
    EXPECT_EQ(url->userInfo, "me:pw");
    EXPECT_EQ(url->host(), "WWW.Video.Example");
    EXPECT_EQ(url->lowercasedHost(), "www.video.example");
    EXPECT_EQ(url->port, "8080");
    EXPECT_EQ(url->encodedPath, "/a%20b//c/");
    EXPECT_EQ(url->path(), "/a b//c/");
    EXPECT_EQ(url->pathSegments(), (Segments{"a b", "c"}));
    EXPECT_EQ(url->queryItems(), (Items{{"v", "1&2"}, {"w", {}}, {"v", "3"}, {"x", ""}, {"", "y"}}));
    EXPECT_EQ(url->queryValue("v"), "1&2");
    EXPECT_EQ(url->queryValue("w"), std::nullopt);
    EXPECT_EQ(url->queryValue("x"), "");
    EXPECT_EQ(url->queryValue("z"), std::nullopt);
    EXPECT_EQ(url->encodedFragment, "end%21");
}

TEST(UrlTests, hosts) {
    struct Case {
        const char* url;
        std::optional<std::string> host;
    };
    for (const Case& c : std::vector<Case>{{"https://a.example", "a.example"},
                                           {"//a.example/x", "a.example"},
                                           {"https:///x", ""},
                                           {"https://A%2Db.example", "a-b.example"},
                                           {"http://[::1]:80/", "[::1]"},
                                           {"http://192.168.0.1", "192.168.0.1"},
                                           {"https://%FF.example/", {}},
                                           {"mailto:a@b.example", {}},
                                           {"/only/a/path", {}},
                                           {"", {}}}) {
        SCOPED_TRACE(c.url);
        const auto url = parseUrl(c.url);
        ASSERT_TRUE(url);
        EXPECT_EQ(url->lowercasedHost(), c.host);
        EXPECT_EQ(buildUrl(*url), c.url);
    }
}

TEST(UrlTests, refusesWhatIsNoUrl) {
    for (const char* text :
         {"https://a.example/a b", " https://a.example", "https://a.example/é", "https://é.example",
          "https://a.example/%zz", "https://a.example/%4", "https://a.example:port/",
          "https://a.example:80b/", "https://a@b@c/", "http://[::1]x/", "https://a b/", "http://[::1/",
          "https://a.example/?q={x}", "1http://a.example", "https://a.example/\n", "https://a.example/|",
          "://a.example"}) {
        SCOPED_TRACE(text);
        EXPECT_FALSE(parseUrl(text));
    }
    EXPECT_FALSE(parseUrl(std::string_view("https://a.example/\0", 19)));
}

TEST(UrlTests, putsUrlsTogether) {
    UrlParts parts;
    parts.scheme = "https";
    parts.setHost("maps.example");
    parts.setPath("/v1/embed");
    parts.setQueryItems({{"center", "-1.5,2"},
                         {"annotations", R"([{"place": "A&B=1", "selected": true}])"},
                         {"q", "Köln/50% + ?#"},
                         {"bare", {}},
                         {"empty", ""}});
    EXPECT_EQ(buildUrl(parts),
              "https://maps.example/v1/embed?center=-1.5,2&annotations=%5B%7B%22place%22:%20%22A%26B%3D1%22,"
              "%20%22selected%22:%20true%7D%5D&q=K%C3%B6ln/50%25%20+%20?%23&bare&empty=");
    parts.setPath("/a b?#é");
    parts.setQueryItems({});
    EXPECT_EQ(buildUrl(parts), "https://maps.example/a%20b%3F%23%C3%A9?");
    parts.encodedQuery.reset();
    parts.port = "443";
    parts.encodedPath.clear();
    parts.setHost("Ä b");
    EXPECT_EQ(buildUrl(parts), "https://%C3%84%20b:443");
    parts.setHost("[::1]");
    parts.encodedPath = "x";
    EXPECT_EQ(buildUrl(parts), "https://[::1]:443/x");
}

TEST(UrlTests, aChangedHostKeepsTheRest) {
    auto url = parseUrl("HTTP://music.example/us/album/%C3%A9?i=1%2B2&l=#t").value();
    url.scheme = "https";
    url.setHost("embed.music.example");
    EXPECT_EQ(buildUrl(url), "https://embed.music.example/us/album/%C3%A9?i=1%2B2&l=#t");
}

TEST(UrlTests, queries) {
    struct Case {
        const char* url;
        Items items;
    };
    for (const Case& c : std::vector<Case>{{"a?", {}},
                                           {"a", {}},
                                           {"a?b", {{"b", {}}}},
                                           {"a?&", {{"", {}}, {"", {}}}},
                                           {"a?b=c=d", {{"b", "c=d"}}},
                                           {"a?b+c=d+e", {{"b+c", "d+e"}}},
                                           {"a?b=%FF&%FF=c", {{"b", {}}, {"", "c"}}}}) {
        SCOPED_TRACE(c.url);
        EXPECT_EQ(parseUrl(c.url).value().queryItems(), c.items);
    }
}

RC_GTEST_PROP(UrlTests, queryItemsRoundTrip, ()) {
    const auto text =
        rc::gen::container<std::string>(rc::gen::elementOf(std::string("a&=?#%+ /\"[]{}\n\0;,~", 20)));
    UrlParts parts;
    parts.scheme = "https";
    parts.setHost("a.example");
    Items items;
    for (int i = *rc::gen::inRange(1, 4); i > 0; --i)
        items.push_back({*text, *rc::gen::arbitrary<bool>() ? std::optional(*text) : std::nullopt});
    items.front().name += 'x'; // one empty name alone is an empty query
    parts.setQueryItems(items);
    const auto read = parseUrl(buildUrl(parts));
    RC_ASSERT(read == parts);
    RC_ASSERT(read->queryItems() == items);
}

RC_GTEST_PROP(UrlTests, anyTextIsParsedOrRefused, (const std::string& text)) {
    const auto likely = *rc::gen::container<std::string>(rc::gen::elementOf(std::string("ab1:/@?#[]%2.")));
    for (const std::string& url : {text, likely, "https://a.example/" + likely, "https://" + likely})
        if (const auto parts = parseUrl(url)) {
            const std::string rebuilt = buildUrl(*parts);
            RC_ASSERT(parseUrl(rebuilt) == parts);
            RC_ASSERT(rebuilt == url || url.find(':') != std::string::npos); // an empty port loses its ":"
            (void)parts->pathSegments();
            (void)parts->queryItems();
        }
}

TEST(UrlTests, domains) {
    EXPECT_TRUE(hostEndsWithDomain("video.example", "video.example"));
    EXPECT_TRUE(hostEndsWithDomain("www.video.example", "video.example"));
    EXPECT_FALSE(hostEndsWithDomain("myvideo.example", "video.example"));
    EXPECT_FALSE(hostEndsWithDomain("example", "video.example"));
    EXPECT_FALSE(hostEndsWithDomain("", "video.example"));
}

TEST(UrlTests, percentDecoding) {
    EXPECT_EQ(percentDecoded("a%20%C3%A9%e6%bc%a2+"), "a é漢+");
    EXPECT_EQ(percentDecoded("%00"), std::string(1, '\0'));
    for (const char* text : {"%", "%4", "%4g", "%g4", "a%C3", "%ED%A0%80"})
        EXPECT_EQ(percentDecoded(text), std::nullopt) << text;
}

} // namespace
} // namespace quillon
