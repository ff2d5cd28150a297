#include "DocumentsFixture.h"

#include <filesystem>
#include <fstream>
#include <functional>

namespace quillon::test {

namespace {

namespace fs = std::filesystem;

using DiskFollowingTest = DocumentsTest;

constexpr auto changedNotice = "The article was changed by another program.";
constexpr auto goneNotice = "The folder was moved or deleted.";

TEST_F(DiskFollowingTest, anUneditedDocumentFollowsItsFolder) {
    const std::string package = writePackage("Trip");
    DocumentSession* session = open(package);
    ASSERT_TRUE(session);
    const auto picture = [&] {
        return session->store().document().assets->at("images/a.jpg").view().data();
    };
    const char* before = picture();
    for (const char* next : {"Second", "Third"}) {
        rewrite(package, next);
        ASSERT_TRUE(wait([&] { return title(*session) == next; })) << next;
        EXPECT_FALSE(session->store().isEdited());
        EXPECT_EQ(picture(), before) << "what did not change is not kept twice";
    }
    m_folder.write("Trip/images/a.jpg", "another picture");
    ASSERT_TRUE(wait(
        [&] { return session->store().document().assets->at("images/a.jpg").view() == "another picture"; }));
    EXPECT_EQ(session->store().undoTitle(), "Undo Reload from Disk");
    session->store().undo();
    EXPECT_EQ(session->store().document().assets->at("images/a.jpg").view(), "picture");
    EXPECT_TRUE(session->store().isEdited());
}

TEST_F(DiskFollowingTest, whatNobodyHeardIsFoundWhenTheWindowIsUsedAgain) {
    DocumentSession* session = open(writePackage("Trip"));
    ASSERT_TRUE(session);
    DocumentSession& other = m_controller->newDocument();
    other.window().activateWindow();
    ASSERT_TRUE(wait([&] { return other.window().isActiveWindow(); }));
    const auto picture = [&] {
        return session->store().document().assets->at("images/a.jpg").view();
    };
    // In place: no folder tells of it.
    std::ofstream(path("Trip/images/a.jpg"), std::ios::app) << ", retouched";
    session->window().activateWindow();
    EXPECT_TRUE(wait([&] { return picture() == "picture, retouched"; }));
}

/// Another picture with the size and the time of the one before.
TEST_F(DiskFollowingTest, aChangeThatHidesBehindItsTimeIsFoundAndALinkIsNone) {
    const std::string package = writePackage("Trip");
    DocumentSession* session = open(package);
    ASSERT_TRUE(session);
    const auto hide = [&](const char* contents) {
        const auto time = fs::last_write_time(path("Trip/images/a.jpg"));
        m_folder.write("Trip/images/a.jpg", contents);
        fs::last_write_time(path("Trip/images/a.jpg"), time);
    };
    const auto picture = [&] {
        return session->store().document().assets->at("images/a.jpg").view();
    };
    const auto knowsDisk = [&] {
        const auto* here = std::get_if<file::AtPath>(&session->store().fileState());
        return here && here->stamp->changeTimes == packageStamp(package)->changeTimes;
    };
    const auto look = [&] {
        Q_EMIT session->window().activated();
    };
    hide("PICTURE");
    look();
    ASSERT_TRUE(wait([&] { return picture() == "PICTURE"; }));

    setTitle(*session, "Mine");
    fs::create_directory(path("backup"));
    for (const char* file : {"article.json", "images/a.jpg"}) {
        fs::create_hard_link(package + "/" + file, path("backup/") + fs::path(file).filename().native());
    }
    EXPECT_FALSE(knowsDisk());
    look();
    EXPECT_TRUE(wait(knowsDisk));
    EXPECT_TRUE(hasNotice(*session, ""));

    session->save();
    ASSERT_TRUE(wait([&] { return !session->store().isEdited(); }));
    EXPECT_TRUE(knowsDisk()) << "our own links are no reason to look closer";
    setTitle(*session, "Mine, again");
    hide("hidden.");
    session->save();
    EXPECT_TRUE(answer(session->window(), "conflictQuestion", "Cancel"));
    look();
    EXPECT_TRUE(hasNotice(*session, changedNotice));
}

TEST_F(DiskFollowingTest, aBrokenArticleIsNotTakenOver) {
    const std::string package = writePackage("Trip");
    DocumentSession* session = open(package);
    ASSERT_TRUE(session);
    m_folder.write("Trip/article.json", "{ half");
    ASSERT_TRUE(hasNotice(*session, changedNotice));
    EXPECT_EQ(title(*session), "First");
    rewrite(package, "Whole again");
    ASSERT_TRUE(wait([&] { return title(*session) == "Whole again"; }));
    EXPECT_TRUE(hasNotice(*session, ""));
}

/// No edit of its own, but no folder holds it any more.
TEST_F(DiskFollowingTest, aDocumentWhoseFolderWasBrokenIsNotLetGo) {
    using Break = std::function<void()>;
    const Break ways[] = {[&] { m_folder.write("Trip/article.json", "{ half"); },
                          [&] {
                              fs::remove(path("Trip/article.json"));
                          }};
    for (const Break& breakFolder : ways) {
        const std::string package = writePackage("Trip");
        DocumentSession* session = open(package);
        ASSERT_TRUE(session);
        breakFolder();
        ASSERT_TRUE(wait([&] { return session->store().isEdited(); }));
        EXPECT_TRUE(wait([&] { return recoveryCopies() == 1; }));
        ASSERT_TRUE(hasNotice(*session, changedNotice));
        pressNotice(*session, "Keep Mine");
        rewrite(package, "Theirs");
        ASSERT_TRUE(hasNotice(*session, changedNotice)) << "what was kept is not replaced without a word";
        EXPECT_EQ(title(*session), "First");
        session->window().close();
        ASSERT_TRUE(answer(session->window(), "closeQuestion", "Cancel"));
        pressNotice(*session, "Reload");
        ASSERT_TRUE(wait([&] { return title(*session) == "Theirs" && !session->store().isEdited(); }));
        EXPECT_TRUE(wait([&] { return recoveryCopies() == 0; }));
        session->closeForGood();
        ASSERT_TRUE(hasSessions(0));
    }
}

TEST_F(DiskFollowingTest, theUserDecidesAboutAnEditedDocument) {
    const std::string package = writePackage("Trip");
    DocumentSession* session = open(package);
    ASSERT_TRUE(session);
    setTitle(*session, "Mine");
    rewrite(package, "Theirs");
    ASSERT_TRUE(hasNotice(*session, changedNotice));
    pressNotice(*session, "Keep Mine");
    EXPECT_TRUE(hasNotice(*session, ""));
    EXPECT_EQ(title(*session), "Mine");
    rewrite(package, "Theirs, once more");
    ASSERT_TRUE(hasNotice(*session, changedNotice)) << "that is another change";
    pressNotice(*session, "Reload");
    ASSERT_TRUE(wait([&] { return title(*session) == "Theirs, once more"; }));
    EXPECT_TRUE(hasNotice(*session, ""));
    session->store().undo();
    EXPECT_EQ(title(*session), "Mine");
}

TEST_F(DiskFollowingTest, aFolderThatGoesIsNoticedAndCanBeSavedAnew) {
    const std::string package = writePackage("Trip");
    const auto before = snapshot(package);
    DocumentSession* session = open(package);
    ASSERT_TRUE(session);
    fs::rename(package, path("Elsewhere"));
    ASSERT_TRUE(hasNotice(*session, goneNotice));
    EXPECT_TRUE(session->store().isEdited());
    fs::rename(path("Elsewhere"), package);
    ASSERT_TRUE(hasNotice(*session, "")) << "it is back as it was";
    EXPECT_FALSE(session->store().isEdited());
    fs::remove_all(package);
    ASSERT_TRUE(hasNotice(*session, goneNotice));
    pressNotice(*session, "Save");
    ASSERT_TRUE(wait([&] { return !session->store().isEdited(); }));
    EXPECT_EQ(snapshot(package), before);
    EXPECT_TRUE(hasNotice(*session, ""));
}

TEST_F(DiskFollowingTest, revertAsksAndCanBeUndone) {
    const std::string package = writePackage("Trip");
    DocumentSession* session = open(package);
    ASSERT_TRUE(session);
    auto* revert = session->window().findChild<QAction*>("revert");
    EXPECT_FALSE(revert->isEnabled());
    setTitle(*session, "Mine");
    revert->trigger();
    ASSERT_TRUE(answer(session->window(), "revertQuestion", "Cancel"));
    EXPECT_EQ(title(*session), "Mine");
    revert->trigger();
    ASSERT_TRUE(answer(session->window(), "revertQuestion", "Revert"));
    ASSERT_TRUE(wait([&] { return title(*session) == "First"; }));
    EXPECT_FALSE(session->store().isEdited());
    EXPECT_EQ(session->store().undoTitle(), "Undo Revert to Saved");
    session->store().undo();
    EXPECT_EQ(title(*session), "Mine");
}

TEST_F(DiskFollowingTest, ownSavesAreNoChange) {
    const std::string package = writePackage("Trip");
    DocumentSession* session = open(package);
    ASSERT_TRUE(session);
    int changes = 0;
    const Subscription subscription = session->store().observe([&](const StoreChange&) {
        changes += std::holds_alternative<file::ChangedOnDisk>(session->store().fileState()) ? 1 : 0;
    });
    for (int round = 0; round < 5; ++round) {
        setTitle(*session, std::to_string(round));
        session->save();
        ASSERT_TRUE(wait([&] { return !session->store().isEdited(); }));
    }
    // A change of another program comes after all looks at the own saves.
    rewrite(package, "Theirs");
    ASSERT_TRUE(wait([&] { return title(*session) == "Theirs"; }));
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(session->store().undoTitle(), "Undo Reload from Disk");
}

} // namespace

} // namespace quillon::test
