#include "WaitFor.h"

#include "desktop/theme/Theme.h"
#include "desktop/widgets/CheckBox.h"
#include "desktop/widgets/DisclosureGroup.h"
#include "desktop/widgets/DisclosureHeader.h"
#include "desktop/widgets/EmptyState.h"
#include "desktop/widgets/Row.h"
#include "desktop/widgets/TextBox.h"
#include "desktop/widgets/TextField.h"
#include "desktop/widgets/TextLabel.h"
#include "desktop/widgets/WidgetState.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace quillon::test {

namespace {

/// A window with fields of one record, an action that undoes, and the keyboard.
class FieldWidgetsTest : public testing::Test {
protected:
    FieldWidgetsTest() {
        theme().install();
        theme().setReducedMotion(true);
        auto* undo = new QAction(&window);
        undo->setShortcut(QKeySequence::Undo);
        window.addAction(undo);
        QObject::connect(undo, &QAction::triggered, &window, [this] { ++undone; });
        column = new QVBoxLayout(&window);
        window.resize(400, 300);
    }
    ~FieldWidgetsTest() override { theme().setReducedMotion(std::nullopt); }

    template <typename Widget>
    Widget* add(Widget* widget) {
        column->addWidget(widget);
        return widget;
    }
    void showWindow() {
        window.show();
        window.activateWindow();
        ASSERT_TRUE(waitFor([this] { return window.isActiveWindow(); }));
    }
    Binding<std::string> textBinding() {
        return {[this] { return text; },
                [this](std::string next) {
                    written.push_back(next);
                    text = std::move(next);
                    refreshControls(window);
                }};
    }
    /// A number that is read without zeros at its end, as the document has it.
    Binding<std::string> numberBinding() {
        const Binding<double> number([this] { return value; },
                                     [this](double next) {
                                         value = next;
                                         refreshControls(window);
                                     });
        return number.converted(
            [](double read) { return QString::number(read).toStdString(); },
            [](const std::string& typed) { return QString::fromStdString(typed).toDouble(); });
    }

    std::string text;
    std::vector<std::string> written;
    double value = 0;
    int undone = 0;
    QWidget window; ///< gone before what its fields show
    QVBoxLayout* column;
};

} // namespace

TEST_F(FieldWidgetsTest, eachKeyIsWrittenAndUndoIsLeftToTheWindow) {
    auto* field = add(new TextField(textBinding(), {.clearing = TextField::Clearing::button}));
    auto* box = add(new TextBox(textBinding()));
    showWindow();
    for (QWidget* typed : {static_cast<QWidget*>(field), static_cast<QWidget*>(box)}) {
        text.clear();
        written.clear();
        undone = 0;
        refreshControls(window);
        typed->setFocus();
        QTest::keyClicks(typed, "ab");
        EXPECT_EQ(written, (std::vector<std::string>{"a", "ab"}));
        QTest::keyClick(typed, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(undone, 1);
        window.actions().first()->setEnabled(false);
        QTest::keyClick(typed, Qt::Key_Z, Qt::ControlModifier);
        window.actions().first()->setEnabled(true);
        EXPECT_EQ(text, "ab") << "the field has no undo of its own";
        QContextMenuEvent asked(QContextMenuEvent::Keyboard, {}, {});
        QCoreApplication::sendEvent(typed, &asked);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_TRUE(menu);
        EXPECT_TRUE(menu->actions().first()->text().startsWith("Cu&t"))
            << menu->actions().first()->text().toStdString();
        menu->close();
        EXPECT_EQ(field->text(), "ab");
        EXPECT_EQ(box->text(), "ab");
    }
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_EQ(text, "ab\n");
    QTest::mouseClick(field->findChild<QWidget*>("clear"), Qt::LeftButton);
    EXPECT_EQ(text, "");
    EXPECT_TRUE(field->findChild<QWidget*>("clear")->isHidden());
}

TEST_F(FieldWidgetsTest, aRefreshKeepsTheCaretBesideWhatItStoodBeside) {
    auto* field = add(new TextField(textBinding()));
    auto* box = add(new TextBox(textBinding()));
    showWindow();
    const std::vector<std::tuple<std::string, int, std::string, int>> cases = {
        {"one two", 3, "one two", 3},
        {"one two", 3, "one two three", 3},
        {"one two", 7, "one, two", 8},
        {"one two", 4, "two", 0},
        {"one two three", 5, "one x", 5},
        {"one two", 7, "", 0},
        {"ab", 1, "🙂", 0},
        {"ab", 1, "Xab", 2}};
    for (const auto& [before, caret, after, moved] : cases) {
        text = before;
        refreshControls(window);
        field->setFocus();
        field->setCursorPosition(caret);
        text = after;
        field->refresh();
        EXPECT_EQ(field->text().toStdString(), after);
        EXPECT_EQ(field->cursorPosition(), moved) << before << " -> " << after;
        box->setFocus();
        QTextCursor cursor = box->textCursor();
        cursor.setPosition(caret);
        box->setTextCursor(cursor);
        box->refresh();
        EXPECT_EQ(box->textCursor().position(), moved) << before << " -> " << after;
    }
    EXPECT_TRUE(written.empty()) << "what is shown is not written";
}

TEST_F(FieldWidgetsTest, aNumberStaysAsTypedUntilItIsLeftOrAnotherOne) {
    auto* field = add(new TextField(numberBinding(), {.kind = TextField::Kind::number}));
    auto* next = add(new TextField(textBinding()));
    showWindow();
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, "3.0");
    EXPECT_EQ(value, 3);
    refreshControls(window);
    EXPECT_EQ(field->text(), "3.0");
    QTest::keyClick(field, Qt::Key_Tab);
    EXPECT_TRUE(next->hasFocus());
    EXPECT_EQ(field->text(), "3");
    QTest::keyClick(next, Qt::Key_Backtab);
    QTest::keyClicks(field, "7.50");
    value = 8;
    refreshControls(window);
    EXPECT_EQ(field->text(), "8");
}

