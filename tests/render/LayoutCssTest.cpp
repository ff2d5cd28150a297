#include "render/LayoutCss.h"
#include "render/ReadRecord.h"

namespace quillon::HTMLRenderer {
namespace {

/// A grid of 8 columns in half its width: 4 columns of 95 points, gutters of 10, margins of 25.
GridMetrics halvedGrid() {
    return gridMetrics({.columns = 8, .width = 1000, .margin = 50, .gutter = 20}, 500);
}

struct RecordCase {
    const char* json;
    const char* css;
};

TEST(LayoutCss, lengths) {
    struct Case {
        const char* json;
        std::optional<std::string_view> css;
    };
    constexpr Case cases[] = {
        {"30", "15px"},
        {"0.3", "0.15px"},
        {"-7", "-3.50px"},
        {"1e300", "5e+299px"},
        {R"("30")", "15px"},
        {R"(" \n30 ")", "15px"},
        {R"("30pt")", "15px"},
        {R"("30 PT\n")", "15px"},
        {R"("30PX")", "30px"},
        {R"("33.3333px")", "33.33px"},
        {R"("10VH")", "10VH"},
        {R"(" 10vw ")", " 10vw "},
        {R"("10vmin")", "10vmin"},
        {R"("10Vmax")", "10Vmax"},
        {R"("10%")", "10%"},
        {R"("1.5rem")", "1.5rem"},
        {R"("1.5EM")", "1.5EM"},
        {R"("100cw")", "200px"}, // two columns and a gutter
        {R"("50cw")", "100px"},
        {R"("50CW")", "100px"},
        {R"("100pw")", "410px"},
        {R"("50dm")", "12.50px"},
        {R"("200dg")", "20px"},
        {R"("-50gut")", "-5px"},
        {R"("30furlong")", "15px"},
        {R"("30px wide")", "15px"},
        {R"("autopx")", "autopx"},
        {R"("1.2.3vw")", "1.2.3vw"},
        {R"("1.2.3cw")", std::nullopt},
        {R"("auto")", std::nullopt},
        {R"("cw")", std::nullopt},
        {R"("")", std::nullopt},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.json);
        const auto css = lengthCSS(readRecord<ANFLength>(test.json), 2, halvedGrid());
        EXPECT_EQ(css, test.css);
    }
    EXPECT_EQ(lengthCSS(std::nullopt, 2, halvedGrid()), std::nullopt);
}

TEST(LayoutCss, layouts) {
    constexpr RecordCase cases[] = {
        {R"({})", "grid-column: 1 / span 4;"},
        {R"({"columnStart":1})", "grid-column: 2 / span 3;"},
        {R"({"columnStart":1,"columnSpan":2})", "grid-column: 2 / span 2;"},
        {R"({"columnStart":5,"columnSpan":3})", "grid-column: 4 / span 1;"},
        {R"({"columnStart":-3,"columnSpan":0})", "grid-column: 1 / span 1;"},
        {R"({"columnSpan":-9223372036854775808})", "grid-column: 1 / span 1;"},
        {R"({"columnSpan":9223372036854775807,"columnStart":3})", "grid-column: 4 / span 1;"},

        {R"({"ignoreViewportPadding":true,"ignoreDocumentMargin":true})",
         "grid-column: 1 / span 4;grid-column: 1 / -1;width: 100vw; margin-left: calc(50% - 50vw); "
         "margin-right: calc(50% - 50vw);"},
        {R"({"ignoreViewportPadding":"left"})",
         "grid-column: 1 / span 4;grid-column: 1 / -1;margin-left: calc(50% - 50vw);"},
        {R"({"ignoreViewportPadding":"right"})",
         "grid-column: 1 / span 4;grid-column: 1 / -1;margin-right: calc(50% - 50vw);"},
        {R"({"ignoreViewportPadding":"both"})", "grid-column: 1 / span 4;grid-column: 1 / -1;margin-left: "
                                                "calc(50% - 50vw);margin-right: calc(50% - 50vw);"},
        {R"({"ignoreViewportPadding":""})", "grid-column: 1 / span 4;grid-column: 1 / -1;margin-left: "
                                            "calc(50% - 50vw);margin-right: calc(50% - 50vw);"},
        {R"({"ignoreViewportPadding":"none","ignoreDocumentMargin":true})",
         "grid-column: 1 / span 4;margin-left: -25px;margin-right: -25px;"},
        {R"({"ignoreViewportPadding":false,"ignoreDocumentMargin":"left"})",
         "grid-column: 1 / span 4;margin-left: -25px;"},
        {R"({"ignoreViewportPadding":"false","ignoreDocumentMargin":"right"})",
         "grid-column: 1 / span 4;margin-right: -25px;"},
        {R"({"ignoreDocumentMargin":"both","ignoreDocumentGutter":true})",
         "grid-column: 1 / span 4;margin-left: -25px;margin-right: -25px;"},
        {R"({"ignoreDocumentMargin":"none","ignoreDocumentGutter":"left"})", "grid-column: 1 / span 4;"},

        {R"({"margin":12})", "grid-column: 1 / span 4;margin-top: 6px;margin-bottom: 6px;"},
        {R"({"margin":"auto"})", "grid-column: 1 / span 4;"},
        {R"({"margin":{"top":"5vh","bottom":"100cw"},"columnSpan":1})",
         "grid-column: 1 / span 1;margin-top: 5vh;margin-bottom: 95px;"},
        {R"({"margin":{"bottom":2}})", "grid-column: 1 / span 4;margin-bottom: 1px;"},
        {R"({"minimumHeight":"\"><b>1vh"})", "grid-column: 1 / span 4;min-height: &quot;&gt;&lt;b&gt;1vh;"},

        {R"({"minimumHeight":"100cw","maximumContentWidth":"50cw","columnSpan":2})",
         "grid-column: 1 / span 2;min-height: 200px;max-width: 100px;"},

        {R"({"contentInset":true})", "grid-column: 1 / span 4;padding: 16px;"},
        {R"({"contentInset":false})", "grid-column: 1 / span 4;"},
        {R"({"contentInset":{"left":true,"top":true,"right":false}})",
         "grid-column: 1 / span 4;padding-top: 16px;padding-left: 16px;"},
        {R"({"contentInset":{"bottom":true,"right":true}})",
         "grid-column: 1 / span 4;padding-right: 16px;padding-bottom: 16px;"},
        {R"({"horizontalContentAlignment":"left"})", "grid-column: 1 / span 4;justify-self: start;"},
        {R"({"horizontalContentAlignment":"right"})", "grid-column: 1 / span 4;justify-self: end;"},
        {R"({"horizontalContentAlignment":"justified"})", "grid-column: 1 / span 4;"},

        {R"({"horizontalContentAlignment":"center","contentInset":true,"maximumContentWidth":"50pw",)"
         R"("minimumHeight":40,"margin":2,"ignoreDocumentMargin":true,"columnSpan":2})",
         "grid-column: 1 / span 2;margin-left: -25px;margin-right: -25px;margin-top: 1px;margin-bottom: 1px;"
         "min-height: 20px;max-width: 205px;padding: 16px;justify-self: center;"},
    };
    for (const RecordCase& test : cases) {
        SCOPED_TRACE(test.json);
        const auto layout = readRecord<ComponentLayout>(test.json);
        std::string css;
        layoutCSS(css, &layout, std::nullopt, halvedGrid());
        EXPECT_EQ(css, test.css);
    }
}

