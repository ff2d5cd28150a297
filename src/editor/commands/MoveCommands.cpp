#include "editor/commands/MoveCommands.h"

#include "desktop/DocumentWindow.h"
#include "desktop/MenuItem.h"
#include "document/EditorOperations.h"
#include "editor/EditorView.h"
#include "editor/commands/FocusedText.h"

#include <QApplication>

#include <vector>

namespace quillon {

namespace {

constexpr struct {
    KeyboardMove move;
    const char* name;
    const char* text;
    const char* keys;
} moveRows[] = {
    {KeyboardMove::up, "moveUp", QT_TRANSLATE_NOOP("quillon::MoveCommands", "Move Up"), "Alt+Up"},
    {KeyboardMove::down, "moveDown", QT_TRANSLATE_NOOP("quillon::MoveCommands", "Move Down"), "Alt+Down"},
    {KeyboardMove::in, "moveIn", QT_TRANSLATE_NOOP("quillon::MoveCommands", "Move Into Container Above"),
     "Alt+Right"},
    {KeyboardMove::out, "moveOut", QT_TRANSLATE_NOOP("quillon::MoveCommands", "Move Out of Container"),
     "Alt+Left"},
};

} // namespace

struct MoveCommands::Parts {
    const QWidget& window;
    DocumentStore& store;
    std::vector<std::pair<KeyboardMove, QAction*>> actions;
    Subscription subscription = {};
};

MoveCommands::MoveCommands(DocumentWindow& window, EditorView& editor)
    : QObject(&editor), m_parts(new Parts{.window = window, .store = editor.store()}) {
    QMenu& menu = window.menu(WindowMenu::Edit);
    menu.addSeparator();
    for (const auto& row : moveRows) {
        QAction* action = addMenuItem(
            menu, {row.name, tr(row.text), {QKeySequence(QLatin1String(row.keys))}, [this, move = row.move] {
                       if (const auto& id = m_parts->store.selection().component) {
                           moveComponent(m_parts->store, *id, move);
                       }
                   }});
        m_parts->actions.emplace_back(row.move, action);
    }
    connect(
        qApp, &QApplication::focusChanged, this, [this] { refresh(); }, Qt::QueuedConnection);
    connect(&menu, &QMenu::aboutToShow, this, [this] { lookAhead(); });
    connect(
        &menu, &QMenu::aboutToHide, this, [this] { refresh(); }, Qt::QueuedConnection);
    m_parts->subscription = m_parts->store.observe([this](const StoreChange&) { refresh(); });
    refresh();
}

MoveCommands::~MoveCommands() = default;

/// Cheap, as it follows every edit: a step that leads nowhere does nothing.
void MoveCommands::refresh() {
    if (FocusedText::isInMenuBar(m_parts->window)) {
        return;
    }
    // In a text these keys go from word to word.
    const bool isComponent = m_parts->store.selection().component && !FocusedText(m_parts->window);
    for (const auto& [move, action] : m_parts->actions) {
        action->setEnabled(isComponent);
    }
}

/// What the open menu says of each step.
void MoveCommands::lookAhead() {
    refresh();
    const auto& id = m_parts->store.selection().component;
    for (const auto& [move, action] : m_parts->actions) {
        action->setEnabled(action->isEnabled() && id &&
                           movedPlace(*id, move, m_parts->store.article().components));
    }
}

} // namespace quillon
