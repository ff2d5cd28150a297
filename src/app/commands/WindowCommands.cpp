#include "app/commands/WindowCommands.h"

#include "desktop/DocumentText.h"
#include "desktop/DocumentWindow.h"
#include "desktop/MenuItem.h"

#include <QPointer>

#include <algorithm>

namespace quillon {

namespace {

using Windows = std::vector<DocumentWindow*>;

/// The window that many places further in the list, past its ends.
DocumentWindow* neighbour(const Windows& all, const DocumentWindow& window, std::size_t places) {
    const auto here = std::find(all.begin(), all.end(), &window);
    return here == all.end() ? nullptr
                             : all[(static_cast<std::size_t>(here - all.begin()) + places) % all.size()];
}

QString shownName(const DocumentWindow& window) {
    return menuText(window.windowTitle().remove(QStringLiteral("[*]")));
}

/// Writes the list of windows anew behind the last of the other items.
void listWindows(QMenu& menu, const DocumentWindow& current, const Windows& all) {
    const QString name = QStringLiteral("window");
    for (QAction* action : menu.findChildren<QAction*>(name)) {
        delete action;
    }
    for (DocumentWindow* each : all) {
        QAction* action = addCheckItem(menu, {"window", shownName(*each), {}, [window = QPointer(each)] {
                                                  if (window) {
                                                      window->bringForward();
                                                  }
                                              }});
        action->setChecked(each == &current);
    }
}

} // namespace

void WindowCommands::addTo(DocumentWindow& window) const {
    QMenu& menu = window.menu(WindowMenu::Window);
    addMenuItem(menu, {"minimize", QObject::tr("&Minimize"), {QKeySequence("Ctrl+M")}, [&window] {
                           window.showMinimized();
                       }});
    addMenuItem(menu, {"maximize", QObject::tr("Ma&ximize"), {}, [&window] {
                           window.setWindowState(window.windowState() ^ Qt::WindowMaximized);
                       }});
    menu.addSeparator();
    const auto goOn = [&window, windows = windows](bool isForward) {
        const Windows all = windows();
        if (DocumentWindow* next = neighbour(all, window, isForward ? 1 : all.size() - 1)) {
            next->bringForward();
        }
    };
    addMenuItem(menu, {"nextWindow", QObject::tr("&Next Window"), {QKeySequence("Ctrl+F6")}, [goOn] {
                           goOn(true);
                       }});
    addMenuItem(menu,
                {"previousWindow", QObject::tr("&Previous Window"), {QKeySequence("Ctrl+Shift+F6")}, [goOn] {
                     goOn(false);
                 }});
    menu.addSeparator();
    QObject::connect(&menu, &QMenu::aboutToShow, &menu,
                     [&menu, &window, windows = windows] { listWindows(menu, window, windows()); });
}

} // namespace quillon
