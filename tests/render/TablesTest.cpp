#include "render/PageFixture.h"
#include "render/ReadRecord.h"
#include "render/TableLooks.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <limits>

namespace quillon::HTMLRenderer {
namespace {

/// A data table of `descriptors` and `records`, the insides of two lists; `members` stand behind them.
std::string tableJson(std::string_view descriptors, std::string_view records, std::string_view members = "") {
    std::string json = R"({"role":"datatable","data":{"descriptors":[)";
    json.append(descriptors).append(R"(],"records":[)").append(records).append("]}");
    return json.append(members).append("}");
}

/// The member that gives a table the table style with `fields`.
std::string tableStyleMember(std::string_view fields) {
    return R"(,"style":{"tableStyle":{)" + std::string(fields) + "}}";
}

std::string page(std::string_view rows) {
    return "<table class=\"data-table\" style=\"border-collapse: collapse; width: 100%;\">\n" +
           std::string(rows) + "</table>\n";
}

/// The `style` of the only cell of a table of one record whose table style has `fields`.
std::string onlyCellStyle(std::string_view fields, std::string_view members = "") {
    const std::string html =
        fragmentOf(tableJson(R"({"key":"a","identifier":"A"})", "{}", tableStyleMember(fields)), members);
    constexpr std::string_view mark = "<td style=\"";
    const size_t begin = html.find(mark);
    if (begin == std::string::npos) {
        return "no cell in " + html;
    }
    return html.substr(begin + mark.size(), html.find("\"></td>") - begin - mark.size());
}

TEST(Tables, valuesAndLabels) {
    const std::string_view plain = R"({"key":"a","label":"A & B"})";
    const std::string_view image = R"({"key":"a","dataType":"image"})";
    const std::string_view named =
        R"(,"componentTextStyles":{"red":{"textColor":"red","conditional":[{"textColor":"blue"}]},"none":{}})";
    struct {
        std::string_view descriptor;
        std::string_view value;
        std::string_view expected;
    } const cases[] = {
        {plain, R"("<\"&'")", "&lt;&quot;&amp;'"},
        {plain, "3.0", "3"},
        {plain, "-0.5", "-0.5"},
        {plain, "1e300", "1e+300"},
        {plain, "true", "true"},
        {plain, "false", "false"},
        {plain, "null", ""},
        {plain, "[1]", ""},
        {plain, R"("https://a.example/1.png")", "https://a.example/1.png"},
        {image, R"("bundle://a&b")",
         "<img src=\"bundle://a&amp;b\" alt=\"bundle://a&amp;b\" style=\"max-width: 100%; height: auto;\">"},
        {image, R"("a/b.png")", "a/b.png"},
        {image, R"(" https://a.example")", " https://a.example"},
        {image, "7", "7"},
        {plain, R"({"type":"formatted_text","text":"<b>","format":"markdown"})", "&lt;b&gt;"},
        {plain, R"({"type":"formatted_text","text":"<b>","format":"html"})", "<b>"},
        {plain, R"({"type":"formatted_text"})", ""},
        {plain, R"({"type":"formatted_text","text":"<b>","format":"html","textStyle":"red"})",
         "<span style=\"color: red;\"><b></span>"},
        {plain, R"({"type":"formatted_text","text":"a","textStyle":{"textColor":"\""}})",
         "<span style=\"color: &quot;;\">a</span>"},
        {plain, R"({"type":"formatted_text","text":"a","textStyle":"none"})", "a"},
        {plain, R"({"type":"formatted_text","text":"a","textStyle":"unknown"})", "a"},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.value);
        const std::string record = R"({"a":)" + std::string(test.value) + "}";
        EXPECT_EQ(fragmentOf(tableJson(test.descriptor, record), named),
                  page("<tr style=\"\"><td style=\"padding: 8px;\">" + std::string(test.expected) +
                       "</td></tr>\n"));
    }
}

