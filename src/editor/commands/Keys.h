#pragma once

#include <QKeySequence>
#include <QString>

/// The keys of commands that stand in a menu and in the toolbar, where the tooltip tells them.
namespace quillon::keys {

constexpr auto toggleSidebars = "Ctrl+1";
constexpr auto showPreview = "Ctrl+2";
constexpr auto showJSON = "Ctrl+3";
constexpr auto showOutline = "Ctrl+Alt+1";
constexpr auto showInspector = "Ctrl+Alt+2";
constexpr auto rotate = "Ctrl+R";

/// "Toggle the outline (Ctrl+Alt+1)", in the desktop's own way to write keys.
inline QString withKey(const QString& help, const char* key) {
    return QStringLiteral("%1 (%2)").arg(help,
                                         QKeySequence(QLatin1String(key)).toString(QKeySequence::NativeText));
}

} // namespace quillon::keys
