#include "WaitFor.h"

#include "desktop/theme/Theme.h"
#include "editor/JSONSourceView.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

namespace quillon::test {

namespace {

/// A view of a text in a window of its own.
class JSONSourceViewTest : public testing::Test {
protected:
    JSONSourceViewTest() {
        theme().install();
        view.resize(400, 300);
        view.show();
        view.setFocus();
    }
    ~JSONSourceViewTest() override { theme().pin(std::nullopt); }

    void set(const std::string& text) { view.setJSON(Shared<std::string>(text)); }
    QPoint pointAt(std::size_t place) { return view.rectOf(place).center() + QPoint(1, 0); }
    QColor pixelAt(QPoint point) { return view.viewport()->grab().toImage().pixelColor(point); }
    /// Pixels of the viewport that have not the background's colour.
    int inkAround(QRect rect) {
        const QImage image = view.viewport()->grab(rect).toImage();
        int ink = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                ink += image.pixelColor(x, y) != theme().colors().surface ? 1 : 0;
            }
        }
        return ink;
    }

    JSONSourceView view{nullptr};
};

} // namespace

TEST_F(JSONSourceViewTest, keysMoveAndSelect) {
    set("{\n  \"key\": \"e\u0301👩‍👩‍👧‍👦 wide\",\n  \"b\": 2\n}");
    struct Case {
        std::size_t from;
        int key;
        Qt::KeyboardModifiers modifiers;
        int times;
        std::size_t caret;
        std::string selected;
    };
    const std::size_t accent = view.text().find("e\u0301");
    const std::size_t second = view.text().find("  \"b\"");
    const std::size_t size = view.text().size();
    for (const Case& c : std::vector<Case>{
             {0, Qt::Key_Right, Qt::NoModifier, 2, 2, ""},
             {accent, Qt::Key_Right, Qt::ShiftModifier, 2, accent + 28, "e\u0301👩‍👩‍👧‍👦"},
             {accent + 28, Qt::Key_Left, Qt::NoModifier, 1, accent + 3, ""},
             {2, Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier, 3, 8, "  \"key"},
             {8, Qt::Key_Left, Qt::ControlModifier, 1, 5, ""},
             {6, Qt::Key_Down, Qt::NoModifier, 1, second + 4, ""},
             {6, Qt::Key_Down, Qt::NoModifier, 2, size, ""},
             {6, Qt::Key_Down, Qt::NoModifier, 3, size, ""},
             {6, Qt::Key_Up, Qt::ShiftModifier, 1, 1, "\n  \"k"},
             {6, Qt::Key_Up, Qt::NoModifier, 2, 0, ""},
             {5, Qt::Key_Home, Qt::ShiftModifier, 1, 2, "  \""},
             {second, Qt::Key_End, Qt::NoModifier, 1, second + 8, ""},
             {2, Qt::Key_End, Qt::ControlModifier, 1, size, ""},
             {2, Qt::Key_Home, Qt::ControlModifier | Qt::ShiftModifier, 1, 0, "{\n"},
             {6, Qt::Key_PageDown, Qt::NoModifier, 1, size, ""},
             {6, Qt::Key_A, Qt::ControlModifier, 1, size, view.text()},
             {6, Qt::Key_X, Qt::NoModifier, 1, 6, ""},
             {6, Qt::Key_Backspace, Qt::NoModifier, 1, 6, ""},
         }) {
        SCOPED_TRACE(QKeySequence(c.key | static_cast<int>(c.modifiers)).toString().toStdString() + " from " +
                     std::to_string(c.from));
        view.select(c.from, c.from);
        for (int time = 0; time < c.times; ++time) {
            QTest::keyClick(&view, static_cast<Qt::Key>(c.key), c.modifiers);
        }
        EXPECT_EQ(view.caret(), c.caret);
        EXPECT_EQ(view.selectedText(), c.selected);
    }
    // An arrow without Shift goes to the selection's end; a way down keeps its column over a short line.
    view.select(2, 8);
    QTest::keyClick(&view, Qt::Key_Left);
    EXPECT_EQ(view.caret(), 2U);
    view.select(12, 12);
    QTest::keyClick(&view, Qt::Key_Up);
    QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_EQ(view.caret(), 12U);
}

