#include "model/ArticleDocument.h"
#include "render/Page.h"
#include "support/ArticleGenerator.h"
#include "support/TagBalance.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <array>
#include <vector>

namespace quillon::HTMLRenderer {
namespace {

using support::tagFault;

TEST(TagBalance, knowsAWellFormedPage) {
    const struct {
        std::string_view html;
        bool isWell;
    } cases[] = {
        {"", true},
        {"<!DOCTYPE html>\n<p class=\"a\" hidden>b &gt; \"c\"<br></p><hr>", true},
        {"<script>if (a < b) {}</script><style>a > b {}</style>", true},
        {"<p>", false},
        {"</p>", false},
        {"<b><i></b></i>", false},
        {"<p class=a></p>", false},
        {"<p class=\"a\"b\"></p>", false},
        {"<p class=\"a></p>", false},
        {"<p class=\"<\"></p>", false},
        {"a < b", false},
        {"a > b", false},
        {"<script></style>", false},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(tagFault(test.html).empty(), test.isWell) << test.html << ": " << tagFault(test.html);
    }
}

template <typename Choices>
auto anyOf(const Choices& choices) {
    return choices[*rc::gen::inRange<size_t>(0, choices.size())];
}

PreviewEnvironment anyEnvironment() {
    PreviewEnvironment environment =
        previewEnvironment(anyOf(allDevices()), anyOf(allOrientations()), *rc::gen::inRange(0, 2000),
                           *rc::gen::inRange(0, 2000));
    environment.appearance = anyOf(allAppearances());
    environment.mapsEmbedToken =
        *rc::gen::element<std::optional<std::string>>(std::nullopt, "\"<token>\"", "a.e30.b");
    environment.mapsEmbedOrigin =
        *rc::gen::element<std::optional<std::string>>(std::nullopt, "https://a.example");
    return environment;
}

/// Replaces every `from` in `text`.
void replaceAll(std::string& text, std::string_view from, std::string_view to) {
    for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
}

/// `article` without what goes into the page as the article has it: HTML.
ArticleDocument withoutRawHtml(const ArticleDocument& article) {
    std::string json = *sharedArticleEncoder.encode(article);
    // A quotation mark of a text is written behind a backslash: these are members alone.
    replaceAll(json, R"("format" : "html")", R"("format" : "markdown")");
    replaceAll(json, R"("textFormat" : "html")", R"("textFormat" : "markdown")");
    replaceAll(json, R"("html" :)", R"("noHtml" :)");
    return *sharedArticleDecoder.decode(json);
}

constexpr std::array<std::string_view, 5> texts = {
    "- <one> \"1\"\n- **two** & three\n\n1. first\n\nplain",
    "# \"head\"\n\n> 'said'\n\n~~~\n<code>\n~~~",
    "[a \"link\"](https://a.example/?a=\"1\"&b=<2>) *soft*",
    "A word\nand its < > & \" ' neighbours\n\nnext",
    "",
};

/// An article as random as support::randomArticle, with more components, most of which have a text.
ArticleDocument anyArticle() {
    ArticleDocument article =
        support::randomArticle(*rc::gen::arbitrary<uint64_t>(), {.components = 16, .nesting = 3});
    std::vector<Shared<Component>> components;
    for (const Component& component : article.components) {
        components.emplace_back(component);
        if (*rc::gen::inRange(0, 4) > 0) {
            Component& changed = components.back().edit();
            changed.text = std::string(anyOf(texts));
            changed.format = *rc::gen::element<std::optional<TextFormat>>(std::nullopt, TextFormat::none,
                                                                          TextFormat::markdown);
        }
    }
    article.components = List<Component>(std::move(components));
    ListItemStyle marker;
    marker.type = "character";
    marker.character = *rc::gen::element<std::string>("", "-", "\"", "<'b'>");
    article.componentTextStyles.edit()["default"].edit().unorderedListItems = std::move(marker);
    return article;
}

RC_GTEST_PROP(PageProperties, theSameArticleGivesTheSamePage, ()) {
    const ArticleDocument article = anyArticle();
    const PreviewEnvironment environment = anyEnvironment();
    const std::string page = renderPage(article, environment, 0);
    RC_ASSERT(page.starts_with("<!DOCTYPE html>\n"));
    RC_ASSERT(page.ends_with("</html>"));
    RC_ASSERT(renderPage(article, environment, 0) == page);
}

RC_GTEST_PROP(PageProperties, aPageWithoutForeignHtmlIsWellFormed, ()) {
    const ArticleDocument article = withoutRawHtml(anyArticle());
    RC_ASSERT(tagFault(renderPage(article, anyEnvironment(), 0)) == "");
}

} // namespace
} // namespace quillon::HTMLRenderer
