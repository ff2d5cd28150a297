#include "support/ArticleText.h"
#include "support/RecordFields.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>

namespace quillon {
namespace {

using namespace support;

/// JSON values of every kind, and what messages call them.
struct Probe {
    std::string_view json;
    std::string_view written; ///< after a save
    std::string_view found;
};
constexpr Probe probes[] = {
    {"true", "true", "true or false"}, {"3", "3", "a number"},     {"3.0", "3", "a number"},
    {"1.5", "1.5", "a number"},        {"\"x\"", "\"x\"", "text"}, {"[]", "[]", "a list"},
    {"{}", "{}", "an object"},
};

/// Which of the probes a type of field takes, and what messages call the type.
struct FieldType {
    std::vector<std::string_view> accepted;
    std::string_view expected;
};
const std::map<std::string, FieldType> fieldTypes = {
    {"text", {{"\"x\""}, "text"}},
    {"int", {{"3", "3.0"}, "a whole number"}},
    {"float", {{"3", "3.0", "1.5"}, "a number"}},
    {"bool", {{"true"}, "true or false"}},
    {"list", {{"[]"}, "a list"}},
    {"object", {{"{}"}, "an object"}},
    {"length", {{"3", "3.0", "1.5", "\"x\""}, "a number or text"}},
    {"flag", {{"true", "\"x\""}, "true, false or text"}},
    {"sides", {{"3", "3.0", "1.5", "\"x\"", "{}"}, "a number, text or an object"}},
    {"inset", {{"true", "{}"}, "true, false or an object"}},
    {"weight", {{"3", "3.0", "\"x\""}, "a whole number or text"}},
    {"reference", {{"\"x\"", "{}"}, "text or an object"}},
    {"format", {{}, R"("none", "html" or "markdown")"}},
    {"any", {{"true", "3", "3.0", "1.5", "\"x\"", "[]", "{}"}, ""}},
};

/// A record: where it stands ("@" is replaced by members of it), its path, and its fields in order: "key
/// type", with "!" after the type of a required field and "?" after that of a tolerant one.
struct RecordCase {
    std::string place;
    std::string path;
    std::string fields;
};

constexpr std::string_view textStyleFields =
    "fontName text, fontFamily text, fontWeight weight, fontStyle text, fontWidth text, fontSize int, "
    "textColor text, backgroundColor text, strikethrough inset, underline inset, tracking float, "
    "textShadow object, stroke object, verticalAlignment text, orderedListItems object, "
    "unorderedListItems object, ";
constexpr std::string_view componentTextStyleFields =
    "textAlignment text, lineHeight int, dropCapStyle object, firstLineIndent int, hangingPunctuation bool, "
    "hyphenation bool, paragraphSpacing int, linkStyle object, conditional list";
constexpr std::string_view layoutFields =
    "columnStart int, columnSpan int, margin sides, contentInset inset, ignoreDocumentMargin flag, "
    "ignoreViewportPadding flag, ignoreDocumentGutter flag, minimumHeight length, maximumContentWidth "
    "length, horizontalContentAlignment text, conditional list";
constexpr std::string_view boxFields = "backgroundColor text, fill object, opacity float, border object, "
                                       "mask object, shadow object, tableStyle object, conditional list";
constexpr std::string_view cellFields =
    "backgroundColor text, border object, height length, horizontalAlignment text, verticalAlignment text, "
    "minimumWidth length, width int, padding sides, textStyle reference";

std::vector<RecordCase> recordCases() {
    const std::string text(textStyleFields);
    const std::string componentText = text + std::string(componentTextStyleFields);
    const std::string layout(layoutFields);
    const std::string box(boxFields);
    const std::string cell(cellFields);
    std::vector<RecordCase> cases = {
        {"@", "",
         "version text!, identifier text!, language text!, title text!, subtitle text, documentStyle object, "
         "colorScheme object, textFormat format, metadata object, advertisingSettings object, "
         "componentStyles object, componentTextStyles object, textStyles object, componentLayouts object, "
         "components list!"},
        {R"("layout":{"columns":1,"width":1,@})", "layout",
         "columns int!, width int!, margin int, gutter int"},
        {R"("colorScheme":{@})", "colorScheme", "automaticDarkModeEnabled bool"},
        {R"("componentLayouts":{"s":{@}})", "componentLayouts.s", layout},
        {R"("componentLayouts":{"s":{"conditional":[{@}]}})", "componentLayouts.s.conditional[0]",
         layout + ", conditions list"},
        {R"("componentLayouts":{"s":{"margin":{@}}})", "componentLayouts.s.margin",
         "top length, bottom length"},
        {R"("componentLayouts":{"s":{"contentInset":{@}}})", "componentLayouts.s.contentInset",
         "top bool, right bool, bottom bool, left bool"},
        {R"("componentStyles":{"s":{@}})", "componentStyles.s", box},
        {R"("componentStyles":{"s":{"conditional":[{@}]}})", "componentStyles.s.conditional[0]",
         box + ", conditions list"},
        {R"("componentStyles":{"s":{"fill":{@}}})", "componentStyles.s.fill",
         "type text, URL text, fillMode text, horizontalAlignment text, verticalAlignment text, "
         "attachment text, repeat text, width int, height int, stillURL text, loop bool, angle float, "
         "colorStops list"},
        {R"("componentStyles":{"s":{"fill":{"colorStops":[{@}]}}})", "componentStyles.s.fill.colorStops[0]",
         "color text, location float"},
        {R"("componentStyles":{"s":{"border":{@}}})", "componentStyles.s.border",
         "all object, top bool, bottom bool, left bool, right bool"},
        {R"("componentStyles":{"s":{"border":{"all":{@}}}})", "componentStyles.s.border.all",
         "width int, color text, style text"},
        {R"("componentStyles":{"s":{"mask":{@}}})", "componentStyles.s.mask",
         "type text, radius length, topLeft bool, topRight bool, bottomLeft bool, bottomRight bool"},
        {R"("componentStyles":{"s":{"shadow":{@}}})", "componentStyles.s.shadow",
         "color text, opacity float, radius length, offset object"},
        {R"("componentStyles":{"s":{"shadow":{"offset":{@}}}})", "componentStyles.s.shadow.offset",
         "x length, y length"},
        {R"("componentStyles":{"s":{"tableStyle":{@}}})", "componentStyles.s.tableStyle",
         "rows object, columns object, cells object, headerRows object, headerColumns object, headerCells "
         "object"},
        {R"("componentStyles":{"s":{"tableStyle":{"cells":{"padding":{@}}}}})",
         "componentStyles.s.tableStyle.cells.padding",
         "top length, right length, bottom length, left length"},
        {R"("textStyles":{"s":{@}})", "textStyles.s", text + "conditional list"},
        {R"("textStyles":{"s":{"conditional":[{@}]}})", "textStyles.s.conditional[0]",
         text + "conditional list, conditions list"},
        {R"("componentTextStyles":{"s":{@}})", "componentTextStyles.s", componentText},
        {R"("componentTextStyles":{"s":{"conditional":[{@}]}})", "componentTextStyles.s.conditional[0]",
         componentText + ", conditions list"},
        {R"("componentTextStyles":{"s":{"linkStyle":{@}}})", "componentTextStyles.s.linkStyle",
         text + "conditional list"},
        {R"("textStyles":{"s":{"conditional":[{"conditions":[{@}]}]}})",
         "textStyles.s.conditional[0].conditions[0]",
         "preferredColorScheme text, platform text, subscriptionStatus text, horizontalSizeClass text, "
         "verticalSizeClass text, minViewportWidth int, maxViewportWidth int, minSpecVersion text, "
         "maxSpecVersion text"},
        {R"("textStyles":{"s":{"underline":{@}}})", "textStyles.s.underline", "color text?"},
        {R"("textStyles":{"s":{"textShadow":{@}}})", "textStyles.s.textShadow",
         "color text, opacity float, radius float, offset object"},
        {R"("textStyles":{"s":{"textShadow":{"offset":{@}}}})", "textStyles.s.textShadow.offset",
         "x float, y float"},
        {R"("textStyles":{"s":{"stroke":{@}}})", "textStyles.s.stroke", "color text, width int"},
        {R"("textStyles":{"s":{"unorderedListItems":{@}}})", "textStyles.s.unorderedListItems",
         "type text, character text"},
        {R"("componentTextStyles":{"s":{"dropCapStyle":{@}}})", "componentTextStyles.s.dropCapStyle",
         "numberOfLines int, numberOfCharacters int, numberOfRaisedLines int, fontName text, textColor text, "
         "backgroundColor text, padding int"},
        {R"("metadata":{@})", "metadata",
         "authors list, canonicalURL text, thumbnailURL text, keywords list, excerpt text, datePublished "
         "text, dateCreated text, dateModified text, transparentToolbar bool, videoURL text, coverArt list, "
         "campaignData object, generatorName text, generatorVersion text, links list"},
        {R"("metadata":{"coverArt":[{@}]})", "metadata.coverArt[0]", "URL text, accessibilityCaption text"},
        {R"("metadata":{"links":[{@}]})", "metadata.links[0]", "URL text, relationship text"},
        {R"("metadata":{"campaignData":{@}})", "metadata.campaignData", "k list!"},
        {R"("documentStyle":{@})", "documentStyle", "backgroundColor text, conditional list"},
        {R"("documentStyle":{"conditional":[{@}]})", "documentStyle.conditional[0]",
         "backgroundColor text, conditional list, conditions list"},
        {R"("advertisingSettings":{@})", "advertisingSettings", "frequency int, layout object"},
        {R"("advertisingSettings":{"layout":{@}})", "advertisingSettings.layout", "margin object"},
        {R"("advertisingSettings":{"layout":{"margin":{@}}})", "advertisingSettings.layout.margin",
         "top int, bottom int"},
        {R"("components":[{"role":"body",@}])", "components[0]",
         "role text!, text text, html text, format format, URL text, caption text, components list, items "
         "list, textStyle reference, inlineTextStyles list, layout reference, anchor object, "
         "showDescriptorLabels bool, dataOrientation text, sortBy list, identifier text, hidden bool, "
         "accessibilityCaption text, stillURL text, aspectRatio float, articleIdentifier text, fillMode "
         "text, verticalAlignment text, orientation text, theme text, behavior object, scene object, "
         "animation object, contentDisplay object, additions list, conditional list, latitude float, "
         "longitude float"},
        {R"("components":[{"role":"body","anchor":{@}}])", "components[0].anchor",
         "targetComponentIdentifier text, originAnchorPosition text, targetAnchorPosition text, rangeStart "
         "int, rangeLength int"},
        {R"("components":[{"role":"body","contentDisplay":{@}}])", "components[0].contentDisplay",
         "type text, gutter float, rowSpacing float, alignment text, distribution text, maximumWidth length, "
         "minimumWidth length"},
        {R"("components":[{"role":"body","animation":{@}}])", "components[0].animation",
         "type text, userControllable bool, initialAlpha float, initialScale float, "
         "preferredStartingPosition text"},
        {R"("components":[{"role":"body","behavior":{@}}])", "components[0].behavior",
         "type text, factor float"},
        {R"("components":[{"role":"body","scene":{@}}])", "components[0].scene", "type text, fadeColor text"},
        {R"("components":[{"role":"body","additions":[{@}]}])", "components[0].additions[0]",
         "type text?, URL text?, rangeStart int?, rangeLength int?"},
        {R"("components":[{"role":"body","inlineTextStyles":[{@}]}])", "components[0].inlineTextStyles[0]",
         "rangeStart int?, rangeLength int?, textStyle reference?"},
        {R"("components":[{"role":"body","conditional":[{@}]}])", "components[0].conditional[0]",
         "conditions list, hidden bool, anchor object, animation object, behavior object, scene object, "
         "contentDisplay object, layout reference, textStyle reference, accessibilityCaption text"},
        {R"("components":[{"role":"body","sortBy":[{@}]}])", "components[0].sortBy[0]",
         "descriptor text, direction text"},
        {R"("components":[{"role":"body","data":{"descriptors":[],"records":[],@}}])", "components[0].data",
         "descriptors list!, records list!"},
        {R"("components":[{"role":"body","data":{"records":[],"descriptors":[{@}]}}])",
         "components[0].data.descriptors[0]",
         "identifier text, key text, label reference, dataType text, format any"},
        {R"("components":[{"role":"body","data":{"records":[],"descriptors":[{"label":{@}}]}}])",
         "components[0].data.descriptors[0].label",
         "type text, text text, format text, textStyle reference, inlineTextStyles list, additions any"},
    };
    for (const std::string member : {"rows", "headerRows"}) {
        const std::string place = R"("componentStyles":{"s":{"tableStyle":{")" + member + "\":{";
        const std::string path = "componentStyles.s.tableStyle." + member;
        const std::string fields = "backgroundColor text, divider object, height length";
        cases.push_back({place + "@}}}}", path, fields + ", conditional list"});
        cases.push_back(
            {place + R"("conditional":[{@}]}}}})", path + ".conditional[0]", "selectors list, " + fields});
        cases.push_back({place + R"("conditional":[{"selectors":[{@}]}]}}}})",
                         path + ".conditional[0].selectors[0]",
                         "odd bool, even bool, rowIndex int, descriptor text"});
    }
    for (const std::string member : {"columns", "headerColumns"}) {
        const std::string place = R"("componentStyles":{"s":{"tableStyle":{")" + member + "\":{";
        const std::string path = "componentStyles.s.tableStyle." + member;
        const std::string fields = "backgroundColor text, divider object, width int, minimumWidth length";
        cases.push_back({place + "@}}}}", path, fields + ", conditional list"});
        cases.push_back(
            {place + R"("conditional":[{@}]}}}})", path + ".conditional[0]", "selectors list, " + fields});
        cases.push_back({place + R"("conditional":[{"selectors":[{@}]}]}}}})",
                         path + ".conditional[0].selectors[0]",
                         "odd bool, even bool, columnIndex int, descriptor text"});
    }
    for (const std::string member : {"cells", "headerCells"}) {
        const std::string place = R"("componentStyles":{"s":{"tableStyle":{")" + member + "\":{";
        const std::string path = "componentStyles.s.tableStyle." + member;
        cases.push_back({place + "@}}}}", path, cell + ", conditional list"});
        cases.push_back(
            {place + R"("conditional":[{@}]}}}})", path + ".conditional[0]", "selectors list, " + cell});
        cases.push_back({place + R"("conditional":[{"selectors":[{@}]}]}}}})",
                         path + ".conditional[0].selectors[0]",
                         "oddRows bool, evenRows bool, oddColumns bool, evenColumns bool, rowIndex int, "
                         "columnIndex int, descriptor text"});
    }
    return cases;
}

