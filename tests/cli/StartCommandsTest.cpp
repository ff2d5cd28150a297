#include "support/JsonData.h"
#include "support/Program.h"
#include "support/ScratchFolder.h"

#include "base/Time.h"
#include "base/UnicodeText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>

namespace quillon {
namespace {

using test::elements;
using test::jsonData;
using test::jsonOf;
using test::members;
using test::runCli;
using test::ScratchFolder;
using test::text;

TEST(StartCommands, newMakesAPackageOrJson) {
    const auto before = std::floor(wallClockSeconds());
    auto json = members(test::parsedJson(runCli({"new", "blank", "-"}).output));
    auto metadata = members(json["metadata"]);
    const auto published = parseIso8601(text(metadata["datePublished"]));
    ASSERT_TRUE(published);
    EXPECT_GE(*published, before);
    EXPECT_LE(*published, wallClockSeconds());
    metadata["datePublished"] = {"2026-11-18T09:02:37Z"};
    json["metadata"] = test::objectOf(metadata);
    EXPECT_EQ(jsonOf(test::objectOf(json)), jsonOf(jsonData("package/data/blank-article.json")));

    const ScratchFolder scratch;
    for (const std::string kind : {"blank", "generated", "how-to"}) {
        SCOPED_TRACE(kind);
        const auto run = runCli({"new", kind, scratch.path(kind)});
        EXPECT_EQ(run.status, 0) << run.errors;
        const auto files = test::snapshot(scratch.path(kind));
        ASSERT_EQ(files.size(), 2U); // the folder itself and the article
        EXPECT_EQ(runCli({"format", scratch.path(kind)}).output, files.at("article.json"));
    }
    const auto run = runCli({"new", "generated", "-", "--prompt", "  A tide\npool "});
    auto generated = members(test::parsedJson(run.output));
    EXPECT_EQ(text(members(generated["metadata"])["excerpt"]), "A tide\npool");
}

TEST(StartCommands, listsAndSamples) {
    std::string lines;
    for (const JSONValue& value : elements(jsonData("package/data/template-catalogue.json"))) {
        auto row = members(value);
        lines += text(row["id"]) + "\t" + text(row["category"]) + "\t" + text(row["title"]) + "\t" +
                 text(row["subtitle"]) + "\n";
    }
    EXPECT_EQ(runCli({"templates"}).output, lines);
    EXPECT_EQ(runCli({"sample", "link_button"}).output, R"({
  "URL" : "https://quillon.example/",
  "role" : "link_button",
  "text" : "Open Quillon"
})");
}

TEST(StartCommands, recentsAreOneLineEach) {
    const ScratchFolder scratch;
    const std::string rest = R"("version":"1.7","identifier":"a","language":"en",)"
                             R"("layout":{"columns":7,"width":1024},"components":[]})";
    scratch.write(
        "A/article.json",
        R"({"title":"One\ttwo\nthree","metadata":{"excerpt":"E","thumbnailURL":"bundle://a.png"},)" + rest);
    scratch.write("B.anf/article.json", R"({"title":"",)" + rest);
    for (const std::string name : {"A", "B.anf"}) {
        const timespec times[2] = {{0, UTIME_OMIT}, {1'794'992'557, 900'000'000}};
        ASSERT_EQ(::utimensat(AT_FDCWD, scratch.path(name + "/article.json").c_str(), times, 0), 0);
    }
    const std::string first =
        "One two three\tE\t2026-11-18T09:02:37Z\t" + scratch.path("A/a.png") + "\treadable\n";
    const auto run = runCli({"recents", scratch.path("A"), scratch.path("B.anf"), scratch.path("gone.anf")});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, first + "\tB.anf\t2026-11-18T09:02:37Z\t-\treadable\n"
                                  "gone\tMissing or unreadable article.json\t-\t-\tunreadable\n");
    EXPECT_EQ(runCli({"recents", scratch.path("B.anf/../A/."), scratch.path("gone"), "--limit", "1"}).output,
              first);
}

TEST(StartCommands, badInputIsNamedAndNothingOverwritten) {
    const ScratchFolder scratch;
    scratch.write("full/article.json", "mine");
    std::filesystem::create_directory(scratch.path("empty"));
    std::filesystem::create_symlink("nowhere", scratch.path("dangling"));
    struct Case {
        std::vector<std::string> arguments;
        int status;
        std::string errors;
    };
    const std::string kinds = "; the kinds are blank, generated, news-brief, news-analysis, live-update, "
                              "feature-profile, visual-essay, culture-review, standard-article, interview, "
                              "how-to";
    const Case cases[] = {
        {{"new", "Blank", "-"}, 2, "no kind is named \"Blank\"" + kinds},
        {{"new", "essay", scratch.path("x"), "--prompt", "a"}, 2, "no kind is named \"essay\"" + kinds},
        {{"new", "how-to", "-", "--prompt", "a"}, 2, "--prompt: only a generated article has one"},
        {{"new", "generated", "-", "--prompt", "\xFF"}, 2, "--prompt: is not valid UTF-8"},
        {{"new", "blank", ""}, 2, "TO: the name is empty"},
        {{"new", "blank", scratch.path("full")}, 1, scratch.path("full") + ": exists already"},
        {{"new", "blank", scratch.path("empty")}, 1, scratch.path("empty") + ": exists already"},
        {{"new", "blank", scratch.path("dangling")}, 1, scratch.path("dangling") + ": exists already"},
        {{"recents", ""}, 2, "FOLDER: \"\" names no folder"},
    };
    const auto before = test::snapshot(scratch.path());
    for (const auto& [arguments, status, errors] : cases) {
        SCOPED_TRACE(errors);
        const auto run = runCli(arguments);
        EXPECT_EQ(run.status, status);
        EXPECT_EQ(run.errors, "quillon-cli: " + errors + "\n");
        EXPECT_EQ(run.output, "");
    }
    EXPECT_EQ(runCli({"new", "blank", scratch.path("no/parent")}).status, 1);
    EXPECT_EQ(test::snapshot(scratch.path()), before);

    const auto run = runCli({"sample", "Title"});
    EXPECT_EQ(run.status, 2);
    EXPECT_TRUE(run.errors.starts_with("quillon-cli: no role is named \"Title\"; the roles are title, "))
        << run.errors;
    for (const JSONValue& sample : elements(jsonData("package/data/component-samples.json"))) {
        const std::string role = text(members(sample)["role"]);
        const bool isKnown = role != "my_role";
        EXPECT_EQ(run.errors.find(" " + role + (role == "replica_advertisement" ? "\n" : ",")) !=
                      std::string::npos,
                  isKnown)
            << role;
    }
    for (const std::vector<std::string>& misuse :
         {std::vector<std::string>{"new", "blank"}, {"sample"}, {"recents"}, {"templates", "x"}}) {
        EXPECT_EQ(runCli(misuse).status, 2);
    }
}

TEST(StartCommands, aPackageThatAKilledSaveMovedAsideIsNotOverwritten) {
    const ScratchFolder scratch;
    scratch.write("Q/article.json", runCli({"new", "blank", "-"}).output);
    for (const std::vector<std::string>& command :
         {std::vector<std::string>{"new", "blank"}, {"save", scratch.path("Q")}}) {
        SCOPED_TRACE(command[0]);
        const std::string name = "P-" + command[0];
        scratch.write("." + name + ".quillon-aside-a1b2c3/article.json", "mine");
        auto arguments = command;
        arguments.push_back(scratch.path(name));
        EXPECT_EQ(runCli(arguments).status, 1);
        EXPECT_EQ(test::snapshot(scratch.path(name))["article.json"], "mine");
    }
}

} // namespace
} // namespace quillon
