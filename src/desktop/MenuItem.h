#pragma once

#include <QAction>
#include <QKeySequence>
#include <QList>
#include <QMenu>

#include <functional>

namespace quillon {

/// One item of a menu.
struct MenuItem {
    const char* name; ///< of the action, for tests and scripts
    QString text;
    QList<QKeySequence> keys = {};
    std::function<void()> run = {};
};

/// Adds `item` at the end of `menu`, or before the item `before` where one is given.
QAction* addMenuItem(QMenu& menu, const MenuItem& item, QAction* before = nullptr);

/// Adds an item that carries a check mark; `addMenuItem` otherwise.
QAction* addCheckItem(QMenu& menu, const MenuItem& item);

/// The desktop's keys for a command, or `other` where it has none; an empty `other` is no key.
QList<QKeySequence> standardKeys(QKeySequence::StandardKey key, const char* other);

} // namespace quillon
