#include "editor/commands/EditorCommands.h"

#include "desktop/DocumentWindow.h"
#include "desktop/MenuItem.h"
#include "desktop/QtText.h"
#include "desktop/Settings.h"
#include "desktop/theme/Symbols.h"
#include "editor/EditorView.h"
#include "editor/EditorWindowState.h"
#include "editor/commands/Keys.h"

#include <functional>
#include <vector>

namespace quillon {

struct EditorCommands::Parts {
    DocumentWindow& window;
    EditorWindowState& state;
    Settings& settings;
    QMenu& menu;
    std::vector<std::function<void()>> refreshes; ///< one for each item that shows something of the window

    /// An item with a mark while `isOn`.
    QAction* addMarked(QMenu& to, const MenuItem& item, std::function<bool()> isOn) {
        QAction* action = addCheckItem(to, item);
        refreshes.emplace_back([action, isOn = std::move(isOn)] { action->setChecked(isOn()); });
        return action;
    }
    /// Lets `isEnabled` say when `action` can be taken.
    void enable(QAction* action, std::function<bool()> isEnabled) {
        refreshes.emplace_back(
            [action, isEnabled = std::move(isEnabled)] { action->setEnabled(isEnabled()); });
    }
    bool isPage() const { return state.mode() == PreviewMode::rendered; }
};

EditorCommands::EditorCommands(DocumentWindow& window, EditorView& editor, Settings& settings)
    : QObject(&editor), m_parts(new Parts{.window = window,
                                          .state = editor.state(),
                                          .settings = settings,
                                          .menu = window.menu(WindowMenu::View)}) {
    addModes();
    addChoices();
    addColumns(editor);
    connect(&m_parts->state, &EditorWindowState::changed, this, [this] { refresh(); });
    connect(&settings, &Settings::changed, this, [this] { refresh(); });
    connect(&m_parts->menu, &QMenu::aboutToShow, this, [this] { refresh(); });
    refresh();
}

EditorCommands::~EditorCommands() = default;

void EditorCommands::addModes() {
    Parts& parts = *m_parts;
    const auto add = [&](PreviewMode mode, const char* name, const char* key) {
        parts.addMarked(parts.menu,
                        {name,
                         qtText(title(mode)),
                         {QKeySequence(QLatin1String(key))},
                         [&parts, mode] {
                             parts.state.setMode(mode);
                             // The command on the one that stands has taken its mark away.
                             Q_EMIT parts.state.changed();
                         }},
                        [&parts, mode] { return parts.state.mode() == mode; });
    };
    add(PreviewMode::rendered, "showPreview", keys::showPreview);
    add(PreviewMode::json, "showJSON", keys::showJSON);
    parts.menu.addSeparator();
}

void EditorCommands::addChoices() {
    Parts& parts = *m_parts;
    const auto isPage = [&parts] {
        return parts.isPage();
    };
    QMenu* devices = parts.menu.addMenu(tr("&Device"));
    for (const PreviewDevice device : allDevices()) {
        parts.addMarked(*devices,
                        {"",
                         qtText(rawValue(device)),
                         {},
                         [&parts, device] {
                             parts.state.setDevice(device);
                             Q_EMIT parts.state.changed();
                         }},
                        [&parts, device] { return parts.state.choice().device == device; });
    }
    parts.enable(devices->menuAction(), isPage);
    QAction* rotate =
        addMenuItem(parts.menu, {"rotate", tr("&Rotate Preview"), {QKeySequence(keys::rotate)}, [&parts] {
                                     parts.state.flipOrientation();
                                 }});
    parts.enable(rotate,
                 [&parts] { return parts.isPage() && supportsOrientation(parts.state.choice().device); });
    QMenu* appearances = parts.menu.addMenu(tr("&Appearance"));
    for (const PreviewAppearance appearance : allAppearances()) {
        parts.addMarked(*appearances,
                        {"",
                         qtText(rawValue(appearance)),
                         {},
                         [&parts, appearance] {
                             parts.state.setAppearance(appearance);
                             Q_EMIT parts.state.changed();
                         }},
                        [&parts, appearance] { return parts.state.choice().appearance == appearance; });
    }
    parts.enable(appearances->menuAction(), isPage);
    parts.menu.addSeparator();

    QList<QKeySequence> larger = standardKeys(QKeySequence::ZoomIn, "Ctrl++");
    larger.append(QKeySequence("Ctrl+="));
    QAction* in = addMenuItem(parts.menu, {"zoomIn", tr("Zoom &In"), larger, [&parts] {
                                               parts.state.setZoom(zoom::in(parts.state.choice().zoom));
                                           }});
    QAction* out = addMenuItem(
        parts.menu, {"zoomOut", tr("Zoom &Out"), standardKeys(QKeySequence::ZoomOut, "Ctrl+-"), [&parts] {
                         parts.state.setZoom(zoom::out(parts.state.choice().zoom));
                     }});
    QAction* actual =
        addMenuItem(parts.menu, {"zoomActual", tr("Actual &Size"), {QKeySequence("Ctrl+0")}, [&parts] {
                                     parts.state.setZoom(zoom::actual);
                                 }});
    parts.enable(in, [&parts] {
        return parts.isPage() && zoom::in(parts.state.choice().zoom) != parts.state.choice().zoom;
    });
    parts.enable(out, [&parts] {
        return parts.isPage() && zoom::out(parts.state.choice().zoom) != parts.state.choice().zoom;
    });
    parts.enable(actual, [&parts] { return parts.isPage() && parts.state.choice().zoom != zoom::actual; });
    parts.menu.addSeparator();
}

void EditorCommands::addColumns(EditorView& editor) {
    Parts& parts = *m_parts;
    parts.addMarked(parts.menu,
                    {"showOutline",
                     tr("Out&line"),
                     {QKeySequence(keys::showOutline)},
                     [&parts] {
                         parts.state.toggleOutline();
                     }},
                    [&parts] { return parts.state.sidebars().outline; });
    parts.addMarked(parts.menu,
                    {"showInspector",
                     tr("Ins&pector"),
                     {QKeySequence(keys::showInspector)},
                     [&parts] {
                         parts.state.toggleInspector();
                     }},
                    [&parts] { return parts.state.sidebars().inspector; });
    addMenuItem(parts.menu,
                {"toggleSidebars", tr("&Toggle Sidebars"), {QKeySequence(keys::toggleSidebars)}, [&parts] {
                     parts.state.toggleSidebars();
                 }});
    addMenuItem(parts.menu, {"nextColumn", tr("Go to &Next Column"), {QKeySequence("F6")}, [&editor] {
                                 editor.focusNextColumn();
                             }});
    parts.menu.addSeparator();
    parts.addMarked(parts.menu,
                    {"showComponentDetails",
                     tr("Show &Component Details"),
                     {},
                     [&parts] {
                         Settings& settings = parts.settings;
                         settings.setComponentOutlineShowsDetails(!settings.componentOutlineShowsDetails());
                     }},
                    [&parts] { return parts.settings.componentOutlineShowsDetails(); });
    parts.menu.addSeparator();
    parts.addMarked(parts.menu,
                    {"fullScreen",
                     tr("&Full Screen"),
                     {QKeySequence("F11")},
                     [&parts] {
                         parts.window.setWindowState(parts.window.windowState() ^ Qt::WindowFullScreen);
                     }},
                    [&parts] { return parts.window.isFullScreen(); });
}

void EditorCommands::refresh() {
    for (const auto& each : m_parts->refreshes) {
        each();
    }
}

} // namespace quillon
