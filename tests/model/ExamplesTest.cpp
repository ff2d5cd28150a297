#include "base/JsonText.h"
#include "model/ArticleDocument.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

namespace quillon {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const fs::path examples = fs::path(QUILLON_SOURCE_DIR) / "examples";

std::string contentsOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string articleOf(const std::string& package) {
    return contentsOf(examples / package / "article.json");
}

std::vector<std::string> packages() {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(examples)) {
        if (fs::exists(entry.path() / "article.json"))
            names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

/// Every file of the package but its article, as asset keys.
std::set<std::string> assetsOf(const std::string& package) {
    std::set<std::string> keys;
    const fs::path root = examples / package;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root)) {
        if (entry.is_regular_file())
            keys.insert(entry.path().lexically_relative(root).generic_string());
    }
    keys.erase("article.json");
    return keys;
}

std::string percentDecoded(std::string_view text) {
    std::string result;
    for (size_t at = 0; at < text.size(); ++at) {
        unsigned byte = 0;
        const char* digits = text.data() + at + 1;
        const bool isEscape = text[at] == '%' && at + 2 < text.size() &&
                              std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2;
        result += isEscape ? static_cast<char>(byte) : text[at];
        if (isEscape)
            at += 2;
    }
    return result;
}

void collectBundleKeys(JsonElement value, std::set<std::string>& keys) {
    constexpr std::string_view scheme = "bundle://";
    if (const auto text = value.text(); text && text->starts_with(scheme))
        keys.insert(percentDecoded(text->substr(scheme.size())));
    for (JsonMembers walk(value); walk.next();)
        collectBundleKeys(walk.value(), keys);
    for (JsonElements walk(value); walk.next();)
        collectBundleKeys(walk.value(), keys);
}

/// Which record an object under a key is. An empty `in` stands for every record that has no row of its own
/// for the key; an empty `record` for JSON of no record.
struct Child {
    std::string_view in;
    std::string_view key;
    std::string_view record;
    enum Shape { plain, named } shape = plain; ///< named: a map from names to the record
};

