#include "package/ArticleFileDocument.h"
#include "base/Log.h"
#include "package/PackageFile.h"
#include "support/FaultyFileSystem.h"
#include "support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace quillon {
namespace {

constexpr auto smallArticle =
    R"({"version":"1.7","identifier":"a","language":"en","title":"T","layout":{"columns":7,"width":1024},"components":[]})";

/// A folder in memory of files by their paths.
FileWrapper folderOf(const std::map<std::string, std::string>& files) {
    FileWrapper root = FileWrapper::directory();
    for (const auto& [path, text] : files) {
        addAsset(root, path, Bytes(text));
    }
    return root;
}

std::vector<std::string> keysOf(const Assets& assets) {
    std::vector<std::string> keys;
    for (const auto& [key, bytes] : assets) {
        keys.push_back(key);
    }
    return keys;
}

FileWrapper named(FileWrapper node, std::string name) {
    node.setPreferredFilename(std::move(name));
    return node;
}

TEST(ArticleFileDocument, everyFileButTheArticleIsAnAsset) {
    FileWrapper root = folderOf({{"article.json", smallArticle},
                                 {".hidden", "h"},
                                 {"sub/article.json", "not the article"},
                                 {"images/A.png", "1"},
                                 {"images/a.png", "22"},
                                 {"a b/ü+.jpg", "333"}});
    root.addFileWrapper(named(FileWrapper::other(), "socket"));
    root.addFileWrapper(named(FileWrapper::directory(), "empty"));

    const auto document = readPackage(root);

    ASSERT_TRUE(document) << document.error().message("P");
    EXPECT_EQ(document->article.title, "T");
    EXPECT_EQ(keysOf(*document->assets), (std::vector<std::string>{".hidden", "a b/ü+.jpg", "images/A.png",
                                                                   "images/a.png", "sub/article.json"}));
    EXPECT_EQ(document->assetsFingerprint,
              ".hidden:1,a b/ü+.jpg:3,images/A.png:1,images/a.png:2,sub/article.json:15");

    const auto written = writePackage(*document);
    ASSERT_TRUE(written);
    const auto again = readPackage(*written);
    ASSERT_TRUE(again);
    EXPECT_EQ(again->assets, document->assets);
    EXPECT_EQ(written->child("empty"), nullptr);
    EXPECT_EQ(written->child("socket"), nullptr);
}

TEST(ArticleFileDocument, whatIsNoPackageSaysWhy) {
    FileWrapper articleIsFolder = FileWrapper::directory();
    articleIsFolder.addFileWrapper(named(FileWrapper::directory(), "article.json"));
    FileWrapper articleIsLink = FileWrapper::directory();
    articleIsLink.addFileWrapper(named(FileWrapper::other(), "article.json"));
    struct Case {
        FileWrapper root;
        std::string message;
    };
    const Case cases[] = {
        {FileWrapper::regularFile(Bytes("x")), "P: not a folder that can be read"},
        {FileWrapper::other(), "P: not a folder that can be read"},
        {FileWrapper::directory(), "P: no article.json in this folder"},
        {folderOf({{"Article.json", smallArticle}}), "P: no article.json in this folder"},
        {articleIsFolder, "P: no article.json in this folder"},
        {articleIsLink, "P: no article.json in this folder"},
        {folderOf({{"article.json", "{\"version\":1"}}),
         "P/article.json: line 1, column 13: expected ',' or '}', found the end of the text"},
        {folderOf({{"article.json", "{}"}}), "P/article.json: version: expected text, found nothing"},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.message);
        const auto document = readPackage(one.root);
        ASSERT_FALSE(document);
        EXPECT_EQ(document.error().message("P"), one.message);
    }
}

TEST(ArticleFileDocument, aBrokenArticleIsFoundBeforeAnyAssetIsRead) {
    FileWrapper root = folderOf({{"article.json", "{"}});
    root.addFileWrapper(named(FileWrapper::regularFile([]() -> Expected<Bytes, DiskFailure> {
                                  ADD_FAILURE() << "an asset was read";
                                  return Bytes();
                              }),
                              "a.png"));
    EXPECT_FALSE(readPackage(root));
}

TEST(ArticleFileDocument, piecesOfAKeyBecomeFolders) {
    struct Case {
        std::string key;
        std::string path; ///< where it comes back; nowhere when empty
    };
    for (const auto& [key, path] :
         {Case{"a/b/c", "a/b/c"}, Case{"//a//b", "a/b"}, Case{"/", ""}, Case{"", ""}}) {
        SCOPED_TRACE(key);
        FileWrapper root = FileWrapper::directory();
        addAsset(root, key, Bytes("x"));
        const auto assets = collectAssets(root, "");
        ASSERT_TRUE(assets);
        EXPECT_EQ(keysOf(*assets),
                  path.empty() ? std::vector<std::string>{} : std::vector<std::string>{path});
    }
}

TEST(ArticleFileDocument, theFingerprintSortsWholeEntries) {
    EXPECT_EQ(assetsFingerprintText({}), "");
    EXPECT_EQ(assetsFingerprintText({{"a", Bytes("12345")}, {"a-b", Bytes("54321")}}), "a-b:5,a:5");
    EXPECT_EQ(assetsDetailText({{"a", Bytes("12345")}, {"b", Bytes("1")}}), "assets=2 bytes=6");
}

