#include "app/commands/BetaCommands.h"

#include "desktop/MenuItem.h"

namespace quillon {

void BetaCommands::addTo(QMenu& menu) const {
    addMenuItem(menu, {"feedback", QObject::tr("Leave Beta Feedback..."), {}, openSettings})
        ->setEnabled(static_cast<bool>(openSettings));
}

} // namespace quillon