constexpr Child childTable[] = {
    {"ArticleDocument", "layout", "Layout"},
    {"", "documentStyle", "DocumentStyle"},
    {"", "colorScheme", "ColorScheme"},
    {"", "metadata", "Metadata"},
    {"", "coverArt", "CoverArtItem"},
    {"", "links", "MetadataLink"},
    {"", "advertisingSettings", "AdvertisingSettings"},
    {"AdvertisingSettings", "layout", "AdvertisingLayout"},
    {"AdvertisingLayout", "margin", "AdvertisingMargin"},
    {"", "componentStyles", "ComponentStyle", Child::named},
    {"", "componentTextStyles", "ComponentTextStyle", Child::named},
    {"", "textStyles", "TextStyle", Child::named},
    {"", "componentLayouts", "ComponentLayout", Child::named},
    {"", "components", "Component"},
    {"", "items", "GalleryItem"},
    {"GalleryItem", "caption", "CaptionDescriptor"},
    {"Component", "conditional", "ConditionalComponent"},
    {"", "style", "ComponentStyle"},
    {"", "layout", "ComponentLayout"},
    {"", "textStyle", "ComponentTextStyle"},
    {"InlineTextStyle", "textStyle", "TextStyle"},
    {"", "inlineTextStyles", "InlineTextStyle"},
    {"", "additions", "ComponentLink"},
    {"FormattedText", "additions", ""},
    {"", "anchor", "Anchor"},
    {"", "behavior", "Behavior"},
    {"", "scene", "ANFScene"},
    {"", "animation", "ComponentAnimation"},
    {"", "contentDisplay", "ContentDisplay"},
    {"", "data", "RecordStore"},
    {"", "descriptors", "DataDescriptor"},
    {"", "records", "FormattedText", Child::named},
    {"", "label", "FormattedText"},
    {"", "sortBy", "DataTableSorting"},
    {"", "conditions", "Condition"},
    {"", "margin", "Margin"},
    {"", "contentInset", "ContentInset"},
    {"", "padding", "Padding"},
    {"", "fill", "Fill"},
    {"", "colorStops", "ColorStop"},
    {"", "border", "Border"},
    {"", "all", "ANFStrokeStyle"},
    {"", "divider", "ANFStrokeStyle"},
    {"", "mask", "CornerMask"},
    {"", "shadow", "ComponentShadow"},
    {"ComponentShadow", "offset", "ComponentShadowOffset"},
    {"", "textShadow", "TextShadow"},
    {"TextShadow", "offset", "TextShadowOffset"},
    {"", "stroke", "TextStrokeStyle"},
    {"", "underline", "TextDecorationStyle"},
    {"", "strikethrough", "TextDecorationStyle"},
    {"", "orderedListItems", "ListItemStyle"},
    {"", "unorderedListItems", "ListItemStyle"},
    {"", "dropCapStyle", "DropCapStyle"},
    {"", "linkStyle", "TextStyle"},
    {"", "tableStyle", "TableStyle"},
    {"", "rows", "TableRowStyle"},
    {"", "headerRows", "TableRowStyle"},
    {"", "columns", "TableColumnStyle"},
    {"", "headerColumns", "TableColumnStyle"},
    {"", "cells", "TableCellStyle"},
    {"", "headerCells", "TableCellStyle"},
    {"ConditionalTableRowStyle", "selectors", "TableRowSelector"},
    {"ConditionalTableColumnStyle", "selectors", "TableColumnSelector"},
    {"ConditionalTableCellStyle", "selectors", "TableCellSelector"},
    {"TableRowStyle", "conditional", "ConditionalTableRowStyle"},
    {"TableColumnStyle", "conditional", "ConditionalTableColumnStyle"},
    {"TableCellStyle", "conditional", "ConditionalTableCellStyle"},
    {"DocumentStyle", "conditional", "ConditionalDocumentStyle"},
    {"ConditionalDocumentStyle", "conditional", "ConditionalDocumentStyle"},
    {"ComponentStyle", "conditional", "ConditionalComponentStyle"},
    {"ConditionalComponentStyle", "conditional", "ConditionalComponentStyle"},
    {"ComponentTextStyle", "conditional", "ConditionalComponentTextStyle"},
    {"ConditionalComponentTextStyle", "conditional", "ConditionalComponentTextStyle"},
    {"TextStyle", "conditional", "ConditionalTextStyle"},
    {"ConditionalTextStyle", "conditional", "ConditionalTextStyle"},
    {"ComponentLayout", "conditional", "ConditionalComponentLayout"},
    {"ConditionalComponentLayout", "conditional", "ConditionalComponentLayout"},
};

const Child* childOf(std::string_view record, std::string_view key) {
    const Child* general = nullptr;
    for (const Child& child : childTable) {
        if (child.key != key)
            continue;
        if (child.in == record)
            return &child;
        if (child.in.empty())
            general = &child;
    }
    return general;
}

/// The kinds of value found under each "Record.key", and the roles.
struct Inventory {
    std::map<std::string, std::set<JsonKind>> kinds;
    std::set<std::string> roles;

    void takeIn(JsonElement object, std::string_view record) {
        for (JsonMembers walk(object); walk.next();) {
            const std::string place = std::string(record) + "." + std::string(walk.key());
            kinds[place].insert(walk.value().kind());
            if (place == "Component.role")
                roles.insert(std::string(walk.value().text().value_or("")));
            const Child* child = childOf(record, walk.key());
            if (child && !child->record.empty())
                takeInChild(walk.value(), *child, place);
        }
    }

private:
    void takeInChild(JsonElement value, const Child& child, const std::string& place) {
        for (JsonElements walk(value); walk.next();)
            takeInChild(walk.value(), child, place);
        if (value.kind() != JsonKind::object)
            return;
        if (child.shape == Child::plain)
            return takeIn(value, child.record);
        for (JsonMembers walk(value); walk.next();) {
            kinds[place + ".*"].insert(walk.value().kind());
            takeIn(walk.value(), child.record);
        }
    }
};

