#include "browser/BrowserPage.h"
#include "desktop/fonts/FontStandIns.h"
#include "model/FontCatalogue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

namespace quillon::test {
namespace {

using ::testing::IsEmpty;

constexpr auto measuringPage = R"(<!doctype html><html lang="en"><head><script>
    const canvas = document.createElement("canvas");
    canvas.width = 1600;
    canvas.height = 120;
    const pen = canvas.getContext("2d", {willReadFrequently: true});
    // Letter by letter, without kerning.
    function widthOf(font, text) {
        pen.font = font;
        return Math.round([...text].reduce((sum, letter) => sum + pen.measureText(letter).width, 0));
    }
    function pictureOf(font) {
        pen.clearRect(0, 0, canvas.width, canvas.height);
        pen.font = font;
        pen.fillText("Hamburg quick 37", 10, 80);
        return canvas.toDataURL();
    }
    // A family that is not found gives way to the next one.
    function isFound(family) {
        const [one, other] = ["DejaVu Sans", "DejaVu Sans Mono"].map(
            next => widthOf(`1000px "${family}", "${next}"`, "1234"));
        return one === other;
    }
</script></head><body></body></html>)";

class PageFonts : public testing::Test {
protected:
    PageFonts() { EXPECT_TRUE(page.load(measuringPage)); }

    int widthOf(const std::string& font, const std::string& text = "Hamburg") {
        return std::stoi(page.run("widthOf(`" + font + "`, `" + text + "`)"));
    }
    std::string pictureOf(const std::string& font) { return page.run("pictureOf(`" + font + "`)"); }

    bool isFound(const std::string& family) { return page.run("isFound(`" + family + "`)") == "true"; }

