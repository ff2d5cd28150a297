#pragma once

#include "base/Scheduler.h"
#include "desktop/DocumentWindow.h"
#include "desktop/Settings.h"
#include "editor/EditorView.h"

#include <functional>
#include <vector>

namespace quillon {

/// What the commands of a document window ask of the program round it. All of it outlives the windows. An
/// action that is empty is one that the program does not have; its items are disabled.
struct ProgramServices {
    Settings& settings;
    Scheduler& scheduler;
    std::function<void(ArticleFileDocument)> newDocument;
    std::function<std::vector<DocumentWindow*>()> windows; ///< in the order in which they were opened
    std::function<void()> openSettings;
    std::function<void()> checkForUpdates;
};

/// Makes the content of a document window and fills all of the window's menus.
EditorView* makeDocumentScene(const ProgramServices& services, DocumentStore& store, DocumentWindow& window);

} // namespace quillon
