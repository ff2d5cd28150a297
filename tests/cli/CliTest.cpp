#include "support/Program.h"
#include "support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace quillon {
namespace {

using test::runCli;
using test::ScratchFolder;

constexpr auto smallArticle = R"({
  "components" : [
    {
      "role" : "body",
      "text" : "One\nTwo"
    },
    {
      "components" : [
        {
          "role" : "my_role"
        }
      ],
      "role" : "section"
    }
  ],
  "identifier" : "a",
  "language" : "en",
  "layout" : {
    "columns" : 7,
    "width" : 1024
  },
  "title" : "T",
  "version" : "1.7"
})";

void makePackage(const ScratchFolder& scratch) {
    scratch.write("P/article.json", smallArticle);
    scratch.write("P/images/a.png", "12345");
}

TEST(Cli, formatIsWhatASaveWrites) {
    const ScratchFolder scratch;
    makePackage(scratch);
    for (const std::string& package :
         {scratch.path("P"), scratch.path("P/"), scratch.path("P/article.json")}) {
        SCOPED_TRACE(package);
        const auto run = runCli({"format", package});
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.output, smallArticle);
    }
    EXPECT_EQ(runCli({"format", "-"}, smallArticle).output, smallArticle);
    EXPECT_EQ(runCli({"format", "-", "-o", scratch.path("out.json")}, smallArticle).status, 0);
    EXPECT_EQ(test::snapshot(scratch.path()).at("out.json"), smallArticle);
}

TEST(Cli, outlineAndCheck) {
    const ScratchFolder scratch;
    makePackage(scratch);
    EXPECT_EQ(runCli({"outline", scratch.path("P")}).output,
              "Body  One Two\nSection  1 component\n  My_role  my_role\n");
    EXPECT_EQ(runCli({"check", scratch.path("P")}).output, "3 components, 1 asset, 5 bytes of assets\n");
}

TEST(Cli, failuresNameTheFileAndTheSpot) {
    const ScratchFolder scratch;
    makePackage(scratch);
    scratch.write("bad/article.json", R"({"version":"1.7","identifier":"a","language":"en","title":"T",
        "layout":{"columns":7,"width":1024},"components":[{"role":"photo","layout":{"columnStart":"x"}}]})");
    scratch.write("empty/readme", "");
    const std::string badMessage = "components[0].layout.columnStart: expected a whole number, found text";
    struct Case {
        std::vector<std::string> arguments;
        int status;
        std::string errors;
    };
    const Case cases[] = {
        {{"check", scratch.path("bad")}, 1, scratch.path("bad") + "/article.json: " + badMessage},
        {{"render", scratch.path("bad/article.json")},
         1,
         scratch.path("bad") + "/article.json: " + badMessage},
        {{"check", scratch.path("empty")}, 1, scratch.path("empty") + ": no article.json in this folder"},
        {{"check", scratch.path("missing")}, 1, scratch.path("missing") + ": no such file or folder"},
        {{"check", scratch.path("empty/readme")},
         1,
         scratch.path("empty/readme") + ": line 1, column 1: expected a value, found the end of the text"},
        {{"save", scratch.path("P"), scratch.path("empty")},
         1,
         scratch.path("empty") + ": exists already; --force replaces a package"},
        {{"save", scratch.path("P"), scratch.path("empty"), "--force"},
         1,
         scratch.path("empty") + ": is no package, so it is not replaced"},
        {{"save", "-"}, 2, "an article alone has no package to be saved in: name the folder to save it TO"},
        {{"render", "-", "--pane", "10"},
         2,
         "--pane: expected WIDTHxHEIGHT in points, such as 1024x768, found 10"},
        {{"render", "-", "--environment", R"({"width":1})"},
         2,
         "--environment: no field is named \"width\"; the fields are viewportWidth, viewportHeight, "
         "platform, "
         "horizontalSizeClass, verticalSizeClass, label, appearance, mapsEmbedToken, mapsEmbedOrigin"},
        {{"render", "-", "--environment", R"({"viewportWidth":null})"},
         2,
         "--environment: viewportWidth: expected a number, found null"},
    };
    const auto before = test::snapshot(scratch.path());
    for (const auto& [arguments, status, errors] : cases) {
        SCOPED_TRACE(errors);
        const auto run = runCli(arguments);
        EXPECT_EQ(run.status, status);
        EXPECT_EQ(run.errors, "quillon-cli: " + errors + "\n");
        EXPECT_EQ(run.output, "");
    }
    EXPECT_EQ(test::snapshot(scratch.path()), before);
    for (const std::vector<std::string>& misuse : {std::vector<std::string>{},
                                                   {"frob"},
                                                   {"render"},
                                                   {"render", "-", "--device", "watch"},
                                                   {"save", "-", ""},
                                                   {"render", ""},
                                                   {"format", "-", "-o", ""}}) {
        EXPECT_EQ(runCli(misuse).status, 2);
    }
    EXPECT_EQ(runCli({"--help"}).status, 0);
}