TEST(Tables, rowsAndColumns) {
    const std::string_view columns =
        R"({"key":"a","label":"<A>"},{"key":"b","label":{"text":"<i>B</i>","format":"html"}},{"label":"C"})";
    const std::string_view records = R"({"b":2,"a":"z","c":3},{"a":"y"})";
    const std::string th = "<th style=\"padding: 8px;\">";
    const std::string td = "<td style=\"padding: 8px;\">";
    const std::string header =
        "<tr style=\"\">" + th + "&lt;A&gt;</th>" + th + "<i>B</i></th>" + th + "C</th></tr>\n";
    const std::string rows = "<tr style=\"\">" + td + "z</td>" + td + "2</td>" + td + "</td></tr>\n" +
                             "<tr style=\"\">" + td + "y</td>" + td + "</td>" + td + "</td></tr>\n";
    const std::string_view sorted =
        R"(,"sortBy":[{"descriptor":"a","direction":"ascending"}],"dataOrientation":"horizontal")";
    const std::string_view empty = "<div class=\"image-placeholder\">Empty table</div>\n";
    struct {
        std::string component;
        std::string expected;
    } const cases[] = {
        {tableJson(columns, records), page(rows)},
        {tableJson(columns, records, sorted), page(rows)},
        {tableJson(columns, records, R"(,"showDescriptorLabels":false)"), page(rows)},
        {tableJson(columns, records, R"(,"showDescriptorLabels":true)"), page(header + rows)},
        {tableJson(columns, "", R"(,"showDescriptorLabels":true)"), page(header)},
        {tableJson(columns, ""), page("")},
        {tableJson("", records), std::string(empty)},
        {R"({"role":"datatable"})", std::string(empty)},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.component);
        EXPECT_EQ(fragmentOf(test.component), test.expected);
    }
}

TEST(Tables, declarationsOfACell) {
    struct {
        std::string_view style;
        std::string_view expected;
    } const cases[] = {
        {R"("cells":{"height":5,"width":5,"horizontalAlignment":"a\"b","verticalAlignment":"center",)"
         R"("backgroundColor":"<","padding":{"top":1,"left":"auto","bottom":"2vh"},"minimumWidth":"10cw",)"
         R"("border":{"all":{"width":2,"style":"dashed","color":"red"},"left":false},"textStyle":"big"})",
         "background-color: &lt;;padding: 1px 0 2vh 0;text-align: a&quot;b;vertical-align: middle;"
         "border-top: 2px dashed red;border-bottom: 2px dashed red;border-right: 2px dashed red;"
         "min-width: 10px;font-size: 30px;"},
        {R"("cells":{"padding":0,"verticalAlignment":"top","minimumWidth":"auto","textStyle":{"textColor":"c"}})",
         "padding: 0px;vertical-align: top;color: c;"},
        {R"("cells":{"padding":"auto","textStyle":"unknown"})", "padding: 0;"},
        {R"("cells":{"padding":"\"><b>1px","minimumWidth":"\"><i>2em"})",
         "padding: &quot;&gt;&lt;b&gt;1px;min-width: &quot;&gt;&lt;i&gt;2em;"},
        // Backgrounds: the cell's, the row's, the column's
        {R"("cells":{"backgroundColor":"1"},"rows":{"backgroundColor":"2"},"columns":{"backgroundColor":"3"})",
         "background-color: 1;padding: 8px;"},
        {R"("rows":{"backgroundColor":"2"},"columns":{"backgroundColor":"3"})",
         "background-color: 2;padding: 8px;"},
        {R"("rows":{},"columns":{"backgroundColor":"3","width":4,"minimumWidth":5})",
         "background-color: 3;padding: 8px;"},
        // Dividers, and the border in their place
        {R"("rows":{"divider":{}},"columns":{"divider":{"color":"<","width":3}})",
         "padding: 8px;border-bottom: 1px solid #000000;border-right: 3px solid &lt;;"},
        {R"("rows":{"divider":{}},"cells":{"border":{"all":{},"top":false,"left":false,"right":false}})",
         "padding: 8px;border-bottom: 1px solid #000000;"},
        {R"("columns":{"divider":{}},"cells":{"border":{"all":{},"top":false,"bottom":false,"left":false,)"
         R"("right":false}})",
         "padding: 8px;border-right: 1px solid #000000;"},
        {R"("columns":{"divider":{}},"cells":{"border":{"top":true}})",
         "padding: 8px;border-right: 1px solid #000000;"},
        // The styles of the header row are no business of the others
        {R"("headerRows":{"backgroundColor":"2"},"headerColumns":{"divider":{}},"headerCells":{"padding":1})",
         "padding: 8px;"},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.style);
        // The conditions of a cell's text style are left out.
        EXPECT_EQ(onlyCellStyle(test.style, R"(,"componentTextStyles":{"big":{"fontSize":30,)"
                                            R"("conditional":[{"textColor":"blue"}]}})"),
                  test.expected);
    }
    const std::string row =
        fragmentOf(tableJson(R"({"key":"a"})", "{}", tableStyleMember(R"("rows":{"height":"\"><b>1px"})")));
    EXPECT_NE(row.find("<tr style=\"height: &quot;&gt;&lt;b&gt;1px;\">"), std::string::npos) << row;
}

