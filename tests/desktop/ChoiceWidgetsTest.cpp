#include "WaitFor.h"

#include "desktop/theme/Theme.h"
#include "desktop/widgets/CheckBox.h"
#include "desktop/widgets/MenuButton.h"
#include "desktop/widgets/ProgressIndicator.h"
#include "desktop/widgets/PushButton.h"
#include "desktop/widgets/SegmentedControl.h"
#include "desktop/widgets/TabStrip.h"
#include "desktop/widgets/Toggle.h"
#include "desktop/widgets/ToolbarButton.h"
#include "desktop/widgets/ToolbarControlPill.h"
#include "desktop/widgets/WidgetState.h"

#include <QAccessible>
#include <QApplication>
#include <QImage>
#include <QMenu>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace quillon::test {

namespace {

/// A number that counts how often it is written.
struct Record {
    int value = 0;
    int writes = 0;
    std::function<void()> atWrite = [] {
    };

    Binding<int> number() {
        return {[this] { return value; },
                [this](int written) {
                    value = written;
                    ++writes;
                    atWrite();
                }};
    }
    Binding<bool> truth() {
        return number().converted([](int held) { return held != 0; }, [](bool on) { return on ? 1 : 0; });
    }
};

const std::vector<Choice> choices = {{"Left & far", "text.alignleft"}, {"Right"}, {"Both", {}, "More"}};
const QString name = "Alignment";

/// What the pointer goes to and what shows a state: the second segment, or the control itself.
QWidget* aimed(QWidget* widget) {
    auto* row = qobject_cast<ChoiceRow*>(widget);
    return row ? row->segments()[1] : widget;
}

QMenu* openedMenu() {
    waitFor([] { return QApplication::activePopupWidget() != nullptr; });
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

/// Goes from 0 to 1.
void chooseByMouse(QWidget* widget) {
    if (!qobject_cast<MenuButton*>(widget)) {
        QTest::mouseClick(aimed(widget), Qt::LeftButton);
        return;
    }
    QTest::mousePress(widget, Qt::LeftButton);
    if (QMenu* menu = openedMenu()) {
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions()[1]).center());
    }
}

/// Goes from 1 to 0.
void chooseByKeyboard(QWidget* widget) {
    if (!qobject_cast<MenuButton*>(widget)) {
        QTest::keyClick(aimed(widget), aimed(widget) == widget ? Qt::Key_Space : Qt::Key_Left);
        return;
    }
    QTest::keyClick(widget, Qt::Key_Down);
    if (QMenu* menu = openedMenu()) {
        QTest::keyClick(menu, Qt::Key_L);
        QTest::keyClick(menu, Qt::Key_Return);
    }
}

using Make = QWidget* (*)(Record&);

const std::vector<Make> controls = {
    [](Record& record) -> QWidget* { return new SegmentedControl(name, choices, record.number()); },
    [](Record& record) -> QWidget* { return new TabStrip(name, choices, record.number()); },
    [](Record& record) -> QWidget* { return new MenuButton(name, choices, record.number()); },
    [](Record& record) -> QWidget* { return new Toggle(name, record.truth()); },
    [](Record& record) -> QWidget* { return new CheckBox(name, record.truth()); },
};
const std::vector<Make> buttons = {
    [](Record&) -> QWidget* { return new PushButton(name); },
    [](Record&) -> QWidget* { return new PushButton(name, ButtonKind::Prominent); },
    [](Record&) -> QWidget* { return PushButton::ofSymbol("plus", name); },
    [](Record&) -> QWidget* { return new ToolbarModeButton(name, nullptr); },
    [](Record&) -> QWidget* {
        return new ToolbarSymbolButton("moon", name, {28, 25}, nullptr);
    },
    [](Record&) -> QWidget* {
        auto* label = new ToolbarLooseControlLabel(Chevron::shown, nullptr);
        label->setContent(name, "ipad");
        return label;
    },
};

class ChoiceWidgetsTest : public testing::Test {
protected:
    ChoiceWidgetsTest() {
        theme().install();
        theme().setReducedMotion(true);
    }
    ~ChoiceWidgetsTest() override {
        theme().setReducedMotion(std::nullopt);
        theme().pin(std::nullopt);
    }

    template <typename Widget>
    Widget* shown(Widget* widget) {
        m_column.addWidget(widget, 0, Qt::AlignLeft);
        m_window.show();
        m_window.activateWindow();
        waitFor([&] { return m_window.isActiveWindow() && widget->isVisible(); });
        return widget;
    }

    QWidget m_window;
    QVBoxLayout m_column{&m_window};
};

QImage picture(QWidget* widget) {
    return widget->grab().toImage();
}

