// Every step of writing a recovery copy is made to fail, and the process to end at every step.

#include "document/RecoveryStore.h"

#include "support/FaultyFileSystem.h"
#include "support/ScratchFolder.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quillon::test {
namespace {

namespace fs = std::filesystem;

using testing::AnyOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

Component body(const std::string& text) {
    Component component;
    component.role = ComponentRole::body;
    component.text = text;
    return component;
}

ArticleDocument articleOf(std::size_t count) {
    std::vector<Shared<Component>> items;
    for (std::size_t index = 0; index < count; ++index) {
        items.emplace_back(body("Paragraph " + std::to_string(index)));
    }
    ArticleDocument article;
    article.title = "Story";
    article.components = List<Component>(std::move(items));
    return article;
}

ArticleDocument withText(ArticleDocument article, std::size_t index, const std::string& text) {
    Component component = article.components[index];
    component.text = text;
    article.components = article.components.set(index, std::move(component));
    return article;
}

std::string json(const ArticleDocument& article) {
    return sharedArticleEncoder.encode(article).value();
}

/// The JSON of the articles left in the store, or what is wrong with them.
std::vector<std::string> left(const RecoveryStore& store) {
    std::vector<std::string> articles;
    for (const LeftRecoveryCopy& copy : store.leftCopies()) {
        const auto article = copy.article();
        articles.push_back(article ? json(*article) : article.error().message);
    }
    return articles;
}

/// The journal of the only copy in the folder.
std::string journalOf(const ScratchFolder& scratch) {
    std::string found;
    for (const auto& entry : fs::recursive_directory_iterator(scratch.path())) {
        found = entry.is_regular_file() ? entry.path().string() : found;
    }
    return found;
}

class RecoveryStoreTest : public testing::Test {
protected:
    ScratchFolder m_scratch;
    std::string m_folder = m_scratch.path("state/recovery");
    RecoveryStore m_store{m_folder};
    RecoveryInfo m_info{"/home/Story\xFF", 0xFFFFFFFFFFFFFFFF, "", 0};
};

TEST_F(RecoveryStoreTest, aCopyIsLeftOnceItsOwnerIsGoneAndGoesToOneProgram) {
    const ArticleDocument first = articleOf(20);
    const ArticleDocument second = withText(first, 7, "edited\n\"text\"");
    auto copy = m_store.newCopy();
    EXPECT_FALSE(fs::exists(m_folder));
    ASSERT_TRUE(copy->write(first, m_info));
    ASSERT_TRUE(copy->write(second, m_info));
    EXPECT_THAT(left(m_store), IsEmpty());
    copy.reset();

    auto copies = m_store.leftCopies();
    ASSERT_THAT(copies, SizeIs(1));
    EXPECT_THAT(left(m_store), IsEmpty());
    const RecoveryInfo& info = copies[0].info();
    EXPECT_EQ(info.packagePath, m_info.packagePath);
    EXPECT_EQ(info.packageMark, m_info.packageMark);
    EXPECT_EQ(info.title, "Story");
    EXPECT_NEAR(info.time,
                std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count(),
                60);
    EXPECT_EQ(json(copies[0].article().value()), json(second));
    copies.clear();
    EXPECT_THAT(left(m_store), ElementsAre(json(second)));
    m_store.leftCopies()[0].discard();
    EXPECT_THAT(left(m_store), IsEmpty());
    EXPECT_TRUE(fs::is_empty(m_folder));
}

TEST_F(RecoveryStoreTest, anAdoptedCopyOutlivesFurtherCrashes) {
    ArticleDocument article = articleOf(5);
    ASSERT_TRUE(m_store.newCopy()->write(article, m_info));
    for (int crash = 0; crash < 3; ++crash) {
        auto copies = m_store.leftCopies();
        ASSERT_THAT(copies, SizeIs(1));
        article = copies[0].article().value();
        auto copy = copies[0].adopt(article);
        EXPECT_TRUE(copy->isOnDisk());
        ASSERT_TRUE(copy->write(article, m_info));
        if (crash > 0) { // the first time nothing is edited
            article = withText(article, 2, "after crash " + std::to_string(crash));
            ASSERT_TRUE(copy->write(article, m_info));
            article = withText(article, 3, "more");
            ASSERT_TRUE(copy->write(article, m_info));
        }
        copy.reset();
        EXPECT_THAT(left(m_store), ElementsAre(json(article)));
    }
    auto copies = m_store.leftCopies();
    const auto copy = copies[0].adopt(article);
    copy->remove();
    EXPECT_FALSE(copy->isOnDisk());
    EXPECT_TRUE(fs::is_empty(m_folder));
    ASSERT_TRUE(copy->write(article, m_info));
    EXPECT_FALSE(fs::is_empty(m_folder));
}

TEST_F(RecoveryStoreTest, theLatestCopyComesFirst) {
    std::set<fs::path> dated;
    for (const int hour : {2, 3, 1}) {
        ArticleDocument article = articleOf(1);
        article.title = std::to_string(hour);
        ASSERT_TRUE(m_store.newCopy()->write(article, m_info));
        for (const auto& entry : fs::recursive_directory_iterator(m_folder)) {
            if (entry.is_regular_file() && dated.insert(entry.path()).second) {
                fs::last_write_time(entry.path(),
                                    fs::file_time_type::clock::now() + std::chrono::hours(hour));
            }
        }
    }
    std::vector<std::string> titles;
    for (const LeftRecoveryCopy& copy : m_store.leftCopies()) {
        titles.push_back(copy.info().title);
    }
    EXPECT_THAT(titles, ElementsAre("3", "2", "1"));
}

TEST_F(RecoveryStoreTest, changesThatOutgrowTheArticleStartItAnew) {
    auto copy = m_store.newCopy();
    ArticleDocument article = articleOf(50);
    std::uintmax_t largest = 0;
    for (int edit = 0; edit < 2000; ++edit) {
        article = withText(article, static_cast<std::size_t>(edit) % 50,
                           std::string(200, 'x') + std::to_string(edit));
        ASSERT_TRUE(copy->write(article, m_info));
        largest = std::max(largest, fs::file_size(journalOf(m_scratch)));
    }
    EXPECT_LT(largest, 200'000U);
    EXPECT_GT(copy->bytesWritten(), 400'000U);
    EXPECT_LT(copy->bytesWritten(), 1'200'000U);
    copy.reset();
    EXPECT_THAT(left(m_store), ElementsAre(json(article)));
}

TEST_F(RecoveryStoreTest, onlyTheUserMayReadIt) {
    fs::create_directories(m_folder);
    fs::permissions(m_folder, fs::perms(0755));
    const auto copy = m_store.newCopy();
    ASSERT_TRUE(copy->write(articleOf(1), m_info));
    EXPECT_EQ(fs::status(m_folder).permissions(), fs::perms(0700));
    for (const auto& entry : fs::recursive_directory_iterator(m_folder)) {
        EXPECT_EQ(entry.status().permissions(), fs::perms(entry.is_directory() ? 0700 : 0600));
    }
}

TEST_F(RecoveryStoreTest, aFolderClearedAwayIsMadeAnew) {
    auto copy = m_store.newCopy();
    ASSERT_TRUE(copy->write(articleOf(2), m_info));
    fs::remove_all(m_scratch.path("state"));
    const ArticleDocument article = withText(articleOf(2), 0, "new");
    ASSERT_TRUE(copy->write(article, m_info));
    copy.reset();
    EXPECT_THAT(left(m_store), ElementsAre(json(article)));
}

TEST_F(RecoveryStoreTest, aTornOrGarbledEndFallsBackToTheStateBefore) {
    const ArticleDocument first = articleOf(3);
    const ArticleDocument second = withText(first, 1, "second");
    const ArticleDocument third = withText(second, 2, "third");
    auto copy = m_store.newCopy();
    ASSERT_TRUE(copy->write(first, m_info));
    const std::size_t begun = fs::file_size(journalOf(m_scratch));
    ASSERT_TRUE(copy->write(second, m_info));
    const std::size_t middle = fs::file_size(journalOf(m_scratch));
    ASSERT_TRUE(copy->write(third, m_info));
    copy.reset();
    const std::string path = journalOf(m_scratch);
    std::ifstream file(path, std::ios::binary);
    const std::string whole{std::istreambuf_iterator<char>(file), {}};
    const auto recovered = [&](const std::string& contents) {
        fs::create_directories(fs::path(path).parent_path());
        std::ofstream(path, std::ios::binary) << contents;
        const std::vector<std::string> found = left(m_store);
        return found.empty() ? std::string("none") : found[0];
    };
    const auto nothing = AnyOf("none", HasSubstr("damaged"));
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const std::string expected = json(size < middle ? first : second);
        const std::string cut = whole.substr(0, size);
        // As a file system leaves it that wrote the size before the contents.
        const std::string zeroed = cut + std::string(whole.size() - size, '\0');
        if (size < begun) {
            ASSERT_THAT(recovered(cut), nothing) << size;
            ASSERT_THAT(recovered(zeroed), nothing) << size;
        } else {
            ASSERT_EQ(recovered(cut), expected) << size;
            ASSERT_EQ(recovered(zeroed), expected) << size;
        }
        std::string garbled = whole;
        garbled[size] = static_cast<char>(garbled[size] ^ 4);
        ASSERT_THAT(recovered(garbled), AnyOf(nothing, json(first), json(second))) << size;
    }
    EXPECT_EQ(recovered(whole), json(third));
}

TEST_F(RecoveryStoreTest, junkNeitherHurtsNorGoes) {
    const std::string uuid = Uuid::random().text();
    const std::string other = Uuid::random().text();
    m_scratch.write("state/recovery/notes.txt", "mine");
    m_scratch.write("state/recovery/" + uuid + "/journal-1-1/file", "a folder");
    m_scratch.write("state/recovery/" + other + "/journal-2-1", "a later version's");
    m_scratch.write("state/recovery/no-uuid/journal-1-1", "");
    m_scratch.write("outside/journal-1-1", "mark 1 1\n1\n");
    fs::create_directory_symlink(m_scratch.path("outside"),
                                 m_scratch.path("state/recovery/" + Uuid::random().text()));
    const auto before = snapshot(m_folder);
    EXPECT_THAT(left(m_store), IsEmpty());
    EXPECT_EQ(snapshot(m_folder), before);

    // What is ours and holds nothing goes; symbolic links and pipes are not followed or opened.
    const auto folder = [this] {
        const fs::path made = m_folder + "/" + Uuid::random().text();
        fs::create_directory(made);
        return made;
    };
    folder();
    std::ofstream(folder() / "journal-1-3") << "garbage";
    std::ofstream(folder() / "journal-1-unfinished") << "half";
    fs::create_symlink("/dev/zero", folder() / "journal-1-1");
    ASSERT_EQ(::mkfifo((folder() / "journal-1-1").c_str(), 0600), 0);
    const fs::path huge = folder() / "journal-1-1";
    std::ofstream(huge) << "garbage";
    fs::resize_file(huge, std::uintmax_t{1} << 40);
    EXPECT_THAT(left(m_store), IsEmpty());
    EXPECT_EQ(snapshot(m_folder), before);

    EXPECT_THAT(left(RecoveryStore(m_scratch.path("state/recovery/notes.txt"))), IsEmpty());
    EXPECT_FALSE(RecoveryStore(m_scratch.path("state/recovery/notes.txt/below"))
                     .newCopy()
                     ->write(articleOf(1), m_info));
}

TEST_F(RecoveryStoreTest, aNumberThatIsNotFiniteFailsAndTheCopyStays) {
    auto copy = m_store.newCopy();
    const ArticleDocument first = articleOf(1);
    ASSERT_TRUE(copy->write(first, m_info));
    Component broken = first.components[0];
    broken.latitude = std::numeric_limits<double>::quiet_NaN();
    ArticleDocument second = first;
    second.components = second.components.set(0, broken);
    EXPECT_FALSE(copy->write(second, m_info));
    copy.reset();
    EXPECT_THAT(left(m_store), ElementsAre(json(first)));
}

/// The states that a copy goes through, some of which take a new journal.
std::vector<ArticleDocument> history() {
    std::vector<ArticleDocument> states{articleOf(2)};
    states.push_back(withText(states.back(), 0, "one"));
    states.push_back(withText(states.back(), 1, std::string(70'000, 'x'))); // more than the article takes
    states.push_back(withText(states.back(), 0, "two"));
    return states;
}

TEST_F(RecoveryStoreTest, afterAnyFailureTheOldOrTheNewStateIsThereAndTheNextWriteWorks) {
    ArticleDocument first = articleOf(1);
    for (const FaultKind kind : {FaultKind::one, FaultKind::fullDevice}) {
        for (std::size_t step = 1;; ++step) {
            const ScratchFolder scratch;
            FaultyFileSystem faulty({.step = step, .kind = kind, .errorNumber = ENOSPC});
            const RecoveryStore store(scratch.path("a/b"), faulty);
            auto copy = store.newCopy();
            const ArticleDocument states[] = {first, withText(first, 0, "one"), withText(first, 0, "two")};
            std::vector<std::string> possible{""};
            RecoveryInfo info = m_info;
            bool hasFailed = false;
            for (const ArticleDocument& state : states) {
                possible.push_back(json(state));
                info.packageMark += &state == &states[2] ? 1 : 0; // takes a new journal
                if (copy->write(state, info)) {
                    possible = {json(state)};
                } else {
                    hasFailed = true;
                }
            }
            EXPECT_TRUE(!hasFailed || faulty.hasStruck());
            copy.reset();
            const auto found = left(RecoveryStore(scratch.path("a/b")));
            EXPECT_THAT(found, SizeIs(testing::Le(1U)));
            EXPECT_THAT(found.empty() ? "" : found[0], testing::AnyOfArray(possible))
                << step << faulty.struckOperation();
            if (!faulty.hasStruck() || HasFailure()) {
                EXPECT_GT(step, 60U);
                break;
            }
        }
    }
}

/// Writes all states in a process that ends at `step`; the number of states it says are safe.
std::size_t writeAndKill(const std::string& folder, std::size_t step, bool& wasKilled) {
    int pipe[2];
    EXPECT_EQ(::pipe(pipe), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        FaultyFileSystem faulty({.step = step, .kind = FaultKind::kill});
        const auto copy = RecoveryStore(folder, faulty).newCopy();
        for (const ArticleDocument& state : history()) {
            if (!copy->write(state, {}) || ::write(pipe[1], "x", 1) != 1) {
                ::_exit(1);
            }
        }
        copy->remove();
        ::_exit(0);
    }
    ::close(pipe[1]);
    std::size_t safe = 0;
    for (char byte = 0; ::read(pipe[0], &byte, 1) == 1;) {
        ++safe;
    }
    ::close(pipe[0]);
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    wasKilled = WIFEXITED(status) && WEXITSTATUS(status) == killedStatus;
    EXPECT_TRUE(wasKilled || status == 0);
    return safe;
}

TEST_F(RecoveryStoreTest, aKilledProcessLeavesTheOldOrTheNewState) {
    std::vector<std::string> states{""};
    for (const ArticleDocument& state : history()) {
        states.push_back(json(state));
    }
    // A few bytes are written at a step, so those of the large state are passed over by and by.
    bool wasKilled = true;
    for (std::size_t step = 1; wasKilled && !HasFailure(); step += step < 400 || step % 50 == 0 ? 1 : 49) {
        SCOPED_TRACE(step);
        const ScratchFolder scratch;
        const std::size_t safe = writeAndKill(scratch.path("state"), step, wasKilled);
        const auto found = left(RecoveryStore(scratch.path("state")));
        ASSERT_THAT(found, SizeIs(testing::Le(1U)));
        const std::string state = found.empty() ? "" : found[0];
        if (safe + 1 == states.size()) { // on the way to its removal
            EXPECT_THAT(state, AnyOf(states.back(), ""));
        } else {
            EXPECT_THAT(state, AnyOf(states[safe], states[safe + 1]));
        }
        EXPECT_TRUE(!fs::exists(scratch.path("state")) || !found.empty() ||
                    fs::is_empty(scratch.path("state")));
    }
}

TEST_F(RecoveryStoreTest, aProgramKilledFromOutsideLetsGoOfItsCopy) {
    int pipe[2];
    ASSERT_EQ(::pipe(pipe), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        const auto copy = m_store.newCopy();
        const bool isWritten = copy->write(articleOf(3), m_info).has_value();
        ::_exit(isWritten && ::write(pipe[1], "x", 1) == 1 ? ::pause() : 1);
    }
    char byte = 0;
    ASSERT_EQ(::read(pipe[0], &byte, 1), 1);
    EXPECT_THAT(left(m_store), IsEmpty());
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    EXPECT_THAT(left(m_store), ElementsAre(json(articleOf(3))));
}

/// What a program does that starts beside others: tells how many left copies it got, writes copies of its own
/// as soon as it may, tells whether the others spared them, and keeps what it has until it may end.
void takeAndWrite(const RecoveryStore& store, int answers, int go) {
    const auto taken = store.leftCopies();
    const auto tell = [answers](std::size_t answer) {
        const char byte = static_cast<char>(answer);
        return ::write(answers, &byte, 1) == 1;
    };
    char byte = 0;
    bool isFine = tell(taken.size()) && ::read(go, &byte, 1) == 1;
    for (int round = 0; round < 100; ++round) {
        const auto copy = store.newCopy();
        isFine = isFine && copy->write(articleOf(1), {}) && copy->write(articleOf(2), {});
        isFine = store.leftCopies().empty() && isFine;
        copy->remove();
    }
    ::_exit(tell(isFine ? 1 : 0) && ::read(go, &byte, 1) == 0 ? 0 : 1);
}

TEST_F(RecoveryStoreTest, programsThatStartAtOnceShareTheLeftCopiesAndSpareTheNewOnes) {
    constexpr int copyCount = 30;
    for (int count = 0; count < copyCount; ++count) {
        ASSERT_TRUE(m_store.newCopy()->write(articleOf(1), m_info));
    }
    int answers[2];
    int go[2];
    ASSERT_EQ(::pipe(answers), 0);
    ASSERT_EQ(::pipe(go), 0);
    pid_t programs[4];
    for (pid_t& program : programs) {
        program = ::fork();
        if (program == 0) {
            ::close(go[1]);
            takeAndWrite(m_store, answers[1], go[0]);
        }
    }
    ::close(answers[1]);
    const auto sumOfAnswers = [&] {
        int sum = 0;
        for (std::size_t program = 0; program < std::size(programs); ++program) {
            char answer = 0;
            EXPECT_EQ(::read(answers[0], &answer, 1), 1);
            sum += answer;
        }
        return sum;
    };
    EXPECT_EQ(sumOfAnswers(), copyCount);
    EXPECT_EQ(::write(go[1], "1234", 4), 4);
    EXPECT_EQ(sumOfAnswers(), 4);
    ::close(go[1]);
    for (const pid_t program : programs) {
        int status = 0;
        EXPECT_EQ(::waitpid(program, &status, 0), program);
        EXPECT_EQ(status, 0);
    }
    ::close(answers[0]);
    ::close(go[0]);
}

} // namespace
} // namespace quillon::test
