#include "model/ArticleDocument.h"

#include "support/ArticleText.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillon {
namespace {

using namespace support;

TEST(ArticleDocument, smallestArticleComesBack) {
    EXPECT_EQ(saved(articleJson("")), R"({
  "components" : [],
  "identifier" : "a",
  "language" : "en",
  "layout" : {
    "columns" : 7,
    "width" : 1024
  },
  "title" : "T",
  "version" : "1.7"
})");
}

TEST(ArticleDocument, whatIsNoArticleIsRefused) {
    struct Case {
        std::string json;
        std::string_view message;
    };
    const Case cases[] = {
        {"", "line 1, column 1: expected a value, found the end of the text"},
        {"[]", "expected an object, found a list"},
        {"{\n \"version\": \"1.7\"\n", "line 3, column 1: expected ',' or '}', found the end of the text"},
        {"{}", "version: expected text, found nothing"},
        {R"({"version":"1"})", "identifier: expected text, found nothing"},
        {R"({"version":"1","identifier":"a"})", "language: expected text, found nothing"},
        {R"({"version":"1","identifier":"a","language":"en"})", "title: expected text, found nothing"},
        {R"({"version":"1","identifier":"a","language":"en","title":""})",
         "layout: expected an object, found nothing"},
        {R"({"version":"1","identifier":"a","language":"en","title":"","layout":{"width":3}})",
         "layout.columns: expected a whole number, found nothing"},
        {R"({"version":"1","identifier":"a","language":"en","title":"","layout":{"columns":3,"width":3}})",
         "components: expected a list, found nothing"},
        {articleJson(R"("components":[{"role":"body"},{}])"),
         "components[1].role: expected text, found nothing"},
        {articleJson(R"("components":[null])"), "components[0]: expected an object, found null"},
        {articleJson(R"("components":[{"role":"section","components":[{"role":"body","text":1}]}])"),
         "components[0].components[0].text: expected text, found a number"},
        {articleJson(R"("textStyles":{"My style":{"fontSize":16.5}})"),
         "textStyles[\"My style\"].fontSize: expected a whole number, found a number with a fraction or "
         "beyond 64 bits"},
        {articleJson("\"textStyles\":{\"a\\n\\\"b\":1}"),
         "textStyles[\"a?\"b\"]: expected an object, found a number"},
        {articleJson("\"textStyles\":{\"\":null}"), "textStyles[\"\"]: expected an object, found null"},
        {articleJson("\"textStyles\":{\"x" + std::string(100, 'y') + "\":1}"),
         "textStyles[\"xyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyy…\"]: "
         "expected an object, found a number"},
        {articleJson("\"layout\":{\"columns\":9223372036854775808,\"width\":1}"),
         "layout.columns: expected a whole number, found a number with a fraction or beyond 64 bits"},
    };
    for (const Case& expected : cases) {
        SCOPED_TRACE(expected.json);
        EXPECT_EQ(saved(expected.json), expected.message);
    }
    // A long key is not cut within a character.
    const std::string message = saved(articleJson("\"textStyles\":{\"x" + std::string(100, 'y') + "\":1}"));
    std::string key = "x";
    for (int count = 0; count < 60; ++count) {
        key += "é";
    }
    EXPECT_NE(saved(articleJson("\"textStyles\":{\"" + key + "\":1}")).find("é…\"]"), std::string::npos);
}

TEST(ArticleDocument, unknownKeysComeBackSorted) {
    const std::string article = R"({"zeta":{"list":[1,null,"x"],"URL":"https:\/\/example.com\/a"},
        "Subtitle":"S","language":"en","title":"T","subtitle":null,"version":"1.7","identifier":"a",
        "number":12345678901234567890,"half":1.50,"two":2.0,"minus":-0,"nothing":null,
        "layout":{"columns":7,"width":1024,"lost":1},"metadata":{"zone":1,"authors":[],"Authors":2},
        "components":[{"role":"section","components":[{"role":"aside","components":[
            {"role":"body","id":"mine","x":{}}]}]}]})";
    const std::string once = saved(article);
    EXPECT_EQ(once, R"({
  "Subtitle" : "S",
  "components" : [
    {
      "components" : [
        {
          "components" : [
            {
              "id" : "mine",
              "role" : "body",
              "x" : {}
            }
          ],
          "role" : "aside"
        }
      ],
      "role" : "section"
    }
  ],
  "half" : 1.5,
  "identifier" : "a",
  "language" : "en",
  "layout" : {
    "columns" : 7,
    "width" : 1024
  },
  "metadata" : {
    "Authors" : 2,
    "authors" : [],
    "zone" : 1
  },
  "minus" : -0,
  "nothing" : null,
  "number" : 12345678901234567168,
  "title" : "T",
  "two" : 2,
  "version" : "1.7",
  "zeta" : {
    "URL" : "https://example.com/a",
    "list" : [
      1,
      null,
      "x"
    ]
  }
})");
    EXPECT_EQ(saved(once), once);
}

