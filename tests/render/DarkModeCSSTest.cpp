#include "render/DarkModeCSS.h"

#include <gtest/gtest.h>

namespace quillon::HTMLRenderer {
namespace {

TEST(DarkModeCSS, rulesAreNumberedInTheirOrder) {
    EXPECT_EQ(importantDeclarations(""), "");
    EXPECT_EQ(importantDeclarations(";;"), "");
    EXPECT_EQ(importantDeclarations("a: b;c: url('x;y');"),
              "a: b !important;c: url('x !important;y') !important;");
    EXPECT_EQ(importantDeclarations("a: b"), "a: b !important;");

    DarkModeCSS dark;
    EXPECT_EQ(darkRuleBlock(dark), "");
    EXPECT_EQ(darkClass("opacity: 0.5;", dark), " dk1");
    EXPECT_EQ(darkClass("", dark), "");
    EXPECT_EQ(registerDarkRule("", dark), "");
    EXPECT_EQ(registerDarkRule("a: b;", dark), "dk2");
    EXPECT_EQ(dark.counter, 2);
    EXPECT_EQ(darkRuleBlock(dark),
              "@media (prefers-color-scheme: dark){.dk1{opacity: 0.5 !important;}.dk2{a: b;}}");
}

} // namespace
} // namespace quillon::HTMLRenderer
