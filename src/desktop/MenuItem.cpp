#include "desktop/MenuItem.h"

namespace quillon {

QAction* addMenuItem(QMenu& menu, const MenuItem& item, QAction* before) {
    auto* action = new QAction(item.text, &menu);
    action->setObjectName(QLatin1String(item.name));
    action->setShortcuts(item.keys);
    if (item.run) {
        QObject::connect(action, &QAction::triggered, &menu, item.run);
    }
    menu.insertAction(before, action);
    return action;
}

QAction* addCheckItem(QMenu& menu, const MenuItem& item) {
    QAction* action = addMenuItem(menu, item);
    action->setCheckable(true);
    return action;
}

QList<QKeySequence> standardKeys(QKeySequence::StandardKey key, const char* other) {
    QList<QKeySequence> keys = QKeySequence::keyBindings(key);
    if (keys.isEmpty() && *other) {
        keys.append(QKeySequence(QLatin1String(other)));
    }
    return keys;
}

} // namespace quillon