TEST(LayoutCss, aMarginThatIsReachedOverKeepsItsDecimals) {
    const GridMetrics grid = gridMetrics({.columns = 7, .width = 1024, .margin = 60, .gutter = 20}, 800);
    const auto layout = readRecord<ComponentLayout>(R"({"ignoreDocumentMargin":true})");
    std::string css;
    layoutCSS(css, &layout, std::nullopt, grid);
    EXPECT_EQ(css, "grid-column: 1 / span 7;margin-left: -46.875px;margin-right: -46.875px;");
    css.clear();
    marginInsetCSS(css, &layout, grid);
    EXPECT_EQ(css, "padding-left: 46.875px;padding-right: 46.875px;");
}

TEST(LayoutCss, withoutALayout) {
    std::string css;
    layoutCSS(css, nullptr, readRecord<Anchor>(R"({"originAnchorPosition":"bottom"})"), halvedGrid());
    EXPECT_EQ(css, "grid-column: 1 / -1;align-self: end;");
    EXPECT_EQ(spanCount(nullptr, halvedGrid()), 4);

    std::string none;
    marginInsetCSS(none, nullptr, halvedGrid());
    minimumHeightCSS(none, nullptr, halvedGrid());
    EXPECT_EQ(none, "");
}

TEST(LayoutCss, containersArrangeTheirChildren) {
    std::string grid;
    halvedGrid().gridStyle(grid);
    const RecordCase cases[] = {
        {R"({})", grid.c_str()},
        {R"({"type":"waterfall","gutter":4})", grid.c_str()},
        {R"({"type":"horizontal_stack"})",
         "display: flex; flex-direction: row; gap: 0px; overflow-x: auto; align-items: flex-start;"},
        {R"({"type":"horizontal_stack","gutter":5.25,"rowSpacing":9})",
         "display: flex; flex-direction: row; gap: 2.625px; overflow-x: auto; align-items: flex-start;"},
        {R"({"type":"collection"})",
         "display: flex; flex-wrap: wrap; column-gap: 0px; row-gap: 0px; align-items: flex-start;"},
        {R"({"type":"collection","gutter":8,"alignment":"center","minimumWidth":90})",
         "display: flex; flex-wrap: wrap; column-gap: 4px; row-gap: 4px; align-items: flex-start;"},
        {R"({"type":"collection","gutter":8,"rowSpacing":3})",
         "display: flex; flex-wrap: wrap; column-gap: 4px; row-gap: 1.5px; align-items: flex-start;"},
    };
    for (const RecordCase& test : cases) {
        SCOPED_TRACE(test.json);
        std::string css;
        containerDisplayCSS(css, readRecord<ContentDisplay>(test.json), halvedGrid());
        EXPECT_EQ(css, test.css);
    }
    std::string css;
    containerDisplayCSS(css, std::nullopt, halvedGrid());
    EXPECT_EQ(css, grid);
}

