#include "editor/commands/EditCommands.h"

#include "desktop/DocumentWindow.h"
#include "desktop/MenuItem.h"
#include "desktop/Questions.h"
#include "document/ComponentText.h"
#include "document/EditorOperations.h"
#include "editor/ComponentAddMenu.h"
#include "editor/EditorView.h"
#include "editor/EditorWindowState.h"
#include "editor/FindBar.h"
#include "editor/commands/FocusedText.h"
#include "model/ComponentTree.h"

#include <QApplication>
#include <QClipboard>

namespace quillon {

struct EditCommands::Parts {
    DocumentWindow& window;
    EditorView& editor;
    QAction* cut = nullptr;
    QAction* copy = nullptr;
    QAction* duplicate = nullptr;
    QAction* remove = nullptr;
    QAction* find = nullptr;
    QAction* findNext = nullptr;
    QAction* findPrevious = nullptr;
    Subscription subscription = {};

    /// Null where the article as a whole is selected, or what is gone.
    const Component* selected() const {
        const auto& id = editor.store().selection().component;
        return id ? findComponent(*id, editor.store().article().components) : nullptr;
    }
};

EditCommands::EditCommands(DocumentWindow& window, EditorView& editor)
    : QObject(&editor), m_parts(new Parts{.window = window, .editor = editor}) {
    Parts& parts = *m_parts;
    DocumentStore& store = editor.store();
    QMenu& menu = window.menu(WindowMenu::Edit);
    menu.addSeparator();
    parts.cut = addMenuItem(menu, {"cut", tr("Cu&t"), standardKeys(QKeySequence::Cut, "Ctrl+X"), [this] {
                                       cut();
                                   }});
    parts.copy = addMenuItem(menu, {"copy", tr("&Copy"), standardKeys(QKeySequence::Copy, "Ctrl+C"), [this] {
                                        copy();
                                    }});
    addMenuItem(menu, {"paste", tr("&Paste"), standardKeys(QKeySequence::Paste, "Ctrl+V"), [this] {
                           paste();
                       }});
    parts.duplicate = addMenuItem(menu, {"duplicate", tr("Dup&licate"), {QKeySequence("Ctrl+D")}, [&store] {
                                             if (const auto& id = store.selection().component) {
                                                 duplicateComponent(store, *id);
                                             }
                                         }});
    // Some desktops delete with Ctrl+D, too, which duplicates here.
    parts.remove = addMenuItem(menu, {"delete", tr("&Delete"), {QKeySequence("Del")}, [this] {
                                          removeSelected();
                                      }});
    menu.addSeparator();
    parts.find =
        addMenuItem(menu, {"find", tr("&Find…"), standardKeys(QKeySequence::Find, "Ctrl+F"), [&editor] {
                               editor.find()->open();
                           }});
    // The desktop's other keys for these belong to another command of ours.
    parts.findNext = addMenuItem(
        menu, {"findNext", tr("Find &Next"), {QKeySequence("F3"), QKeySequence("Ctrl+G")}, [&editor] {
                   editor.find()->go(FindBar::Direction::forward);
               }});
    parts.findPrevious =
        addMenuItem(menu, {"findPreviousItem", tr("Find Pre&vious"), {QKeySequence("Shift+F3")}, [&editor] {
                               editor.find()->go(FindBar::Direction::backward);
                           }});

    fillComponentAddMenu(window.menu(WindowMenu::Insert),
                         [&store](const ComponentRole& role) { addComponent(store, role); });

    // Queued: the widgets of a window that closes hand the keyboard on while the rest of it is gone already.
    connect(
        qApp, &QApplication::focusChanged, this, [this] { refresh(); }, Qt::QueuedConnection);
    connect(&editor.state(), &EditorWindowState::changed, this, [this] { refresh(); });
    connect(&menu, &QMenu::aboutToShow, this, [this] { refresh(); });
    parts.subscription = store.observe([this](const StoreChange&) { refresh(); });
    refresh();
}

EditCommands::~EditCommands() = default;

void EditCommands::refresh() {
    Parts& parts = *m_parts;
    if (FocusedText::isInMenuBar(parts.window)) {
        // The commands are for what had the keyboard before.
        return;
    }
    const bool isText(FocusedText(parts.window));
    const bool isComponent = parts.selected() != nullptr;
    parts.cut->setEnabled(isText || isComponent);
    parts.copy->setEnabled(isText || isComponent);
    parts.duplicate->setEnabled(isComponent);
    // In a text the key belongs to the text, also where that cannot be changed.
    parts.remove->setEnabled(isComponent && !isText);
    for (QAction* action : {parts.find, parts.findNext, parts.findPrevious}) {
        action->setEnabled(parts.editor.find());
    }
}

void EditCommands::copy() {
    const FocusedText text(m_parts->window);
    if (text) {
        text.copy();
        return;
    }
    const Component* component = m_parts->selected();
    if (const std::string json = component ? componentText(*component) : std::string(); !json.empty()) {
        QApplication::clipboard()->setText(QString::fromStdString(json));
    }
}

void EditCommands::cut() {
    const FocusedText text(m_parts->window);
    if (text) {
        text.cut();
        return;
    }
    const Component* component = m_parts->selected();
    const std::string json = component ? componentText(*component) : std::string();
    if (!json.empty()) {
        QApplication::clipboard()->setText(QString::fromStdString(json));
        deleteComponent(m_parts->editor.store(), component->id, "Cut");
    }
}

void EditCommands::paste() {
    const FocusedText text(m_parts->window);
    if (text) {
        text.paste();
        return;
    }
    auto components = readComponents(QApplication::clipboard()->text().toStdString());
    if (!components) {
        tellFailure(&m_parts->window, tr("Could Not Paste"),
                    QString::fromStdString(components.error()) +
                        tr("\nCopy one component, or a list of them, from here or from an article.json."));
        return;
    }
    pasteComponents(m_parts->editor.store(), std::move(*components));
}

void EditCommands::removeSelected() {
    const Component* component = m_parts->selected();
    // What is selected in the page is not told as it comes and goes.
    if (component && !FocusedText(m_parts->window)) {
        deleteComponent(m_parts->editor.store(), component->id);
    }
}

} // namespace quillon
