#include "DocumentsFixture.h"
#include "WaitFor.h"

#include "desktop/PreviewWebWidget.h"
#include "desktop/theme/Theme.h"
#include "editor/JSONSourceView.h"
#include "editor/PreviewCaption.h"
#include "editor/PreviewPane.h"
#include "desktop/widgets/ToolbarButton.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollArea>
#include <QScrollBar>
#include <QWebEngineView>

namespace quillon::test {

namespace {

/// The controls of a document window, worked by mouse and keyboard.
class EditorViewTest : public DocumentsTest {
protected:
    EditorViewTest() {
        theme().install();
        session = open(writePackage("Trip", "Title of it"));
        window = &session->window();
        window->resize(1300, 900);
    }

    template <typename Widget>
    Widget* find(const char* name) const {
        return window->findChild<Widget*>(QLatin1String(name));
    }
    void press(const char* name) const { QTest::mouseClick(find<QAbstractButton>(name), Qt::LeftButton); }
    /// Opens the menu of devices and takes an entry with the keyboard.
    void chooseDevice(const QString& title) {
        QTest::keyClick(find<QAbstractButton>("deviceMenu"), Qt::Key_Down);
        ASSERT_TRUE(waitFor([] { return QApplication::activePopupWidget() != nullptr; }));
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        const auto isAtTitle = [&] {
            return menu->activeAction() && menu->activeAction()->text() == title;
        };
        for (qsizetype step = 0; step <= menu->actions().size() && !isAtTitle(); ++step) {
            QTest::keyClick(menu, Qt::Key_Down);
        }
        QTest::keyClick(menu, Qt::Key_Return);
    }
    QString caption() const { return window->findChild<PreviewCaption*>()->accessibleName(); }
    QSize pageSize() const { return window->findChild<PreviewPane*>()->webWidget().size(); }
    std::string widthInPage() {
        const auto result = std::make_shared<std::string>();
        window->findChild<PreviewPane*>()->webWidget().evaluate(
            "String(innerWidth)", [result](const QString& value) { *result = value.toStdString(); });
        (void)waitFor([&] { return !result->empty(); }, std::chrono::seconds(2));
        return *result;
    }

    DocumentSession* session = nullptr;
    DocumentWindow* window = nullptr;
};

} // namespace

TEST_F(EditorViewTest, devicesFramesAndOrientation) {
    ASSERT_TRUE(waitFor([&] { return caption().startsWith("Auto · "); }));
    EXPECT_FALSE(find<QAbstractButton>("orientation")->isEnabled());
    chooseDevice("iPhone");
    EXPECT_EQ(caption(), "iPhone · 393 pt · compact · Auto");
    EXPECT_EQ(pageSize().width(), 393);
    EXPECT_EQ(pageSize().height(), window->findChild<PreviewPane*>()->height() - 56);
    EXPECT_TRUE(waitFor([&] { return widthInPage() == "393"; }));
    const auto* stage = find<QScrollArea>("previewStage");
    EXPECT_FALSE(stage->horizontalScrollBar()->isVisible());
    EXPECT_EQ(stage->widget()->width(), stage->viewport()->width());
    press("orientation");
    EXPECT_EQ(find<QAbstractButton>("orientation")->accessibleName(), "Landscape");
    EXPECT_EQ(pageSize(), QSize(852, 393));
    chooseDevice("Mac");
    EXPECT_FALSE(find<QAbstractButton>("orientation")->isEnabled());
    EXPECT_EQ(pageSize().width(), 1180);
    chooseDevice("iPad");
    EXPECT_EQ(pageSize().width(), 1024) << "the orientation counts again";
    press("appearanceDark");
    EXPECT_EQ(caption(), "iPad · 1024 pt · regular · Dark");
    EXPECT_TRUE(find<QAbstractButton>("appearanceDark")->isChecked());
    press("appearanceDark");
    EXPECT_TRUE(find<QAbstractButton>("appearanceDark")->isChecked()) << "a second press changes nothing";
    chooseDevice("Auto");
    EXPECT_EQ(pageSize(), window->findChild<PreviewPane*>()->size());
}

TEST_F(EditorViewTest, theJsonIsThereToReadSelectAndCopy) {
    press("modeJSON");
    auto* json = window->findChild<JSONSourceView*>();
    ASSERT_TRUE(json);
    EXPECT_FALSE(window->findChild<PreviewPane*>());
    EXPECT_FALSE(find<QWidget>("deviceMenu")->isVisible());
    const auto text = [&] {
        return json->text();
    };
    EXPECT_EQ(text(), *sharedArticleEncoder.encode(session->store().article()));
    QTest::keyClicks(json, "typed");
    QTest::keyClick(json, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(json, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), text());
    // A value that changes nothing leaves the selection alone, an edit gives it up.
    session->store().select(EditorSelection::document());
    EXPECT_TRUE(json->hasSelection());
    setTitle(*session, "Another title");
    EXPECT_EQ(text(), *sharedArticleEncoder.encode(session->store().article()));
    EXPECT_FALSE(json->hasSelection());
    press("modePreview");
    EXPECT_FALSE(window->findChild<JSONSourceView*>());
    ASSERT_TRUE(waitFor([&] { return widthInPage() != ""; }));
}

TEST_F(EditorViewTest, findGoesFromMatchToMatch) {
    press("modeJSON");
    auto* json = window->findChild<JSONSourceView*>();
    QTest::keyClick(json, Qt::Key_F, Qt::ControlModifier);
    auto* field = find<QLineEdit>("findField");
    ASSERT_TRUE(field->isVisible());
    const auto count = [&] {
        return find<QLabel>("findCount")->text().toStdString();
    };
    QTest::keyClicks(field, "TITLE");
    const auto matches = QString::fromStdString(json->text()).count("title", Qt::CaseInsensitive);
    ASSERT_GT(matches, 2);
    EXPECT_EQ(count(), "1 of " + std::to_string(matches));
    EXPECT_EQ(QString::fromStdString(json->selectedText()).toLower(), "title");
    const std::size_t first = json->caret();
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(count(), "2 of " + std::to_string(matches));
    EXPECT_GT(json->caret(), first);
    QTest::keyClick(field, Qt::Key_Return, Qt::ShiftModifier);
    press("findPrevious");
    EXPECT_EQ(count(), std::to_string(matches) + " of " + std::to_string(matches));
    press("findNext");
    EXPECT_EQ(json->caret(), first);
    // An edit is counted anew and leaves the reader where they are.
    setTitle(*session, "Title, subtitle");
    EXPECT_EQ(count(), "2 of " + std::to_string(matches + 1));
    EXPECT_FALSE(json->hasSelection());
    QTest::keyClicks(field, "x");
    EXPECT_EQ(count(), "No matches");
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_FALSE(field->isVisible());
    EXPECT_EQ(window->focusWidget(), json);
    EXPECT_EQ(json->matches().count(), 0U);
    // What is selected is what is searched next; the text's keys go on from match to match.
    const std::size_t key = json->text().find("\"version\"") + 1;
    json->select(key, key + 7);
    QTest::keyClick(json, Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(field->text(), "version");
    EXPECT_EQ(json->selection().begin, key);
    json->setFocus();
    QTest::keyClick(json, Qt::Key_F3);
    EXPECT_EQ(QString::fromStdString(json->selectedText()).toLower(), "version");
}

} // namespace quillon::test
