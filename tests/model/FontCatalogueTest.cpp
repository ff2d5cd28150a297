#include "model/FontCatalogue.h"

#include <gtest/gtest.h>

#include <set>

namespace quillon {
namespace {

using Words = std::vector<std::string_view>;

TEST(FontCatalogue, familiesAndFaces) {
    size_t faces = 0;
    std::set<std::string_view> names;
    std::set<std::string_view> postScriptNames;
    for (const ANFFontFamily& family : fontCatalogue()) {
        names.insert(family.name);
        EXPECT_EQ(familyNamed(family.name), &family);
        for (const ANFFontVariant& variant : family.variants) {
            ++faces;
            postScriptNames.insert(variant.postScriptName);
            const auto face = variantWithPostScriptName(variant.postScriptName);
            ASSERT_TRUE(face);
            EXPECT_EQ(face->family, &family);
            EXPECT_EQ(face->variant, &variant);
            EXPECT_TRUE(variant.fontWidth.empty() || variant.fontWidth == "condensed");
            EXPECT_TRUE(variant.fontStyle.empty() || variant.fontStyle == "italic" ||
                        variant.fontStyle == "oblique");
            EXPECT_FALSE(variant.fontWeight.empty() && variant.fontWidth.empty() &&
                         variant.fontStyle.empty());
        }
    }
    EXPECT_EQ(names.size(), 54u);
    EXPECT_EQ(faces, 215u);
    EXPECT_EQ(postScriptNames.size(), 215u);
    EXPECT_EQ(fontCatalogue().front().name, "Academy Engraved LET");
    EXPECT_EQ(fontCatalogue().back().name, "Zapfino");
}

TEST(FontCatalogue, lookUpsAreExact) {
    EXPECT_EQ(familyNamed(std::nullopt), nullptr);
    EXPECT_EQ(familyNamed("georgia"), nullptr);
    EXPECT_EQ(familyNamed(""), nullptr);
    EXPECT_FALSE(variantWithPostScriptName(std::nullopt));
    EXPECT_FALSE(variantWithPostScriptName("georgia-bold"));
    const auto face = variantWithPostScriptName("HelveticaNeue-CondensedBlack");
    ASSERT_TRUE(face);
    EXPECT_EQ(face->family->name, "Helvetica Neue");
    EXPECT_EQ(*face->variant, (ANFFontVariant{"HelveticaNeue-CondensedBlack", "black", "condensed", ""}));
}

TEST(FontCatalogue, termsForPeople) {
    EXPECT_EQ(prettyFontTerm("ultra-light"), "Ultra Light");
    EXPECT_EQ(prettyFontTerm("semi_condensed"), "Semi Condensed");
    EXPECT_EQ(prettyFontTerm("BOLD"), "Bold");
    EXPECT_EQ(variantDisplayName({"x", "demi-bold", "condensed", "italic"}), "Demi Bold Condensed Italic");
    EXPECT_EQ(variantDisplayName({"x", "", "condensed", ""}), "Condensed");
    EXPECT_EQ(variantDisplayName({"x", "", "", ""}), "Regular");
}

TEST(FontCatalogue, optionsAreDistinctAndSorted) {
    EXPECT_EQ(fontWeightOptions(familyNamed("Zapfino")->variants), Words({"regular"}));
    EXPECT_EQ(fontWeightOptions(familyNamed("Avenir Next")->variants),
              Words({"bold", "demi-bold", "heavy", "medium", "regular", "ultra-light"}));
    EXPECT_EQ(fontWeightOptions(familyNamed("PingFang HK")->variants),
              Words({"light", "medium", "regular", "semi-bold", "thin", "ultra-light"}));
    EXPECT_EQ(fontWidthOptions(familyNamed("Futura")->variants), Words({"condensed"}));
    EXPECT_EQ(fontStyleOptions(familyNamed("Avenir")->variants), Words({"oblique"}));
    EXPECT_EQ(fontStyleOptions(familyNamed("Al Nile")->variants), Words());
    EXPECT_EQ(fontWeightOptions({}), Words());
}

TEST(FontCatalogue, vocabularies) {
    const auto words = [](std::span<const std::string_view> all) {
        return Words(all.begin(), all.end());
    };
    EXPECT_EQ(words(fontStyleVocabulary()), Words({"normal", "italic", "oblique"}));
    EXPECT_EQ(words(fontWeightVocabulary()), Words({"thin", "ultra-light", "light", "regular", "medium",
                                                    "semi-bold", "demi-bold", "bold", "heavy", "black"}));
    EXPECT_EQ(words(fontWidthVocabulary()),
              Words({"ultra_condensed", "extra_condensed", "condensed", "semi_condensed", "normal",
                     "semi_expanded", "expanded", "extra_expanded", "ultra_expanded"}));
}

} // namespace
} // namespace quillon
