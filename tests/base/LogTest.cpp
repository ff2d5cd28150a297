#include "base/Log.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>

#include <gmock/gmock.h>
#include <unistd.h>

namespace quillon {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::MatchesRegex;

class LogTests : public testing::Test {
protected:
    LogTests() {
        setLogSink([this](std::string_view line) { lines.emplace_back(line); });
    }

    ~LogTests() override {
        unsetenv("QUILLON_LOG");
        setLogSink({});
    }

    std::vector<std::string> lines;
};

TEST_F(LogTests, formats) {
    logEvent("preview.cache.hit");
    logEvent("document.open.assets", "assets=2 bytes={}%s");
    logDuration("document.open", logClock());
    logDuration("document.save", logClock() - 2, "assets=1");
    EXPECT_THAT(
        lines, ElementsAre("preview.cache.hit", "document.open.assets assets=2 bytes={}%s",
                           MatchesRegex("document.open completed in [0-9]+\\.[0-9][0-9] ms"),
                           MatchesRegex("document.save completed in 20[0-9][0-9]\\.[0-9][0-9] ms assets=1")));
}

TEST_F(LogTests, anyStartValueGivesALine) {
    for (double start : {0.0, -1e308, 1e308, 1e305}) {
        logDuration("x", start);
    }
    EXPECT_EQ(lines.size(), 4u);
}

TEST_F(LogTests, linesOfSeveralThreadsStayWhole) {
    constexpr int linesOfEach = 500;
    std::vector<std::jthread> threads;
    for (const char* name : {"a", "b", "c"}) {
        threads.emplace_back([name] {
            for (int i = 0; i < linesOfEach; ++i) {
                logEvent(name, "detail");
            }
        });
    }
    threads.clear();
    EXPECT_EQ(lines.size(), 3u * linesOfEach);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "b detail"), linesOfEach);
}

TEST_F(LogTests, theEnvironmentChoosesTheOutput) {
    const std::string path = testing::TempDir() + "/quillon-log-" + std::to_string(getpid());
    const auto written = [&](const char* wish) {
        setenv("QUILLON_LOG", wish, 1);
        setLogSink({});
        testing::internal::CaptureStderr();
        logEvent("event", "detail");
        return testing::internal::GetCapturedStderr();
    };
    for (const char* silent : {"", "0", "yes"}) {
        EXPECT_EQ(written(silent), "") << silent;
    }
    for (const char* loud : {"1", "performance", "/dev/null/log", "/"}) {
        EXPECT_THAT(written(loud), HasSubstr("com.tarnwell.quillon:Performance debug event detail\n"))
            << loud;
    }
    EXPECT_EQ(written(path.c_str()), "");
    std::ifstream file(path);
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    EXPECT_THAT(content, HasSubstr("com.tarnwell.quillon:Performance debug event detail\n"));
    std::filesystem::remove(path);
    EXPECT_TRUE(lines.empty());
}

} // namespace
} // namespace quillon
