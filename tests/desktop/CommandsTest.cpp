#include "DocumentsFixture.h"

#include "desktop/PreviewWebWidget.h"
#include "document/EditorOperations.h"
#include "editor/EditorView.h"
#include "editor/EditorWindowState.h"
#include "editor/FindBar.h"
#include "editor/JSONSourceView.h"
#include "editor/PreviewPane.h"
#include "package/Templates.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QSignalSpy>
#include <QWebEngineView>

namespace quillon::test {

namespace {

/// A document window with all of the program's commands.
class CommandsTest : public DocumentsTest {
protected:
    CommandsTest() {
        session = open(writePackage("Trip"));
        window = &session->window();
        editor = window->findChild<EditorView*>();
        window->activateWindow();
        (void)wait([&] { return window->isActiveWindow(); });
    }

    DocumentStore& store() const { return session->store(); }
    EditorWindowState& state() const { return editor->state(); }
    QAction* item(const char* name) const { return window->findChild<QAction*>(QLatin1String(name)); }
    void type(const char* keys) const {
        QTest::keySequence(window->focusWidget(), QKeySequence(QLatin1String(keys)));
    }

    /// The roles of the top level, with those inside of each in brackets: "body section(photo)".
    static std::string roles(const List<Component>& components) {
        std::string all;
        for (const Component& component : components) {
            all += (all.empty() ? "" : " ") + std::string(component.role.rawValue());
            if (component.components) {
                all += "(" + roles(*component.components) + ")";
            }
        }
        return all;
    }
    std::string roles() const { return roles(store().article().components); }
    void select(std::size_t index) {
        store().select(EditorSelection::ofComponent(store().article().components[index].id));
    }

    bool hasFocus(const char* name) const {
        return window->focusWidget()->objectName() == QLatin1String(name);
    }