TEST_F(FieldWidgetsTest, aBoxGrowsThenScrollsAndTabLeavesIt) {
    auto* box = add(new TextBox(textBinding(), {.leastLines = 2, .mostLines = 4}));
    auto* next = add(new TextField(textBinding()));
    showWindow();
    box->setFocus();
    std::vector<int> heights;
    for (int line = 0; line < 6; ++line) {
        QTest::keyClick(box, Qt::Key_Return);
        QCoreApplication::processEvents();
        heights.push_back(box->height());
        EXPECT_EQ(box->verticalScrollBar()->maximum() > 0, line > 2) << line;
    }
    EXPECT_LT(heights[0], heights[1]);
    EXPECT_LT(heights[1], heights[2]);
    EXPECT_EQ(heights[2], heights[5]);
    text = std::string(400, 'm');
    box->refresh();
    EXPECT_EQ(box->height(), heights[2]) << "lines that are wrapped count";
    QTest::keyClick(box, Qt::Key_Tab);
    EXPECT_TRUE(next->hasFocus());
    text = "no\u00A0break\r\nat all";
    box->refresh();
    EXPECT_TRUE(written.back().find('m') == std::string::npos) << "a refresh writes nothing";
    box->setFocus();
    QTest::keyClick(box, Qt::Key_End, Qt::ControlModifier);
    QTest::keyClicks(box, "!");
    EXPECT_EQ(text, "no\u00A0break\nat all!");
}

TEST_F(FieldWidgetsTest, aGroupIsBuiltWhenItOpensAndRefreshedWhileItIsOpen) {
    bool isOn = false;
    int made = 0;
    const Binding<bool> on([&] { return isOn; }, [&](bool next) { isOn = next; });
    auto* group = add(new DisclosureGroup("Advanced", on, [&](QWidget* parent) {
        ++made;
        return new TextField(textBinding(), parent);
    }));
    showWindow();
    auto* header = group->findChild<DisclosureHeader*>();
    auto* check = group->findChild<CheckBox*>();
    QTest::mouseClick(header, Qt::LeftButton);
    EXPECT_FALSE(group->isOpen()) << "there is nothing to show while it is off";
    check->setFocus();
    QTest::keyClick(check, Qt::Key_Space);
    EXPECT_TRUE(isOn && group->isOpen());
    EXPECT_EQ(made, 1);
    auto* field = static_cast<TextField*>(group->content());
    const std::vector<std::pair<Qt::Key, bool>> presses = {{Qt::Key_Left, false},  {Qt::Key_Left, false},
                                                           {Qt::Key_Right, true},  {Qt::Key_Right, true},
                                                           {Qt::Key_Space, false}, {Qt::Key_Return, true}};
    for (const auto& [key, isOpen] : presses) {
        text += "x";
        refreshControls(window);
        EXPECT_EQ(field->text().toStdString() == text, field->isVisible());
        QTest::keyClick(header, key);
        EXPECT_EQ(group->isOpen(), isOpen) << key;
        EXPECT_EQ(QAccessible::queryAccessibleInterface(header)->state().expanded, isOpen) << key;
        EXPECT_EQ(field->isVisible(), isOpen) << key;
        EXPECT_TRUE(!isOpen || field->text().toStdString() == text);
    }
    field->setFocus();
    isOn = false;
    refreshControls(window);
    EXPECT_FALSE(field->isVisible());
    EXPECT_TRUE(check->hasFocus() && !check->isChecked());
    EXPECT_EQ(made, 1);
}