    BrowserPage page{400, 300};
};

using InstalledFonts = PageFonts;

std::string inQuotes(std::string_view family) {
    return "\"" + std::string(family) + "\"";
}

/// The text's own weight, style and width that ask for a face of a family.
std::string cssFontOf(const ANFFontFamily& family, const ANFFontVariant& face) {
    static const std::map<std::string_view, std::string> weights = {
        {"thin", "100"},        {"ultra-light", "200"}, {"light", "300"},      {"medium", "500"},
        {"semi-bold", "600"},   {"demi-bold", "600"},   {"bold", "700"},       {"wide", "700"},
        {"heavy", "800"},       {"extra-bold", "800"},  {"ultra-bold", "800"}, {"black", "900"},
        {"extra-black", "900"},
    };
    const auto weight = weights.find(face.fontWeight);
    return std::string(face.fontStyle) + " " + (weight == weights.end() ? "400" : weight->second) + " " +
           std::string(face.fontWidth) + " 60px " + inQuotes(family.name);
}

/// Widths of "Hamburg" in the faces that articles name.
TEST_F(PageFonts, metricCompatibleFacesAreAsWideAsTheOriginals) {
    const std::map<std::string, int> widths = {
        {R"(1000px Helvetica)", 4112},
        {R"(bold 1000px "Helvetica Neue")", 4389},
        {R"(1000px "Helvetica-BoldOblique")", 4389},
        {R"(1000px Arial)", 4112},
        {R"(1000px "Arial-BoldMT")", 4389},
        {R"(1000px "Times New Roman")", 3777},
        {R"(bold 1000px "TimesNewRomanPSMT")", 4167},
        {R"(1000px Palatino)", 4322},
        {R"(1000px "Palatino-Roman")", 4322},
        {R"(1000px Courier)", 4200},
        {R"(1000px "CourierNewPS-BoldItalicMT")", 4200},
    };
    for (const auto& [font, width] : widths) {
        // Faces on another grid than a thousand units round each letter.
        EXPECT_NEAR(widthOf(font), width, 5) << font;
    }
}

TEST_F(PageFonts, everyNameIsFound) {
    std::vector<std::string> missing;
    const auto look = [&](std::string_view name) {
        if (!isFound(std::string(name))) {
            missing.emplace_back(name);
        }
    };
    for (const ANFFontFamily& family : fontCatalogue()) {
        look(family.name);
        for (const ANFFontVariant& face : family.variants) {
            look(face.postScriptName);
        }
    }
    for (const FontStandIn& standIn : fontStandIns()) {
        look(standIn.family);
    }
    EXPECT_THAT(missing, IsEmpty());
    EXPECT_FALSE(isFound("No Such Family")) << "else this test cannot fail";
}

TEST_F(PageFonts, postScriptNamesMeanTheirFaces) {
    // Their stand-ins are not bold, which the engine mends for a text that asks for bold, not for a name.
    const std::set<std::string_view> without = {"BradleyHandITCTT-Bold", "Cochin-BoldItalic",
                                                "MarkerFelt-Wide", "Optima-BoldItalic"};
    for (const ANFFontFamily& family : fontCatalogue()) {
        for (const ANFFontVariant& face : family.variants) {
            const std::string asked = cssFontOf(family, face);
            const bool isSame = pictureOf("60px " + inQuotes(face.postScriptName)) == pictureOf(asked);
            EXPECT_NE(isSame, without.contains(face.postScriptName))
                << face.postScriptName << " is not " << asked;
        }
    }
}

TEST_F(PageFonts, variantsDiffer) {
    const std::pair<std::string, std::string> pairs[] = {
        {"HelveticaNeue", "HelveticaNeue-Bold"},
        {"HelveticaNeue", "HelveticaNeue-Italic"},
        {"HelveticaNeue", "HelveticaNeue-Light"},
        {"HelveticaNeue", "HelveticaNeue-Medium"},
        {"HelveticaNeue-Light", "HelveticaNeue-Thin"},
        {"HelveticaNeue-Bold", "HelveticaNeue-CondensedBold"},
        {"Avenir-Book", "Avenir-Light"},
        {"Avenir-Heavy", "Avenir-Black"},
        {"AvenirNext-Bold", "AvenirNextCondensed-Bold"},
        {"AmericanTypewriter", "AmericanTypewriter-Condensed"},
        {"Futura-Medium", "Futura-CondensedMedium"},
        {"Georgia", "Georgia-Italic"},
        {"Georgia", "Georgia-Bold"},
        {"PingFangSC-Regular", "PingFangSC-Semibold"},
        {"PingFangSC-Regular", "HiraMinProN-W3"},
    };
    for (const auto& [one, other] : pairs) {
        EXPECT_TRUE(pictureOf("60px " + inQuotes(one)) != pictureOf("60px " + inQuotes(other)))
            << one << " " << other;
    }
    EXPECT_LT(widthOf(R"(1000px "HelveticaNeue-CondensedBold")"), widthOf(R"(1000px "HelveticaNeue-Bold")"));
    EXPECT_GT(widthOf(R"(1000px "HelveticaNeue-CondensedBold")"),
              widthOf(R"(condensed 1000px "Helvetica Neue")"));
}

/// A text in a face that is not bold still has bold words.
TEST_F(PageFonts, boldWordsInANamedFaceAreBold) {
    for (const char* name : {"AvenirNext-Medium", "HelveticaNeue-Light", "Palatino-Roman", "ArialMT"}) {
        EXPECT_TRUE(pictureOf("60px " + inQuotes(name)) != pictureOf("bold 60px " + inQuotes(name))) << name;
    }
}

/// In an engine for which the only fonts are the Liberation faces, the monospaced one by the name of Georgia.
TEST_F(InstalledFonts, winOverStandIns) {
    for (const char* font : {"1000px Georgia", "1000px Georgia-BoldItalic"}) {
        EXPECT_NEAR(widthOf(font, "iiii"), 2400, 5) << font;
        EXPECT_NEAR(widthOf(font, "mmmm"), 2400, 5) << font;
    }
}

TEST_F(InstalledFonts, theNextStandInServesWhereTheFirstIsMissing) {
    EXPECT_EQ(widthOf("1000px Helvetica"), widthOf("1000px \"Liberation Sans\""));
    EXPECT_EQ(widthOf("1000px Times"), widthOf("1000px \"Liberation Serif\""));
}

} // namespace
} // namespace quillon::test