struct Field {
    std::string key;
    std::string type;
    char kind = ' '; ///< '!' required, '?' tolerant
};

std::vector<Field> fieldsIn(const RecordCase& record) {
    std::vector<Field> fields;
    std::istringstream list(record.fields);
    for (std::string entry; std::getline(list >> std::ws, entry, ',');) {
        Field field;
        std::istringstream(entry) >> field.key >> field.type;
        if (field.type.back() == '!' || field.type.back() == '?') {
            field.kind = field.type.back();
            field.type.pop_back();
        }
        fields.push_back(field);
    }
    return fields;
}

std::string withMembers(const RecordCase& record, const std::string& members) {
    std::string place = record.place;
    return articleJson(place.replace(place.find('@'), 1, members));
}

std::string pathOf(const RecordCase& record, const Field& field) {
    return record.path + (record.path.empty() ? "" : ".") + field.key;
}

std::string member(const Field& field, std::string_view value) {
    return "\"" + field.key + "\":" + std::string(value);
}

TEST(RecordTables, everyFieldTakesItsTypeAndNothingElse) {
    for (const RecordCase& record : recordCases()) {
        for (const Field& field : fieldsIn(record)) {
            const FieldType& type = fieldTypes.at(field.type);
            const std::string path = pathOf(record, field);
            for (const Probe& probe : probes) {
                SCOPED_TRACE(path + " = " + std::string(probe.json));
                const std::string after = saved(withMembers(record, member(field, probe.json)));
                const bool isAccepted =
                    std::find(type.accepted.begin(), type.accepted.end(), probe.json) != type.accepted.end();
                if (isAccepted) {
                    EXPECT_EQ(after.substr(0, 1), "{") << after;
                    EXPECT_EQ(valueAt(after, path), probe.written);
                } else if (field.kind == '?') {
                    EXPECT_EQ(after.substr(0, 1), "{") << after;
                    EXPECT_EQ(valueAt(after, path), std::nullopt);
                } else {
                    const std::string_view found = field.type == "int" && probe.json == "1.5"
                                                       ? "a number with a fraction or beyond 64 bits"
                                                   : field.type == "format" && probe.found == "text"
                                                       ? "another text"
                                                       : probe.found;
                    EXPECT_EQ(after, path + ": expected " + std::string(type.expected) + ", found " +
                                         std::string(found));
                }
            }
            const std::string afterNull = saved(withMembers(record, member(field, "null")));
            if (field.kind == '!') {
                EXPECT_EQ(afterNull, path + ": expected " + std::string(type.expected) + ", found null");
            } else {
                EXPECT_EQ(valueAt(afterNull, path), std::nullopt) << path;
            }
        }
    }
}

