#pragma once

#include "document/EditorOperations.h"

namespace quillon {

/// The columns of a document window, in points.
struct ColumnWidths {
    static constexpr int smallestOutline = 220;
    static constexpr int usualOutline = 260;
    static constexpr int smallestInspector = 420; ///< `inspectorMinimumWidth`
    static constexpr int usualInspector = 440;
    static constexpr int largestInspector = 560;
    static constexpr int smallestMiddle = 320;

    int outline = usualOutline;
    int middle = 0;
    int inspector = usualInspector;

    bool operator==(const ColumnWidths&) const = default;
};

/// The columns in a window `total` wide where outline and inspector are wanted as wide as `wanted` says and
/// `shown` says which of them stand at all; one that does not is 0 wide. Where room is short the outline
/// gives way first, then the inspector, each down to its smallest width; where that does not do, the
/// inspector does not stand, and then the outline neither.
ColumnWidths fitColumns(int total, const ColumnWidths& wanted, const Sidebars& shown);

} // namespace quillon
