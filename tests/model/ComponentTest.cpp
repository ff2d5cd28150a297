#include "model/ArticleDocument.h"

#include "support/ArticleText.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>

namespace quillon {
namespace {

using namespace support;

/// "raw text|display name|symbol|filled symbol", the last left out where it is the symbol with ".fill"; "="
/// for the same as the symbol.
constexpr std::string_view roleTable = R"(title|Title|textformat.size.larger|=
heading|Heading|textformat.size|=
heading1|Heading 1|1.square
heading2|Heading 2|2.square
heading3|Heading 3|3.square
heading4|Heading 4|4.square
heading5|Heading 5|5.square
heading6|Heading 6|6.square
intro|Intro|text.alignleft|=
body|Body|doc.text
caption|Caption|captions.bubble
author|Author|person
byline|Byline|signature|=
photographer|Photographer|camera
illustrator|Illustrator|paintbrush
quote|Quote|quote.opening|=
pullquote|Pull Quote|text.quote|=
photo|Photo|photo
image|Image|photo.fill|=
figure|Figure|rectangle.on.rectangle|rectangle.fill.on.rectangle.fill
portrait|Portrait|person.crop.rectangle
logo|Logo|seal
gallery|Gallery|photo.on.rectangle.angled|photo.fill.on.rectangle.fill
mosaic|Mosaic|square.grid.2x2
datatable|Table|tablecells
divider|Divider|minus|=
container|Container|square.stack.3d.up
aside|Aside|sidebar.leading|=
chapter|Chapter|book.closed
header|Header|rectangle.topthird.inset.filled|=
section|Section|rectangle.split.1x2
video|Video|play.rectangle
audio|Audio|waveform|=
music|Music|music.note|=
podcast|Podcast|dot.radiowaves.left.and.right|=
embedwebvideo|Web Video|play.tv
map|Map|map
place|Place|mappin.and.ellipse|=
instagram|Instagram|camera.viewfinder|=
facebook_post|Facebook Post|person.2
tiktok|TikTok|music.note.list|=
button|Button|button.horizontal
link_button|Link Button|link.circle
article_link|Article Link|link|=
article_thumbnail|Article Thumbnail|photo.on.rectangle|photo.fill.on.rectangle.fill
article_title|Article Title|textformat.alt|=
arkit|ARKit|arkit|=
tweet|Tweet|bubble.left.and.text.bubble.right
htmltable|HTML Table|tablecells.badge.ellipsis|=
spacer|Spacer|arrow.left.and.right|=
banner_advertisement|Banner Ad|megaphone
medium_rectangle_advertisement|Medium Rectangle Ad|rectangle.badge.plus|rectangle.fill.badge.plus
replica_advertisement|Replica Ad|doc.richtext
)";

TEST(ComponentRole, everyNamedRole) {
    const std::set<std::string> containers = {"container", "aside",   "chapter",
                                              "header",    "section", "article_link"};
    std::istringstream table{std::string(roleTable)};
    size_t index = 0;
    for (std::string line; std::getline(table, line); ++index) {
        SCOPED_TRACE(line);
        std::istringstream row(line);
        std::string raw, name, symbol, filled;
        std::getline(std::getline(std::getline(row, raw, '|'), name, '|'), symbol, '|');
        std::getline(row, filled, '|');
        filled = filled.empty() ? symbol + ".fill" : filled == "=" ? symbol : filled;
        const ComponentRole role = ComponentRole::fromRawValue(raw);
        ASSERT_LT(index, ComponentRole::allNamed().size());
        EXPECT_EQ(role, ComponentRole::allNamed()[index]);
        EXPECT_EQ(role.rawValue(), raw);
        EXPECT_EQ(role.displayName(), name);
        EXPECT_EQ(role.symbolName(), symbol);
        EXPECT_EQ(role.filledSymbolName(), filled);
        EXPECT_EQ(role.isContainer(), containers.contains(raw));
        EXPECT_EQ(savedComponentMember("role", "\"" + raw + "\""), "\"" + raw + "\"");
    }
    EXPECT_EQ(index, 53u);
    EXPECT_EQ(ComponentRole::allNamed().size(), 53u);
    EXPECT_EQ(ComponentRole::fromRawValue("embedwebvideo"), ComponentRole::embedWebVideo);
    EXPECT_EQ(ComponentRole::fromRawValue("medium_rectangle_advertisement"),
              ComponentRole::mediumRectangleAdvertisement);
}

TEST(ComponentRole, unknownRolesKeepTheirText) {
    struct Case {
        std::string_view text;
        std::string_view displayName;
    };
    for (const auto& [text, displayName] : {Case{"widget", "Widget"},
                                            {"Title", "Title"},
                                            {"", ""},
                                            {"live coverage", "Live Coverage"},
                                            {"other", "Other"}}) {
        SCOPED_TRACE(text);
        const ComponentRole role = ComponentRole::fromRawValue(text);
        EXPECT_EQ(role.kind(), ComponentRole::other);
        EXPECT_EQ(role.rawValue(), text);
        EXPECT_EQ(role.displayName(), displayName);
        EXPECT_EQ(role.symbolName(), "questionmark.square.dashed");
        EXPECT_EQ(role.filledSymbolName(), "questionmark.square.dashed");
        EXPECT_FALSE(role.isContainer());
        EXPECT_EQ(role, ComponentRole::fromRawValue(std::string(text)));
        EXPECT_NE(role, ComponentRole::fromRawValue("something else"));
        EXPECT_NE(role, ComponentRole(ComponentRole::title));
        const std::string json = "\"" + std::string(text) + "\"";
        EXPECT_EQ(savedComponentMember("role", json), json);
    }
    EXPECT_EQ(ComponentRole::fromRawValue(""), ComponentRole(ComponentRole::other));
}

TEST(Component, summary) {
    const std::string_view named[] = {"title",   "heading",   "heading6",     "intro",        "body",
                                      "caption", "author",    "byline",       "photographer", "illustrator",
                                      "quote",   "pullquote", "article_title"};
    const std::string_view images[] = {"photo", "image", "figure", "portrait", "logo", "article_thumbnail"};
    const std::string_view addressed[] = {"video",         "audio",  "music",       "podcast",
                                          "embedwebvideo", "map",    "place",       "instagram",
                                          "facebook_post", "tiktok", "button",      "link_button",
                                          "arkit",         "tweet",  "article_link"};
    const std::string_view containers[] = {"container", "aside", "chapter", "header", "section"};
    struct Case {
        std::span<const std::string_view> roles;
        std::string members;
        std::string_view summary; ///< "*" for the display name
    };
    const std::string_view gallery[] = {"gallery", "mosaic"};
    const std::string_view table[] = {"datatable"}, html[] = {"htmltable"}, link[] = {"article_link"};
    const std::string_view ads[] = {"banner_advertisement", "medium_rectangle_advertisement",
                                    "replica_advertisement"};
    const std::string_view divider[] = {"divider"}, spacer[] = {"spacer"}, unknown[] = {"my widget"};
    const Case cases[] = {
        {named, R"("text":" \n\u00a0A line\nand more\t ")", "A line\nand more"},
        {named, R"("text":" \n ")", "*"},
        {named, R"("URL":"u")", "*"},
        {images, R"("URL":" bundle://a.jpg ")", " bundle://a.jpg "},
        {images, R"("URL":"")", "No image"},
        {images, R"("text":"x")", "No image"},
        {gallery, "", "0 images"},
        {gallery, R"("items":[{}])", "1 image"},
        {gallery, R"("items":[{},{},{}])", "3 images"},
        {table, "", "0×0 table"},
        {table, R"("data":{"descriptors":[{},{},{}],"records":[{},{},{},{}]})", "4×3 table"},
        {divider, R"("text":"x","URL":"u")", "Divider"},
        {containers, "", "0 components"},
        {containers, R"("components":[])", "0 components"},
        {containers, R"("components":[{"role":"body"}])", "1 component"},
        {containers, R"("components":[{"role":"body"},{"role":"body"}])", "2 components"},
        {link, R"("articleIdentifier":" a ","URL":"u")", " a "},
        {link, R"("articleIdentifier":"","components":[{"role":"body"}])", "*"},
        {addressed, R"("URL":" \t https://example.com/ \n")", "https://example.com/"},
        {addressed, R"("URL":"  ")", "*"},
        {addressed, "", "*"},
        {html, R"("html":" ")", "HTML table"},
        {html, R"("html":"")", "Empty HTML table"},
        {html, "", "Empty HTML table"},
        {spacer, R"("text":"x")", "Flexible spacer"},
        {ads, R"("URL":" u")", " u"},
        {ads, R"("URL":"")", "*"},
        {ads, "", "*"},
        {unknown, R"("text":"x")", "my widget"},
    };
    for (const Case& expected : cases) {
        for (const std::string_view role : expected.roles) {
            SCOPED_TRACE(std::string(role) + " " + expected.members);
            const std::string members = "\"role\":\"" + std::string(role) + "\"" +
                                        (expected.members.empty() ? "" : "," + expected.members);
            const auto article = sharedArticleDecoder.decode(componentArticleJson(members));
            ASSERT_TRUE(article) << article.error().message();
            const Component& component = article->components[0];
            EXPECT_EQ(component.summary(),
                      expected.summary == "*" ? component.role.displayName() : expected.summary);
        }
    }
}

} // namespace
} // namespace quillon
