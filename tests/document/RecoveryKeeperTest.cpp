#include "document/RecoveryKeeper.h"

#include "support/ManualScheduler.h"
#include "support/ScratchFolder.h"

#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillon::test {
namespace {

namespace fs = std::filesystem;

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

ArticleFileDocument titled(const std::string& title) {
    ArticleFileDocument document;
    document.article.title = title;
    return document;
}

class RecoveryKeeperTest : public testing::Test {
protected:
    void edit(const std::string& title) {
        ArticleDocument article = m_store.article();
        article.title = title;
        m_store.edit({"Set Title", ""}, article);
    }

    void makeKeeper(std::unique_ptr<RecoveryCopy> copy) {
        m_keeper = std::make_unique<RecoveryKeeper>(m_store, std::move(copy), m_scheduler);
        m_keeper->onFailure = [this](const std::optional<DiskFailure>& failure) {
            m_told.push_back(failure ? "fails" : "works");
        };
    }

    /// Lets time pass while background work is done at once.
    void pass(double seconds) {
        constexpr double step = 0.01;
        for (double passed = 0; passed < seconds; passed += step) {
            m_scheduler.advance(step);
            m_scheduler.settle();
        }
    }

    bool hasCopy() const { return fs::exists(m_folder) && !fs::is_empty(m_folder); }

    /// What a program that starts after a crash at this moment finds, as the title of the article and the
    /// path of its package. The crash is played on a copy of the folder.
    std::string afterCrash() const {
        const std::string image = m_scratch.path("image");
        fs::remove_all(image);
        if (!fs::exists(m_folder)) {
            return "none";
        }
        fs::copy(m_folder, image, fs::copy_options::recursive);
        const auto copies = RecoveryStore(image).leftCopies();
        return copies.empty()
                   ? "none"
                   : copies[0].article()->title + " of " + copies[0].info().packagePath.value_or("nowhere");
    }