TEST_F(JSONSourceViewTest, theMouseSelects) {
    set("{\n  \"key\": \"some words\",\n  \"b\": 2\n}");
    QWidget* area = view.viewport();
    EXPECT_EQ(area->cursor().shape(), Qt::IBeamCursor);
    const std::size_t some = view.text().find("some");
    QTest::mousePress(area, Qt::LeftButton, {}, pointAt(some));
    QTest::mouseMove(area, pointAt(some + 4));
    EXPECT_EQ(view.selectedText(), "some");
    QTest::mouseRelease(area, Qt::LeftButton, {}, pointAt(some + 4));
    QTest::mouseClick(area, Qt::LeftButton, Qt::ShiftModifier, pointAt(some + 10));
    EXPECT_EQ(view.selectedText(), "some words");
    // Right of the last letter's middle is still its word; a drag goes on by words.
    QTest::mouseDClick(area, Qt::LeftButton, {}, pointAt(some + 4) - QPoint(3, 0));
    EXPECT_EQ(view.selectedText(), "some");
    QTest::mouseClick(area, Qt::LeftButton, {}, pointAt(some + 4) - QPoint(3, 0));
    EXPECT_EQ(view.selectedText(), "  \"key\": \"some words\",\n");
    QTest::mouseClick(area, Qt::LeftButton, {}, pointAt(3));
    QTest::mouseDClick(area, Qt::LeftButton, {}, pointAt(some + 6));
    QTest::mousePress(area, Qt::LeftButton, Qt::ShiftModifier, QPoint(1, 1));
    QTest::mouseRelease(area, Qt::LeftButton, Qt::ShiftModifier, QPoint(1, 1));
    EXPECT_EQ(view.selection(), (TextRange{0, some + 5}));
}

TEST_F(JSONSourceViewTest, aDragBeyondTheEdgeScrolls) {
    std::string text;
    for (int line = 0; line < 500; ++line) {
        text += "  " + std::to_string(line) + ",\n";
    }
    set(text);
    QWidget* area = view.viewport();
    QTest::mousePress(area, Qt::LeftButton, {}, pointAt(3));
    QTest::mouseMove(area, QPoint(30, area->height() + 60));
    EXPECT_TRUE(waitFor([&] { return view.verticalScrollBar()->value() > 600; }));
    EXPECT_GT(view.selection().size(), 150U);
    QTest::mouseRelease(area, Qt::LeftButton, {}, QPoint(30, area->height() + 60));
    // An equal text changes nothing, another gives up the selection and keeps the place.
    const int place = view.verticalScrollBar()->value();
    set(text);
    EXPECT_TRUE(view.hasSelection());
    set(text + "{}");
    EXPECT_FALSE(view.hasSelection());
    EXPECT_EQ(view.verticalScrollBar()->value(), place);
    // A text that becomes shorter under a drag.
    QTest::mousePress(area, Qt::LeftButton, {}, QPoint(30, 30));
    set("{}");
    QTest::mouseMove(area, QPoint(1, 1));
    EXPECT_EQ(view.selection(), (TextRange{0, 2}));
    QTest::mouseRelease(area, Qt::LeftButton, {}, QPoint(1, 1));
    EXPECT_TRUE(waitFor([&] { return !view.verticalScrollBar()->isVisible(); }));
    EXPECT_FALSE(view.horizontalScrollBar()->isVisible());
}

TEST_F(JSONSourceViewTest, copiesWhatIsSelected) {
    const std::string text = "{\n\"a\": \"é👍🏽 ש\"}";
    set(text);
    QApplication::clipboard()->setText("before");
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "before") << "nothing is selected";
    view.select(2, text.size());
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    set("another");
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), text.substr(2));
    // The same from the menu.
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), view.mapToGlobal(QPoint()));
    QApplication::sendEvent(view.viewport(), &event);
    auto* menu = view.findChild<QMenu*>();
    ASSERT_TRUE(menu);
    ASSERT_EQ(menu->actions().size(), 2);
    EXPECT_FALSE(menu->actions().at(0)->isEnabled());
    menu->actions().at(1)->trigger();
    EXPECT_EQ(view.selectedText(), "another");
    menu->close();
    // And as the window's commands do it for any text.
    EXPECT_TRUE(QMetaObject::invokeMethod(&view, "copy"));
    EXPECT_EQ(QApplication::clipboard()->text(), "another");
}

