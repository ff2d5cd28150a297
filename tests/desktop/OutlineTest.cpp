#include "DocumentsFixture.h"

#include "desktop/PreviewWebWidget.h"
#include "document/EditorOperations.h"
#include "editor/EditorView.h"
#include "editor/PreviewPane.h"
#include "editor/outline/ComponentOutlineView.h"
#include "package/NewArticle.h"

#include <QAccessible>
#include <QDragEnterEvent>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>
#include <QWebEngineView>

namespace quillon::test {

namespace {

/// The outline of a window whose article is "title body section(photo caption) quote".
class OutlineTest : public DocumentsTest {
protected:
    OutlineTest() {
        session = open(writePackage("Trip"));
        section.components = List<Component>{photo, caption};
        setComponents({title, body, section, quote});
        window = &session->window();
        window->resize(1300, 900);
        outline = window->findChild<ComponentOutlineView*>();
        window->activateWindow();
        (void)wait([&] { return window->isActiveWindow(); });
        outline->setFocus();
    }

    void setComponents(List<Component> components) {
        ArticleDocument article = store().article();
        article.components = std::move(components);
        store().edit({"Edit", {}}, article);
    }

    DocumentStore& store() const { return session->store(); }
    /// The article's row for no component.
    QModelIndex row(const Component* component) const {
        const auto* model = static_cast<const OutlineModel*>(outline->model());
        return component ? model->indexOf(component->id) : model->articleIndex();
    }
    /// A place in a row, at a share of its height.
    QPoint at(const Component* component, double share) const {
        const QRect rect = outline->visualRect(row(component));
        return {100, rect.top() + static_cast<int>(share * rect.height())};
    }
    void begin(const Component& component) const {
        QTest::mousePress(outline->viewport(), Qt::LeftButton, {}, at(&component, 0.5));
        QTest::mouseMove(outline->viewport(), at(&component, 0.5) + QPoint(0, 20));
    }
    void dragTo(const QPoint& place) const { QTest::mouseMove(outline->viewport(), place); }
    void drop(const QPoint& place) const {
        dragTo(place);
        QTest::mouseRelease(outline->viewport(), Qt::LeftButton, {}, place);
    }
    std::string shape() const {
        std::string text;
        for (QModelIndex index = outline->indexBelow(row(nullptr)); index.isValid();
             index = outline->indexBelow(index)) {
            text += (text.empty() ? "" : " ") +
                    std::string(static_cast<std::size_t>(OutlineModel::node(index).depth()), '>') +
                    std::string(OutlineModel::component(index)->role.rawValue());
        }
        return text;
    }
    bool isSelected(const Component& component) const {
        return store().selection() == EditorSelection::ofComponent(component.id) &&
               outline->currentIndex() == row(&component);
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
        QTest::keyClick(outline, key, modifiers);
    }