    DocumentSession* session = nullptr;
    DocumentWindow* window = nullptr;
    EditorView* editor = nullptr;
};

TEST_F(CommandsTest, everyKeyOfTheViewDoesItsCommand) {
    const auto zoom = [&] {
        return state().choice().zoom;
    };
    const struct {
        const char* keys;
        std::function<bool()> isDone;
    } rows[] = {
        {"Ctrl+3",
         [&] {
             return editor->json() && !editor->preview();
         }},
        {"Ctrl+F",
         [&] {
             return editor->find()->isVisible();
         }},
        {"Ctrl+2",
         [&] {
             return editor->preview() && !editor->json();
         }},
        {"Ctrl+1",
         [&] {
             return state().sidebars() == Sidebars{false, false};
         }},
        {"Ctrl+Alt+1",
         [&] {
             return state().sidebars() == Sidebars{true, false};
         }},
        {"Ctrl+1",
         [&] {
             return state().sidebars() == Sidebars{true, true};
         }},
        {"Ctrl+Alt+2",
         [&] {
             return state().sidebars() == Sidebars{true, false};
         }},
        {"Ctrl++",
         [&] {
             return zoom() > 1;
         }},
        {"Ctrl+0",
         [&] {
             return zoom() == 1;
         }},
        {"Ctrl+-",
         [&] {
             return zoom() < 1;
         }},
        {"F6",
         [&] {
             return hasFocus("outline");
         }},
        {"F6",
         [&] {
             return editor->preview()->isAncestorOf(window->focusWidget());
         }},
        {"F6",
         [&] {
             return hasFocus("outline");
         }},
        {"F11",
         [&] {
             return window->isFullScreen();
         }},
        {"F11",
         [&] {
             return !window->isFullScreen();
         }},
    };
    for (const auto& row : rows) {
        type(row.keys);
        EXPECT_TRUE(wait(row.isDone)) << row.keys;
        EXPECT_TRUE(window->focusWidget() && window->focusWidget()->isVisible()) << row.keys;
    }
    EXPECT_FALSE(item("rotate")->isEnabled());
    state().setDevice(PreviewDevice::iPad);
    type("Ctrl+R");
    EXPECT_EQ(state().choice().orientation, PreviewOrientation::landscape);
    EXPECT_FALSE(m_settings->componentOutlineShowsDetails());
    item("showComponentDetails")->trigger();
    EXPECT_TRUE(m_settings->componentOutlineShowsDetails());
    EXPECT_TRUE(item("showComponentDetails")->isChecked());
}

TEST_F(CommandsTest, componentsAreAddedCopiedMovedAndDeletedByKey) {
    const std::string before = roles();
    item("add.section")->trigger();
    item("add.photo")->trigger();
    EXPECT_EQ(roles(), before + " section(photo)") << "a selected container takes what is added";
    type("Ctrl+D");
    EXPECT_EQ(roles(), before + " section(photo photo)");
    type("Ctrl+C");
    EXPECT_TRUE(QApplication::clipboard()->text().contains("\"role\" : \"photo\""));
    type("Del");
    EXPECT_EQ(roles(), before + " section(photo)");
    EXPECT_EQ(store().selection(), EditorSelection::document());
    EXPECT_FALSE(item("copy")->isEnabled());
    type("Ctrl+V");
    EXPECT_EQ(roles(), before + " section(photo) photo") << "with the article selected, at its end";
    type("Ctrl+X");
    EXPECT_EQ(roles(), before + " section(photo)");
    EXPECT_EQ(store().undoTitle(), "Undo Cut Photo");
    select(0);
    type("Ctrl+V");
    EXPECT_EQ(store().article().components[1].role, ComponentRole::photo) << "behind the selected one";
    for (int step = 0; step < 7; ++step) {
        type("Ctrl+Z");
    }
    EXPECT_EQ(roles(), before);
    type("Ctrl+Shift+Z");
    EXPECT_EQ(roles(), before + " section()");
    QApplication::clipboard()->setText("no component");
    type("Ctrl+V");
    EXPECT_TRUE(question(*window, "failure"));
    EXPECT_EQ(roles(), before + " section()");
}

TEST_F(CommandsTest, aTextWithTheKeyboardKeepsItsKeys) {
    type("Ctrl+3");
    select(0);
    const std::string before = roles();
    EXPECT_FALSE(editor->json()->hasFocus()) << "who works in the outline stays there";
    editor->json()->setFocus();
    ASSERT_TRUE(wait([&] { return !item("delete")->isEnabled(); }));
    type("Del");
    EXPECT_EQ(roles(), before);
    type("Ctrl+A");
    type("Ctrl+C");
    EXPECT_GT(QApplication::clipboard()->text().size(), 500);
    type("Ctrl+F");
    QTest::keyClicks(window->focusWidget(), "title");
    setTitle(*session, "Edited");
    type("Ctrl+Z");
    EXPECT_EQ(store().article().title, "Edited") << "the field's own step was undone";
    EXPECT_EQ(roles(), before);
}

TEST_F(CommandsTest, thePageLeavesItsKeysToTheWindow) {
    ASSERT_TRUE(wait([&] { return editor->preview()->webWidget().view()->focusProxy() != nullptr; }));
    QSignalSpy shown(editor, &EditorView::pageShown);
    item("add.photo")->trigger();
    ASSERT_TRUE(wait([&] { return shown.count() > 0; }));
    editor->preview()->webWidget().view()->setFocus();
    QWidget* page = window->focusWidget();
    ASSERT_TRUE(editor->preview()->isAncestorOf(page));
    const std::string before = roles();
    for (const char* keys : {"Ctrl+D", "Ctrl+X", "Ctrl+V", "Ctrl+Z", "Ctrl+Z", "Ctrl+Z"}) {
        type(keys);
    }
    EXPECT_EQ(roles(), before);
    type("Ctrl+Shift+Z");
    EXPECT_EQ(roles(), before + " photo");
    type("Del");
    EXPECT_EQ(roles(), before);
    type("Ctrl+3");
    EXPECT_TRUE(editor->json());
}

TEST_F(CommandsTest, newDocumentsComeBlankFromATemplateOrGenerated) {
    type("Ctrl+N");
    type("Ctrl+Shift+G");
    const ArticleTemplate& some = allTemplates().back();
    item(("template." + std::string(some.id)).c_str())->trigger();
    ASSERT_TRUE(hasSessions(4));
    const auto all = m_controller->sessions();
    EXPECT_EQ(all[3]->store().article().title, some.title);
    EXPECT_NE(all[2]->store().article().title, all[1]->store().article().title);
    EXPECT_FALSE(all[3]->store().path());
    EXPECT_FALSE(all[3]->store().isEdited());
    Q_EMIT window->menu(WindowMenu::Window).aboutToShow();
    EXPECT_EQ(window->menu(WindowMenu::Window).findChildren<QAction*>("window").size(), 4);
    window->activateWindow();
    (void)wait([&] { return window->isActiveWindow(); });
    type("Ctrl+F6");
    EXPECT_TRUE(wait([&] { return all[1]->window().isActiveWindow(); }));
    EXPECT_FALSE(item("updates")->isEnabled());
    EXPECT_FALSE(item("feedback")->isEnabled());
}

TEST_F(CommandsTest, noTwoCommandsShareAKeyOrALetter) {
    std::map<QString, QString> byKey;
    for (const QAction* action : window->findChildren<QAction*>()) {
        for (const QKeySequence& key : action->shortcuts()) {
            const auto [entry, isNew] = byKey.emplace(key.toString(), action->text());
            EXPECT_TRUE(isNew) << key.toString().toStdString() << ": " << action->text().toStdString() << ", "
                               << entry->second.toStdString();
        }
    }
    EXPECT_GT(byKey.size(), 20U);
    for (const QMenu* menu : window->findChildren<QMenu*>()) {
        std::set<QChar> letters;
        for (const QAction* action : menu->actions()) {
            const QString text = QString(action->text()).remove("&&");
            const qsizetype mark = text.indexOf(QLatin1Char('&'));
            EXPECT_TRUE(mark < 0 || letters.insert(text[mark + 1].toUpper()).second)
                << menu->title().toStdString() << ": " << text.toStdString();
        }
    }
}

} // namespace

} // namespace quillon::test
