#include "app/DocumentScene.h"

#include "app/commands/BetaCommands.h"
#include "app/commands/GenerateCommands.h"
#include "app/commands/HelpCommands.h"
#include "app/commands/WindowCommands.h"
#include "editor/commands/EditCommands.h"
#include "editor/commands/EditorCommands.h"
#include "editor/commands/MoveCommands.h"

namespace quillon {

EditorView* makeDocumentScene(const ProgramServices& services, DocumentStore& store, DocumentWindow& window) {
    auto* editor = new EditorView(store, services.settings, services.scheduler, &window);
    GenerateCommands{services.newDocument}.addTo(window.menu(WindowMenu::File));
    new EditCommands(window, *editor);
    new MoveCommands(window, *editor);
    new EditorCommands(window, *editor, services.settings);
    WindowCommands{services.windows}.addTo(window);
    BetaCommands{services.openSettings}.addTo(window.menu(WindowMenu::Beta));
    HelpCommands{services.checkForUpdates}.addTo(window);
    return editor;
}

} // namespace quillon
