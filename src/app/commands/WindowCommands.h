#pragma once

#include <functional>
#include <vector>

namespace quillon {

class DocumentWindow;

/// What is done with the windows themselves.
struct WindowCommands {
    std::function<std::vector<DocumentWindow*>()> windows; ///< all that are open

    void addTo(DocumentWindow& window) const;
};

} // namespace quillon
