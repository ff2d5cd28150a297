#include "browser/BrowserEngine.h"
#include "support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <string_view>

namespace {

using namespace quillon::test;

/// A configuration of the font matcher that knows few fonts and calls one of them Georgia.
constexpr auto fewFonts = R"(<?xml version="1.0"?>
<fontconfig>
  <dir>/usr/share/fonts/truetype/liberation</dir>
  <match target="scan">
    <test name="family"><string>Liberation Mono</string></test>
    <edit name="family" mode="assign"><string>Georgia</string></edit>
  </match>
)";

void useFewFonts(const ScratchFolder& scratch) {
    scratch.write("fonts.conf", fewFonts + ("<cachedir>" + scratch.path() + "</cachedir></fontconfig>\n"));
    setenv("FONTCONFIG_FILE", scratch.path("fonts.conf").c_str(), 1);
}

} // namespace

/// Runs the tests of pages in an engine that prefers light pages or, with `--dark`, in one that prefers dark
/// pages or, with `--few-fonts`, in one that has hardly any fonts; the tests named DarkEngine and
/// InstalledFonts are for the latter two and the rest is for the first.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const std::string_view engine = argc > 1 ? argv[1] : "";
    if (GTEST_FLAG_GET(filter) == "*") {
        GTEST_FLAG_SET(filter, engine == "--dark"        ? "DarkEngine.*"
                               : engine == "--few-fonts" ? "InstalledFonts.*"
                                                         : "-DarkEngine.*:InstalledFonts.*");
    }
    const ScratchFolder scratch;
    if (engine == "--few-fonts") {
        useFewFonts(scratch);
    }
    const BrowserEngine browser(argc, argv, engine == "--dark" ? EngineScheme::dark : EngineScheme::light);
    return RUN_ALL_TESTS();
}
