#pragma once

#include "base/Uuid.h"

#include <optional>

namespace quillon {

/// A row that is pushed aside with two fingers, towards the leading edge, which uncovers a button at its
/// other end. Pushed past its middle the button is pressed when the fingers leave.
class RowSwipe {
public:
    static constexpr double buttonWidth = 76; ///< points

    enum class End { closed, open, pressed };

    /// The fingers moved by `delta` points, to the leading edge where it is negative. Another row than before
    /// begins anew.
    void push(const Uuid& row, double delta, double rowWidth);
    /// The fingers have left. `mayPress` says whether what moved the row was a gesture, which knows its end.
    End release(bool mayPress);
    void close();

    /// The row that is not in its place; nothing when all are.
    const std::optional<Uuid>& row() const { return m_row; }
    /// How far it is from its place, in points.
    double offset() const { return m_offset; }
    bool isOpen() const { return m_isOpen; }

private:
    std::optional<Uuid> m_row;
    double m_offset = 0;
    double m_rowWidth = 0;
    bool m_isOpen = false;
};

} // namespace quillon