TEST_F(JSONSourceViewTest, everyCharacterStandsInItsPlace) {
    std::string wide;
    std::string mixed;
    for (int index = 0; index < 40'000; ++index) {
        wide += index % 5 == 0 ? "é" : "漢";
        mixed += index % 7 == 0 ? "👩‍👩‍👧‍👦 " : "abc";
    }
    set("漢");
    const int wideWidth = view.rectOf(3).left() - view.rectOf(0).left();
    for (const std::string& line : {std::string("\"plain\": 12"), std::string("\"e\u0301 漢字 👍🏽\""),
                                    std::string("a\u2028b\u2029c\td"), std::string(3'000'000, 'x'),
                                    wide.substr(0, 9'000), wide, mixed}) {
        const std::string text = "{\n\"" + line + "\"\n}";
        SCOPED_TRACE(text.substr(0, 20) + " " + std::to_string(text.size()));
        set(text);
        const TextRange bytes = view.lines().line(1);
        // At the begin, the end and within, across the edges of the pieces.
        for (const std::size_t from :
             {bytes.begin, bytes.begin + bytes.size() / 2, bytes.end - bytes.size() / 99}) {
            std::size_t place = view.lines().boundaryUpTo(from, bytes.begin);
            for (int step = 0; step < 300 && place < bytes.end; ++step) {
                view.select(place, place);
                EXPECT_TRUE(view.viewport()->rect().contains(view.rectOf(place)));
                EXPECT_EQ(view.placeAt(pointAt(place)), place);
                const std::size_t next = view.lines().next(place);
                const int width = view.rectOf(next).left() - view.rectOf(place).left();
                EXPECT_GT(width, 0);
                if (text.compare(place, next - place, "漢") == 0) {
                    EXPECT_NEAR(width, wideWidth, 1);
                }
                place = next;
            }
        }
        QTest::keyClick(&view, Qt::Key_End);
        const QRect end = view.rectOf(view.caret());
        EXPECT_EQ(view.caret(), bytes.end);
        EXPECT_GT(inkAround(end.adjusted(-30, 0, -2, 0)), 20) << "letters ahead of the line's end";
        EXPECT_EQ(inkAround(end.adjusted(2, 0, 10, 0)), 0) << "none behind it";
    }
}

TEST_F(JSONSourceViewTest, coloursFollowFocusSearchAndTheme) {
    set("{\"key\": \"שלום key\"}\n");
    const QPoint first = view.rectOf(2).topLeft() + QPoint(1, 0);
    const QPoint right(399, 299);
    const QColor light = pixelAt(right);
    EXPECT_EQ(light, theme().colors().surface);
    theme().pin(Appearance::Dark);
    EXPECT_EQ(pixelAt(right), theme().colors().surface);
    EXPECT_NE(pixelAt(right), light);
    theme().pin(std::nullopt);
    view.selectAll();
    const QColor selected = pixelAt(first);
    EXPECT_NE(selected, light);
    view.select(0, 0);
    view.setMatches(TextMatches(view.text(), "KEY"));
    EXPECT_NE(pixelAt(first), light);
    EXPECT_NE(pixelAt(first), selected);
    EXPECT_NE(pixelAt(view.rectOf(view.text().rfind("key")).topLeft() + QPoint(1, 0)), light);
    const QColor quiet = pixelAt(first);
    view.setCurrentMatch(0);
    EXPECT_NE(pixelAt(first), quiet);
    set("{\"key\"}");
    EXPECT_EQ(pixelAt(first), light) << "another text has no matches";
}

TEST_F(JSONSourceViewTest, readersOfTheScreenGetTheText) {
    set("{\n\"👍🏽 é\": 1\n}");
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&view);
    EXPECT_EQ(accessible->text(QAccessible::Name), "JSON");
    QAccessibleTextInterface* text = accessible->textInterface();
    ASSERT_TRUE(text);
    const QString whole = QString::fromStdString(view.text());
    EXPECT_EQ(text->characterCount(), whole.size());
    EXPECT_EQ(text->text(2, 9), whole.mid(2, 7));
    int begin = 0;
    int end = 0;
    EXPECT_EQ(text->textAtOffset(4, QAccessible::LineBoundary, &begin, &end), whole.mid(2, 12));
    EXPECT_EQ(std::pair(begin, end), std::pair(2, 14));
    EXPECT_EQ(text->textAfterOffset(4, QAccessible::LineBoundary, &begin, &end), "}");
    EXPECT_EQ(text->textBeforeOffset(4, QAccessible::LineBoundary, &begin, &end), "{\n");
    EXPECT_EQ(text->textAtOffset(3, QAccessible::CharBoundary, &begin, &end), "👍🏽");
    text->setCursorPosition(7);
    QTest::keyClick(&view, Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(text->cursorPosition(), 8);
    text->selection(0, &begin, &end);
    EXPECT_EQ(std::pair(begin, end), std::pair(7, 8));
    const QPoint middle = text->characterRect(9).center();
    EXPECT_EQ(text->offsetAtPoint(middle), 9);
}

} // namespace quillon::test
