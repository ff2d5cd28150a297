#include "render/GridMetrics.h"
#include "render/LayoutCss.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cstdio>
#include <limits>

namespace quillon::HTMLRenderer {
namespace {

constexpr int64_t least = std::numeric_limits<int64_t>::min();
constexpr int64_t most = std::numeric_limits<int64_t>::max();

TEST(GridMetrics, columnsFoldBelow768PointsOnly) {
    struct Case {
        int64_t columns;
        int64_t width;
        double viewportWidth;
        int64_t effective;
    };
    constexpr Case cases[] = {
        {7, 1024, 393, 3},
        {7, 1024, 767.9, 6},
        {7, 1024, 768, 7},
        {7, 1024, 800, 7},
        {7, 1024, 2000, 7},
        {7, 320, 320, 7},
        {7, 320, 319, 7},
        {7, 320, 160, 4},
        {20, 1024, 1, 2},
        {7, 1024, 0, 1},
        {7, 1024, -5, 1},
        {1, 1024, 393, 1},
        {0, 0, 393, 1},
        {-4, -9, 0.5, 1},
        {least, least, 10, 1},
        {most, 1024, 800, most},
        {most, most, 1, 922337203685477632},
        {7, 1024, std::numeric_limits<double>::quiet_NaN(), 7},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(testing::Message()
                     << test.columns << " of " << test.width << " in " << test.viewportWidth);
        const GridMetrics grid = gridMetrics(
            {.columns = test.columns, .width = test.width, .margin = {}, .gutter = {}}, test.viewportWidth);
        EXPECT_EQ(grid.effectiveColumnCount(), test.effective);
    }
}

TEST(GridMetrics, lengthsInANarrowViewport) {
    const GridMetrics grid = gridMetrics({.columns = 7, .width = 1000, .margin = 70, .gutter = 20}, 500);
    // A column is as wide as in the article's own width: (1000 - 2 x 70 - 6 x 20) / 7.
    const double column = 740.0 / 7;
    EXPECT_DOUBLE_EQ(grid.viewportScale(), 0.5);
    EXPECT_DOUBLE_EQ(grid.columnWidth(), column);
    EXPECT_EQ(grid.effectiveColumnCount(), 4);
    EXPECT_DOUBLE_EQ(grid.contentWidth(), 4 * column + 3 * 10);
    EXPECT_DOUBLE_EQ(grid.spanWidth(2), 2 * column + 10);
    EXPECT_DOUBLE_EQ(grid.spanWidth(most), grid.contentWidth());
    EXPECT_DOUBLE_EQ(grid.spanWidth(0), column);
    EXPECT_DOUBLE_EQ(grid.spanWidth(least), column);
    EXPECT_DOUBLE_EQ(grid.articleMaxWidth(), grid.contentWidth() + 70);
}

TEST(GridMetrics, styles) {
    struct Case {
        Layout layout;
        double viewportWidth;
        const char* css;
    };
    const Case cases[] = {
        {{.columns = 7, .width = 1024, .margin = 60, .gutter = 20},
         1400,
         "display: grid; grid-template-columns: repeat(7, minmax(0, 1fr)); column-gap: 20px; "
         "align-items: start;width: 100%; max-width: 1024px; padding-left: 60px; padding-right: 60px;"},
        {{.columns = 7, .width = 1024, .margin = 60, .gutter = 20},
         800,
         "display: grid; grid-template-columns: repeat(7, minmax(0, 1fr)); column-gap: 15.62px; "
         "align-items: start;width: 100%; max-width: 971.50px; padding-left: 46.88px; padding-right: "
         "46.88px;"},
        {{.columns = 3, .width = 90, .margin = {}, .gutter = {}},
         30,
         "display: grid; grid-template-columns: repeat(1, minmax(0, 1fr)); column-gap: 0px; "
         "align-items: start;width: 100%; max-width: 30px; padding-left: 0px; padding-right: 0px;"},
        {{.columns = most, .width = most, .margin = most, .gutter = least},
         0,
         "display: grid; grid-template-columns: repeat(922337203685477632, minmax(0, 1fr)); column-gap: 0px; "
         "align-items: start;width: 100%; max-width: 9223372036854775808px; "
         "padding-left: 0px; padding-right: 0px;"},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.css);
        const GridMetrics grid = gridMetrics(test.layout, test.viewportWidth);
        std::string css;
        grid.gridStyle(css);
        grid.articleWidthStyle(css);
        EXPECT_EQ(css, test.css);
    }
}

/// Any whole number, those at the ends of the range and round the sizes of grids among them.
rc::Gen<int64_t> anyWhole() {
    return rc::gen::oneOf(rc::gen::arbitrary<int64_t>(), rc::gen::inRange<int64_t>(-3, 20),
                          rc::gen::element(least, least + 1, most - 1, most));
}

RC_GTEST_PROP(GridMetrics, componentsNeverLeaveTheGrid, ()) {
    const Layout layout{
        .columns = *anyWhole(), .width = *anyWhole(), .margin = *anyWhole(), .gutter = *anyWhole()};
    const GridMetrics grid =
        gridMetrics(layout, *rc::gen::oneOf(rc::gen::arbitrary<double>(),
                                            rc::gen::element(0.0, 320.0, 393.0, 768.0, 1e300)));
    const int64_t columns = grid.effectiveColumnCount();
    RC_ASSERT(columns >= 1);
    RC_ASSERT(columns <= grid.columns);
    RC_ASSERT(grid.columnWidth() >= 0);

    ComponentLayout placed;
    placed.columnStart = *anyWhole();
    if (*rc::gen::arbitrary<bool>()) {
        placed.columnSpan = *anyWhole();
    }
    const int64_t span = spanCount(&placed, grid);
    std::string css;
    gridColumnCSS(css, &placed, grid);
    long long line = 0;
    long long written = 0;
    RC_ASSERT(std::sscanf(css.c_str(), "grid-column: %lld / span %lld;", &line, &written) == 2);
    RC_ASSERT(written == span);
    RC_ASSERT(span >= 1);
    RC_ASSERT(line >= 1);
    RC_ASSERT(line <= columns);
    RC_ASSERT(span <= columns - (line - 1));
}

} // namespace
} // namespace quillon::HTMLRenderer
