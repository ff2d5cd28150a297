#pragma once

#include <QMenu>

#include <functional>

namespace quillon {

/// What those who try the program out are asked for.
struct BetaCommands {
    std::function<void()> openSettings; ///< where the feedback is written; empty while there is no such place

    void addTo(QMenu& menu) const;
};

} // namespace quillon
