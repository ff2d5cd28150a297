#include "base/FileTree.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

FileWrapper named(FileWrapper wrapper, const std::string& name) {
    wrapper.setPreferredFilename(name);
    return wrapper;
}

TEST(Bytes, CopiesShareContentsAndOriginAndEqualityAsksContentsOnly) {
    const Bytes bytes("abc");
    const Bytes copy = bytes;
    copy.noteOrigin({.device = 1, .inode = 2, .size = 3, .modified = 4});
    EXPECT_EQ(bytes.view().data(), copy.view().data());
    EXPECT_EQ(bytes.origin()->inode, 2U);
    EXPECT_EQ(bytes, Bytes("abc"));
    EXPECT_NE(bytes, Bytes("abd"));
    EXPECT_EQ(Bytes(), Bytes(""));
}

TEST(FileWrapper, ALaterChildTakesThePlaceOfOneWithItsName) {
    FileWrapper root = FileWrapper::directory();
    root.addFileWrapper(named(FileWrapper::other(), "a"));
    root.addFileWrapper(named(FileWrapper::regularFile(Bytes("1")), "a"));
    ASSERT_EQ(root.fileWrappers()->size(), 1U);
    EXPECT_EQ(root.child("a")->regularFileContents().value()->view(), "1");
    root.addFileWrapper(named(FileWrapper::directory(), "a"));
    EXPECT_TRUE(root.child("a")->isDirectory());
    EXPECT_EQ(root.child("a")->regularFileContents().value(), std::nullopt);
}

TEST(FileWrapper, OnlyFoldersHaveChildren) {
    FileWrapper file = FileWrapper::regularFile(Bytes("1"));
    file.addFileWrapper(named(FileWrapper::other(), "a"));
    EXPECT_EQ(file.fileWrappers(), nullptr);
    EXPECT_EQ(file.child("a"), nullptr);
    EXPECT_EQ(FileWrapper::other().regularFileContents().value(), std::nullopt);
}

TEST(FileWrapper, ContentsAreLoadedOnceAndAFailedLoadIsTriedAgain) {
    int loads = 0;
    const FileWrapper file = FileWrapper::regularFile([&]() -> Expected<Bytes, DiskFailure> {
        if (++loads == 1)
            return unexpected(diskFailure("a", 5));
        return Bytes("1");
    });
    EXPECT_EQ(file.regularFileContents().error().message, "a: input/output error");
    EXPECT_EQ(file.regularFileContents().value(), Bytes("1"));
    EXPECT_EQ(file.regularFileContents().value(), Bytes("1"));
    EXPECT_EQ(loads, 2);
}

TEST(FileWrapper, ATreeOfAnyDepthIsTakenDown) {
    FileWrapper root = FileWrapper::directory();
    FileWrapper folder = root;
    for (int level = 0; level < 200'000; ++level) {
        const FileWrapper below = named(FileWrapper::directory(), "d");
        folder.addFileWrapper(below);
        folder = below;
    }
    EXPECT_NE(root.child("d"), nullptr);
}

TEST(FileTree, KnowsWhichPiecesCanBeNames) {
    const struct {
        std::string piece;
        bool isSafe;
    } cases[] = {
        {"a", true},     {".hidden", true}, {"...", true},
        {" ", true},     {"\\", true},      {std::string(255, 'x'), true},
        {"", false},     {".", false},      {"..", false},
        {"a/b", false},  {"/", false},      {std::string("a\0b", 3), false},
        {"../x", false}, {"/etc", false},   {std::string(256, 'x'), false},
    };
    for (const auto& [piece, isSafe] : cases) {
        SCOPED_TRACE(piece);
        EXPECT_EQ(isSafePathPiece(piece), isSafe);
    }
}

} // namespace
} // namespace quillon