/// A variant in the styles of cells, rows and columns, chosen by `selectors`, the inside of their list.
std::string variant(std::string_view selectors, std::string_view fields) {
    return R"({"selectors":[)" + std::string(selectors) + "]," + std::string(fields) + "}";
}

TEST(Tables, selectorsOfCells) {
    const auto descriptor = readRecord<DataDescriptor>(R"({"identifier":"A","key":"k"})");
    const DataDescriptor unnamed;
    struct {
        std::string_view selectors;
        size_t row;
        size_t column;
        bool matches;
        bool matchesUnnamed;
    } const cases[] = {
        {"", 0, 0, false, false},
        {"{}", 0, 0, true, true},
        {R"({"oddRows":true})", 0, 1, true, true},
        {R"({"oddRows":true})", 1, 0, false, false},
        {R"({"evenRows":true})", 0, 0, false, false},
        {R"({"evenRows":true})", 3, 0, true, true},
        {R"({"oddRows":false,"evenRows":false})", 1, 0, true, true},
        {R"({"oddRows":true,"evenRows":true})", 1, 0, false, false},
        {R"({"oddColumns":true})", 1, 2, true, true},
        {R"({"oddColumns":true})", 0, 1, false, false},
        {R"({"evenColumns":true})", 0, 1, true, true},
        {R"({"evenColumns":true})", 1, 0, false, false},
        {R"({"rowIndex":0})", 0, 5, true, true},
        {R"({"rowIndex":1})", 0, 1, false, false},
        {R"({"rowIndex":-1})", std::numeric_limits<size_t>::max(), 0, false, false},
        {R"({"columnIndex":7})", 0, 7, true, true},
        {R"({"columnIndex":9223372036854775807})", 0, 7, false, false},
        {R"({"descriptor":"A"})", 4, 4, true, false},
        {R"({"descriptor":"k"})", 0, 0, false, false},
        {R"({"descriptor":""})", 0, 0, false, false},
        {R"({"descriptor":"A","rowIndex":1,"oddColumns":true})", 1, 0, true, false},
        {R"({"descriptor":"A","rowIndex":1,"oddColumns":true})", 1, 1, false, false},
        {R"({"rowIndex":3},{"columnIndex":2})", 0, 2, true, true},
        {R"({"rowIndex":3},{"columnIndex":2})", 3, 0, true, true},
        {R"({"rowIndex":3},{"columnIndex":2})", 0, 0, false, false},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(std::string(test.selectors) + " " + std::to_string(test.row));
        const auto style =
            readRecord<TableCellStyle>(R"({"backgroundColor":"no","conditional":[)" +
                                       variant(test.selectors, R"("backgroundColor":"yes")") + "]}");
        const auto colour = [&](const DataDescriptor& column) {
            return *effectiveCell(&style, test.row, test.column, column).backgroundColor;
        };
        EXPECT_EQ(colour(descriptor), test.matches ? "yes" : "no");
        EXPECT_EQ(colour(unnamed), test.matchesUnnamed ? "yes" : "no");
    }
    const auto noSelectors = readRecord<TableCellStyle>(R"({"conditional":[{"backgroundColor":"yes"}]})");
    EXPECT_EQ(effectiveCell(&noSelectors, 0, 0, descriptor), EffectiveCell{});
    EXPECT_EQ(effectiveCell(nullptr, 0, 0, descriptor), EffectiveCell{});
}

/// Whether a selector chooses a cell, tested field by field.
bool chooses(const TableCellSelector& selector, size_t row, size_t column, const DataDescriptor& descriptor) {
    const auto agrees = [](std::optional<bool> odd, std::optional<bool> even, std::optional<int64_t> index,
                           size_t place) {
        return !(odd == true && place % 2 == 1) && !(even == true && place % 2 == 0) &&
               (!index || *index == static_cast<int64_t>(place));
    };
    return agrees(selector.oddRows, selector.evenRows, selector.rowIndex, row) &&
           agrees(selector.oddColumns, selector.evenColumns, selector.columnIndex, column) &&
           (!selector.descriptor || selector.descriptor == descriptor.identifier);
}

