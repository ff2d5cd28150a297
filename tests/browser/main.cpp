#include "browser/BrowserEngine.h"

#include <gtest/gtest.h>

#include <string_view>

/// Runs the tests of pages in an engine that prefers light pages or, with `--dark`, in one that prefers dark
/// pages; the tests named DarkEngine are for the latter and the rest is for the former.
int main(int argc, char** argv) {
    using namespace quillon::test;
    testing::InitGoogleTest(&argc, argv);
    const bool isDark = argc > 1 && std::string_view(argv[1]) == "--dark";
    if (GTEST_FLAG_GET(filter) == "*") {
        GTEST_FLAG_SET(filter, isDark ? "DarkEngine.*" : "-DarkEngine.*");
    }
    const BrowserEngine engine(argc, argv, isDark ? EngineScheme::dark : EngineScheme::light);
    return RUN_ALL_TESTS();
}
