#include "DocumentsFixture.h"

#include <QDropEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>
#include <QUrl>

#include <cerrno>
#include <filesystem>

namespace quillon::test {

namespace {

namespace fs = std::filesystem;

TEST_F(DocumentsTest, openEditUndoRedoSave) {
    const std::string package = writePackage("Trip");
    DocumentSession* session = open(package);
    ASSERT_TRUE(session);
    DocumentWindow& window = session->window();
    EXPECT_EQ(window.windowTitle(), "First[*] — Trip");
    EXPECT_FALSE(window.isWindowModified());

    setTitle(*session, "Second & last");
    EXPECT_EQ(window.windowTitle(), "Second & last[*] — Trip");
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_EQ(window.findChild<QAction*>("undo")->text(), "&Undo Change Title");
    QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(title(*session), "First");
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_FALSE(window.findChild<QAction*>("undo")->isEnabled());
    QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(title(*session), "Second & last");

    auto expected = snapshot(package);
    QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
    ASSERT_TRUE(wait([&] { return !session->store().isEdited(); }));
    expected["article.json"] = *sharedArticleEncoder.encode(session->store().article());
    EXPECT_EQ(snapshot(package), expected);
    EXPECT_EQ(m_folder.names(), (std::set<std::string>{"Trip", "config"}));
}

TEST_F(DocumentsTest, aFolderThatIsOpenComesForward) {
    const std::string package = writePackage("Trip");
    fs::create_directory_symlink(package, path("link"));
    // Several on the way at once become one window, too.
    for (const char* name : {"Trip", "link", "Trip/", "Trip/../Trip", "Trip/article.json"}) {
        m_controller->open(path(name));
    }
    ASSERT_TRUE(hasSessions(1));
    DocumentSession* session = m_controller->sessions().front();
    session->window().showMinimized();
    m_controller->open(path("link"));
    ASSERT_TRUE(wait([&] { return !session->window().isMinimized(); }));
    EXPECT_EQ(m_controller->sessions().size(), 1U);
    EXPECT_EQ(session->store().path(), package);
}

TEST_F(DocumentsTest, whatCannotBeOpenedIsToldAndNothingElseChanges) {
    m_folder.write("file", "text");
    m_folder.write("empty/notes.txt", "text");
    m_folder.write("broken/article.json", R"({"version": "1", "components": [{"role": 7}]})");
    m_folder.write("<b>cut/article.json", R"({"version": )");
    DocumentSession& asker = m_controller->newDocument();
    const struct {
        const char* name;
        const char* cause;
    } rows[] = {
        {"missing", "missing: no such file or folder."},
        {"file", "file: not a folder that can be read."},
        {"empty", "empty: no article.json in this folder."},
        {"broken", "broken/article.json: "},
        {"<b>cut", "<b>cut/article.json: "},
    };
    for (const auto& row : rows) {
        m_controller->open(path(row.name), &asker.window());
        QMessageBox* box = question(asker.window(), "failure");
        ASSERT_TRUE(box) << row.name;
        EXPECT_EQ(box->text(), "Could Not Open Article");
        EXPECT_TRUE(box->informativeText().contains(QString::fromStdString(path(row.cause))))
            << box->informativeText().toStdString();
        EXPECT_EQ(box->informativeText().count('\n'), 1) << "the second line is a way out";
        EXPECT_GE(box->width(), 420) << "paths are long";
        for (const QLabel* label : box->findChildren<QLabel*>()) {
            EXPECT_EQ(label->textFormat(), Qt::PlainText);
        }
        answer(box, "OK");
    }
    EXPECT_EQ(m_controller->sessions().size(), 1U);
    EXPECT_TRUE(m_controller->recents().documents().empty());
}

TEST_F(DocumentsTest, aLongReadShowsAndCanBeCancelled) {
    const std::string package = writePackage("Trip");
    QSignalSpy nothingLeft(m_controller.get(), &DocumentController::nothingLeft);
    m_scheduler.hold();
    m_controller->open(package);
    QWidget* progress = nullptr;
    ASSERT_TRUE(wait([&] {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            progress = widget->objectName() == "openingWindow" && widget->isVisible() ? widget : progress;
        }
        return progress != nullptr;
    }));
    QTest::mouseClick(progress->findChild<QPushButton*>(), Qt::LeftButton);
    ASSERT_TRUE(wait([&] { return nothingLeft.count() == 1; }));
    m_scheduler.release();
    EXPECT_TRUE(open(package)) << "a later one is a new one";
    EXPECT_EQ(m_controller->sessions().size(), 1U);
}

TEST_F(DocumentsTest, aReadIsCountedAndStopsWhenItIsCancelled) {
    const std::string package = writePackage("Trip");
    m_folder.write("Trip/film.mov", std::string(3'000'000, 'x'));
    const RecoveryStore recovery(path("state/recovery"));
    std::uintmax_t bytes = 0;
    for (const auto& entry : fs::recursive_directory_iterator(package)) {
        bytes += entry.is_regular_file() ? entry.file_size() : 0;
    }
    ReadProgress whole;
    const OpeningResult read = readForOpening(package, package, recovery, whole);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->document.assets->at("film.mov").size(), 3'000'000U);
    EXPECT_EQ(whole.bytesRead, bytes);

