// Every step of a save is made to fail, and the process to end at every step.

#include "package/PackageFolder.h"
#include "support/FaultyFileSystem.h"
#include "support/ScratchFolder.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>

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

    explicit SaveScene(Start start) : isExisting_(start == Start::existing) {
        if (isExisting_)
            makePackage();
        before_ = snapshotWithModes(package());
        tree_ = isExisting_ ? *readFolder(package()) : FileWrapper::directory();
        for (const auto& [name, wrapper] : *tree_.fileWrappers())
            load(wrapper);
        tree_.addFileWrapper(file("article.json", R"({"title": "new"})"));
        FileWrapper added = named(FileWrapper::directory(), "added");
        added.addFileWrapper(file("d.txt", "a file that is new"));
        tree_.addFileWrapper(added);
        after_ = {{"./", ""},
                  {"article.json", R"({"title": "new"})"},
                  {"added/", ""},
                  {"added/d.txt", "a file that is new"}};
        if (isExisting_)
            after_.insert({{"images/", ""},
                           {"images/a.png", "unchanged"},
                           {"images/low/", ""},
                           {"images/low/c.png", "unchanged, too"}});
    }

    std::string package() const { return scratch_.path("Story"); }
    const FileWrapper& tree() const { return tree_; }
    std::size_t unchangedFiles() const { return isExisting_ ? 2 : 0; }

    bool isAsBefore() const { return snapshotWithModes(package()) == before_; }
    /// A package that was moved aside comes back one day, so it must never be in pieces.
    bool isWholeWhereMovedAside() const {
        const std::set<std::string> names = scratch_.names();
        return std::all_of(names.begin(), names.end(), [this](const std::string& name) {
            return !name.starts_with(".Story.quillon-aside-") ||
                   snapshotWithModes(scratch_.path(name)) == before_;
        });
    }
    bool isSaved() const { return snapshot(package()) == after_; }
    /// Whether nothing but the package stands in its folder.
    bool isTidy() const {
        const std::set<std::string> names = scratch_.names();
        return names.empty() || names == std::set<std::string>{"Story"};
    }

private:
    void makePackage() const {
        scratch_.write("Story/article.json", R"({"title": "old"})");
        scratch_.write("Story/images/a.png", "unchanged");
        scratch_.write("Story/images/low/c.png", "unchanged, too");
        fs::create_symlink("a.png", scratch_.path("Story/images/link.png"));
        fs::permissions(scratch_.path("Story/article.json"), fs::perms(0640));
        fs::permissions(scratch_.path("Story/images"), fs::perms(0750));
    }

    static void load(const FileWrapper& wrapper) {
        ASSERT_TRUE(wrapper.regularFileContents());
        if (const FileWrapper::Children* children = wrapper.fileWrappers()) {
            for (const auto& [name, child] : *children)
                load(child);
        }
    }

    ScratchFolder scratch_;
    bool isExisting_;
    FileWrapper tree_ = FileWrapper::directory();
    Snapshot before_;
    Snapshot after_;
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
                if (!saveWithFault(variant, plan))
                    break;
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
            if (!saveAndKill(variant, plan))
                break;
        } while (!testing::Test::HasFailure());
        EXPECT_GT(plan.step, 20U);
    }
}

} // namespace
} // namespace quillon::test
