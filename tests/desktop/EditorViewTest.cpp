#include "DocumentsFixture.h"
#include "WaitFor.h"

#include "desktop/PreviewWebWidget.h"
#include "desktop/theme/Theme.h"
#include "desktop/widgets/EmptyState.h"
#include "desktop/widgets/Header.h"
#include "desktop/widgets/ToolbarButton.h"
#include "document/EditorOperations.h"
#include "editor/EditorColumns.h"
#include "editor/EditorView.h"
#include "editor/EditorWindowState.h"
#include "editor/JSONSourceView.h"
#include "editor/PreviewCaption.h"
#include "editor/PreviewPane.h"
#include "editor/inspectors/InspectorColumn.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollArea>
#include <QScrollBar>
#include <QTreeView>
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
    EXPECT_TRUE(waitFor([&] { return !find<QWidget>("deviceMenu")->isVisible(); }));
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

TEST_F(EditorViewTest, columnsAreDraggedWithinTheirLimits) {
    window->setMinimumSize(0, 0);
    const auto* columns = window->findChild<EditorColumns*>();
    const auto dragTo = [&](const char* line, int x) {
        auto* handle = find<QWidget>(line);
        const QPoint start(0, 100);
        QTest::mousePress(handle, Qt::LeftButton, {}, start);
        QTest::mouseMove(handle, handle->mapFrom(columns, QPoint(x, 100)));
        QTest::mouseRelease(handle, Qt::LeftButton, {}, handle->mapFrom(columns, QPoint(x, 100)));
        return columns->widths();
    };
    ASSERT_EQ(columns->widths(), (ColumnWidths{260, 600, 440}));
    EXPECT_EQ(dragTo("outlineLine", 299).outline, 300);
    EXPECT_EQ(dragTo("outlineLine", 299).outline, 300) << "a press that moves nothing";
    EXPECT_EQ(dragTo("outlineLine", 10).outline, 220);
    EXPECT_EQ(dragTo("outlineLine", 1290), (ColumnWidths{540, 320, 440}));
    EXPECT_EQ(dragTo("inspectorLine", 1290), (ColumnWidths{540, 340, 420}));
    EXPECT_EQ(dragTo("outlineLine", 239).outline, 240)
        << "a line does not stick where it was dragged too far";
    EXPECT_EQ(dragTo("inspectorLine", 100), (ColumnWidths{240, 500, 560}));
    window->resize(1000, 700);
    EXPECT_TRUE(waitFor([&] { return columns->widths() == ColumnWidths{220, 320, 460}; }));
    window->resize(1300, 900);
    EXPECT_TRUE(waitFor([&] {
        return columns->widths() == ColumnWidths{240, 500, 560};
    })) << "widths come back";
    QTest::mouseDClick(find<QWidget>("inspectorLine"), Qt::LeftButton);
    EXPECT_EQ(columns->widths().inspector, 440);
    press("toggleOutline");
    EXPECT_EQ(columns->widths(), (ColumnWidths{0, 860, 440}));
    EXPECT_FALSE(find<QWidget>("outline")->isVisible());
    press("toggleInspector");
    EXPECT_EQ(columns->widths(), (ColumnWidths{0, 1300, 0}));
    EXPECT_EQ(pageSize().width(), 1300);
    press("toggleOutline");
    press("toggleInspector");
    EXPECT_EQ(columns->widths(), (ColumnWidths{240, 620, 440})) << "hidden columns keep their widths";
}

TEST_F(EditorViewTest, selectionGoesBetweenOutlineInspectorAndDocument) {
    auto* outline = find<QTreeView>("outline");
    const auto title = [&] {
        return window->findChild<InspectorColumn*>()->findChild<Header*>()->accessibleName().toStdString();
    };
    DocumentStore& store = session->store();
    const Uuid first = store.article().components[0].id;
    EXPECT_EQ(title(), "Article");
    QTest::keyClick(outline, Qt::Key_Down);
    EXPECT_EQ(store.selection(), EditorSelection::ofComponent(first));
    EXPECT_EQ(title(), store.article().components[0].role.displayName());
    addComponent(store, ComponentRole::section);
    EXPECT_EQ(outline->currentIndex().data().toString(), "Section");
    QTest::keyClick(outline, Qt::Key_Home);
    EXPECT_EQ(store.selection(), EditorSelection::document());
    store.select(EditorSelection::ofComponent(Uuid::random()));
    EXPECT_TRUE(window->findChild<EmptyState*>()->isVisible());
    EXPECT_FALSE(outline->currentIndex().isValid());
    store.select(EditorSelection::ofComponent(first));
    EXPECT_FALSE(window->findChild<EmptyState*>()->isVisible());
}

TEST_F(EditorViewTest, theAddMenuAddsByKeyboard) {
    QTest::keyClick(find<QAbstractButton>("addMenu"), Qt::Key_Space);
    ASSERT_TRUE(waitFor([] { return QApplication::activePopupWidget() != nullptr; }));
    for (const int key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Down, Qt::Key_Return}) {
        QTest::keyClick(QApplication::activePopupWidget(), static_cast<Qt::Key>(key));
    }
    EXPECT_EQ(session->store().undoTitle(), "Undo Add Heading 1");
}

TEST_F(EditorViewTest, anotherAppearanceRepaintsTheWindow) {
    const auto paint = [&] {
        QImage image(window->size(), QImage::Format_RGB32);
        find<QWidget>("toolbar")->render(&image);
        return image.pixelColor(5, 5);
    };
    theme().pin(Appearance::Light);
    const QColor light = paint();
    theme().pin(Appearance::Dark);
    EXPECT_EQ(light, themeColors(Appearance::Light).window);
    EXPECT_EQ(paint(), themeColors(Appearance::Dark).window);
    theme().pin(std::nullopt);
}

TEST_F(EditorViewTest, zoomShowsTheSameFrameSmaller) {
    auto& state = window->findChild<EditorView*>()->state();
    chooseDevice("iPad");
    state.setZoom(0.5);
    EXPECT_EQ(pageSize().width(), 384);
    EXPECT_EQ(caption(), "iPad · 768 pt · regular · Auto · 50 %");
    EXPECT_TRUE(waitFor([&] { return widthInPage() == "768"; })) << widthInPage();
    setTitle(*session, "Another page");
    chooseDevice("Auto");
    EXPECT_TRUE(waitFor([&] { return caption().startsWith("Auto · 1200 pt"); })) << caption().toStdString();
    EXPECT_TRUE(waitFor([&] { return widthInPage() == "1200"; })) << widthInPage();
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
