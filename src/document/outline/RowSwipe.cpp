#include "document/outline/RowSwipe.h"

#include <algorithm>

namespace quillon {

void RowSwipe::push(const Uuid& row, double delta, double rowWidth) {
    if (m_row != row) {
        close();
        m_row = row;
    }
    m_rowWidth = rowWidth;
    m_offset = std::clamp(m_offset - delta, 0.0, rowWidth);
    m_isOpen = false;
    if (m_offset == 0) {
        close();
    }
}

RowSwipe::End RowSwipe::release(bool mayPress) {
    if (m_row && mayPress && m_offset > m_rowWidth / 2) {
        return End::pressed;
    }
    m_isOpen = m_row && m_offset >= buttonWidth / 2;
    if (!m_isOpen) {
        close();
        return End::closed;
    }
    m_offset = buttonWidth;
    return End::open;
}

void RowSwipe::close() {
    m_row.reset();
    m_offset = 0;
    m_isOpen = false;
}

} // namespace quillon
