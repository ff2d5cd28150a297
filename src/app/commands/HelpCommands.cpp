#include "app/commands/HelpCommands.h"

#include "base/endpoints.h"
#include "desktop/DocumentWindow.h"
#include "desktop/MenuItem.h"
#include "desktop/QtText.h"
#include "desktop/Questions.h"

#include <QApplication>
#include <QDesktopServices>
#include <QUrl>

namespace quillon {

namespace {

void tellAbout(QWidget& window) {
    ask(&window, {.name = QStringLiteral("aboutBox"),
                  .text = QStringLiteral("Quillon %1").arg(QApplication::applicationVersion()),
                  .detail = QObject::tr("An editor for articles in Apple News Format.\n%1")
                                .arg(qtText(endpoints::productHome)),
                  .answers = {{QObject::tr("OK"), QMessageBox::AcceptRole, {}}},
                  .symbol = "newspaper"});
}

} // namespace

void HelpCommands::addTo(DocumentWindow& window) const {
    QMenu& menu = window.menu(WindowMenu::Help);
    addMenuItem(menu, {"documentation", QObject::tr("Apple News Format Documentation"), {}, [] {
                           QDesktopServices::openUrl(QUrl(qtText(endpoints::formatDocumentation)));
                       }});
    menu.addSeparator();
    // On a desktop with one menu bar for the program these two stand in the program's own menu.
    addMenuItem(menu, {"about",
                       QObject::tr("About Quillon"),
                       {},
                       [&window] {
                           tellAbout(window);
                       }})
        ->setMenuRole(QAction::AboutRole);
    QAction* updates =
        addMenuItem(menu, {"updates", QObject::tr("Check for Updates..."), {}, checkForUpdates});
    updates->setMenuRole(QAction::ApplicationSpecificRole);
    updates->setEnabled(static_cast<bool>(checkForUpdates));
}

} // namespace quillon
