#include "package/PackageStamp.h"

#include "package/PackageFolder.h"
#include "package/SidePlace.h"
#include "support/FaultyFileSystem.h"
#include "support/ScratchFolder.h"

#include <cerrno>
#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillon::test {
namespace {

namespace fs = std::filesystem;

using testing::ElementsAre;

std::vector<std::string> pathsOf(const PackageStamp& stamp) {
    std::vector<std::string> paths;
    for (const auto& [path, identity] : stamp.files) {
        paths.push_back(path);
    }
    return paths;
}

TEST(PackageStamp, holdsTheRegularFilesBelowTheFolderAlone) {
    const ScratchFolder scratch;
    scratch.write("Story/article.json", "{}");
    scratch.write("Story/b/low/c.png", "c");
    scratch.write("Story/b/d.png", "d");
    scratch.write("Story/e/f", "f");
    scratch.write("outside/g", "g");
    scratch.write(".Story.quillon-save-abc123/article.json", "{}");
    fs::create_directory(scratch.path("Story/empty"));
    fs::create_symlink(scratch.path("outside"), scratch.path("Story/linked"));
    fs::create_symlink("article.json", scratch.path("Story/link.json"));
    const auto stamp = packageStamp(scratch.path("Story"));
    ASSERT_TRUE(stamp);
    EXPECT_THAT(pathsOf(*stamp), ElementsAre("article.json", "b/d.png", "b/low/c.png", "e/f"));
}

TEST(PackageStamp, tellsEveryChangeThatSomebodyElseMakes) {
    using Change = void (*)(const ScratchFolder&);
    const Change changes[] = {
        [](const ScratchFolder& scratch) { scratch.write("Story/new", ""); },
        [](const ScratchFolder& scratch) { fs::remove(scratch.path("Story/b/c.png")); },
        [](const ScratchFolder& scratch) { scratch.write("Story/article.json", "[]"); },
        [](const ScratchFolder& scratch) {
            fs::rename(scratch.path("Story/b/c.png"), scratch.path("Story/c.png"));
        },
        [](const ScratchFolder& scratch) { // the same contents in a new package
            const auto tree = *readFolder(scratch.path("Story"));
            fs::rename(scratch.path("Story"), scratch.path("Old"));
            ASSERT_TRUE(writeFolder(tree, scratch.path("Story")));
        },
    };
    for (const Change& change : changes) {
        const ScratchFolder scratch;
        scratch.write("Story/article.json", "{}");
        scratch.write("Story/b/c.png", "c");
        const PackageStamp before = packageStamp(scratch.path("Story")).value();
        EXPECT_EQ(packageStamp(scratch.path("Story")).value(), before);
        fs::last_write_time(scratch.path("Story/article.json"), fs::file_time_type::clock::now());
        const PackageStamp touched = packageStamp(scratch.path("Story")).value();
        EXPECT_FALSE(touched == before);
        change(scratch);
        const PackageStamp after = packageStamp(scratch.path("Story")).value();
        EXPECT_FALSE(after == touched);
        EXPECT_NE(after.mark(), touched.mark());
        EXPECT_NE(touched.mark(), before.mark());
        EXPECT_EQ(after.mark(), PackageStamp(after).mark());
    }
}

TEST(PackageStamp, failsWhereNoFolderStandsAndAtAnyStep) {
    const ScratchFolder scratch;
    scratch.write("Story/b/low/c.png", "c");
    EXPECT_EQ(packageStamp(scratch.path("None")).error().errorNumber, ENOENT);
    EXPECT_EQ(packageStamp(scratch.path("Story/b/low/c.png")).error().errorNumber, ENOTDIR);
    for (std::size_t step = 1;; ++step) {
        FaultyFileSystem faulty({.step = step, .kind = FaultKind::one, .errorNumber = EIO});
        const auto stamp = packageStamp(scratch.path("Story"), faulty);
        if (!faulty.hasStruck()) {
            EXPECT_GT(step, 8U);
            break;
        }
        ASSERT_FALSE(stamp) << step;
        EXPECT_EQ(stamp.error().errorNumber, EIO);
    }
}

TEST(PackageStamp, reachesTheBottomOfDeepFolders) {
    constexpr std::size_t depth = 10000;
    const ScratchFolder scratch;
    FileSystem& disk = systemFileSystem();
    const FileDescriptor root = std::move(*disk.openRoot(scratch.path()));
    ASSERT_TRUE(disk.makeFolder(root.number(), "Story", 0700));
    FileDescriptor folder = std::move(*disk.openFolder(root.number(), "Story"));
    for (std::size_t level = 0; level < depth; ++level) {
        ASSERT_TRUE(disk.makeFolder(folder.number(), "d", 0700));
        FileDescriptor below = std::move(*disk.openFolder(folder.number(), "d"));
        folder = std::move(below);
    }
    ASSERT_TRUE(disk.createFile(folder.number(), "bottom", 0600));
    const auto stamp = packageStamp(scratch.path("Story"));
    EXPECT_TRUE(removeTree(disk, root.number(), "Story"));
    ASSERT_TRUE(stamp);
    ASSERT_EQ(stamp->files.size(), 1U);
    EXPECT_EQ(stamp->files.begin()->first.size(), 2 * depth + 6);
}

} // namespace
} // namespace quillon::test