    ScratchFolder m_scratch;
    std::string m_folder = m_scratch.path("recovery");
    RecoveryStore m_copies{m_folder};
    ManualScheduler m_scheduler;
    DocumentStore m_store{titled("saved"), file::AtPath{"/Story", PackageStamp()}, [this] {
                              return m_scheduler.now();
                          }};
    std::vector<std::string> m_told;
    std::unique_ptr<RecoveryKeeper> m_keeper;
};

TEST_F(RecoveryKeeperTest, aCopyStandsSoonAfterTheFirstEditAndGoesWithTheMark) {
    makeKeeper(m_copies.newCopy());
    m_store.select(EditorSelection::ofComponent(Uuid::random()));
    EXPECT_EQ(m_scheduler.waitingTimers(), 0U);
    edit("one");
    pass(RecoveryKeeper::delay / 2);
    EXPECT_FALSE(hasCopy());
    edit("two"); // does not put the write off
    pass(RecoveryKeeper::delay / 2 + 0.02);
    EXPECT_EQ(afterCrash(), "two of /Story");
    edit("three");
    EXPECT_EQ(afterCrash(), "two of /Story");
    pass(RecoveryKeeper::delay + 0.02);
    EXPECT_EQ(afterCrash(), "three of /Story");
    while (m_store.canUndo()) {
        m_store.undo();
    }
    m_scheduler.settle();
    EXPECT_FALSE(hasCopy());
    m_store.redo();
    pass(1);
    EXPECT_EQ(afterCrash(), "one of /Story");
    m_store.beginSaving("/Elsewhere");
    edit("during the save");
    pass(1);
    EXPECT_EQ(afterCrash(), "during the save of /Story");
    m_store.finishSaving(PackageStamp());
    pass(1);
    EXPECT_EQ(afterCrash(), "during the save of /Elsewhere");
    m_store.beginSaving("/Elsewhere");
    m_store.finishSaving(PackageStamp());
    m_scheduler.settle();
    EXPECT_FALSE(hasCopy());
    EXPECT_THAT(m_told, IsEmpty());
    EXPECT_EQ(m_scheduler.waitingTimers(), 0U);
}

TEST_F(RecoveryKeeperTest, editsDuringAWriteCauseAnother) {
    makeKeeper(m_copies.newCopy());
    edit("one");
    m_scheduler.advance(1);
    ASSERT_EQ(m_scheduler.waitingWork(Lane::recovery), 1U);
    edit("two");
    m_scheduler.advance(1);
    edit("three");
    m_scheduler.advance(1);
    ASSERT_EQ(m_scheduler.waitingWork(Lane::recovery), 1U); // one at a time
    m_scheduler.work(Lane::recovery);
    EXPECT_EQ(afterCrash(), "one of /Story");
    m_scheduler.settle();
    EXPECT_EQ(afterCrash(), "three of /Story");

    edit("four");
    m_scheduler.advance(1);
    while (m_store.canUndo()) {
        m_store.undo(); // while the write of "four" has not begun
    }
    m_scheduler.settle();
    EXPECT_FALSE(hasCopy());
}

TEST_F(RecoveryKeeperTest, failuresAreToldOnceAndTriedAgain) {
    std::ofstream(m_folder) << "a file in the way";
    makeKeeper(m_copies.newCopy());
    edit("one");
    pass(5);
    edit("two");
    pass(70);
    EXPECT_THAT(m_told, ElementsAre("fails"));
    fs::remove(m_folder);
    pass(31);
    EXPECT_EQ(afterCrash(), "two of /Story");
    EXPECT_THAT(m_told, ElementsAre("fails", "works"));
    fs::remove_all(m_folder);
    std::ofstream(m_folder) << "again";
    edit("three");
    pass(1);
    EXPECT_THAT(m_told, ElementsAre("fails", "works", "fails"));
    fs::remove(m_folder);
    edit("four");
    pass(1);
    EXPECT_EQ(afterCrash(), "four of /Story");
    EXPECT_THAT(m_told, ElementsAre("fails", "works", "fails", "works"));
    pass(61);
    EXPECT_EQ(m_scheduler.waitingTimers(), 0U);
}

TEST_F(RecoveryKeeperTest, flushWritesAtOnceAndIsNotOvertakenByAnOlderWrite) {
    makeKeeper(m_copies.newCopy());
    m_keeper->flush();
    EXPECT_FALSE(hasCopy());
    edit("one");
    m_scheduler.advance(1);
    edit("two");
    m_keeper->flush();
    EXPECT_EQ(afterCrash(), "two of /Story");
    m_scheduler.settle(); // the write of "one" comes late
    EXPECT_EQ(afterCrash(), "two of /Story");
    edit("three");
    pass(1);
    EXPECT_EQ(afterCrash(), "three of /Story");
    while (m_store.canUndo()) {
        m_store.undo();
    }
    m_scheduler.settle();
    EXPECT_FALSE(hasCopy());
}

TEST_F(RecoveryKeeperTest, flushTellsWhetherTheCopyHoldsTheArticle) {
    makeKeeper(m_copies.newCopy());
    EXPECT_TRUE(m_keeper->flush()) << "there is nothing to hold";
    std::ofstream(m_folder) << "a file in the way";
    edit("one");
    EXPECT_FALSE(m_keeper->flush());
    EXPECT_FALSE(m_keeper->flush()) << "still not";
    fs::remove(m_folder);
    EXPECT_TRUE(m_keeper->flush());
    EXPECT_EQ(afterCrash(), "one of /Story");
}

TEST_F(RecoveryKeeperTest, closingRemovesTheCopyForGood) {
    for (const bool isWriting : {false, true}) {
        makeKeeper(m_copies.newCopy());
        edit("one" + std::to_string(isWriting));
        pass(1);
        EXPECT_TRUE(hasCopy());
        edit("two" + std::to_string(isWriting));
        m_scheduler.advance(isWriting ? 1 : 0.1);
        m_keeper->close();
        EXPECT_TRUE(hasCopy()) << "a disk that hangs holds up no window";
        m_scheduler.settle();
        EXPECT_FALSE(hasCopy());
        edit("three" + std::to_string(isWriting));
        pass(40);
        m_keeper->flush();
        EXPECT_FALSE(hasCopy());
    }
}

TEST_F(RecoveryKeeperTest, withoutTheKeeperNothingRunsAndTheCopyStays) {
    makeKeeper(m_copies.newCopy());
    edit("one");
    pass(1);
    edit("two");
    m_scheduler.advance(1);
    edit("three"); // a timer and a write are waiting
    m_keeper.reset();
    edit("four");
    pass(40);
    EXPECT_THAT(m_told, IsEmpty());
    EXPECT_EQ(m_scheduler.waitingWork(Lane::recovery), 0U);
    EXPECT_EQ(afterCrash(), "two of /Story"); // the write that was on its way
    EXPECT_THAT(m_copies.leftCopies(), SizeIs(1));
}

TEST_F(RecoveryKeeperTest, goesOnWithAnAdoptedCopy) {
    makeKeeper(m_copies.newCopy());
    edit("crashed");
    pass(1);
    m_keeper.reset();
    m_store.undo();

    auto copies = m_copies.leftCopies();
    const ArticleDocument article = copies[0].article().value();
    DocumentStore recovered(
        ArticleFileDocument{article, {}, {}}, file::AtPath{"/Story", PackageStamp()}, [] { return 0.0; },
        titled("saved"));
    RecoveryKeeper keeper(recovered, copies[0].adopt(article), m_scheduler);
    pass(1);
    EXPECT_EQ(afterCrash(), "crashed of /Story");
    recovered.beginSaving("/Story");
    recovered.finishSaving(PackageStamp());
    m_scheduler.settle();
    EXPECT_FALSE(hasCopy());
}

} // namespace
} // namespace quillon::test
