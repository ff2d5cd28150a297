#pragma once

#include <QString>

#include <string_view>

namespace quillon {

/// UTF-8 text as Qt has it.
inline QString qtText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace quillon