TEST_F(ChoiceWidgetsTest, eachWritesItsBindingAndShowsWhatStandsThere) {
    for (const Make make : controls) {
        Record record;
        QWidget* widget = shown(make(record));
        SCOPED_TRACE(widget->metaObject()->className());
        EXPECT_EQ(QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name), name);

        chooseByMouse(widget);
        EXPECT_TRUE(waitFor([&] { return record.value == 1 && record.writes == 1; }));
        const QImage atOne = picture(widget);
        chooseByKeyboard(widget);
        EXPECT_TRUE(waitFor([&] { return record.value == 0 && record.writes == 2; }));
        EXPECT_NE(picture(widget), atOne);

        m_window.setFocus();
        const QImage atNought = picture(widget);
        record.value = 1;
        refreshControls(m_window);
        EXPECT_NE(picture(widget), atNought);
        record.value = 0;
        refreshControls(m_window);
        EXPECT_EQ(picture(widget), atNought);

        widget->setEnabled(false);
        QTest::mouseClick(aimed(widget), Qt::LeftButton);
        QTest::keyClick(aimed(widget), Qt::Key_Space);
        QTest::keyClick(aimed(widget), Qt::Key_Down);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        EXPECT_EQ(record.writes, 2);
        delete widget;
    }
}

TEST_F(ChoiceWidgetsTest, everyStateLooksDifferent) {
    std::vector<Make> all = controls;
    all.insert(all.end(), buttons.begin(), buttons.end());
    const std::vector<ControlState> states = {
        {}, {.hovered = true}, {.pressed = true}, {.focused = true}, {.selected = true}, {.enabled = false}};
    for (const Appearance appearance : {Appearance::Light, Appearance::Dark}) {
        theme().pin(appearance);
        for (const Make make : all) {
            std::vector<QImage> pictures;
            for (const ControlState& state : states) {
                Record record = {.value = state.selected ? 1 : 0};
                const std::unique_ptr<QWidget> widget(make(record));
                pretendState(*aimed(widget.get()), state);
                const QImage now = picture(widget.get());
                EXPECT_EQ(std::ranges::count(pictures, now), 0)
                    << widget->metaObject()->className() << " in state " << pictures.size();
                pictures.push_back(now);
            }
        }
    }
}

TEST_F(ChoiceWidgetsTest, theKeyboardComesToTheChosenSegmentOnly) {
    Record record = {.value = 1};
    auto* first = shown(new PushButton("Before"));
    auto* row = shown(new SegmentedControl(name, choices, record.number()));
    auto* last = shown(new PushButton("After"));
    first->setFocus();
    QTest::keyClick(first, Qt::Key_Tab);
    EXPECT_TRUE(row->segments()[1]->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_End);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    EXPECT_TRUE(row->segments()[2]->hasFocus());
    EXPECT_EQ(record.value, 2);
    EXPECT_EQ(record.writes, 1);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(last->hasFocus());
    QTest::keyClick(last, Qt::Key_Backtab);
    EXPECT_TRUE(row->segments()[2]->hasFocus());
}

TEST_F(ChoiceWidgetsTest, aPillsChoicesAreOneOfSeveral) {
    auto* first = shown(new PushButton("Before"));
    auto* pill = shown(new ToolbarControlPill("Order", 2, nullptr));
    std::vector<ToolbarModeButton*> modes;
    for (const char* title : {"One", "Two", "Three"}) {
        modes.push_back(new ToolbarModeButton(title, pill));
        pill->addChoice(modes.back());
        modes.back()->show();
    }
    auto* last = shown(new PushButton("After"));
    modes[1]->setChecked(true);
    first->setFocus();
    QTest::keyClick(first, Qt::Key_Tab);
    EXPECT_TRUE(modes[1]->hasFocus());
    QTest::mouseClick(modes[1], Qt::LeftButton);
    EXPECT_TRUE(modes[1]->isChecked()) << "a press on the chosen one changes nothing";
    int presses = 0;
    QObject::connect(modes[2], &QAbstractButton::clicked, pill, [&] { ++presses; });
    QTest::keyClick(modes[1], Qt::Key_Right);
    EXPECT_TRUE(modes[2]->hasFocus() && modes[2]->isChecked() && !modes[1]->isChecked());
    EXPECT_EQ(presses, 1);
    QTest::keyClick(modes[2], Qt::Key_Tab);
    EXPECT_TRUE(last->hasFocus());
    QTest::keyClick(last, Qt::Key_Backtab);
    EXPECT_TRUE(modes[2]->hasFocus());

    const auto* told = QAccessible::queryAccessibleInterface(modes[2]);
    EXPECT_EQ(told->role(), QAccessible::RadioButton);
    EXPECT_TRUE(told->state().checked);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(pill)->text(QAccessible::Name), "Order");
    auto* opener = new ToolbarLooseControlLabel(Chevron::shown, pill);
    opener->setContent("Opens", "ipad");
    opener->setMenu(new QMenu(opener));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(opener)->role(), QAccessible::ButtonMenu);
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(opener)->state().hasPopup);
}