RC_GTEST_PROP(Tables, aCellTakesFromEachVariantThatChoosesIt, ()) {
    const auto flag = [] {
        return *rc::gen::element<std::optional<bool>>(std::nullopt, std::nullopt, std::nullopt, true, false);
    };
    const auto index = [] {
        return *rc::gen::element<std::optional<int64_t>>(std::nullopt, std::nullopt, 0, 1, 2, -1);
    };
    const auto name = [] {
        return *rc::gen::element<Optional<std::string>>(std::nullopt, std::nullopt, "A", "B");
    };
    std::vector<ConditionalTableCellStyle> variants(*rc::gen::inRange<size_t>(0, 8));
    for (ConditionalTableCellStyle& variant : variants) {
        for (int count = *rc::gen::inRange(0, 3); count > 0; --count) {
            variant.selectors.edit().push_back({flag(), flag(), flag(), flag(), index(), index(), name()});
        }
        variant.backgroundColor = name();
        variant.verticalAlignment = name();
    }
    DataDescriptor descriptor;
    descriptor.identifier = name();
    const auto row = *rc::gen::inRange<size_t>(0, 4);
    const auto column = *rc::gen::inRange<size_t>(0, 4);
    TableCellStyle style;
    style.backgroundColor = "base";

    EffectiveCell expected{.backgroundColor = style.backgroundColor};
    for (const ConditionalTableCellStyle& variant : variants) {
        if (variant.selectors && std::ranges::any_of(*variant.selectors, [&](const auto& selector) {
                return chooses(selector, row, column, descriptor);
            })) {
            expected.backgroundColor =
                variant.backgroundColor ? variant.backgroundColor : expected.backgroundColor;
            expected.verticalAlignment =
                variant.verticalAlignment ? variant.verticalAlignment : expected.verticalAlignment;
        }
    }
    style.conditional = variants;
    RC_ASSERT(effectiveCell(&style, row, column, descriptor) == expected);
}

TEST(Tables, laterVariantsOfACellWin) {
    const auto style = readRecord<TableCellStyle>(
        R"({"horizontalAlignment":"left","minimumWidth":1,"conditional":[)" +
        variant("{}", R"("horizontalAlignment":"right","verticalAlignment":"top","padding":3,"height":9)") +
        "," + variant(R"({"rowIndex":1})", R"("padding":4)") + "," +
        variant("{}", R"("horizontalAlignment":"center","border":{"top":true},"textStyle":"t")") + "]}");
    const EffectiveCell cell = effectiveCell(&style, 0, 0, DataDescriptor{});
    EXPECT_EQ(*cell.horizontalAlignment, "center");
    EXPECT_EQ(*cell.verticalAlignment, "top");
    EXPECT_EQ(cell.minimumWidth->form, ANFLength{1.0}.form);
    EXPECT_EQ(cell.padding->paddingCSS(), "3px");
    EXPECT_EQ(cell.border->top, true);
    EXPECT_EQ(*cell.textStyle->named(), "t");
    EXPECT_FALSE(cell.backgroundColor);
}

