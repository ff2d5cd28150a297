#include "desktop/DocumentText.h"
#include "desktop/PackagePath.h"
#include "desktop/RecentDocuments.h"
#include "desktop/SaveJob.h"
#include "desktop/WindowPlacement.h"
#include "package/BlankArticle.h"
#include "package/NewArticle.h"
#include "support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

namespace quillon::test {

namespace {

namespace fs = std::filesystem;

TEST(DocumentRulesTest, folderNamesAreSafeAndKeepWhatTheyCan) {
    const struct {
        std::string title;
        std::string name;
    } rows[] = {
        {"A Day in Málaga", "A Day in Málaga"},
        {"either/or: \"why?\"", "either-or- -why--"},
        {"../../etc", "-..-etc"},
        {" .hidden. ", "hidden"},
        {"two\nlines\t", "two lines"},
        {"", "Untitled"},
        {"...", "Untitled"},
        {"\xFF", "Untitled"},
        {"\xC2\xA0", "Untitled"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(proposedFolderName(row.title), row.name);
    }
    // Cut between characters, and short enough for the names a save makes of it.
    std::string flags;
    for (int count = 0; count < 40; ++count) {
        flags += "🇪🇸";
    }
    EXPECT_EQ(proposedFolderName(flags), flags.substr(0, 120));
}

TEST(DocumentRulesTest, windowTitlesKeepTheirMarkApart) {
    EXPECT_EQ(windowTitle("Spring", "Trip"), "Spring[*] — Trip");
    EXPECT_EQ(windowTitle(shownTitle(" a\n[*]b "), "[*]"), "a [*][*]b[*] — [*][*]");
    EXPECT_EQ(shownTitle("\t\n"), "Untitled");
}

TEST(DocumentRulesTest, pathsOfAnyBytesSurviveTextsAndAddresses) {
    for (const std::string path : {"/a b/ü/%41", "/a\xFF/\xC3", "/x,y;\"z\"\n"}) {
        EXPECT_EQ(decodedPath(encodedPath(path)), path);
        EXPECT_EQ(pathFromUrl(QUrl(QStringLiteral("file://") + encodedPath(path))), path);
    }
    EXPECT_EQ(pathFromUrl(QUrl("https://example.com/a")), "");
}

TEST(DocumentRulesTest, windowsFillTheScreenAndMayShrinkAsFarAsItAllows) {
    EXPECT_EQ(initialPlacement(QRect(0, 24, 1920, 1056)),
              (WindowPlacement{QRect(32, 56, 1856, 992), QSize(1180, 720)}));
    EXPECT_EQ(initialPlacement(QRect(100, 0, 1000, 700)),
              (WindowPlacement{QRect(132, 32, 936, 636), QSize(936, 636)}));
    EXPECT_EQ(initialPlacement(QRect(0, 0, 64, 700)), std::nullopt);
}

TEST(DocumentRulesTest, recentPathsComeOnceAndLatestFirst) {
    EXPECT_EQ(withRecentPath({"a", "b", "c"}, "c"), (std::vector<std::string>{"c", "a", "b"}));
    std::vector<std::string> list;
    for (int number = 0; number < 30; ++number) {
        list = withRecentPath(list, std::to_string(number));
    }
    ASSERT_EQ(list.size(), 20U);
    EXPECT_EQ(list.front(), "29");
    EXPECT_EQ(list.back(), "10");
}

TEST(DocumentRulesTest, placesForAnArticleAreJudgedByWhatASaveWouldRemove) {
    const ScratchFolder folder;
    folder.write("article/article.json", "{}");
    folder.write("article/images/a.jpg", "");
    folder.write("photos/holiday.jpg", "");
    folder.write("file", "");
    fs::create_directory(folder.path("empty"));
    fs::create_symlink(folder.path("photos"), folder.path("link"));
    const struct {
        const char* place;
        SavePlaceKind kind;
        std::size_t files;
    } rows[] = {
        {"new", SavePlaceKind::free, 0},
        {"empty", SavePlaceKind::emptyFolder, 0},
        {"article", SavePlaceKind::package, 2},
        {"photos", SavePlaceKind::foreignFolder, 0},
        {"link", SavePlaceKind::foreignFolder, 0},
        {"file", SavePlaceKind::notAFolder, 0},
        {"article/new", SavePlaceKind::insidePackage, 0},
        {"article/images/new", SavePlaceKind::insidePackage, 0},
        {"none/new", SavePlaceKind::noParent, 0},
        {"file/new", SavePlaceKind::noParent, 0},
    };
    for (const auto& row : rows) {
        const SavePlace place = judgeSavePlace(folder.path(row.place));
        EXPECT_EQ(static_cast<int>(place.kind), static_cast<int>(row.kind)) << row.place;
        EXPECT_EQ(place.stamp.files.size(), row.files) << row.place;
    }
}

/// What stands at the path when a save comes to it, and what comes of it.
TEST(DocumentRulesTest, aSaveReplacesOnlyWhatItMay) {
    enum class Disk { asKnown, changed, gone, file };
    enum class End { saved, conflict, failed };
    const struct {
        bool mayReplace; ///< the folder as it is known
        Disk disk;
        End end;
    } rows[] = {
        {true, Disk::asKnown, End::saved},     {true, Disk::changed, End::conflict},
        {true, Disk::gone, End::saved},        {true, Disk::file, End::failed},
        {false, Disk::asKnown, End::conflict}, {false, Disk::gone, End::saved},
        {false, Disk::file, End::failed},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.mayReplace << " " << static_cast<int>(row.disk));
        const ScratchFolder folder;
        const std::string path = folder.path("a");
        folder.write("a/article.json", "old");
        const PackageStamp known = *packageStamp(path);
        if (row.disk == Disk::changed) {
            folder.write("a/theirs.txt", "new");
        } else if (row.disk != Disk::asKnown) {
            fs::remove_all(path);
        }
        if (row.disk == Disk::file) {
            folder.write("a", "a file");
        }
        const auto before = snapshot(folder.path());
        const SaveOutcome outcome = runSave(makeNewDocument(makeBlankArticle(0)),
                                            {path, row.mayReplace ? std::optional(known) : std::nullopt});
        EXPECT_EQ(outcome.index(), static_cast<std::size_t>(row.end));
        if (row.end == End::saved) {
            EXPECT_EQ(std::distance(fs::directory_iterator(path), {}), 1);
            EXPECT_EQ(std::get<PackageStamp>(outcome), *packageStamp(path));
        } else {
            EXPECT_EQ(snapshot(folder.path()), before);
        }
    }
}

TEST(DocumentRulesTest, everyFailureOfASaveNamesAWayOut) {
    for (const int number : {ENOSPC, EACCES, EROFS, ENOENT, EEXIST, ENAMETOOLONG, ESTALE, EIO, 9999}) {
        const std::string advice = saveAdvice({diskFailure("/a", number)});
        EXPECT_TRUE(advice.find("Save") != std::string::npos) << advice;
        EXPECT_FALSE(advice.ends_with("….")) << advice;
    }
    EXPECT_NE(saveAdvice({EncodeFailure{"x"}}).find("Undo"), std::string::npos);
}

} // namespace

} // namespace quillon::test