TEST_F(ChoiceWidgetsTest, theMarkSlidesUnlessMotionIsToBeAvoided) {
    theme().setReducedMotion(false);
    Record record;
    auto* row = shown(new SegmentedControl(name, choices, record.number()));
    chooseByMouse(row);
    const QImage onTheWay = picture(row);
    EXPECT_TRUE(waitFor([&] { return picture(row) != onTheWay; }));
    Record other = {.value = 1};
    theme().setReducedMotion(true);
    auto* still = shown(new SegmentedControl(name, choices, other.number()));
    QTest::mouseClick(still->segments()[0], Qt::LeftButton);
    const QImage atOnce = picture(still);
    EXPECT_FALSE(waitFor([&] { return picture(still) != atOnce; }, std::chrono::milliseconds(100)));
}

TEST_F(ChoiceWidgetsTest, absentIsAChoiceLikeAnyOther) {
    std::optional<bool> held;
    const Binding<std::optional<bool>> binding([&] { return held; },
                                               [&](std::optional<bool> value) { held = value; });
    auto* row = shown(new SegmentedControl(
        name, choices, choiceAmong<std::optional<bool>>(binding, {std::nullopt, true, false})));
    auto* box = shown(new CheckBox(name, binding));
    EXPECT_TRUE(row->segments()[0]->isChecked());
    EXPECT_EQ(box->checkState(), Qt::PartiallyChecked);
    chooseByMouse(box);
    EXPECT_EQ(held, true);
    QTest::mouseClick(row->segments()[2], Qt::LeftButton);
    EXPECT_EQ(held, false);
    QTest::mouseClick(row->segments()[0], Qt::LeftButton);
    EXPECT_EQ(held, std::nullopt);
}

TEST_F(ChoiceWidgetsTest, aWriteMayBeTheEndOfItsControl) {
    for (const Make make : controls) {
        QPointer<QWidget> widget;
        Record record = {.atWrite = [&] {
            delete widget;
        }};
        widget = shown(make(record));
        chooseByMouse(widget);
        EXPECT_TRUE(waitFor([&] { return !widget; }));
    }
}

TEST_F(ChoiceWidgetsTest, aButtonIsPressedByMouseReturnAndSpace) {
    auto* button = shown(PushButton::ofSymbol("plus", name));
    int presses = 0;
    QObject::connect(button, &QAbstractButton::clicked, button, [&] { ++presses; });
    const auto pressAll = [&] {
        QTest::mouseClick(button, Qt::LeftButton);
        QTest::keyClick(button, Qt::Key_Space);
        QTest::keyClick(button, Qt::Key_Return);
    };
    pressAll();
    EXPECT_EQ(presses, 3);
    button->setEnabled(false);
    pressAll();
    EXPECT_EQ(presses, 3);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(button)->text(QAccessible::Name), name);
}

TEST_F(ChoiceWidgetsTest, progressShowsLateAndUntilTheEnd) {
    auto* progress = shown(new ProgressIndicator(name, Cancelling::Offered));
    const QImage nothing = picture(progress);
    progress->start();
    EXPECT_EQ(picture(progress), nothing);
    progress->finish();
    EXPECT_FALSE(waitFor([&] { return progress->isShowing(); }, std::chrono::milliseconds(400)));

    progress->start();
    ASSERT_TRUE(waitFor([&] { return progress->isShowing(); }));
    const QImage still = picture(progress);
    EXPECT_NE(still, nothing);
    theme().setReducedMotion(false);
    progress->setProgress(std::nullopt);
    EXPECT_TRUE(waitFor([&] { return picture(progress) != still; }));
    progress->setProgress(0.25);
    const QImage quarter = picture(progress);
    progress->setProgress(0.75);
    EXPECT_NE(picture(progress), quarter);

    int cancellations = 0;
    QObject::connect(progress, &ProgressIndicator::cancelled, progress, [&] { ++cancellations; });
    QTest::mouseClick(progress->findChild<PushButton*>(), Qt::LeftButton);
    EXPECT_EQ(cancellations, 1);
    EXPECT_TRUE(progress->isShowing());
    progress->finish();
    EXPECT_EQ(picture(progress), nothing);
}

} // namespace

} // namespace quillon::test