TEST(ArticleDocument, preservedKeysNeverShadowFields) {
    auto article = sharedArticleDecoder.decode(componentArticleJson(R"("text":"kept")")).value();
    Component component = article.components[0];
    article.metadata = Metadata();
    for (PreservedFields* fields :
         {&article.preservedFields, &component.preservedFields, &article.metadata.edit().preservedFields}) {
        for (const std::string key : {"title", "subtitle", "text", "html", "authors", "role", "free"}) {
            fields->edit()[key] = JSONValue{std::string("shadow")};
        }
    }
    article.components = article.components.set(0, std::move(component));
    const std::string after = sharedArticleEncoder.encode(article).value();
    EXPECT_EQ(valueAt(after, "title"), "\"T\"");
    EXPECT_EQ(valueAt(after, "subtitle"), std::nullopt);
    EXPECT_EQ(valueAt(after, "authors"), "\"shadow\"");
    EXPECT_EQ(valueAt(after, "components[0]"),
              R"({"authors":"shadow","free":"shadow","role":"body","subtitle":"shadow","text":"kept",)"
              R"("title":"shadow"})");
    EXPECT_EQ(valueAt(after, "metadata.authors"), std::nullopt);
    EXPECT_EQ(valueAt(after, "metadata.role"), "\"shadow\"");
}

TEST(ArticleDocument, presentFieldsAreWrittenAsTheyAre) {
    struct Case {
        std::string_view key;
        std::string_view value;
        std::string_view after;
    };
    const Case cases[] = {
        {"subtitle", R"("")", R"("")"},
        {"subtitle", R"("  blanks\tand\nlines  ")", R"("  blanks\tand\nlines  ")"},
        {"subtitle", "null", "absent"},
        {"textFormat", R"("markdown")", R"("markdown")"},
        {"textFormat", R"("none")", R"("none")"},
        {"textFormat", R"("html")", R"("html")"},
        {"textFormat", R"("HTML")",
         R"(textFormat: expected "none", "html" or "markdown", found another text)"},
        {"componentStyles", "{}", "{}"},
        {"textStyles", R"({"b":{},"a":{},"":{}})", R"({"":{},"a":{},"b":{}})"},
        {"metadata", R"({"authors":[],"coverArt":[{}],"keywords":["",""],"campaignData":{"k":[]}})",
         R"({"authors":[],"campaignData":{"k":[]},"coverArt":[{}],"keywords":["",""]})"},
        {"metadata", R"({"datePublished":"no date"})", R"({"datePublished":"no date"})"},
        {"metadata", R"({"authors":"one"})", "metadata.authors: expected a list, found text"},
        {"metadata", R"({"authors":[null]})", "metadata.authors[0]: expected text, found null"},
        {"metadata", R"({"campaignData":{"k":"v"}})", "metadata.campaignData.k: expected a list, found text"},
        {"metadata", R"({"campaignData":{"k":["v",1]}})",
         "metadata.campaignData.k[1]: expected text, found a number"},
        {"metadata", R"({"links":[{"URL":"u","lost":1}]})", R"({"links":[{"URL":"u"}]})"},
        {"advertisingSettings", R"({"layout":{"margin":3}})",
         "advertisingSettings.layout.margin: expected an object, found a number"},
        {"layout", R"({"columns":7.0,"width":1e3})", R"({"columns":7,"width":1000})"},
    };
    for (const Case& expected : cases) {
        SCOPED_TRACE(expected.value);
        EXPECT_EQ(savedMember(expected.key, expected.value), expected.after);
    }
}

TEST(ArticleDocument, numbersThatAreNotFiniteCannotBeWritten) {
    for (const double number :
         {std::numeric_limits<double>::quiet_NaN(), -std::numeric_limits<double>::infinity()}) {
        auto article = sharedArticleDecoder.decode(componentArticleJson("")).value();
        Component component = article.components[0];
        component.latitude = number;
        article.components = article.components.set(0, std::move(component));
        EXPECT_FALSE(sharedArticleEncoder.encode(article));
        article.components = {};
        article.preservedFields.edit()["x"].form = number;
        EXPECT_FALSE(sharedArticleEncoder.encode(article));
    }
}

TEST(ArticleDocument, everyReadGivesFreshIds) {
    const std::string json = componentArticleJson(R"("additions":[{}],"inlineTextStyles":[{}],"items":[{}])");
    const auto one = sharedArticleDecoder.decode(json).value();
    const auto other = sharedArticleDecoder.decode(json).value();
    EXPECT_NE(one, other);
    EXPECT_EQ(one, ArticleDocument(one));
    EXPECT_NE(one.components[0].id, other.components[0].id);
    EXPECT_NE((*one.components[0].additions)[0].id, (*other.components[0].additions)[0].id);
    EXPECT_NE((*one.components[0].inlineTextStyles)[0].id, (*other.components[0].inlineTextStyles)[0].id);
    EXPECT_NE((*one.components[0].items)[0].id, (*other.components[0].items)[0].id);
    EXPECT_EQ(*sharedArticleDecoder.decode(articleJson("")), *sharedArticleDecoder.decode(articleJson("")));
}

} // namespace
} // namespace quillon
