#include "document/ColumnWidths.h"

#include <gtest/gtest.h>

namespace quillon {

TEST(ColumnWidths, theMiddleIsSqueezedLast) {
    constexpr Sidebars both;
    constexpr Sidebars none{false, false};
    const struct {
        int total;
        ColumnWidths wanted;
        Sidebars shown;
        ColumnWidths fit;
    } rows[] = {
        {1720, {}, both, {260, 1020, 440}},
        {1180, {}, both, {260, 480, 440}},
        {1180, {}, none, {0, 1180, 0}},
        {1180, {}, {true, false}, {260, 920, 0}},
        {1180, {}, {false, true}, {0, 740, 440}},
        {1180, {900, 0, 440}, both, {420, 320, 440}}, // the outline gives way
        {1000, {400, 0, 560}, both, {220, 320, 460}}, // then the inspector
        {960, {400, 0, 560}, both, {220, 320, 420}},  //
        {959, {400, 0, 560}, both, {400, 559, 0}},    // and at last it goes
        {2400, {1200, 0, 900}, both, {1200, 640, 560}},
        {1720, {10, 0, 10}, both, {220, 1080, 420}},
        {540, {}, both, {220, 320, 0}},
        {539, {}, both, {0, 539, 0}},
        {800, {}, {false, true}, {0, 360, 440}},
        {740, {}, {false, true}, {0, 320, 420}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(fitColumns(row.total, row.wanted, row.shown), row.fit)
            << row.total << " " << row.wanted.outline << " " << row.wanted.inspector;
    }
}

} // namespace quillon
