#include "document/ColumnWidths.h"

#include <algorithm>

namespace quillon {

ColumnWidths fitColumns(int total, const ColumnWidths& wanted, const Sidebars& shown) {
    using Widths = ColumnWidths;
    ColumnWidths fit;
    fit.inspector = shown.inspector
                        ? std::clamp(wanted.inspector, Widths::smallestInspector, Widths::largestInspector)
                        : 0;
    fit.outline = shown.outline ? std::max(wanted.outline, Widths::smallestOutline) : 0;
    const auto missing = [&] {
        return std::max(0, Widths::smallestMiddle - (total - fit.outline - fit.inspector));
    };
    if (shown.outline) {
        fit.outline = std::max(Widths::smallestOutline, fit.outline - missing());
    }
    if (shown.inspector) {
        fit.inspector = std::max(Widths::smallestInspector, fit.inspector - missing());
    }
    fit.middle = std::max(0, total - fit.outline - fit.inspector);
    return fit;
}

} // namespace quillon