TEST(LayoutCss, contentOfAContainerOverTheMarginStaysAligned) {
    constexpr RecordCase cases[] = {
        {R"({})", ""},
        {R"({"ignoreDocumentMargin":true})", "padding-left: 25px;padding-right: 25px;"},
        {R"({"ignoreViewportPadding":"left"})", "padding-left: 25px;"},
        {R"({"ignoreViewportPadding":"right","ignoreDocumentMargin":true})", "padding-right: 25px;"},
        {R"({"ignoreViewportPadding":"none","ignoreDocumentMargin":true})", ""},
        {R"({"ignoreDocumentMargin":false})", ""},
    };
    for (const RecordCase& test : cases) {
        SCOPED_TRACE(test.json);
        const auto layout = readRecord<ComponentLayout>(test.json);
        std::string css;
        marginInsetCSS(css, &layout, halvedGrid());
        EXPECT_EQ(css, test.css);
    }
    const auto layout =
        readRecord<ComponentLayout>(R"({"ignoreDocumentMargin":true,"minimumHeight":"50cw","columnSpan":1})");
    std::string css;
    marginInsetCSS(css, &layout, gridMetrics({.columns = 8, .width = 1000, .margin = 0, .gutter = 20}, 500));
    EXPECT_EQ(css, "");
    minimumHeightCSS(css, &layout, halvedGrid());
    EXPECT_EQ(css, "min-height: 47.50px;");
}

} // namespace
} // namespace quillon::HTMLRenderer
