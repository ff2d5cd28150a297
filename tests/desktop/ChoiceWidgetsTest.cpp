#include "WaitFor.h"

#include "desktop/theme/Theme.h"
#include "desktop/widgets/CheckBox.h"
#include "desktop/widgets/MenuButton.h"
#include "desktop/widgets/ProgressIndicator.h"
#include "desktop/widgets/PushButton.h"
#include "desktop/widgets/SegmentedControl.h"
#include "desktop/widgets/TabStrip.h"
#include "desktop/widgets/Toggle.h"
#include "desktop/widgets/WidgetState.h"

#include <QAccessible>
#include <QApplication>
#include <QImage>
#include <QMenu>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

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

QWidget* segment(QWidget* row, std::size_t index) {
    return static_cast<ChoiceRow*>(row)->segments()[index];
}

QMenu* openedMenu() {
    waitFor([] { return QApplication::activePopupWidget() != nullptr; });
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

void clickSegment(QWidget* row) {
    QTest::mouseClick(segment(row, 1), Qt::LeftButton);
}
void leftFromSegment(QWidget* row) {
    QTest::keyClick(segment(row, 1), Qt::Key_Left);
}
void clickEntry(QWidget* button) {
    QTest::mousePress(button, Qt::LeftButton);
    if (QMenu* menu = openedMenu()) {
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions()[1]).center());
    }
}
void typeEntry(QWidget* button) {
    QTest::keyClick(button, Qt::Key_Down);
    if (QMenu* menu = openedMenu()) {
        QTest::keyClick(menu, Qt::Key_L);
        QTest::keyClick(menu, Qt::Key_Return);
    }
}
void clickMiddle(QWidget* widget) {
    QTest::mouseClick(widget, Qt::LeftButton);
}
void pressSpace(QWidget* widget) {
    QTest::keyClick(widget, Qt::Key_Space);
}

/// A control with how the user goes from 0 to 1 by mouse, and from 1 to 0 by keyboard.
struct Subject {
    const char* title;
    QWidget* (*make)(Record&);
    void (*byMouse)(QWidget*);
    void (*byKeyboard)(QWidget*);
    QWidget* (*standing)(QWidget*); ///< what shows a state
};

QWidget* itself(QWidget* widget) {
    return widget;
}

const std::vector<Subject> subjects = {
    {"segments",
     [](Record& record) -> QWidget* { return new SegmentedControl(name, choices, record.number()); },
     clickSegment, leftFromSegment,
     [](QWidget* row) {
         return segment(row, 1);
     }},
    {"tabs", [](Record& record) -> QWidget* { return new TabStrip(name, choices, record.number()); },
     clickSegment, leftFromSegment,
     [](QWidget* row) {
         return segment(row, 1);
     }},
    {"menu", [](Record& record) -> QWidget* { return new MenuButton(name, choices, record.number()); },
     clickEntry, typeEntry, itself},
    {"switch", [](Record& record) -> QWidget* { return new Toggle(name, record.truth()); }, clickMiddle,
     pressSpace, itself},
    {"check box", [](Record& record) -> QWidget* { return new CheckBox(name, record.truth()); }, clickMiddle,
     pressSpace, itself},
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
    for (const Subject& subject : subjects) {
        SCOPED_TRACE(subject.title);
        Record record;
        QWidget* widget = shown(subject.make(record));
        EXPECT_EQ(QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name), name);

        subject.byMouse(widget);
        EXPECT_TRUE(waitFor([&] { return record.value == 1 && record.writes == 1; }));
        const QImage atOne = picture(widget);
        subject.byKeyboard(widget);
        EXPECT_TRUE(waitFor([&] { return record.value == 0 && record.writes == 2; }));
        EXPECT_NE(picture(widget), atOne);

        m_window.setFocus();
        const QImage atNought = picture(widget);
        record.value = 1;
        refreshControls(m_window);
        EXPECT_NE(picture(widget), atNought);
        EXPECT_EQ(record.writes, 2);

        record.value = 0;
        refreshControls(m_window);
        EXPECT_EQ(picture(widget), atNought);
        widget->setEnabled(false);
        QTest::mouseClick(subject.standing(widget), Qt::LeftButton);
        QTest::keyClick(subject.standing(widget), Qt::Key_Space);
        QTest::keyClick(subject.standing(widget), Qt::Key_Down);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        EXPECT_EQ(record.writes, 2);
        delete widget;
    }
}

TEST_F(ChoiceWidgetsTest, everyStateLooksDifferent) {
    std::vector<Subject> all = subjects;
    all.push_back({"bordered", [](Record&) -> QWidget* { return new PushButton(name); }, {}, {}, itself});
    all.push_back({"prominent",
                   [](Record&) -> QWidget* { return new PushButton(name, ButtonKind::Prominent); },
                   {},
                   {},
                   itself});
    all.push_back(
        {"symbol", [](Record&) -> QWidget* { return PushButton::ofSymbol("plus", name); }, {}, {}, itself});
    const std::vector<ControlState> states = {
        {}, {.hovered = true}, {.pressed = true}, {.focused = true}, {.selected = true}, {.enabled = false}};
    for (const Appearance appearance : {Appearance::Light, Appearance::Dark}) {
        theme().pin(appearance);
        for (const Subject& subject : all) {
            std::vector<QImage> pictures;
            for (const ControlState& state : states) {
                Record record = {.value = state.selected ? 1 : 0};
                const std::unique_ptr<QWidget> widget(subject.make(record));
                pretendState(*subject.standing(widget.get()), state);
                pictures.push_back(picture(widget.get()));
                for (std::size_t earlier = 0; earlier + 1 < pictures.size(); ++earlier) {
                    EXPECT_NE(pictures[earlier], pictures.back())
                        << subject.title << ": " << earlier << " like " << pictures.size() - 1;
                }
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

TEST_F(ChoiceWidgetsTest, theMarkSlidesUnlessMotionIsToBeAvoided) {
    theme().setReducedMotion(false);
    Record record;
    auto* row = shown(new SegmentedControl(name, choices, record.number()));
    clickSegment(row);
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
    clickMiddle(box);
    EXPECT_EQ(held, true);
    QTest::mouseClick(row->segments()[2], Qt::LeftButton);
    EXPECT_EQ(held, false);
    QTest::mouseClick(row->segments()[0], Qt::LeftButton);
    EXPECT_EQ(held, std::nullopt);
}

TEST_F(ChoiceWidgetsTest, aWriteMayBeTheEndOfItsControl) {
    for (const Subject& subject : subjects) {
        SCOPED_TRACE(subject.title);
        QPointer<QWidget> widget;
        Record record = {.atWrite = [&] {
            delete widget;
        }};
        widget = shown(subject.make(record));
        subject.byMouse(widget);
        EXPECT_TRUE(waitFor([&] { return !widget; }));
    }
}

TEST_F(ChoiceWidgetsTest, aButtonIsPressedByMouseReturnAndSpace) {
    auto* button = shown(PushButton::ofSymbol("plus", name));
    int presses = 0;
    QObject::connect(button, &QAbstractButton::clicked, button, [&] { ++presses; });
    const auto pressAll = [&] {
        clickMiddle(button);
        pressSpace(button);
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
    clickMiddle(progress->findChild<PushButton*>());
    EXPECT_EQ(cancellations, 1);
    EXPECT_TRUE(progress->isShowing());
    progress->finish();
    EXPECT_EQ(picture(progress), nothing);
}

} // namespace

} // namespace quillon::test