TEST(Cli, renderTakesItsEnvironmentFromTheOptions) {
    const auto pageFor = [](std::vector<std::string> options) {
        options.insert(options.begin(), {"render", "-"});
        const auto run = runCli(options, smallArticle);
        EXPECT_EQ(run.status, 0) << run.errors;
        return run.output;
    };
    // A phone folds the seven columns into three.
    EXPECT_NE(pageFor({"--device", "iphone"}).find("repeat(3, "), std::string::npos);
    EXPECT_NE(pageFor({"--device", "iphone", "--orientation", "landscape"}).find("repeat(7, "),
              std::string::npos);
    EXPECT_NE(pageFor({"--pane", "393x800"}).find("repeat(3, "), std::string::npos);
    EXPECT_NE(pageFor({"--environment", R"({"viewportWidth":393,"viewportHeight":null})"}).find("repeat(3, "),
              std::string::npos);
    EXPECT_NE(pageFor({"--appearance", "dark"}).find("color-scheme: dark;"), std::string::npos);
    EXPECT_NE(pageFor({"--environment", R"({"appearance":"light"})"}).find("color-scheme: light;"),
              std::string::npos);
}

TEST(Cli, saveInPlaceAndElsewhere) {
    const ScratchFolder scratch;
    makePackage(scratch);
    const auto package = test::snapshot(scratch.path("P"));

    EXPECT_EQ(runCli({"save", scratch.path("P")}).status, 0);
    EXPECT_EQ(test::snapshot(scratch.path("P")), package);

    EXPECT_EQ(runCli({"save", scratch.path("P"), scratch.path("Q")}).status, 0);
    EXPECT_EQ(test::snapshot(scratch.path("Q")), package);

    scratch.write("Q/images/b.png", "more");
    EXPECT_EQ(runCli({"save", scratch.path("P"), scratch.path("Q"), "--force"}).status, 0);
    EXPECT_EQ(test::snapshot(scratch.path("Q")), package);
    EXPECT_EQ(scratch.names(), (std::set<std::string>{"P", "Q"}));
}

TEST(Cli, anOutputFileThatExistsKeepsItsModeAndALinkItsPlace) {
    const ScratchFolder scratch;
    makePackage(scratch);
    scratch.write("out", "old");
    std::filesystem::permissions(scratch.path("out"), std::filesystem::perms(0600));
    std::filesystem::create_symlink("out", scratch.path("link"));
    EXPECT_EQ(runCli({"format", scratch.path("P"), "-o", scratch.path("link")}).status, 0);
    EXPECT_TRUE(std::filesystem::is_symlink(scratch.path("link")));
    EXPECT_EQ(test::snapshotWithModes(scratch.path()).at("out"), std::to_string(0600) + " " + smallArticle);
    EXPECT_EQ(scratch.names(), (std::set<std::string>{"P", "out", "link"}));
}

} // namespace
} // namespace quillon