TEST_F(FieldWidgetsTest, aRowsLabelNamesItsControlAndGivesItTheKeyboard) {
    auto* first = add(new Row("Caption & credit of the picture", new TextField(textBinding()), nullptr));
    auto* second = add(new Row("Height", new TextField(numberBinding()), nullptr, LabelPlace::above));
    showWindow();
    for (Row* row : {second, first}) {
        auto* label = row->findChild<TextLabel*>();
        EXPECT_EQ(row->control()->accessibleName(), label->plainText());
        QTest::mouseClick(label, Qt::LeftButton);
        EXPECT_TRUE(row->control()->hasFocus());
        row->setLabelPlace(LabelPlace::beside);
        QCoreApplication::processEvents();
        EXPECT_EQ(row->control()->x(), extent::rowLabel + distance::beside);
    }
}

TEST_F(FieldWidgetsTest, anEmptyPlaceFitsWhereItStandsAndOffersItsAction) {
    int added = 0;
    auto* empty = add(new EmptyState({.symbol = "paintbrush",
                                      .title = "No Text Styles",
                                      .description = "Styles that several components share stand here.",
                                      .action = EmptyState::Action{"Add Style", [&] {
                                                                       ++added;
                                                                   }}}));
    showWindow();
    auto* button = empty->findChild<QWidget*>("emptyStateAction");
    EXPECT_EQ(button->accessibleName(), "Add Style");
    QTest::keyClick(button, Qt::Key_Return);
    EXPECT_EQ(added, 1);
    const QWidget* words = empty->findChild<QWidget*>("emptyStateText");
    for (const int width : {900, 220}) {
        window.resize(width, 300);
        QCoreApplication::processEvents();
        EXPECT_EQ(window.width(), width);
        EXPECT_LE(words->width(), extent::emptyStateText);
        EXPECT_NEAR(words->mapTo(&window, words->rect().center()).x(), width / 2, 1);
        EXPECT_GE(words->height(), static_cast<const TextLabel*>(words)->heightForWidth(words->width()));
    }
}

TEST_F(FieldWidgetsTest, eachStateHasALookOfItsOwn) {
    const auto makeNothing = [](QWidget* parent) {
        return new QWidget(parent);
    };
    auto* group = new DisclosureGroup("Group", makeNothing, &window);
    const std::vector<QWidget*> widgets = {new TextField(textBinding(), {.prompt = "Prompt"}, &window),
                                           new TextBox(textBinding(), {.prompt = "Prompt"}, &window),
                                           group->findChild<DisclosureHeader*>()};
    showWindow();
    const std::vector<ControlState> states = {{}, {.hovered = true}, {.focused = true}, {.enabled = false}};
    for (QWidget* widget : widgets) {
        std::vector<QImage> looks;
        for (std::size_t each = 0; each < 2 * states.size(); ++each) {
            theme().pin(each < states.size() ? Appearance::Light : Appearance::Dark);
            pretendState(*widget, states[each % states.size()]);
            const QImage look = widget->grab().toImage();
            EXPECT_EQ(std::ranges::count(looks, look), 0) << widget->metaObject()->className() << each;
            looks.push_back(look);
        }
    }
    theme().pin(std::nullopt);
}

} // namespace quillon::test