    ReadProgress cancelled;
    cancelled.isCancelled = true;
    const OpeningResult noPackage = readForOpening(path(""), path(""), recovery, cancelled);
    EXPECT_TRUE(std::holds_alternative<PackageFailure::Code>(noPackage.error().cause))
        << "known before the folder is walked through";
    const OpeningResult none = readForOpening(package, package, recovery, cancelled);
    ASSERT_FALSE(none);
    EXPECT_EQ(std::get<DiskFailure>(none.error().cause).errorNumber, ECANCELED);
    EXPECT_EQ(cancelled.bytesRead, 0U);
}

TEST_F(DocumentsTest, aFolderDroppedOnAWindowOpens) {
    const std::string package = writePackage("Größe 100%");
    DocumentSession& session = m_controller->newDocument();
    QMimeData data;
    data.setUrls({QUrl("https://example.com"), QUrl::fromLocalFile(QString::fromStdString(package))});
    QDragEnterEvent enter({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&session.window(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&session.window(), &drop);
    EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
    ASSERT_TRUE(hasSessions(2));
    EXPECT_EQ(m_controller->sessions().back()->store().path(), package);
}

TEST_F(DocumentsTest, recentDocumentsAreListedGreyedAndCleared) {
    const std::string strange = writePackage("caf\xE9");
    const std::string plain = writePackage("Trip");
    ASSERT_TRUE(open(strange));
    ASSERT_TRUE(open(plain));
    restart();
    using List = std::vector<RecentDocument>;
    EXPECT_EQ(m_controller->recents().documents(), (List{{plain, false}, {strange, false}}));
    DocumentSession& session = m_controller->newDocument();
    auto* menu = session.window().findChild<QMenu*>("recentMenu");
    fs::remove_all(plain);
    Q_EMIT menu->aboutToShow();
    ASSERT_TRUE(wait([&] { return !menu->actions().at(0)->isEnabled(); }));
    EXPECT_TRUE(menu->actions().at(1)->isEnabled());
    menu->actions().at(1)->trigger();
    ASSERT_TRUE(hasSessions(2));
    EXPECT_EQ(m_controller->sessions().back()->store().path(), strange);
    session.window().findChild<QAction*>("clearRecent")->trigger();
    EXPECT_TRUE(m_controller->recents().documents().empty());
    EXPECT_EQ(menu->actions().size(), 2);
}

TEST_F(DocumentsTest, closingAsksOnlyForWhatWouldBeLost) {
    const struct {
        const char* button;
        std::size_t open;
        const char* onDisk;
    } rows[] = {{"Cancel", 1, "First"}, {"Don’t Save", 0, "First"}, {"Save", 0, "Second"}};
    const std::string package = writePackage("Trip");
    for (const auto& row : rows) {
        DocumentSession* session = open(package);
        ASSERT_TRUE(session);
        setTitle(*session, "Second");
        ASSERT_TRUE(wait([&] { return recoveryCopies() == 1; }));
        session->window().close();
        QMessageBox* box = question(session->window(), "closeQuestion");
        ASSERT_TRUE(box);
        EXPECT_EQ(box->text(), "Do you want to save the changes made to “Second”?");
        EXPECT_EQ(box->windowModality(), Qt::WindowModal);
        answer(box, row.button);
        ASSERT_TRUE(hasSessions(row.open)) << row.button;
        EXPECT_EQ(titleOnDisk(package), row.onDisk);
        EXPECT_TRUE(wait([&] { return recoveryCopies() == row.open; }));
        if (row.open == 1) {
            session->store().undo();
            QTest::keyClick(&session->window(), Qt::Key_W, Qt::ControlModifier);
            ASSERT_TRUE(hasSessions(0)) << "unedited again";
        }
    }
}

TEST_F(DocumentsTest, quittingAsksInTurnAndOneCancelKeepsAll) {
    QSignalSpy nothingLeft(m_controller.get(), &DocumentController::nothingLeft);
    m_controller->newDocument(); // has nothing to lose
    DocumentSession* first = open(writePackage("One"));
    DocumentSession* second = open(writePackage("Two"));
    ASSERT_TRUE(first && second);
    setTitle(*first, "A");
    setTitle(*second, "B");
    QTest::keyClick(&first->window(), Qt::Key_Q, Qt::ControlModifier);
    ASSERT_TRUE(answer(first->window(), "closeQuestion", "Don’t Save"));
    ASSERT_TRUE(answer(second->window(), "closeQuestion", "Cancel"));
    EXPECT_EQ(m_controller->sessions().size(), 3U);
    EXPECT_TRUE(first->store().isEdited());

    m_controller->quit();
    ASSERT_TRUE(answer(first->window(), "closeQuestion", "Don’t Save"));
    ASSERT_TRUE(question(second->window(), "closeQuestion"));
    setTitle(*first, "An edit after the answer");
    ASSERT_TRUE(answer(second->window(), "closeQuestion", "Save"));
    ASSERT_TRUE(answer(first->window(), "closeQuestion", "Don’t Save"));
    ASSERT_TRUE(wait([&] { return nothingLeft.count() > 0; }));
    EXPECT_TRUE(m_controller->sessions().empty());
    EXPECT_EQ(titleOnDisk(path("One")), "First");
    EXPECT_EQ(titleOnDisk(path("Two")), "B");
    EXPECT_TRUE(wait([&] { return recoveryCopies() == 0; }));
}

} // namespace

} // namespace quillon::test
