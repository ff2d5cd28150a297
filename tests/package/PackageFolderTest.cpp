#include "package/PackageFolder.h"

#include "support/ChildProcess.h"
#include "support/FaultyFileSystem.h"
#include "support/ScratchFolder.h"

#include <cerrno>
#include <filesystem>
#include <fstream>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

namespace quillon::test {
namespace {

namespace fs = std::filesystem;

using Files = std::map<std::string, std::string>;

FileWrapper named(FileWrapper wrapper, const std::string& name) {
    wrapper.setPreferredFilename(name);
    return wrapper;
}

/// Adds a file with the folders on its way.
void add(FileWrapper folder, const std::string& key, const Bytes& bytes) {
    const fs::path path = key;
    for (const fs::path& piece : path.parent_path()) {
        if (!folder.child(piece.string()))
            folder.addFileWrapper(named(FileWrapper::directory(), piece.string()));
        folder = FileWrapper(*folder.child(piece.string()));
    }
    folder.addFileWrapper(named(FileWrapper::regularFile(bytes), path.filename().string()));
}

FileWrapper treeOf(const Files& files) {
    const FileWrapper root = FileWrapper::directory();
    for (const auto& [key, contents] : files)
        add(root, key, Bytes(contents));
    return root;
}

/// All regular files of a tree; reads them.
std::map<std::string, Bytes> bytesIn(const FileWrapper& folder, const std::string& prefix = {}) {
    std::map<std::string, Bytes> found;
    for (const auto& [name, child] : *folder.fileWrappers()) {
        if (child.isDirectory())
            found.merge(bytesIn(child, prefix + name + "/"));
        else if (const auto contents = child.regularFileContents().value())
            found[prefix + name] = *contents;
    }
    return found;
}

Files filesIn(const FileWrapper& folder) {
    Files files;
    for (const auto& [key, bytes] : bytesIn(folder))
        files[key] = bytes.view();
    return files;
}

ino_t inodeOf(const std::string& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0 ? status.st_ino : 0;
}

/// Nothing is flushed, to keep the tests fast.
SaveReport save(const FileWrapper& tree, const std::string& path) {
    FaultyFileSystem faultless({});
    const auto report = writeFolder(tree, path, faultless);
    EXPECT_TRUE(report) << report.error().message;
    return report.value_or(SaveReport());
}

TEST(ReadFolder, TakesEveryRegularFileAndPassesOverTheRest) {
    const ScratchFolder scratch;
    const Files files = {{"article.json", "{}"},
                         {".hidden", "h"},
                         {"a/article.json", "{ }"},
                         {"a/b/c.bin", std::string("\0\xFF\r\n", 4)},
                         {"a/empty", ""}};
    for (const auto& [key, contents] : files)
        scratch.write("Story/" + key, contents);
    scratch.write("secret", "outside");
    fs::create_directory(scratch.path("Story/nothing"));
    fs::create_symlink("../secret", scratch.path("Story/link"));
    fs::create_directory_symlink("..", scratch.path("Story/a/loop"));
    ASSERT_EQ(::mkfifo(scratch.path("Story/pipe").c_str(), 0600), 0);
    const int socketFile = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{AF_UNIX, {}};
    scratch.path("Story/socket").copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(::bind(socketFile, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ::close(socketFile);

    const auto tree = readFolder(scratch.path("Story/"));
    ASSERT_TRUE(tree);
    EXPECT_EQ(filesIn(*tree), files);
    for (const char* name : {"link", "pipe", "socket"}) {
        ASSERT_NE(tree->child(name), nullptr) << name;
        EXPECT_FALSE(tree->child(name)->isDirectory() || tree->child(name)->isRegularFile()) << name;
    }

    fs::create_directory_symlink("Story", scratch.path("Alias"));
    EXPECT_EQ(filesIn(*readFolder(scratch.path("Alias"))), files);
}

TEST(ReadFolder, FailsWithPathAndCause) {
    const ScratchFolder scratch;
    scratch.write("file", "");
    scratch.write("Latin/a/caf\xE9.png", "");
    scratch.write("Surrogate/\xED\xA0\x80", "");
    const struct {
        std::string path;
        int errorNumber;
        std::string message;
    } cases[] = {
        {"missing", ENOENT, "missing: no such file or folder"},
        {"missing/Story", ENOENT, "missing/Story: no such file or folder"},
        {"file", ENOTDIR, "file: not a folder"},
        {"Latin", EILSEQ, "Latin/a: holds a file whose name is not valid UTF-8"},
        {"Surrogate", EILSEQ, "Surrogate: holds a file whose name is not valid UTF-8"},
    };
    for (const auto& expected : cases) {
        SCOPED_TRACE(expected.path);
        const auto tree = readFolder(scratch.path(expected.path));
        ASSERT_FALSE(tree);
        EXPECT_EQ(tree.error().errorNumber, expected.errorNumber);
        EXPECT_TRUE(tree.error().message.ends_with("/" + expected.message)) << tree.error().message;
    }
    scratch.write("Fine/\xC3\xA9\xE2\x82\xAC\xF0\x9F\x93\xB0", "");
    EXPECT_TRUE(readFolder(scratch.path("Fine")));
}

TEST(ReadFolder, AFileIsReadWhenAskedForAndItsFailureNamesIt) {
    const ScratchFolder scratch;
    for (const char* key : {"Story/a/gone", "Story/a/b/piped", "Story/c/fine"})
        scratch.write(key, "1");
    const auto tree = readFolder(scratch.path("Story"));
    fs::remove(scratch.path("Story/a/gone"));
    fs::remove(scratch.path("Story/a/b/piped"));
    ASSERT_EQ(::mkfifo(scratch.path("Story/a/b/piped").c_str(), 0600), 0);

    const auto gone = tree->child("a")->child("gone")->regularFileContents();
    EXPECT_EQ(gone.error().message, scratch.path("Story/a/gone") + ": no such file or folder");
    const auto piped = tree->child("a")->child("b")->child("piped")->regularFileContents();
    EXPECT_EQ(piped.error().message,
              scratch.path("Story/a/b/piped") + ": moved or replaced by another program");
    EXPECT_EQ(tree->child("c")->child("fine")->regularFileContents().value(), Bytes("1"));
}

TEST(ReadFolder, AFileIsReadWholeOrNotAtAllWhileItChanges) {
    const struct {
        int changes;
        bool isRead;
    } cases[] = {{1, true}, {2, true}, {3, false}};
    for (const auto& [changes, isRead] : cases) {
        SCOPED_TRACE(changes);
        const ScratchFolder scratch;
        scratch.write("Story/a", "first");
        int reads = 0;
        FaultPlan plan;
        plan.before = [&, most = changes](std::string_view step) {
            if (step == "read" && ++reads <= most)
                std::ofstream(scratch.path("Story/a"), std::ios::app) << "+" << reads;
        };
        FaultyFileSystem busy(plan);
        const auto tree = readFolder(scratch.path("Story"), busy);
        const auto contents = tree->child("a")->regularFileContents();
        EXPECT_EQ(contents.has_value(), isRead);
        EXPECT_EQ(contents ? "" : contents.error().message,
                  isRead ? "" : scratch.path("Story/a") + ": in use by another program");
        if (contents) {
            EXPECT_EQ((*contents)->view(), changes == 1 ? "first+1" : "first+1+2");
        }
    }
}

RC_GTEST_PROP(WriteFolder, WhatWasWrittenIsRead, ()) {
    const ScratchFolder scratch;
    const auto piece = rc::gen::container<std::string>(rc::gen::elementOf(std::string("ab.")));
    const auto key = rc::gen::map(rc::gen::resize(3, rc::gen::container<std::vector<std::string>>(piece)),
                                  [](const std::vector<std::string>& pieces) {
                                      std::string joined = "f";
                                      for (const std::string& each : pieces)
                                          joined = "d" + each + "/" + joined;
                                      return joined;
                                  });
    const auto files = rc::gen::resize(12, rc::gen::container<Files>(key, rc::gen::arbitrary<std::string>()));
    for (int round = 0; round < 2; ++round) {
        const Files expected = *files;
        save(treeOf(expected), scratch.path("Story"));
        RC_ASSERT(filesIn(*readFolder(scratch.path("Story"))) == expected);
        RC_ASSERT(scratch.names() == std::set<std::string>{"Story"});
    }
}

TEST(WriteFolder, UnchangedFilesStayTheFilesTheyWere) {
    const ScratchFolder scratch;
    scratch.write("Story/article.json", "old");
    scratch.write("Story/images/a.png", "kept");
    fs::permissions(scratch.path("Story/images/a.png"), fs::perms(0444));
    const ino_t inode = inodeOf(scratch.path("Story/images/a.png"));
    const auto time = fs::last_write_time(scratch.path("Story/images/a.png"));

    FileWrapper tree = treeOf({{"article.json", "new"}});
    add(tree, "images/a.png", bytesIn(*readFolder(scratch.path("Story"))).at("images/a.png"));
    add(tree, "images/new.png", Bytes("added"));
    for (const std::size_t written : {2U, 0U, 0U}) { // from the second save on, everything is as it was
        const SaveReport report = save(tree, scratch.path("Story"));
        EXPECT_EQ(report.filesWritten, written);
        EXPECT_EQ(report.bytesWritten, written == 0 ? 0U : 8U);
        EXPECT_EQ(report.filesLinked, 3 - written);
        EXPECT_EQ(inodeOf(scratch.path("Story/images/a.png")), inode);
        EXPECT_EQ(fs::last_write_time(scratch.path("Story/images/a.png")), time);
        EXPECT_EQ(fs::hard_link_count(scratch.path("Story/images/a.png")), 1U);
    }
    save(tree, scratch.path("Copy")); // a second package shares nothing with the first
    EXPECT_NE(inodeOf(scratch.path("Copy/images/a.png")), inode);
}

TEST(WriteFolder, OurBytesWinOverAFileThatSomeoneChanged) {
    const auto rewrite = [](const fs::path& file) {
        std::ofstream(file, std::ios::binary) << "THEIRS";
    };
    const auto replace = [](const fs::path& file) {
        fs::remove(file);
        std::ofstream(file, std::ios::binary) << "THEIRS";
        makeOld(file);
    };
    const auto remove = [](const fs::path& file) {
        fs::remove(file);
    };
    const auto makeFolder = [](const fs::path& file) {
        fs::remove(file);
        fs::create_directory(file);
    };
    const auto makeLink = [](const fs::path& file) {
        fs::remove(file);
        fs::create_symlink("other", file);
    };
    const auto moveFolder = [](const fs::path& file) {
        fs::rename(file.parent_path(), file.parent_path().parent_path() / "moved");
        fs::create_directory_symlink("moved", file.parent_path());
    };
    const struct {
        const char* name;
        std::function<void(const fs::path&)> change;
    } changes[] = {
        {"rewrite", rewrite},      {"replace", replace},
        {"remove", remove},        {"make a folder", makeFolder},
        {"make a link", makeLink}, {"move its folder behind a link", moveFolder},
    };
    for (const auto& [name, change] : changes) {
        SCOPED_TRACE(name);
        const ScratchFolder scratch;
        scratch.write("Story/images/a.png", "ours..");
        const auto tree = readFolder(scratch.path("Story"));
        EXPECT_EQ(filesIn(*tree).size(), 1U);
        change(scratch.path("Story/images/a.png"));
        EXPECT_EQ(save(*tree, scratch.path("Story")).filesWritten, 1U);
        EXPECT_EQ(snapshot(scratch.path("Story")),
                  (Files{{"./", ""}, {"images/", ""}, {"images/a.png", "ours.."}}));
    }
}

TEST(WriteFolder, OurBytesWinOverAFileThatIsChangedWhileItIsTakenOver) {
    for (const char* operation : {"link", "clone"}) {
        SCOPED_TRACE(operation);
        const ScratchFolder scratch;
        scratch.write("Story/a.png", "ours");
        const auto tree = readFolder(scratch.path("Story"));
        EXPECT_EQ(filesIn(*tree).size(), 1U);
        FaultPlan plan{.canLink = operation == std::string("link"), .canClone = true};
        plan.before = [&](std::string_view step) {
            if (step == operation)
                std::ofstream(scratch.path("Story/a.png"), std::ios::binary) << "THEM";
        };
        FaultyFileSystem busy(plan);
        const auto report = writeFolder(*tree, scratch.path("Story"), busy);
        EXPECT_TRUE(report && report->filesWritten == 1);
        EXPECT_EQ(snapshot(scratch.path("Story")), (Files{{"./", ""}, {"a.png", "ours"}}));
    }
}

TEST(WriteFolder, LeavesAPackageAloneThatAnotherProgramPutThereMeanwhile) {
    const ScratchFolder scratch;
    scratch.write("Story/a", "1");
    FaultPlan plan;
    plan.before = [&](std::string_view step) {
        if (step != "write" || fs::exists(scratch.path("moved")))
            return;
        fs::rename(scratch.path("Story"), scratch.path("moved"));
        scratch.write("Story/theirs", "2");
    };
    FaultyFileSystem busy(plan);
    const auto report = writeFolder(treeOf({{"a", "3"}}), scratch.path("Story"), busy);
    ASSERT_FALSE(report);
    EXPECT_EQ(report.error().message, scratch.path("Story") + ": moved or replaced by another program");
    EXPECT_EQ(snapshot(scratch.path()),
              (Files{{"./", ""}, {"Story/", ""}, {"Story/theirs", "2"}, {"moved/", ""}, {"moved/a", "1"}}));
}

TEST(WriteFolder, AFileTooFreshToTellItsNextChangeIsWritten) {
    const ScratchFolder scratch;
    scratch.write("Story/a", "1");
    fs::last_write_time(scratch.path("Story/a"), fs::file_time_type::clock::now() + std::chrono::minutes(1));
    const auto tree = readFolder(scratch.path("Story"));
    EXPECT_EQ(filesIn(*tree).size(), 1U);
    EXPECT_EQ(save(*tree, scratch.path("Story")).filesWritten, 1U);
}

TEST(WriteFolder, KeepsModesAndGivesNewFilesThoseOfTheProcess) {
    const ScratchFolder scratch;
    for (const char* key : {"Story/changed", "Story/d/kept"})
        scratch.write(key, "1");
    const auto mode = [&](const char* below) {
        return static_cast<unsigned>(fs::status(scratch.path(below)).permissions());
    };
    fs::permissions(scratch.path("Story/changed"), fs::perms(0604));
    fs::permissions(scratch.path("Story/d/kept"), fs::perms(0751));
    fs::permissions(scratch.path("Story/d"), fs::perms(02550));
    fs::permissions(scratch.path("Story"), fs::perms(0710));
    const mode_t mask = ::umask(027);
    save(treeOf({{"changed", "2"}, {"d/kept", "1"}, {"d/new", ""}, {"e/new", ""}}), scratch.path("Story"));
    save(treeOf({{"new", ""}}), scratch.path("Other"));
    ::umask(mask);
    const struct {
        const char* below;
        unsigned mode;
    } expected[] = {
        {"Story", 0710},       {"Story/changed", 0604}, {"Story/d", 02550}, {"Story/d/kept", 0751},
        {"Story/d/new", 0640}, {"Story/e", 0750},       {"Other", 0750},    {"Other/new", 0640},
    };
    for (const auto& each : expected)
        EXPECT_EQ(mode(each.below), each.mode) << each.below;
}

TEST(WriteFolder, NoNameLeadsOutOfThePackage) {
    const std::string names[] = {
        "", ".", "..", "../x", "a/b", "/x", "/", std::string("a\0b", 3), std::string(256, 'x')};
    for (const std::string& name : names) {
        for (const bool isFolder : {false, true}) {
            SCOPED_TRACE(name);
            const ScratchFolder scratch;
            scratch.write("Story/d/a", "1");
            const Files before = snapshot(scratch.path());
            FileWrapper tree = treeOf({{"d/a", "2"}, {"z", "3"}});
            FileWrapper hostile = isFolder ? treeOf({{"x", "bad"}}) : FileWrapper::regularFile(Bytes("bad"));
            FileWrapper(*tree.child("d")).addFileWrapper(named(hostile, name));
            const auto report = writeFolder(tree, scratch.path("Story"));
            ASSERT_FALSE(report);
            EXPECT_EQ(report.error().path, scratch.path("Story/d") + "/" + name);
            EXPECT_EQ(snapshot(scratch.path()), before);
        }
    }
}

TEST(WriteFolder, RefusesPlacesWhereNoPackageCanBe) {
    const ScratchFolder scratch;
    scratch.write("file", "1");
    fs::create_symlink("nowhere", scratch.path("dangling"));
    const struct {
        std::string path;
        int errorNumber;
    } cases[] = {
        {scratch.path("file"), ENOTDIR},
        {scratch.path("file/Story"), ENOTDIR},
        {scratch.path("missing/Story"), ENOENT},
        {scratch.path("dangling"), ENOTDIR},
        {scratch.path("missing/.."), EINVAL},
        {"/", EINVAL},
        {"", EINVAL},
        {scratch.path("a") + '\0', EINVAL},
        {scratch.path(std::string(256, 'x')), ENAMETOOLONG},
    };
    const Files before = snapshot(scratch.path());
    for (const auto& [path, errorNumber] : cases) {
        SCOPED_TRACE(path);
        const auto report = writeFolder(treeOf({{"a", "1"}}), path);
        ASSERT_FALSE(report);
        EXPECT_EQ(report.error().errorNumber, errorNumber) << report.error().message;
        EXPECT_EQ(snapshot(scratch.path()), before);
    }
}

TEST(WriteFolder, SavesBehindALinkAndUnderALongName) {
    const ScratchFolder scratch;
    scratch.write("real/Story/a", "1");
    fs::create_directory_symlink("real/Story", scratch.path("Alias"));
    save(treeOf({{"a", "2"}}), scratch.path("Alias/"));
    EXPECT_TRUE(fs::is_symlink(scratch.path("Alias")));
    EXPECT_EQ(snapshot(scratch.path("real")), (Files{{"./", ""}, {"Story/", ""}, {"Story/a", "2"}}));

    std::string longName;
    for (int count = 0; count < 85; ++count)
        longName += "\xE2\x82\xAC";
    for (int round = 0; round < 2; ++round)
        save(treeOf({{"a", "3"}}), scratch.path(longName));
    EXPECT_EQ(snapshot(scratch.path(longName)), (Files{{"./", ""}, {"a", "3"}}));
}

TEST(WriteFolder, ReadsAndWritesFoldersDeeperThanAPathCanBe) {
    const ScratchFolder scratch;
    const FileWrapper tree = FileWrapper::directory();
    FileWrapper folder = tree;
    for (int level = 0; level < 2500; ++level) {
        const FileWrapper below = named(FileWrapper::directory(), "deep");
        folder.addFileWrapper(below);
        folder = below;
    }
    folder.addFileWrapper(named(FileWrapper::regularFile(Bytes("bottom")), "f"));
    for (int round = 0; round < 2; ++round)
        save(tree, scratch.path("Story"));
    const auto read = readFolder(scratch.path("Story"));
    ASSERT_TRUE(read);
    const FileWrapper* found = &*read;
    while (found && found->isDirectory())
        found = found->fileWrappers()->empty() ? nullptr : &found->fileWrappers()->begin()->second;
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->regularFileContents().value(), Bytes("bottom"));
    save(treeOf({}), scratch.path("Story"));
    EXPECT_EQ(snapshot(scratch.path("Story")).size(), 1U);
}

TEST(WriteFolder, WithoutRightsInTheParentItFailsAndAReadOnlyFolderInThePackageIsNoHindrance) {
    const ScratchFolder scratch;
    fs::permissions(scratch.path(), fs::perms(0777));
    ASSERT_TRUE(passesWithoutRights([&] {
        scratch.write("closed/Story/a", "1");
        scratch.write("open/Story/d/a", "1");
        fs::permissions(scratch.path("closed"), fs::perms(0555));
        fs::permissions(scratch.path("open/Story/d"), fs::perms(0555));
        const auto refused = writeFolder(treeOf({{"a", "2"}}), scratch.path("closed/Story"));
        const auto saved = writeFolder(treeOf({{"d/a", "2"}}), scratch.path("open/Story"));
        return !refused && refused.error().message == scratch.path("closed") + ": permission denied" &&
               saved && saved->leftBehind.empty();
    }));
    EXPECT_EQ(snapshot(scratch.path("closed")), (Files{{"./", ""}, {"Story/", ""}, {"Story/a", "1"}}));
    EXPECT_EQ(snapshotWithModes(scratch.path("open/Story")).at("d/"), "365 ");
    EXPECT_EQ(snapshot(scratch.path("open")),
              (Files{{"./", ""}, {"Story/", ""}, {"Story/d/", ""}, {"Story/d/a", "2"}}));
}

TEST(InterruptedSave, TheMissingPackageComesBackWhenItIsOpened) {
    const ScratchFolder scratch;
    scratch.write(".Story.quillon-aside-a1b2c3/a", "1");
    EXPECT_FALSE(readFolder(scratch.path("Other")));
    EXPECT_EQ(filesIn(*readFolder(scratch.path("Story"))), (Files{{"a", "1"}}));
    EXPECT_EQ(scratch.names(), (std::set<std::string>{"Story"}));
    EXPECT_EQ(recoverInterruptedSave(scratch.path("Story")), false);
}

TEST(InterruptedSave, ASaveRemovesOnlyWhatDeadSavesOfItsPackageLeft) {
    const ScratchFolder scratch;
    const std::set<std::string> kept = {
        "Story",                       // the package
        ".Other.quillon-save-a1b2c3",  // of another package
        ".Story.quillon-save-a1b2c3d", // not quite a name of ours
        ".Story.quillon-save-living",  // of a process that lives
        ".Story.quillon-aside-living", // the same
    };
    for (const std::string& name : kept)
        scratch.write(name + "/a", "1");
    scratch.write(".Story.quillon-save-a1b2c3/d/a", "1");
    scratch.write(".Story.quillon-aside-a1b2c3/d/a", "1");
    std::vector<FileDescriptor> locks;
    for (const char* name : {".Story.quillon-save-living", ".Story.quillon-aside-living"}) {
        locks.emplace_back(::open(scratch.path(name).c_str(), O_RDONLY | O_CLOEXEC));
        ASSERT_EQ(::flock(locks.back().number(), LOCK_EX), 0);
    }
    save(treeOf({{"a", "2"}}), scratch.path("Story"));
    EXPECT_EQ(scratch.names(), kept);
}

} // namespace
} // namespace quillon::test
