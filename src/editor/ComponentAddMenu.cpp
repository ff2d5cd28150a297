#include "editor/ComponentAddMenu.h"

#include "desktop/DocumentText.h"
#include "desktop/QtText.h"
#include "desktop/theme/Symbols.h"
#include "document/AddMenu.h"

namespace quillon {

void fillComponentAddMenu(QMenu& menu, const std::function<void(const ComponentRole&)>& onAdd) {
    for (const AddMenuSection& section : addMenuSections()) {
        // One list of all of them would be higher than most screens.
        QMenu* sub = menu.addMenu(QLatin1Char('&') + menuText(qtText(section.title)));
        for (const ComponentRole role : section.roles) {
            QAction* action = sub->addAction(symbolIcon(role.symbolName()),
                                             menuText(QString::fromStdString(role.displayName())));
            action->setObjectName(QStringLiteral("add.") + qtText(role.rawValue()));
            QObject::connect(action, &QAction::triggered, &menu, [onAdd, role] { onAdd(role); });
        }
    }
}

} // namespace quillon
