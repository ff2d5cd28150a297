#include "DocumentsFixture.h"

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>

#include <filesystem>

namespace quillon::test {

namespace {

namespace fs = std::filesystem;

using SavingTest = DocumentsTest;

TEST_F(SavingTest, saveAsTakesAllAssetsAlongAndTheDocumentMoves) {
    const std::string package = writePackage("Trip");
    auto expected = snapshot(package);
    DocumentSession* session = open(package);
    ASSERT_TRUE(session);
    setTitle(*session, "Copy");
    session->saveAs();
    ASSERT_TRUE(choosePlace(*session, path("Copy")));
    ASSERT_TRUE(wait([&] { return session->store().path() == fs::weakly_canonical(path("Copy")); }));
    ASSERT_TRUE(wait([&] { return !session->store().isEdited(); }));
    EXPECT_EQ(snapshot(package), expected);
    expected["article.json"] = *sharedArticleEncoder.encode(session->store().article());
    EXPECT_EQ(snapshot(path("Copy")), expected);
    EXPECT_EQ(m_controller->recents().documents().front().path, session->store().path());
}

TEST_F(SavingTest, aFirstSaveProposesTheTitleAndGivingUpChangesNothing) {
    DocumentSession& session = m_controller->newDocument();
    setTitle(session, "Here/There");
    session.save();
    QDialog* dialog = nullptr;
    ASSERT_TRUE(
        wait([&] { return (dialog = session.window().findChild<QDialog*>("saveDialog")) != nullptr; }));
    const auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
    EXPECT_EQ(name->text(), "Here-There");
    fs::create_directory(path("shelf"));
    ASSERT_TRUE(choosePlace(session, path("shelf")));
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(name->text(), "Here-There") << "a folder that was entered is not the article";
    m_controller->quit();
    EXPECT_EQ(m_controller->sessions().size(), 1U) << "nothing closes under an open question";
    dialog->reject();
    EXPECT_TRUE(session.store().isEdited());
    EXPECT_EQ(session.store().path(), std::nullopt);
}

/// Whatever is chosen in Save As, no file goes that the user was not asked about.
TEST_F(SavingTest, placesThatAreTaken) {
    writePackage("Other", "Other");
    m_folder.write("photos/holiday.jpg", "picture");
    m_folder.write("file", "text");
    fs::create_directory(path("empty"));
    ASSERT_TRUE(open(writePackage("Open")));
    const auto before = snapshot(path("Other"));
    DocumentSession& session = m_controller->newDocument();
    setTitle(session, "Mine");
    session.saveAs();
    for (const char* taken : {"file", "Other/inside", "none/new", "Open"}) {
        ASSERT_TRUE(choosePlace(session, path(taken))) << taken;
        ASSERT_TRUE(answer(session.window(), "failure", "OK")) << taken;
    }
    ASSERT_TRUE(choosePlace(session, path("Other")));
    QMessageBox* box = question(session.window(), "replaceQuestion");
    ASSERT_TRUE(box);
    EXPECT_EQ(box->findChild<QPushButton*>("Replace")->text(), "&Replace");
    EXPECT_TRUE(box->informativeText().contains("3 files")) << box->informativeText().toStdString();
    answer(box, "Cancel");
    EXPECT_EQ(snapshot(path("Other")), before);

    session.saveAs();
    ASSERT_TRUE(choosePlace(session, path("Other")));
    ASSERT_TRUE(answer(session.window(), "replaceQuestion", "Replace"));
    ASSERT_TRUE(wait([&] { return titleOnDisk(path("Other")) == "Mine"; }));
    EXPECT_EQ(snapshot(path("Other")).count("notes.txt"), 0U);
    EXPECT_EQ(titleOnDisk(path("Open")), "First");
}

TEST_F(SavingTest, aConflictIsSettledByTheUser) {
    const struct {
        const char* button;
        const char* here;
        const char* there;
        bool isEdited;
    } rows[] = {
        {"Cancel", "Theirs", "no article", true},
        {"Save Anyway", "Mine", "no article", false},
        {"Save As…", "Theirs", "Mine", false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.button);
        const std::string package = writePackage("Trip");
        fs::remove_all(path("There"));
        DocumentSession* session = open(package);
        ASSERT_TRUE(session);
        setTitle(*session, "Mine");
        rewrite(package, "Theirs");
        session->save();
        ASSERT_TRUE(answer(session->window(), "conflictQuestion", row.button));
        if (std::string(row.button) == "Save As…") {
            ASSERT_TRUE(choosePlace(*session, path("There")));
        }
        ASSERT_TRUE(wait([&] { return session->store().isEdited() == row.isEdited; }));
        EXPECT_EQ(titleOnDisk(package), row.here);
        EXPECT_EQ(titleOnDisk(path("There")), row.there);
        session->closeForGood();
    }
}

/// The package was moved away and something else put in its place.
TEST_F(SavingTest, aConflictNamesWhatWouldGoAndRemovesNoFolderThatIsNoArticle) {
    const std::string package = writePackage("Trip");
    DocumentSession* session = open(package);
    ASSERT_TRUE(session);
    setTitle(*session, "Mine");
    fs::rename(package, path("Elsewhere"));
    m_folder.write("Trip/holiday.jpg", "theirs");
    m_folder.write("Trip/images/a.jpg", "theirs, too");
    const auto before = snapshot(package);
    session->save();
    ASSERT_TRUE(answer(session->window(), "refusal", "Cancel"));
    EXPECT_EQ(snapshot(package), before);

    rewrite(package, "Theirs");
    session->save();
    QMessageBox* box = question(session->window(), "conflictQuestion");
    ASSERT_TRUE(box);
    EXPECT_TRUE(box->informativeText().contains("1 file")) << box->informativeText().toStdString();
    m_folder.write("Trip/later.jpg", "while the question stood");
    answer(box, "Save Anyway");
    ASSERT_TRUE(box = question(session->window(), "conflictQuestion")) << "asks anew";
    EXPECT_TRUE(box->informativeText().contains("2 files")) << box->informativeText().toStdString();
    answer(box, "Save Anyway");
    ASSERT_TRUE(wait([&] { return !session->store().isEdited(); }));
    EXPECT_EQ(snapshot(package).size(), 5U);
}

TEST_F(SavingTest, aFailureKeepsTheChangesAndNamesAWayOut) {
    m_folder.write("shelf/x", "");
    const std::string package = writePackage("shelf/Trip");
    auto expected = snapshot(package);
    DocumentSession* session = open(package);
    ASSERT_TRUE(session);
    setTitle(*session, "Mine");
    fs::remove_all(path("shelf"));
    m_folder.write("shelf", "a file now");
    session->save();
    QMessageBox* box = question(session->window(), "failure");
    ASSERT_TRUE(box);
    EXPECT_EQ(box->text(), "Could Not Save Article");
    EXPECT_TRUE(box->informativeText().contains(QString::fromStdString(package)));
    EXPECT_TRUE(box->informativeText().contains("Save As…"));
    answer(box, "OK");
    EXPECT_TRUE(session->store().isEdited());
    EXPECT_EQ(title(*session), "Mine");

    fs::remove(path("shelf"));
    fs::create_directory(path("shelf"));
    session->save();
    ASSERT_TRUE(wait([&] { return !session->store().isEdited(); }));
    EXPECT_EQ(titleOnDisk(package), "Mine");
    expected["article.json"] = *sharedArticleEncoder.encode(session->store().article());
    EXPECT_EQ(snapshot(package), expected);
}

TEST_F(SavingTest, thatNoCopyCanBeKeptShowsForAsLongAsItIsSo) {
    DocumentSession* session = open(writePackage("Trip"));
    ASSERT_TRUE(session);
    m_folder.write("state/recovery", "no folder");
    setTitle(*session, "Second");
    const auto* warning = session->window().findChild<QLabel*>("warning");
    ASSERT_TRUE(wait([&] { return warning->isVisible() && !warning->text().isEmpty(); }));
    session->window().showStatus("Saving…");
    session->window().showStatus({});
    EXPECT_TRUE(warning->isVisible());
    session->save();
    EXPECT_TRUE(wait([&] { return !session->window().statusBar()->isVisible(); }));
}

TEST_F(SavingTest, editsSavesAndACloseDuringASlowSave) {
    const std::string package = writePackage("Trip");
    DocumentSession* session = open(package);
    ASSERT_TRUE(session);
    setTitle(*session, "Second");
    m_scheduler.hold();
    session->save();
    ASSERT_TRUE(wait([&] { return session->window().statusBar()->currentMessage() == "Saving…"; }));
    setTitle(*session, "Third");
    session->save();
    session->save();
    session->window().close();
    EXPECT_TRUE(session->window().isVisible());
    EXPECT_EQ(titleOnDisk(package), "First");
    m_scheduler.release();
    ASSERT_TRUE(hasSessions(0)) << "the second save took the edit in, so nothing is left to ask";
    EXPECT_EQ(titleOnDisk(package), "Third");
    EXPECT_TRUE(wait([&] { return recoveryCopies() == 0; }));
}

} // namespace

} // namespace quillon::test