TEST(RecordTables, fieldsAreReadInOrder) {
    for (const RecordCase& record : recordCases()) {
        const std::vector<Field> fields = fieldsIn(record);
        std::string wrong;
        for (auto field = fields.rbegin(); field != fields.rend(); ++field) {
            if (field->kind == '?' || field->type == "any") {
                continue;
            }
            wrong = member(*field, field->type == "list" ? "{}" : "[]") + (wrong.empty() ? "" : ",") + wrong;
            // The keys stand in the text the other way round.
            EXPECT_EQ(saved(withMembers(record, wrong)).find(pathOf(record, *field) + ": "), 0);
        }
    }
}

TEST(RecordTables, unknownKeysStayAtThreePlacesAlone) {
    for (const RecordCase& record : recordCases()) {
        SCOPED_TRACE(record.path);
        if (record.path == "metadata.campaignData") {
            continue; // its keys are no field names
        }
        const bool keeps = record.path.empty() || record.path == "metadata" || record.path == "components[0]";
        const std::string after = saved(withMembers(record, R"("zeta":[1.50,{"x":null}])"));
        EXPECT_EQ(valueAt(after, pathOf(record, {"zeta", ""})),
                  keeps ? std::optional<std::string>(R"([1.5,{"x":null}])") : std::nullopt);
    }
}

template <typename Record>
void expectRows(size_t count) {
    Record record{};
    EXPECT_EQ(RecordTable<Record>::info().rows().size(), count);
    EXPECT_EQ(std::tuple_size_v<decltype(fieldsOf(record))>, count);
}

TEST(RecordTables, knownKeysOfTheRecordsThatPreserveTheRest) {
    expectRows<ArticleDocument>(16);
    expectRows<Component>(35);
    expectRows<Metadata>(15);
    EXPECT_TRUE(RecordTable<ArticleDocument>::info().isKnownKey("title"));
    EXPECT_FALSE(RecordTable<ArticleDocument>::info().isKnownKey("Title"));
    EXPECT_FALSE(RecordTable<ArticleDocument>::info().isKnownKey(""));
    EXPECT_FALSE(RecordTable<Component>::info().isKnownKey("id"));
}

} // namespace
} // namespace quillon
