// Every step of a save is made to fail, and the process to end at every step.

#include "package/PackageFolder.h"
#include "support/FaultyFileSystem.h"
#include "support/ScratchFolder.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <utility>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quillon::test {
namespace {

namespace fs = std::filesystem;

using Snapshot = std::map<std::string, std::string>;

FileWrapper named(FileWrapper wrapper, const std::string& name) {
    wrapper.setPreferredFilename(name);
    return wrapper;
}

FileWrapper file(const std::string& name, const std::string& contents) {
    return named(FileWrapper::regularFile(Bytes(contents)), name);
}

/// A package on disk that is open in the editor and has been changed there.
class SaveScene {
public:
    enum class Start { existing, untitled };

    explicit SaveScene(Start start) : m_isExisting(start == Start::existing) {
        if (m_isExisting) {
            makePackage();
        }
        m_before = snapshotWithModes(package());
        m_tree = m_isExisting ? *readFolder(package()) : FileWrapper::directory();
        for (const auto& [name, wrapper] : *m_tree.fileWrappers()) {
            load(wrapper);
        }
        m_tree.addFileWrapper(file("article.json", R"({"title": "new"})"));
        FileWrapper added = named(FileWrapper::directory(), "added");
        added.addFileWrapper(file("d.txt", "a file that is new"));
        m_tree.addFileWrapper(added);
        m_after = {{"./", ""},
                   {"article.json", R"({"title": "new"})"},
                   {"added/", ""},
                   {"added/d.txt", "a file that is new"}};
        if (m_isExisting) {
            m_after.insert({{"images/", ""},
                            {"images/a.png", "unchanged"},
                            {"images/low/", ""},
                            {"images/low/c.png", "unchanged, too"}});
        }
    }

    std::string package() const { return m_scratch.path("Story"); }
    const FileWrapper& tree() const { return m_tree; }
    std::size_t unchangedFiles() const { return m_isExisting ? 2 : 0; }

    /// What another program does to the package while it is saved; false where it finds none.
    bool intrude() const {
        const bool isThere = fs::exists(package());
        if (isThere) {
            m_scratch.write("Story/theirs", "another program's");
        }
        return isThere;
    }
    /// Where the other program's file stands, from the folder around the package.
    std::set<std::string> intrusions() const {
        std::set<std::string> found;
        for (const auto& [path, contents] : snapshot(m_scratch.path())) {
            if (contents == "another program's") {
                found.insert(path);
            }
        }
        return found;
    }

    bool isAsBefore() const { return snapshotWithModes(package()) == m_before; }
    /// A package that was moved aside comes back one day, so it must never be in pieces.
    bool isWholeWhereMovedAside() const {
        const std::set<std::string> names = m_scratch.names();
        return std::all_of(names.begin(), names.end(), [this](const std::string& name) {
            return !name.starts_with(".Story.quillon-aside-") ||
                   snapshotWithModes(m_scratch.path(name)) == m_before;
        });
    }
    bool isSaved() const { return snapshot(package()) == m_after; }
    /// Whether nothing but the package stands in its folder.
    bool isTidy() const {
        const std::set<std::string> names = m_scratch.names();
        return names.empty() || names == std::set<std::string>{"Story"};
    }

private:
    void makePackage() const {
        m_scratch.write("Story/article.json", R"({"title": "old"})");
        m_scratch.write("Story/images/a.png", "unchanged");
        m_scratch.write("Story/images/low/c.png", "unchanged, too");
        fs::create_symlink("a.png", m_scratch.path("Story/images/link.png"));
        fs::permissions(m_scratch.path("Story/article.json"), fs::perms(0640));
        fs::permissions(m_scratch.path("Story/images"), fs::perms(0750));
    }

    static void load(const FileWrapper& wrapper) {
        ASSERT_TRUE(wrapper.regularFileContents());
        if (const FileWrapper::Children* children = wrapper.fileWrappers()) {
            for (const auto& [name, child] : *children) {
                load(child);
            }
        }
    }