    Component title = makeTextComponent(ComponentRole::title, "A title");
    Component body = makeTextComponent(ComponentRole::body, "Some words");
    Component photo = makeTextComponent(ComponentRole::photo, "");
    Component caption = makeTextComponent(ComponentRole::caption, "Below");
    Component section = makeTextComponent(ComponentRole::section, "");
    Component quote = makeTextComponent(ComponentRole::quote, "Zebras");
    DocumentSession* session = nullptr;
    DocumentWindow* window = nullptr;
    ComponentOutlineView* outline = nullptr;
};

} // namespace

TEST_F(OutlineTest, rowsAreDraggedToWhereTheLineIsShown) {
    ASSERT_EQ(shape(), "title body section >photo >caption quote");
    begin(title);
    drop(at(&body, 0.9));
    EXPECT_EQ(shape(), "body title section >photo >caption quote");
    EXPECT_TRUE(isSelected(title));
    EXPECT_EQ(store().undoTitle(), "Undo Move Title");
    begin(quote);
    drop(at(&section, 0.5));
    EXPECT_EQ(shape(), "body title section >photo >caption >quote");
    begin(caption);
    drop(at(&section, 0.1));
    EXPECT_EQ(shape(), "body title caption section >photo >quote");
    begin(body);
    drop(at(nullptr, 0.5));
    EXPECT_EQ(shape(), "title caption section >photo >quote body");
    begin(photo);
    drop(QPoint(100, outline->visualRect(row(&body)).bottom() + 8));
    EXPECT_EQ(shape(), "title caption section >quote body photo");

    const std::string before = shape();
    for (const QPoint& outside : {QPoint(100, -40), QPoint(100, outline->height() + 60), QPoint(-20, 40)}) {
        begin(title);
        drop(outside);
        EXPECT_EQ(shape(), before) << outside.y();
    }
    begin(section);
    drop(at(&section, 0.5));
    EXPECT_EQ(shape(), before) << "onto itself";
    begin(title);
    drop(QPoint(outline->width() + 300, 100));
    EXPECT_EQ(shape(), before) << "outside";
    begin(title);
    dragTo(at(&section, 0.5));
    key(Qt::Key_Escape);
    QTest::mouseRelease(outline->viewport(), Qt::LeftButton, {}, at(&section, 0.5));
    EXPECT_EQ(shape(), before) << "cancelled";
    for (int step = 0; step < 5; ++step) {
        store().undo();
    }
    EXPECT_EQ(shape(), "title body section >photo >caption quote");
}

TEST_F(OutlineTest, aDragOpensWhatItWaitsOverAndScrollsAtTheEdges) {
    outline->collapse(row(&section));
    begin(title);
    dragTo(at(&section, 0.5));
    EXPECT_FALSE(outline->isExpanded(row(&section)));
    EXPECT_TRUE(wait([&] { return outline->isExpanded(row(&section)); }));
    drop(at(&section, 0.5));
    EXPECT_EQ(shape(), "body section >photo >caption >title quote");

    std::vector<Shared<Component>> many;
    for (int index = 0; index < 60; ++index) {
        many.emplace_back(makeTextComponent(ComponentRole::body, std::to_string(index)));
    }
    setComponents(List<Component>(many));
    const Component first = *many.front();
    QScrollBar& bar = *outline->verticalScrollBar();
    outline->scrollToTop();
    begin(first);
    dragTo(QPoint(100, outline->viewport()->height() - 4));
    EXPECT_TRUE(wait([&] { return bar.value() == bar.maximum(); }));
    drop(QPoint(100, outline->viewport()->height() - 4));
    EXPECT_EQ(store().article().components.back().id, first.id);
    const auto isInView = [&](const Component& component) {
        return outline->viewport()->rect().contains(outline->visualRect(row(&component)).center());
    };
    EXPECT_TRUE(isInView(first));
    const Component& other = *many[10];
    store().select(EditorSelection::ofComponent(other.id));
    for (int step = 0; step < 40; ++step) {
        key(Qt::Key_Down, Qt::AltModifier);
        ASSERT_TRUE(isInView(other)) << step;
    }
    begin(other);
    drop(QPoint(100, outline->viewport()->height() + 5));
    EXPECT_EQ(store().article().components.back().id, other.id)
        << "on the strip below a list that fills the view";
    const int place = bar.value();
    deleteComponent(store(), other.id);
    EXPECT_EQ(store().selection(), EditorSelection::document());
    EXPECT_NEAR(bar.value(), place, 40) << "who deletes stays where he is";
}

TEST_F(OutlineTest, aPressThatIsTakenAwayMovesNothing) {
    QTest::mousePress(outline->viewport(), Qt::LeftButton, {}, at(&title, 0.5));
    outline->clearFocus();
    QMouseEvent move(QEvent::MouseMove, at(&quote, 0.9), outline->viewport()->mapToGlobal(at(&quote, 0.9)),
                     Qt::NoButton, Qt::NoButton, {});
    QApplication::sendEvent(outline->viewport(), &move);
    QTest::mouseRelease(outline->viewport(), Qt::LeftButton, {}, at(&quote, 0.9));
    EXPECT_EQ(shape(), "title body section >photo >caption quote");
    outline->setFocus();
    QTest::mouseDClick(outline->viewport(), Qt::LeftButton, {}, at(&title, 0.5));
    begin(title);
    drop(at(&quote, 0.9));
    EXPECT_EQ(shape(), "body section >photo >caption quote title") << "a drag right after a click";
}

TEST_F(OutlineTest, whatComesFromElsewhereIsRefused) {
    QMimeData data;
    data.setText(QString::fromStdString(title.id.text()));
    QDragEnterEvent enter(at(&body, 0.5), Qt::MoveAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(outline->viewport(), &enter);
    EXPECT_FALSE(enter.isAccepted());
}

TEST_F(OutlineTest, everyContainerIsOpenAgainAfterAnEdit) {
    outline->collapse(row(&section));
    setTitle(*session, "Other");
    EXPECT_FALSE(outline->isExpanded(row(&section))) << "no edit of the components";
    deleteComponent(store(), title.id);
    EXPECT_TRUE(outline->isExpanded(row(&section)));
    addComponent(store(), ComponentRole::container, section.id);
    EXPECT_TRUE(outline->isExpanded(outline->currentIndex()));
    // What a file hides in a text shows once the text becomes a container.
    Component hiding = body;
    hiding.components = List<Component>{quote};
    setComponents({hiding});
    EXPECT_EQ(shape(), "body");
    hiding.role = ComponentRole::aside;
    setComponents({hiding});
    EXPECT_EQ(shape(), "aside >quote");
    setComponents({});
    EXPECT_EQ(shape(), "");
    outline->repaint();
    EXPECT_FALSE(outline->currentIndex().isValid()) << "what was selected is gone";
}

TEST_F(OutlineTest, isWalkedByTheKeyboard) {
    key(Qt::Key_Home);
    key(Qt::Key_Down);
    EXPECT_TRUE(isSelected(title));
    key(Qt::Key_End);
    EXPECT_TRUE(isSelected(quote));
    key(Qt::Key_Up);
    key(Qt::Key_Left);
    EXPECT_TRUE(isSelected(section)) << "to the container";
    key(Qt::Key_Left);
    EXPECT_FALSE(outline->isExpanded(row(&section)));
    key(Qt::Key_Right);
    EXPECT_TRUE(outline->isExpanded(row(&section)));
    key(Qt::Key_Right);
    EXPECT_TRUE(isSelected(photo)) << "into the container";
    QTest::keyClicks(outline, "ti");
    EXPECT_TRUE(isSelected(title)) << "by name";
    QTest::qSleep(QApplication::keyboardInputInterval() + 10);
    QTest::keyClicks(outline, "zeb");
    EXPECT_TRUE(isSelected(quote)) << "by what it says";
    QTest::qSleep(QApplication::keyboardInputInterval() + 10);
    key(Qt::Key_Home);
    QTest::keyClicks(outline, "s");
    EXPECT_TRUE(isSelected(body)) << "which says Some words";
    QTest::keyClicks(outline, "e");
    EXPECT_TRUE(isSelected(section));
    QTest::qSleep(QApplication::keyboardInputInterval() + 10);
    QTest::keyClicks(outline, "ss");
    EXPECT_TRUE(isSelected(section)) << "round past the other one";
    store().select(EditorSelection::ofComponent(caption.id));
    outline->collapse(row(&section));
    EXPECT_TRUE(isSelected(section)) << "what is hidden is not selected";
    QTest::qSleep(QApplication::keyboardInputInterval() + 10);
    QTest::keyClicks(outline, "xx");
    EXPECT_TRUE(isSelected(section)) << "nothing matches";
    store().select(EditorSelection::ofComponent(caption.id));
    QTest::keyClicks(outline, "xyz");
    outline->expand(row(&section));
    store().select(EditorSelection::ofComponent(title.id));
    key(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_TRUE(isSelected(title));
    EXPECT_TRUE(outline->selectionModel()->isSelected(row(&title)));
    key(Qt::Key_Left);
    EXPECT_EQ(store().selection(), EditorSelection::document());
    const QSignalSpy wanted(outline, &ComponentOutlineView::editRequested);
    key(Qt::Key_Return);
    EXPECT_EQ(wanted.count(), 1);
}

TEST_F(OutlineTest, componentsMoveByTheKeyboard) {
    store().select(EditorSelection::ofComponent(body.id));
    const struct {
        Qt::Key key;
        const char* shape;
    } rows[] = {
        {Qt::Key_Up, "body title section >photo >caption quote"},
        {Qt::Key_Down, "title body section >photo >caption quote"},
        {Qt::Key_Down, "title section >photo >caption body quote"},
        {Qt::Key_Right, "title section >photo >caption >body quote"},
        {Qt::Key_Up, "title section >photo >body >caption quote"},
        {Qt::Key_Left, "title section >photo >caption body quote"},
    };
    for (const auto& each : rows) {
        key(each.key, Qt::AltModifier);
        EXPECT_EQ(shape(), each.shape);
        EXPECT_TRUE(isSelected(body));
    }
    Q_EMIT window->menu(WindowMenu::Edit).aboutToShow();
    EXPECT_FALSE(window->findChild<QAction*>("moveOut")->isEnabled());
    EXPECT_TRUE(window->findChild<QAction*>("moveIn")->isEnabled());
}

TEST_F(OutlineTest, aRowsMenuFitsItsRole) {
    const auto items = [&](const Component& component) {
        const QPoint place = at(&component, 0.5);
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, outline->viewport()->mapToGlobal(place));
        QApplication::sendEvent(outline->viewport(), &event);
        auto* menu = outline->findChild<QMenu*>("rowMenu");
        std::string texts;
        for (const QAction* action : menu->actions()) {
            texts += action->text().toStdString() + ";";
        }
        return std::pair(menu, texts);
    };
    auto [photoMenu, photoTexts] = items(photo);
    EXPECT_EQ(photoTexts, "Delete;");
    photoMenu->actions().front()->trigger();
    EXPECT_EQ(shape(), "title body section >caption quote");
    delete photoMenu;
    auto [sectionMenu, sectionTexts] = items(section);
    EXPECT_EQ(sectionTexts, "Add Child;Delete;");
    sectionMenu->findChild<QAction*>("add.photo")->trigger();
    EXPECT_EQ(shape(), "title body section >caption >photo quote");
    delete sectionMenu;
}

TEST_F(OutlineTest, aRowIsPushedAsideToBeDeleted) {
    const auto swipe = [&](int points, Qt::ScrollPhase phase) {
        const QPoint place = at(&body, 0.5);
        QWheelEvent event(place, outline->viewport()->mapToGlobal(place), {points, 0}, {points * 8, 0}, {},
                          {}, phase, false);
        QApplication::sendEvent(outline->viewport(), &event);
    };
    const auto clickAtEnd = [&] {
        QTest::mouseClick(outline->viewport(), Qt::LeftButton, {},
                          {outline->viewport()->width() - 30, at(&body, 0.5).y()});
    };
    swipe(-50, Qt::ScrollUpdate);
    swipe(0, Qt::ScrollEnd);
    QTest::mouseClick(outline->viewport(), Qt::LeftButton, {}, at(&title, 0.5));
    EXPECT_EQ(store().selection(), EditorSelection::document()) << "a press elsewhere only closes it";
    clickAtEnd();
    EXPECT_TRUE(isSelected(body)) << "closed";
    swipe(-50, Qt::ScrollUpdate);
    swipe(0, Qt::ScrollEnd);
    clickAtEnd();
    EXPECT_EQ(shape(), "title section >photo >caption quote");
    store().undo();
    swipe(-outline->width(), Qt::ScrollUpdate);
    EXPECT_EQ(shape(), "title body section >photo >caption quote");
    swipe(0, Qt::ScrollEnd);
    EXPECT_EQ(shape(), "title section >photo >caption quote") << "a full swipe";
    EXPECT_EQ(store().undoTitle(), "Undo Delete Body");
}

TEST_F(OutlineTest, aClickOnTheMarkClosesAndDetailsMakeRowsHigher) {
    const QRect mark = OutlineDelegate::chevronRect(outline->visualRect(row(&section)), 0);
    QTest::mouseClick(outline->viewport(), Qt::LeftButton, {}, mark.center());
    EXPECT_FALSE(outline->isExpanded(row(&section)));
    EXPECT_FALSE(isSelected(section));
    QTest::mouseClick(outline->viewport(), Qt::LeftButton, {}, at(&section, 0.5));
    EXPECT_TRUE(isSelected(section));
    const int height = outline->visualRect(row(&title)).height();
    Settings other(m_settings->parent() ? QString() : QString::fromStdString(path("config/Quillon.ini")),
                   nullptr);
    other.setComponentOutlineShowsDetails(true);
    EXPECT_TRUE(wait([&] { return outline->visualRect(row(&title)).height() > height; }))
        << "in every window";
}

TEST_F(OutlineTest, aClickInThePageSelectsWhatWasClicked) {
    Component linked = body;
    linked.text = "<p><a href=\"https://example.com\">a link that is long enough to be hit</a></p>";
    linked.format = TextFormat::html;
    setComponents({title, linked, quote});
    QSignalSpy shown(window->findChild<EditorView*>(), &EditorView::pageShown);
    auto* pane = window->findChild<EditorView*>()->preview();
    const auto placeOf = [&](const std::string& selector) {
        const auto text = std::make_shared<QString>();
        const auto script = "(() => { const box = document.querySelector('" + selector +
                            "')?.getBoundingClientRect(); return box ? `${box.left + 20} ${box.top + "
                            "box.height / 2}` : ''; })()";
        pane->webWidget().evaluate(QString::fromStdString(script),
                                   [text](const QString& value) { *text = value; });
        (void)waitFor([&] { return !text->isEmpty(); }, std::chrono::seconds(2));
        const auto numbers = text->split(' ');
        return numbers.size() == 2 ? QPointF(numbers[0].toDouble(), numbers[1].toDouble()).toPoint()
                                   : QPoint();
    };
    const auto click = [&](const QPoint& place) {
        QTest::mouseClick(pane->webWidget().view()->focusProxy(), Qt::LeftButton, {}, place);
    };
    const std::string quoteSelector = "[data-component-id=\"" + quote.id.text() + "\"]";
    ASSERT_TRUE(wait([&] { return !placeOf(quoteSelector).isNull(); }));
    const QPoint before = placeOf(quoteSelector);
    click(before);
    EXPECT_TRUE(wait([&] { return isSelected(quote); }));
    EXPECT_EQ(placeOf(quoteSelector), before) << "the page stays where it is under the pointer";
    click(placeOf("a"));
    EXPECT_FALSE(waitFor([&] { return !isSelected(quote); }, std::chrono::milliseconds(400)))
        << "a link is the page's";
}

TEST_F(OutlineTest, rowsAreToldToScreenReaders) {
    QAccessibleInterface* tree = QAccessible::queryAccessibleInterface(outline);
    ASSERT_TRUE(tree);
    const auto find = [&](const QString& name) -> QAccessibleInterface* {
        for (int child = 0; child < tree->childCount(); ++child) {
            if (tree->child(child)->text(QAccessible::Name) == name) {
                return tree->child(child);
            }
        }
        return nullptr;
    };
    QAccessibleInterface* row = find("Section");
    ASSERT_TRUE(row);
    EXPECT_TRUE(row->state().expandable);
    EXPECT_TRUE(row->state().expanded);
    EXPECT_FALSE(find("Quote")->state().expandable);
    EXPECT_EQ(find("Quote")->text(QAccessible::Description), "Zebras, level 2");
    EXPECT_EQ(find("Caption")->text(QAccessible::Description), "Below, level 3");
    store().select(EditorSelection::ofComponent(section.id));
    EXPECT_TRUE(row->state().selected);
}

} // namespace quillon::test