TEST(Tables, selectorsOfRowsAndColumns) {
    // Three rows and three columns; the descriptor of a row selector is not read.
    const std::string style =
        R"("rows":{"height":1,"backgroundColor":"r","conditional":[)" +
        variant(R"({"even":true})", R"("backgroundColor":"even","height":"2vh")") + "," +
        variant(R"({"rowIndex":2,"descriptor":"nobody"})", R"("divider":{"color":"last"},"height":"auto")") +
        "," + variant("", R"("backgroundColor":"never")") + "]}," +
        R"("columns":{"divider":{"color":"c"},"conditional":[)" +
        variant(R"({"columnIndex":0,"odd":true})", R"("divider":{"color":"first"})") + "," +
        variant(R"({"descriptor":"B","even":true})", R"("divider":{"color":"B"})") + "," +
        variant(R"({"columnIndex":1,"odd":true})", R"("divider":{"color":"never"})") + "]}," +
        R"("headerColumns":{"conditional":[)" +
        variant(R"({"columnIndex":1})", R"("backgroundColor":"h","divider":{"color":"h"})") + "]}," +
        R"("headerRows":{"conditional":[)" + variant(R"({"rowIndex":0})", R"("height":7)") + "]}," +
        R"("headerCells":{"conditional":[)" + variant(R"({"rowIndex":0})", R"("padding":1)") + "]}," +
        R"("cells":{"conditional":[)" + variant(R"({"rowIndex":0,"columnIndex":2})", R"("padding":2)") + "]}";
    const std::string columns = R"({"identifier":"A"},{"identifier":"B"},{"identifier":"B"})";
    const auto cell = [](std::string_view colour, std::string_view padding, std::string_view below,
                         std::string_view right) {
        std::string html = "<td style=\"background-color: " + std::string(colour) +
                           ";padding: " + std::string(padding) + "px;";
        if (!below.empty()) {
            html += "border-bottom: 1px solid " + std::string(below) + ";";
        }
        return html + "border-right: 1px solid " + std::string(right) + ";\"></td>";
    };
    const std::string header = "<th style=\"padding: 1px;\"></th>";
    const std::string second =
        "<th style=\"background-color: h;padding: 1px;border-right: 1px solid h;\"></th>";
    EXPECT_EQ(fragmentOf(tableJson(columns, "{},{},{}",
                                   R"(,"showDescriptorLabels":true)" + tableStyleMember(style))),
              page("<tr style=\"height: 7px;\">" + header + second + header + "</tr>\n" +
                   "<tr style=\"height: 1px;\">" + cell("r", "8", "", "first") + cell("r", "8", "", "B") +
                   cell("r", "2", "", "c") + "</tr>\n" + "<tr style=\"height: 2vh;\">" +
                   cell("even", "8", "", "first") + cell("even", "8", "", "B") + cell("even", "8", "", "c") +
                   "</tr>\n" + "<tr style=\"\">" + cell("r", "8", "last", "first") +
                   cell("r", "8", "last", "B") + cell("r", "8", "last", "c") + "</tr>\n"));
}

TEST(Tables, styleOfTheComponent) {
    const std::string dark =
        R"({"backgroundColor":"red","conditional":[{"conditions":[{"preferredColorScheme":"dark"}],"opacity":0.5}]})";
    const std::string styles = R"(,"componentStyles":{"s":)" + dark + "}";
    const std::string table = tableJson(R"({"key":"a"})", "", R"(,"style":"s")");
    EXPECT_EQ(fragmentOf(table, styles),
              "<table class=\"data-table dk1\" style=\"border-collapse: collapse; width: "
              "100%;background-color: red;\">\n</table>\n");
    EXPECT_EQ(fragmentOf(R"({"role":"htmltable","html":" \n<table></table> ","style":)" + dark + "}"),
              "<div class=\"html-table dk1\" style=\"background-color: red;\">\n<table></table>\n</div>\n");
    EXPECT_EQ(fragmentOf(R"({"role":"htmltable","html":"<script>&"})"),
              "<div class=\"html-table\">\n<script>&\n</div>\n");
    for (const std::string_view none :
         {R"({"role":"htmltable"})", R"({"role":"htmltable","html":" \t\n"})"}) {
        EXPECT_EQ(fragmentOf(none), "<div class=\"image-placeholder\">Empty HTML table</div>\n");
    }
}

TEST(Tables, largeTable) {
    std::string columns;
    std::string records;
    std::string variants;
    for (int column = 0; column < 20; ++column) {
        const std::string name = std::to_string(column);
        columns += (column ? "," : "") + (R"({"key":"k)" + name + R"(","identifier":"c)" + name + "\"}");
        variants += (column ? "," : "") + variant(R"({"descriptor":"c)" + name + R"(","oddRows":true})",
                                                  R"("minimumWidth":)" + name);
    }
    for (int row = 0; row < 2000; ++row) {
        records += (row ? "," : "") + (R"({"k0":)" + std::to_string(row) + R"(,"k19":"end"})");
    }
    const std::string html = fragmentOf(
        tableJson(columns, records, tableStyleMember(R"("cells":{"conditional":[)" + variants + "]}")));
    size_t cells = 0;
    for (size_t at = html.find("<td"); at != std::string::npos; at = html.find("<td", at + 1)) {
        ++cells;
    }
    EXPECT_EQ(cells, 40'000u);
    EXPECT_NE(html.find("\">1998</td><td style=\"padding: 8px;min-width: 1px;\"></td>"), std::string::npos);
    EXPECT_TRUE(html.ends_with("<td style=\"padding: 8px;\">end</td></tr>\n</table>\n"));
}

} // namespace
} // namespace quillon::HTMLRenderer