    ScratchFolder m_scratch;
    bool m_isExisting;
    FileWrapper m_tree = FileWrapper::directory();
    Snapshot m_before;
    Snapshot m_after;
};

struct Variant {
    const char* name;
    SaveScene::Start start;
    FaultPlan plan;
};

const Variant variants[] = {
    {"exchange", SaveScene::Start::existing, {}},
    {"no exchange", SaveScene::Start::existing, {.canExchange = false}},
    {"clones", SaveScene::Start::existing, {.canLink = false, .canClone = true}},
    {"neither links, clones, exchange nor locks",
     SaveScene::Start::existing,
     {.canExchange = false, .canLink = false, .canLock = false}},
    {"new package", SaveScene::Start::untitled, {}},
};

void expectNamesFileAndCause(const DiskFailure& failure, const SaveScene& scene,
                             const FaultyFileSystem& faulty) {
    EXPECT_EQ(failure.message, failure.path + ": " + systemErrorText(failure.errorNumber));
    const fs::path parent = fs::path(scene.package()).parent_path();
    EXPECT_TRUE(failure.path == parent || failure.path.starts_with(scene.package())) << failure.path;
    const std::string& name = faulty.struckName();
    if (!name.empty() && !name.starts_with(".")) {
        EXPECT_EQ(fs::path(failure.path).filename(), name);
    }
}

/// Saves with the fault of `plan`; returns whether it came to pass.
bool saveWithFault(const Variant& variant, const FaultPlan& plan) {
    SaveScene scene(variant.start);
    FaultyFileSystem faulty(plan);
    const auto report = writeFolder(scene.tree(), scene.package(), faulty);
    SCOPED_TRACE(faulty.struckOperation() + " " + faulty.struckName());
    EXPECT_TRUE(scene.isTidy());
    if (report) {
        EXPECT_TRUE(scene.isSaved());
        EXPECT_EQ(report->leftBehind, "");
    } else {
        EXPECT_TRUE(scene.isAsBefore());
        EXPECT_EQ(report.error().errorNumber, plan.errorNumber);
        expectNamesFileAndCause(report.error(), scene, faulty);
    }
    FaultyFileSystem faultless({});
    const auto again = writeFolder(scene.tree(), scene.package(), faultless);
    EXPECT_TRUE(again && again->filesLinked >= scene.unchangedFiles());
    EXPECT_TRUE(scene.isSaved() && scene.isTidy());
    return faulty.hasStruck();
}

/// Whatever the moment at which another program writes, its file is in the package afterwards, and the save
/// does not claim to know it.
TEST(SaveFaults, WhatAnotherProgramWritesDuringASaveStays) {
    for (const Variant& variant : {variants[0], variants[1], variants[3]}) {
        SCOPED_TRACE(variant.name);
        std::size_t steps = 1;
        for (std::size_t moment = 1; moment <= steps; ++moment) {
            SCOPED_TRACE("step " + std::to_string(moment));
            SaveScene scene(variant.start);
            const PackageStamp known = *packageStamp(scene.package());
            steps = 0;
            std::set<std::string> expected;
            FaultPlan plan = variant.plan;
            plan.before = [&](std::string_view) {
                if (++steps == moment && scene.intrude()) {
                    expected.insert("Story/theirs");
                }
            };
            FaultyFileSystem busy(plan);
            const auto report = writeFolder(scene.tree(), scene.package(), busy, Existing::replace, &known);
            EXPECT_EQ(scene.intrusions(), expected);
            EXPECT_TRUE(!expected.empty() || report);
            EXPECT_TRUE(scene.isTidy());
            if (report) {
                EXPECT_FALSE(report->stamp.files.contains("theirs"));
                EXPECT_EQ(report->stamp == *packageStamp(scene.package()), expected.empty());
            } else {
                EXPECT_EQ(report.error().errorNumber, ESTALE);
            }
        }
        EXPECT_GT(steps, 20U);
    }
}

TEST(SaveFaults, WhatAnotherProgramWroteSurvivesAFailureInTheMiddleAndTheNextSave) {
    for (const Variant& variant : {variants[0], variants[1]}) {
        SCOPED_TRACE(variant.name);
        FaultPlan plan = variant.plan;
        plan.kind = FaultKind::one;
        plan.errorNumber = EIO;
        bool hasStruck = true;
        while (hasStruck && !testing::Test::HasFailure()) {
            ++plan.step;
            SaveScene scene(variant.start);
            const PackageStamp known = *packageStamp(scene.package());
            plan.before = [&, isDone = false](std::string_view step) mutable {
                if (step == "rename" && !std::exchange(isDone, true)) {
                    scene.intrude();
                }
            };
            FaultyFileSystem faulty(plan);
            const auto report = writeFolder(scene.tree(), scene.package(), faulty, Existing::replace, &known);
            hasStruck = faulty.hasStruck();
            SCOPED_TRACE(faulty.struckOperation() + " at step " + std::to_string(plan.step));
            EXPECT_FALSE(report);
            // Tidies up, and changes nothing else.
            EXPECT_FALSE(writeFolder(scene.tree(), scene.package(), systemFileSystem(), Existing::refuse));
            EXPECT_TRUE((hasStruck && scene.isAsBefore()) || scene.intrusions().size() == 1);
        }
    }
}

struct Fault {
    const char* name;
    FaultKind kind;
    int errorNumber;
};

TEST(SaveFaults, AfterAnyFailureTheOldPackageIsWholeAndNothingElseStays) {
    const Fault faults[] = {
        {"no space", FaultKind::one, ENOSPC},
        {"input/output error", FaultKind::one, EIO},
        {"no permission", FaultKind::one, EACCES},
        {"full device", FaultKind::fullDevice, ENOSPC},
    };
    for (const Variant& variant : variants) {
        for (const Fault& fault : faults) {
            SCOPED_TRACE(std::string(variant.name) + ", " + fault.name);
            FaultPlan plan = variant.plan;
            plan.kind = fault.kind;
            plan.errorNumber = fault.errorNumber;
            do {
                ++plan.step;
                SCOPED_TRACE("step " + std::to_string(plan.step));
                if (!saveWithFault(variant, plan)) {
                    break;
                }
            } while (!testing::Test::HasFailure());
            EXPECT_GT(plan.step, 20U);
        }
    }
}

/// Saves in a process that ends at the step of `plan`; returns whether it got there.
bool saveAndKill(const Variant& variant, const FaultPlan& plan) {
    SaveScene scene(variant.start);
    const pid_t child = ::fork();
    if (child == 0) {
        FaultyFileSystem faulty(plan);
        ::_exit(writeFolder(scene.tree(), scene.package(), faulty) ? 0 : 1);
    }
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    const bool killed = WIFEXITED(status) && WEXITSTATUS(status) == killedStatus;
    EXPECT_TRUE(killed || status == 0);

    EXPECT_TRUE(scene.isWholeWhereMovedAside());
    if (plan.canExchange) { // the package is never missing, not even for a moment
        EXPECT_TRUE(scene.isAsBefore() || scene.isSaved());
    }
    const auto reopened = readFolder(scene.package());
    EXPECT_TRUE(reopened || variant.start == SaveScene::Start::untitled);
    EXPECT_TRUE(scene.isAsBefore() || scene.isSaved());

    if (plan.canLock) {
        FaultyFileSystem faultless({});
        EXPECT_TRUE(writeFolder(scene.tree(), scene.package(), faultless));
        EXPECT_TRUE(scene.isSaved() && scene.isTidy());
    }
    return killed;
}

TEST(SaveFaults, AKilledProcessLeavesTheOldOrTheNewPackageAndTheNextSaveTidiesUp) {
    for (const Variant& variant : variants) {
        SCOPED_TRACE(variant.name);
        FaultPlan plan = variant.plan;
        plan.kind = FaultKind::kill;
        do {
            ++plan.step;
            SCOPED_TRACE("step " + std::to_string(plan.step));
            if (!saveAndKill(variant, plan)) {
                break;
            }
        } while (!testing::Test::HasFailure());
        EXPECT_GT(plan.step, 20U);
    }
}

} // namespace
} // namespace quillon::test