class Everything : public ::testing::Test {
protected:
    void SetUp() override {
        const auto text = JsonText::parse(articleOf("everything"));
        ASSERT_TRUE(text);
        inventory.takeIn(text->root(), "ArticleDocument");
    }

    Inventory inventory;
};

struct NamedRecord {
    std::string_view name;
    const RecordInfo& (*info)();
};

#define RECORD(Type)                                                                                         \
    { #Type, &RecordTable < Type> ::info }
constexpr NamedRecord recordTables[] = {
    RECORD(ArticleDocument),
    RECORD(Layout),
    RECORD(DocumentStyle),
    RECORD(ConditionalDocumentStyle),
    RECORD(ColorScheme),
    RECORD(Metadata),
    RECORD(CoverArtItem),
    RECORD(MetadataLink),
    RECORD(AdvertisingSettings),
    RECORD(AdvertisingLayout),
    RECORD(AdvertisingMargin),
    RECORD(Component),
    RECORD(ConditionalComponent),
    RECORD(Condition),
    RECORD(Anchor),
    RECORD(Behavior),
    RECORD(ANFScene),
    RECORD(ComponentAnimation),
    RECORD(ContentDisplay),
    RECORD(ComponentLink),
    RECORD(ComponentLayout),
    RECORD(ConditionalComponentLayout),
    RECORD(Margin),
    RECORD(ContentInset),
    RECORD(ComponentStyle),
    RECORD(ConditionalComponentStyle),
    RECORD(Fill),
    RECORD(ColorStop),
    RECORD(Border),
    RECORD(ANFStrokeStyle),
    RECORD(CornerMask),
    RECORD(ComponentShadow),
    RECORD(ComponentShadowOffset),
    RECORD(ComponentTextStyle),
    RECORD(ConditionalComponentTextStyle),
    RECORD(TextStyle),
    RECORD(ConditionalTextStyle),
    RECORD(InlineTextStyle),
    RECORD(TextDecorationStyle),
    RECORD(DropCapStyle),
    RECORD(ListItemStyle),
    RECORD(TextStrokeStyle),
    RECORD(TextShadow),
    RECORD(TextShadowOffset),
    RECORD(RecordStore),
    RECORD(DataDescriptor),
    RECORD(DataTableSorting),
    RECORD(FormattedText),
    RECORD(TableStyle),
    RECORD(TableRowStyle),
    RECORD(TableColumnStyle),
    RECORD(TableCellStyle),
    RECORD(ConditionalTableRowStyle),
    RECORD(ConditionalTableColumnStyle),
    RECORD(ConditionalTableCellStyle),
    RECORD(TableRowSelector),
    RECORD(TableColumnSelector),
    RECORD(TableCellSelector),
    RECORD(Padding),
};
#undef RECORD

TEST(Examples, comeBackByteForByte) {
    ASSERT_THAT(packages(), ElementsAre("everything", "long-feature", "news-report", "photo-essay"));
    for (const std::string& package : packages()) {
        SCOPED_TRACE(package);
        const std::string text = articleOf(package);
        const auto article = sharedArticleDecoder.decode(text);
        ASSERT_TRUE(article) << article.error().message();
        EXPECT_TRUE(sharedArticleEncoder.encode(*article).value() == text);
    }
}

TEST(Examples, haveTheAssetsTheyNameAndNoOthers) {
    for (const std::string& package : packages()) {
        SCOPED_TRACE(package);
        const auto text = JsonText::parse(articleOf(package));
        ASSERT_TRUE(text);
        std::set<std::string> named;
        collectBundleKeys(text->root(), named);
        const std::set<std::string> assets = assetsOf(package);

        std::vector<std::string> missing;
        std::set_difference(named.begin(), named.end(), assets.begin(), assets.end(),
                            std::back_inserter(missing));
        EXPECT_THAT(missing, IsEmpty());

        std::vector<std::string> unused;
        std::set_difference(assets.begin(), assets.end(), named.begin(), named.end(),
                            std::back_inserter(unused));
        if (package == "everything") {
            EXPECT_THAT(unused, ElementsAre("notes/LEFT over.txt", "notes/empty.dat"));
        } else {
            EXPECT_THAT(unused, IsEmpty());
        }
    }
}

TEST_F(Everything, hasEachRoleAndTwoUnknownOnes) {
    for (const ComponentRole::Case role : ComponentRole::allNamed()) {
        const std::string name(ComponentRole(role).rawValue());
        EXPECT_EQ(inventory.roles.erase(name), 1U) << name;
    }
    EXPECT_THAT(inventory.roles, ElementsAre("Zoetrope <spinning> \"fast\"", "flip_book"));
}

TEST_F(Everything, hasEachFieldOfEachRecord) {
    for (const NamedRecord& record : recordTables) {
        for (const FieldRow& row : record.info().rows()) {
            const std::string place = std::string(record.name) + "." + std::string(row.key);
            EXPECT_TRUE(inventory.kinds.contains(place)) << place;
        }
    }
    // The keys of the records that have a shape of their own instead of a table.
    for (const char* place : {"GalleryItem.URL", "GalleryItem.caption", "CaptionDescriptor.text",
                              "CaptionDescriptor.textStyle"}) {
        EXPECT_TRUE(inventory.kinds.contains(place)) << place;
    }
}

TEST_F(Everything, hasEachFormOfAValue) {
    using enum JsonKind;
    const struct {
        const char* place;
        std::set<JsonKind> kinds;
    } cases[] = {
        {"ComponentLayout.margin", {number, text, object}},
        {"ComponentLayout.contentInset", {boolean, object}},
        {"ComponentLayout.ignoreDocumentMargin", {boolean, text}},
        {"ComponentLayout.ignoreViewportPadding", {boolean, text}},
        {"ComponentLayout.ignoreDocumentGutter", {boolean, text}},
        {"ComponentLayout.minimumHeight", {number, text}},
        {"ComponentLayout.maximumContentWidth", {number, text}},
        {"Margin.top", {number, text}},
        {"ContentDisplay.maximumWidth", {number, text}},
        {"ContentDisplay.minimumWidth", {number, text}},
        {"CornerMask.radius", {number, text}},
        {"ComponentShadow.radius", {number, text}},
        {"TextStyle.underline", {boolean, object}},
        {"TextStyle.strikethrough", {boolean, object}},
        {"ComponentTextStyle.underline", {boolean, object}},
        {"ComponentTextStyle.fontWeight", {number, text}},
        {"ConditionalTextStyle.fontWeight", {number, text}},
        {"Component.style", {text, object}},
        {"Component.textStyle", {text, object}},
        {"Component.layout", {text, object}},
        {"ConditionalComponent.style", {text, object}},
        {"ConditionalComponent.textStyle", {text, object}},
        {"ConditionalComponent.layout", {text, object}},
        {"InlineTextStyle.textStyle", {text, object}},
        {"FormattedText.textStyle", {text, object}},
        {"TableCellStyle.textStyle", {text, object}},
        {"CaptionDescriptor.textStyle", {text, object}},
        {"GalleryItem.caption", {text, object}},
        {"DataDescriptor.label", {text, object}},
        {"DataDescriptor.format", {boolean, text, list, object}},
        {"RecordStore.records.*", {null, boolean, number, text, object}},
        {"TableCellStyle.padding", {number, object}},
        {"ConditionalTableCellStyle.padding", {number, text, object}},
        {"TableRowStyle.height", {number, text}},
        {"TableColumnStyle.minimumWidth", {number, text}},
    };
    for (const auto& [place, kinds] : cases) {
        for (const JsonKind kind : kinds) {
            EXPECT_TRUE(inventory.kinds[place].contains(kind)) << place << " as " << describe(kind);
        }
    }
}

} // namespace
} // namespace quillon
