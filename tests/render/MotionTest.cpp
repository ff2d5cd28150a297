#include "render/Motion.h"
#include "render/ReadRecord.h"

namespace quillon::HTMLRenderer {
namespace {

TEST(Motion, animations) {
    struct Case {
        const char* json;
        const char* className;
        const char* variables;
    };
    constexpr Case cases[] = {
        {R"({})", "", ""},
        {R"({"type":"appear","initialAlpha":0.5})", "anim-appear", ""},
        {R"({"type":"explode"})", "", ""},
        {R"({"type":"fade_in"})", "anim-fade-in", "--anf-initial-alpha: 0;"},
        {R"({"type":"fade_in","initialAlpha":0.25,"initialScale":2})", "anim-fade-in",
         "--anf-initial-alpha: 0.25;"},
        {R"({"type":"fade_in","initialAlpha":7})", "anim-fade-in", "--anf-initial-alpha: 1;"},
        {R"({"type":"fade_in","initialAlpha":-7})", "anim-fade-in", "--anf-initial-alpha: 0;"},
        {R"({"type":"scale_fade"})", "anim-scale-fade", "--anf-initial-alpha: 0;--anf-initial-scale: 0.92;"},
        {R"({"type":"scale_fade","initialAlpha":1,"initialScale":-1})", "anim-scale-fade",
         "--anf-initial-alpha: 1;--anf-initial-scale: 0;"},
        {R"({"type":"move_in"})", "anim-move-in", "--anf-move-x: -32px;--anf-move-y: 0px;"},
        {R"({"type":"move_in","preferredStartingPosition":"left"})", "anim-move-in",
         "--anf-move-x: -32px;--anf-move-y: 0px;"},
        {R"({"type":"move_in","direction":"right"})", "anim-move-in",
         "--anf-move-x: 32px;--anf-move-y: 0px;"},
        {R"({"type":"move_in","preferredStartingPosition":"top"})", "anim-move-in",
         "--anf-move-x: 0px;--anf-move-y: -32px;"},
        {R"({"type":"move_in","preferredStartingPosition":"bottom"})", "anim-move-in",
         "--anf-move-x: 0px;--anf-move-y: 32px;"},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.json);
        const Optional<ComponentAnimation> animation = readRecord<ComponentAnimation>(test.json);
        std::string variables;
        animationVariables(variables, animation);
        EXPECT_EQ(animationClass(animation), test.className);
        EXPECT_EQ(variables, test.variables);
    }
    std::string variables;
    animationVariables(variables, std::nullopt);
    EXPECT_EQ(variables, "");
    EXPECT_EQ(animationClass(std::nullopt), "");
}

TEST(Motion, anchors) {
    struct Case {
        const char* json;
        const char* className;
        const char* alignment;
    };
    constexpr Case cases[] = {
        {R"({})", "", ""},
        {R"({"targetAnchorPosition":"top"})", " anchor-parent-top", "align-self: start;"},
        {R"({"originAnchorPosition":"center"})", " anchor-parent-center", "align-self: center;"},
        {R"({"originAnchorPosition":"top","targetAnchorPosition":"bottom"})", " anchor-parent-bottom",
         "align-self: end;"},
        {R"({"originAnchorPosition":"top","targetAnchorPosition":"edge"})", "", ""},
        {R"({"targetComponentIdentifier":"a","targetAnchorPosition":"top"})", " anchor-target-top",
         "align-self: start;"},
        {R"({"targetComponentIdentifier":"","originAnchorPosition":"center"})", " anchor-target-center",
         "align-self: center;"},
        {R"({"targetComponentIdentifier":"a","originAnchorPosition":"bottom"})", " anchor-target-bottom",
         "align-self: end;"},
        {R"({"targetComponentIdentifier":"a"})", "", ""},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.json);
        const Optional<Anchor> anchor = readRecord<Anchor>(test.json);
        EXPECT_EQ(anchorClass(anchor), test.className);
        EXPECT_EQ(anchorAlignmentCSS(anchor), test.alignment);
    }
    EXPECT_EQ(anchorClass(std::nullopt), "");
    EXPECT_EQ(anchorAlignmentCSS(std::nullopt), "");
}

TEST(Motion, scenes) {
    struct Case {
        const char* json;
        const char* className;
        const char* variables;
    };
    constexpr Case cases[] = {
        {R"({"fadeColor":"red"})", "", ""},
        {R"({"type":"fading_sticky_header"})", " scene-fading-sticky-header", ""},
        {R"({"type":"fading_sticky_header","fadeColor":"\"red"})", " scene-fading-sticky-header",
         "--anf-scene-fade-color: &quot;red;"},
        {R"({"type":"parallax_scale","fadeColor":"red"})", " scene-parallax-scale", ""},
        {R"({"type":"sunset","fadeColor":"red"})", "", ""},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.json);
        const Optional<ANFScene> scene = readRecord<ANFScene>(test.json);
        std::string variables;
        sceneVariables(variables, scene);
        EXPECT_EQ(sceneClass(scene), test.className);
        EXPECT_EQ(variables, test.variables);
    }
    std::string variables;
    sceneVariables(variables, std::nullopt);
    EXPECT_EQ(variables, "");
    EXPECT_EQ(sceneClass(std::nullopt), "");
}

TEST(Motion, onlyParallaxAndMotionHoldAFillStill) {
    constexpr std::string_view fixed = "background-attachment: fixed;";
    struct Case {
        const char* json;
        HasFill hasFill;
        std::string_view css;
    };
    constexpr Case cases[] = {
        {R"({"type":"parallax","factor":0.5})", HasFill::yes, fixed},
        {R"({"type":"background_parallax"})", HasFill::yes, fixed},
        {R"({"type":"emotional"})", HasFill::yes, fixed},
        {R"({"type":"background_motion"})", HasFill::no, ""},
        {R"({"type":"Parallax"})", HasFill::yes, ""},
        {R"({"type":"springy"})", HasFill::yes, ""},
        {R"({"factor":2})", HasFill::yes, ""},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.json);
        std::string css;
        behaviorCSS(css, readRecord<Behavior>(test.json), test.hasFill);
        EXPECT_EQ(css, test.css);
    }
    std::string css;
    behaviorCSS(css, std::nullopt, HasFill::yes);
    EXPECT_EQ(css, "");
}

} // namespace
} // namespace quillon::HTMLRenderer
