#include "document/ColumnWidths.h"

#include <algorithm>

namespace quillon {

ColumnWidths fitColumns(int total, const ColumnWidths& wanted, const Sidebars& shown) {
    using Widths = ColumnWidths;
    const bool hasOutline = shown.outline && total >= Widths::smallestOutline + Widths::smallestMiddle;
    const bool hasInspector = shown.inspector && total >= (hasOutline ? Widths::smallestOutline : 0) +
                                                              Widths::smallestMiddle +
                                                              Widths::smallestInspector;
    ColumnWidths fit;
    fit.inspector =
        hasInspector ? std::clamp(wanted.inspector, Widths::smallestInspector, Widths::largestInspector) : 0;
    fit.outline = hasOutline ? std::max(wanted.outline, Widths::smallestOutline) : 0;
    const auto missing = [&] {
        return std::max(0, Widths::smallestMiddle - (total - fit.outline - fit.inspector));
    };
    if (hasOutline) {
        fit.outline = std::max(Widths::smallestOutline, fit.outline - missing());
    }
    if (hasInspector) {
        fit.inspector = std::max(Widths::smallestInspector, fit.inspector - missing());
    }
    fit.middle = std::max(0, total - fit.outline - fit.inspector);
    return fit;
}

} // namespace quillon