TEST(ArticleFileDocument, openAndSaveAreLogged) {
    std::vector<std::string> lines;
    setLogSink([&](std::string_view line) { lines.emplace_back(line); });
    const auto document = readPackage(folderOf({{"article.json", smallArticle}, {"a", "1234"}}));
    readPackage(FileWrapper::directory());
    writePackage(*document);
    setLogSink({});

    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[0], "document.open.assets assets=1 bytes=4");
    EXPECT_TRUE(lines[1].starts_with("document.open completed in ") && lines[1].ends_with(" ms")) << lines[1];
    EXPECT_TRUE(lines[2].starts_with("document.open completed in ")) << lines[2];
    EXPECT_TRUE(lines[3].starts_with("document.save completed in ") &&
                lines[3].ends_with(" ms assets=1 bytes=4"))
        << lines[3];
}

TEST(ArticleFileDocument, aKeyNeverLeavesThePackage) {
    const test::ScratchFolder scratch;
    ArticleFileDocument document{*sharedArticleDecoder.decode(smallArticle), {}, {}};
    for (const std::string& key : {std::string("../out"), std::string("a/../../out"), std::string("."),
                                   std::string(300, 'x'), std::string("a\0b", 3)}) {
        SCOPED_TRACE(key);
        document.assets = Assets{{key, Bytes("x")}};
        const auto report = savePackage(document, scratch.path("P"));
        ASSERT_FALSE(report);
        EXPECT_TRUE(std::holds_alternative<DiskFailure>(report.error().cause));
    }
    document.assets = Assets{{"/etc/inside", Bytes("x")}};
    ASSERT_TRUE(savePackage(document, scratch.path("P")));
    const auto opened = openPackage(scratch.path("P"));
    ASSERT_TRUE(opened);
    EXPECT_EQ(keysOf(*opened->assets), std::vector<std::string>{"etc/inside"});
}

TEST(ArticleFileDocument, assetsOfAnyDepthAreCollected) {
    // Deeper than any stack of calls would be.
    constexpr int levels = 20'000;
    FileWrapper node = named(FileWrapper::regularFile(Bytes("x")), "f");
    std::string key = "f";
    for (int level = 0; level < levels; ++level) {
        FileWrapper folder = named(FileWrapper::directory(), "d");
        folder.addFileWrapper(node);
        node = folder;
        key.insert(0, "d/");
    }
    FileWrapper root = folderOf({{"article.json", smallArticle}});
    root.addFileWrapper(node);
    const auto assets = collectAssets(root, "");
    ASSERT_TRUE(assets);
    EXPECT_EQ(keysOf(*assets), std::vector<std::string>{key});
}

TEST(ArticleFileDocument, aPackageThatIsReplacedWhileItIsReadIsReadAnew) {
    const test::ScratchFolder scratch;
    ArticleFileDocument document{*sharedArticleDecoder.decode(smallArticle), {}, {}};
    for (const char* key : {"a", "b", "c"}) {
        document.assets.edit().emplace(key, Bytes(key));
    }
    ASSERT_TRUE(savePackage(document, scratch.path("P")));
    bool isReplaced = false;
    test::FaultyFileSystem fileSystem({.before = [&](std::string_view operation) {
        if (operation == "list" && !isReplaced) {
            isReplaced = true;
            ASSERT_TRUE(savePackage(document, scratch.path("P")));
        }
    }});
    const auto opened = openPackage(scratch.path("P"), fileSystem);
    ASSERT_TRUE(opened) << opened.error().message("P");
    EXPECT_EQ(opened->assets, document.assets);
    EXPECT_TRUE(isReplaced);
}

TEST(ArticleFileDocument, aFolderThatAnotherSaveTidiesAwayIsNotBuiltIn) {
    const test::ScratchFolder scratch;
    const ArticleFileDocument document{
        *sharedArticleDecoder.decode(smallArticle), Assets{{"a", Bytes("1")}}, {}};
    ASSERT_TRUE(savePackage(document, scratch.path("P")));
    const auto before = test::snapshot(scratch.path("P"));
    int taken = -1;
    test::FaultyFileSystem fileSystem({.before = [&](std::string_view operation) {
        for (const std::string& name : scratch.names()) {
            if (operation == "lock" && taken < 0 && name.starts_with(".P.quillon-save-")) {
                taken = ::open(scratch.path(name).c_str(), O_RDONLY | O_DIRECTORY);
                ASSERT_EQ(::flock(taken, LOCK_EX | LOCK_NB), 0);
            }
        }
    }});
    const auto report = writeFolder(*writePackage(document), scratch.path("P"), fileSystem);
    ASSERT_GE(taken, 0);
    ::close(taken);
    ASSERT_FALSE(report);
    EXPECT_EQ(report.error().errorNumber, EBUSY);
    EXPECT_EQ(test::snapshot(scratch.path("P")), before);
    EXPECT_EQ(scratch.names(), std::set<std::string>{"P"});
}

} // namespace
} // namespace quillon
