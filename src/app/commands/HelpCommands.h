#pragma once

#include <functional>

namespace quillon {

class DocumentWindow;

/// What tells about the format and about the program.
struct HelpCommands {
    std::function<void()> checkForUpdates; ///< empty where the program cannot

    void addTo(DocumentWindow& window) const;
};

} // namespace quillon
