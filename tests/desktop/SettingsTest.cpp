#include "desktop/Settings.h"
#include "support/ScratchFolder.h"

#include <QTest>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>

namespace quillon::test {

namespace {

void writePlainly(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::trunc) << text;
}

void writeByRename(const std::string& path, const std::string& text) {
    writePlainly(path + ".new", text);
    std::filesystem::rename(path + ".new", path);
}

QString file(const ScratchFolder& folder) {
    return QString::fromStdString(folder.path("config/Quillon.ini"));
}

TEST(SettingsTest, absentAndMisshapenValuesAreDefaults) {
    const ScratchFolder folder;
    for (const char* text :
         {"",
          "[General]\nshowLaunchWindowOnLaunch=perhaps\ncomponentOutlineShowsDetails=3\n"
          "preview.mapsEmbedToken=a, b\npreview.mapsEmbedOrigin=@Size(1 2)\nrecentDocuments=@Point(1 2)\n"}) {
        folder.write("config/Quillon.ini", text);
        const Settings settings(file(folder), nullptr);
        EXPECT_TRUE(settings.showLaunchWindowOnLaunch());
        EXPECT_FALSE(settings.componentOutlineShowsDetails());
        EXPECT_EQ(settings.mapsEmbedToken(), "");
        EXPECT_EQ(settings.mapsEmbedOrigin(), "https://quillon.example");
        EXPECT_TRUE(settings.recentDocuments().isEmpty());
    }
}

TEST(SettingsTest, whatOneInstanceSetsTheOthersSeeAndAfterThemTheFile) {
    const ScratchFolder folder;
    Settings first(file(folder), nullptr);
    Settings second(file(folder), nullptr);
    int changes = 0;
    QObject::connect(&second, &Settings::changed, [&] { ++changes; });
    first.setShowLaunchWindowOnLaunch(false);
    ASSERT_TRUE(QTest::qWaitFor([&] { return changes > 0; }));
    EXPECT_FALSE(second.showLaunchWindowOnLaunch());
    std::ifstream written(folder.path("config/Quillon.ini"));
    const std::string text{std::istreambuf_iterator<char>(written), {}};
    EXPECT_NE(text.find("showLaunchWindowOnLaunch=false"), std::string::npos) << text;
}

/// Another process writes: a file that first appears, one replaced by rename (twice, as the watcher loses
/// sight of the old one), one written in place, and one taken away.
TEST(SettingsTest, changesFromOutsideAreNoticed) {
    const ScratchFolder folder;
    Settings settings(file(folder), nullptr);
    const std::string path = folder.path("config/Quillon.ini");
    int changes = 0;
    QObject::connect(&settings, &Settings::changed, [&] { ++changes; });
    struct Step {
        const char* token;
        std::function<void(const std::string&, const std::string&)> write;
    };
    const Step steps[] = {{"first", writePlainly},
                          {"second", writeByRename},
                          {"third one", writeByRename},
                          {"fourth, no list", writePlainly},
                          {"fifth", writeByRename}};
    for (const Step& step : steps) {
        const int before = changes;
        step.write(path, "[General]\npreview.mapsEmbedToken=\"" + std::string(step.token) + "\"\n");
        ASSERT_TRUE(QTest::qWaitFor([&] { return settings.mapsEmbedToken() == step.token; })) << step.token;
        EXPECT_GT(changes, before);
    }
    std::filesystem::remove(path);
    EXPECT_TRUE(QTest::qWaitFor([&] { return settings.mapsEmbedToken().isEmpty(); }));
}

} // namespace

} // namespace quillon::test
