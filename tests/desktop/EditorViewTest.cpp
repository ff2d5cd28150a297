#include "DocumentsFixture.h"
#include "WaitFor.h"

#include "desktop/PreviewWebWidget.h"
#include "desktop/theme/Symbols.h"
#include "desktop/theme/Theme.h"
#include "desktop/widgets/EmptyState.h"
#include "desktop/widgets/Header.h"
#include "desktop/widgets/ToolbarButton.h"
#include "desktop/widgets/ToolbarControlPill.h"
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
#include <QMenuBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QToolTip>
#include <QTreeView>
#include <QWebEngineView>

#include <algorithm>
#include <csignal>
#include <cstdlib>

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
    QSize pageSize() const { return window->findChild<EditorView*>()->preview()->webWidget().size(); }
    std::string widthInPage() {
        const auto result = std::make_shared<std::string>();
        window->findChild<EditorView*>()->preview()->webWidget().evaluate(
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
    EXPECT_EQ(pageSize().height(), window->findChild<EditorView*>()->preview()->height() - 56);
    EXPECT_TRUE(waitFor([&] { return widthInPage() == "393"; }));
    const auto* stage = find<QScrollArea>("previewStage");
    EXPECT_FALSE(stage->horizontalScrollBar()->isVisible());
    EXPECT_EQ(stage->widget()->width(), stage->viewport()->width());
    press("orientation");
    EXPECT_EQ(find<QAbstractButton>("orientation")->accessibleName(), "Landscape");
    EXPECT_EQ(pageSize(), QSize(852, 393));
    ASSERT_TRUE(waitFor([&] { return widthInPage() == "852"; }));
    QWidget* engine = window->findChild<EditorView*>()->preview()->webWidget().view()->focusProxy();
    QWheelEvent wheel({50, 50}, engine->mapToGlobal(QPoint(50, 50)), {}, {0, -120}, Qt::NoButton,
                      Qt::ShiftModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(engine, &wheel);
    EXPECT_TRUE(waitFor([&] { return stage->horizontalScrollBar()->value() > 0; }))
        << "the frame scrolls below the pointer where its page does not";
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
    EXPECT_EQ(pageSize(), window->findChild<EditorView*>()->preview()->size());
}

TEST_F(EditorViewTest, captionFrameAndToolbarStandInTheirPlaces) {
    const auto* pane = window->findChild<EditorView*>()->preview();
    const auto* captionLine = window->findChild<PreviewCaption*>();
    const auto* toolbar = find<QWidget>("toolbar");
    const auto* strip = find<QWidget>("previewControls");
    const auto within = [&](const QWidget* widget) {
        return QRect(widget->mapTo(pane, QPoint()), widget->size());
    };
    EXPECT_EQ(toolbar->height(), 52);
    const auto isStripAtRest = [&] {
        int width = 2 * distance::groups;
        for (const auto* pill : strip->findChildren<ToolbarControlPill*>()) {
            width += pill->sizeHint().width();
        }
        const int middle = strip->mapTo(toolbar, strip->rect().center()).x();
        return strip->width() == width && std::abs(middle - toolbar->rect().center().x()) <= 1;
    };
    EXPECT_TRUE(waitFor(isStripAtRest));
    press("modeJSON");
    EXPECT_TRUE(waitFor([&] { return strip->width() < 200; }));
    press("modePreview");
    EXPECT_TRUE(waitFor(isStripAtRest)) << "it comes back whole";
    pane = window->findChild<EditorView*>()->preview();
    captionLine = window->findChild<PreviewCaption*>();
    ASSERT_TRUE(waitFor([&] { return pane->width() > 0 && captionLine->isVisible(); }));
    EXPECT_EQ(within(captionLine).top(), 12);
    EXPECT_EQ(pane->width() - 1 - within(captionLine).right(), 12);
    window->resize(1300, 1100);
    chooseDevice("iPhone SE");
    const QRect frame = within(&pane->webWidget());
    EXPECT_EQ(within(captionLine).top(), 18);
    EXPECT_EQ(frame.top() - 1 - within(captionLine).bottom(), 10);

    // The shadow: black at 12 %, half of it at the frame's edge, gone after its radius, and behind the
    // corners.
    const QImage picture = const_cast<PreviewPane*>(pane)->grab().toImage();
    const auto grey = [&](int x, int y) {
        return picture.pixelColor(x, y).lightness();
    };
    const int bare = grey(3, 3);
    const int middle = frame.center().y();
    EXPECT_NEAR(grey(frame.left() - 1, middle), bare * (1 - 0.06), 2);
    EXPECT_NEAR(grey(frame.left() - 14, middle), bare, 1);
    EXPECT_NEAR(grey(frame.left(), frame.bottom()), grey(frame.left() - 1, frame.bottom()), 2);
    EXPECT_LT(grey(frame.left(), frame.bottom()), bare - 5);
    for (int away = 1; away < 18; ++away) {
        EXPECT_LE(grey(frame.left() - away, middle), grey(frame.left() - away - 1, middle));
    }
}

TEST_F(EditorViewTest, theStripsControlsSayWhatTheyAreFor) {
    const struct {
        const char* control;
        const char* help;
    } rows[] = {{"modePreview", "Preview (Ctrl+2)"},
                {"modeJSON", "JSON (Ctrl+3)"},
                {"deviceMenu", "Preview on a device or use the current pane width"},
                {"orientation", "Toggle preview orientation (Ctrl+R)"},
                {"appearanceAuto", "Auto appearance"},
                {"appearanceLight", "Light appearance"},
                {"appearanceDark", "Dark appearance"}};
    for (const auto& row : rows) {
        ASSERT_TRUE(find<QAbstractButton>(row.control)) << row.control;
        EXPECT_EQ(find<QAbstractButton>(row.control)->toolTip(), row.help);
    }
    QToolTip::showText(window->pos(), "Outlined");
    const QWidgetList all = QApplication::topLevelWidgets();
    const auto tip = std::ranges::find_if(all, [](QWidget* each) { return each->inherits("QTipLabel"); });
    ASSERT_NE(tip, all.end());
    const QImage shown = (*tip)->grab().toImage();
    EXPECT_EQ(shown.pixelColor(2, 2), theme().colors().surface);
    EXPECT_NE(shown.pixelColor(0, 2), theme().colors().surface);
    QToolTip::hideText();
    for (const PreviewDevice device : allDevices()) {
        EXPECT_TRUE(hasSymbol(symbolName(device)));
    }
    for (const PreviewAppearance appearance : allAppearances()) {
        EXPECT_TRUE(hasSymbol(symbolName(appearance)));
    }
    EXPECT_TRUE(hasSymbol(symbolName(PreviewOrientation::portrait)));
    EXPECT_TRUE(hasSymbol(symbolName(PreviewOrientation::landscape)));
}

TEST_F(EditorViewTest, theKeyboardStaysInTheOutline) {
    auto* outline = find<QTreeView>("outline");
    outline->setFocus();
    QTest::keyClick(window, Qt::Key_3, Qt::ControlModifier);
    ASSERT_TRUE(window->findChild<JSONSourceView*>());
    EXPECT_EQ(window->focusWidget(), outline);
    QTest::keyClick(window, Qt::Key_2, Qt::ControlModifier);
    ASSERT_TRUE(window->findChild<EditorView*>()->preview());
    EXPECT_EQ(window->focusWidget(), outline);
    PreviewWebWidget& web = window->findChild<EditorView*>()->preview()->webWidget();
    QSignalSpy finished(&web, &PreviewWebWidget::finished);
    ASSERT_TRUE(waitFor([&] { return finished.count() == 1; }));
    ::kill(static_cast<pid_t>(web.processId()), SIGKILL);
    ASSERT_TRUE(waitFor([&] { return finished.count() == 2; }));
    EXPECT_EQ(window->focusWidget(), outline);
}

TEST_F(EditorViewTest, theMiddleShowsTheKeyboardAfterAKeyAndNotAfterAClick) {
    window->activateWindow();
    ASSERT_TRUE(waitFor([&] { return window->isActiveWindow(); }));
    const auto* ring = find<QWidget>("previewFocusRing");
    QWidget* engine = window->findChild<EditorView*>()->preview()->webWidget().view()->focusProxy();
    engine->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(ring->isVisible());
    EXPECT_EQ(ring->size(), window->findChild<EditorView*>()->preview()->size());
    QTest::mouseClick(engine, Qt::LeftButton);
    EXPECT_FALSE(ring->isVisible());
    find<QTreeView>("outline")->setFocus();
    engine->setFocus(Qt::BacktabFocusReason);
    EXPECT_TRUE(ring->isVisible());
    find<QTreeView>("outline")->setFocus();
    EXPECT_FALSE(ring->isVisible());

    press("modeJSON");
    auto* json = window->findChild<JSONSourceView*>();
    const auto edge = [&] {
        return json->viewport()->grab().toImage().pixelColor(1, 50);
    };
    const QColor accent = theme().colors().accent;
    json->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(edge(), accent);
    QTest::mouseClick(json->viewport(), Qt::LeftButton);
    EXPECT_NE(edge(), accent);
    EXPECT_TRUE(json->hasFocus());
}

TEST_F(EditorViewTest, theMenuBarShowsWhatIsChosenAndF10OpensIt) {
    window->activateWindow();
    ASSERT_TRUE(waitFor([&] { return window->isActiveWindow(); }));
    QMenuBar* bar = window->menuBar();
    const QImage plain = bar->grab().toImage();
    const QPoint edit = bar->actionGeometry(bar->actions()[1]).center();
    QMouseEvent move(QEvent::MouseMove, edit, bar->mapToGlobal(edit), Qt::NoButton, {}, {});
    QApplication::sendEvent(bar, &move);
    const QImage hovered = bar->grab().toImage();
    EXPECT_NE(hovered, plain);
    QTest::keyClick(window, Qt::Key_Alt, Qt::AltModifier);
    QTest::keyClick(bar, Qt::Key_Right);
    EXPECT_EQ(bar->activeAction(), bar->actions()[2]);
    const QImage reached = bar->grab().toImage();
    EXPECT_NE(reached, hovered);
    EXPECT_NE(reached, plain);
    QTest::keyClick(window, Qt::Key_Alt, Qt::AltModifier);
    EXPECT_EQ(bar->grab().toImage(), plain);
    QTest::keyClick(window, Qt::Key_F10);
    ASSERT_TRUE(waitFor([&] { return QApplication::activePopupWidget() == bar->actions()[0]->menu(); }));
    const QRect first = bar->actionGeometry(bar->actions()[0]);
    EXPECT_EQ(bar->grab().toImage().pixelColor(first.left() + 3, first.center().y()),
              theme().colors().selection);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
}

TEST_F(EditorViewTest, theJsonIsThereToReadSelectAndCopy) {
    press("modeJSON");
    auto* json = window->findChild<JSONSourceView*>();
    ASSERT_TRUE(json);
    EXPECT_FALSE(window->findChild<EditorView*>()->preview());
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
