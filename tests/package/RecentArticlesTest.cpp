#include "package/RecentArticles.h"

#include "support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>

namespace quillon {
namespace {

using test::ScratchFolder;

constexpr auto unreadable = "Missing or unreadable article.json";

/// An article with the title T and these two fields, each JSON or empty for none.
std::string article(const std::string& metadata, const std::string& components = "[]") {
    return R"({"version":"1.7","identifier":"a","language":"en","title":"T",)"
           R"("layout":{"columns":7,"width":1024},)" +
           (metadata.empty() ? "" : R"("metadata":)" + metadata + ",") + R"("components":)" + components +
           "}";
}

TEST(RecentArticles, whatACardSaysOfItsPackage) {
    const ScratchFolder scratch;
    scratch.write("Good.anf/article.json", article(R"({"excerpt":"E"})"));
    scratch.write("Empty excerpt/article.json", article(R"({"excerpt":""})"));
    scratch.write("No.excerpt.anf/article.json", article("{}"));
    scratch.write("plain/article.json", "\xEF\xBB\xBF" + article(""));
    scratch.write("Broken.one.anf/article.json", R"({"title":"T"})");
    scratch.write("Hollow.anf/images/a.png", "1");
    scratch.write("Folder.anf/article.json/a", "1");
    scratch.write("file.json", article(""));
    std::filesystem::create_directory(scratch.path("Pipe"));
    ASSERT_EQ(::mkfifo(scratch.path("Pipe/article.json").c_str(), 0600), 0);

    struct Case {
        std::string name;
        std::string title;
        std::string subtitle;
        bool isReadable;
        bool hasDate;
    };
    const Case cases[] = {
        {"Good.anf", "T", "E", true, true},
        {"Good.anf/", "T", "E", true, true},
        {"Empty excerpt/", "T", "", true, true},
        {"No.excerpt.anf/", "T", "No.excerpt.anf", true, true},
        {"plain", "T", "plain", true, true},
        {"Broken.one.anf", "Broken.one", unreadable, false, true},
        {"Hollow.anf/", "Hollow", unreadable, false, false},
        {"Folder.anf/", "Folder", unreadable, false, true},
        {"Pipe/", "Pipe", unreadable, false, true},
        {"file.json", "file", unreadable, false, false},
        {"Gone.anf/", "Gone", unreadable, false, false},
    };
    for (const auto& [name, title, subtitle, isReadable, hasDate] : cases) {
        SCOPED_TRACE(name);
        const std::string url = scratch.path(name);
        const auto summary = makeRecentArticleSummary(url);
        ASSERT_TRUE(summary);
        EXPECT_EQ(summary->id, url);
        EXPECT_EQ(summary->url, url);
        EXPECT_EQ(summary->title, title);
        EXPECT_EQ(summary->subtitle, subtitle);
        EXPECT_EQ(summary->isReadable, isReadable);
        EXPECT_EQ(summary->modifiedDate.has_value(), hasDate);
        EXPECT_EQ(summary->thumbnailURL, std::nullopt);
    }
    EXPECT_EQ(makeRecentArticleSummary(""), std::nullopt);
}

TEST(RecentArticles, theDateIsThatOfTheArticle) {
    const ScratchFolder scratch;
    scratch.write("P/article.json", article(""));
    const timespec times[2] = {{0, UTIME_OMIT}, {1'794'992'557, 500'000'000}};
    ASSERT_EQ(::utimensat(AT_FDCWD, scratch.path("P/article.json").c_str(), times, 0), 0);
    EXPECT_DOUBLE_EQ(makeRecentArticleSummary(scratch.path("P"))->modifiedDate.value(), 1'794'992'557.5);
}

TEST(RecentArticles, theThumbnailIsTheFirstCandidateInThePackage) {
    const std::string picture = R"({"role":"photo","URL":"bundle://c.png"})";
    struct Case {
        std::string metadata;
        std::string components;
        std::string thumbnail; ///< within the package; empty for none
    };
    const Case cases[] = {
        {"", "[]", ""},
        {R"({"thumbnailURL":"bundle://a.png","coverArt":[{"URL":"bundle://b.png"}]})", "[" + picture + "]",
         "a.png"},
        {R"({"thumbnailURL":"https://a.example/a.png","coverArt":[{"URL":"bundle://b.png"}]})", "[]",
         "b.png"},
        {R"({"thumbnailURL":"bundle://","coverArt":[{},{"URL":"bundle://b.png"}]})", "[" + picture + "]",
         "c.png"},
        {R"({"thumbnailURL":"Bundle://a.png","coverArt":[]})", "[" + picture + "]", "c.png"},
        {R"({"thumbnailURL":"bundle://images/a b%20.png"})", "[]", "images/a b%20.png"},
        {R"({"thumbnailURL":"bundle:///a.png"})", "[]", "a.png"},
        // Depth first, a component before its children, and roles that show no image passed over.
        {"",
         R"([{"role":"video","URL":"bundle://v.mp4"},{"role":"photo"},{"role":"section","URL":"bundle://s",)"
         R"("components":[{"role":"logo","URL":"bundle://l.png"}]},)" +
             picture + "]",
         "l.png"},
        {"", R"([{"role":"portrait","URL":"bundle://p.png","components":[)" + picture + "]}]", "p.png"},
        {"", R"([{"role":"figure","components":[)" + picture + "]}]", "c.png"},
        {"", R"([{"role":"image","URL":"bundle://i.png"}])", "i.png"},
        {"", R"([{"role":"figure","URL":"bundle://f.png"}])", "f.png"},
        {"", R"([{"role":"article_thumbnail","URL":"bundle://t.png"}])", "t.png"},
        {"", R"([{"role":"gallery","items":[{"URL":"bundle://g.png"}]}])", ""},
        // A remote first image hides the one in the package.
        {"", R"([{"role":"image","URL":"https://a.example/a.png"},)" + picture + "]", ""},
        {"", R"([{"role":"image","URL":""},)" + picture + "]", ""},
    };
    const ScratchFolder scratch;
    for (const auto& [metadata, components, thumbnail] : cases) {
        SCOPED_TRACE(metadata + components);
        scratch.write("P/article.json", article(metadata, components));
        for (const std::string& url : {scratch.path("P"), scratch.path("P/")}) {
            const auto summary = makeRecentArticleSummary(url);
            ASSERT_TRUE(summary->isReadable);
            EXPECT_EQ(summary->thumbnailURL.value_or(""),
                      thumbnail.empty() ? "" : scratch.path("P/" + thumbnail));
        }
    }
}

TEST(RecentArticles, theListKeepsItsOrderAndItsLimit) {
    const ScratchFolder scratch;
    scratch.write("file", "");
    std::vector<std::string> urls = {scratch.path("gone"), scratch.path("gone/"), scratch.path("file")};
    for (int number = 0; number < 50; ++number) {
        const std::string name = "P" + std::to_string(number);
        scratch.write(name + "/article.json", number < 30 ? article("") : "");
        urls.push_back(scratch.path(name));
    }
    const auto summaries = loadRecentArticles(urls, 24);
    ASSERT_EQ(summaries.size(), 24U);
    for (size_t index = 0; index < summaries.size(); ++index) {
        EXPECT_EQ(summaries[index].url, urls[index + 1]); // all but the first, which is gone
        EXPECT_EQ(summaries[index].isReadable, index >= 2);
    }
    EXPECT_EQ(loadRecentArticles(urls, 1000).size(), 52U);
    EXPECT_EQ(loadRecentArticles(urls, 0).size(), 0U);
}

} // namespace
} // namespace quillon
