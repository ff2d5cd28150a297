#include "model/FontCatalogue.h"

#include "base/UnicodeText.h"

#include <algorithm>
#include <array>

namespace quillon {

namespace {

constexpr std::array<std::string_view, 3> styleWords = {"normal", "italic", "oblique"};
constexpr std::array<std::string_view, 10> weightWords = {
    "thin", "ultra-light", "light", "regular", "medium", "semi-bold", "demi-bold", "bold", "heavy", "black",
};
constexpr std::array<std::string_view, 9> widthWords = {
    "ultra_condensed", "extra_condensed", "condensed",      "semi_condensed", "normal",
    "semi_expanded",   "expanded",        "extra_expanded", "ultra_expanded",
};

std::vector<std::string_view> optionsOf(std::span<const ANFFontVariant> variants,
                                        std::string_view ANFFontVariant::*property) {
    std::vector<std::string_view> options;
    for (const ANFFontVariant& variant : variants) {
        const std::string_view option = variant.*property;
        if (!option.empty() && std::find(options.begin(), options.end(), option) == options.end()) {
            options.push_back(option);
        }
    }
    std::sort(options.begin(), options.end(), [](std::string_view left, std::string_view right) {
        return prettyFontTerm(left) < prettyFontTerm(right);
    });
    return options;
}

} // namespace

std::span<const ANFFontFamily> fontCatalogue() {
    static const std::vector<ANFFontFamily> families = {
        {"Academy Engraved LET",
         {
             {"AcademyEngravedLetPlain", "regular", "", ""},
         }},
        {"Al Nile",
         {
             {"AlNile", "regular", "", ""},
             {"AlNile-Bold", "bold", "", ""},
         }},
        {"American Typewriter",
         {
             {"AmericanTypewriter", "regular", "", ""},
             {"AmericanTypewriter-Bold", "bold", "", ""},
             {"AmericanTypewriter-Semibold", "semi-bold", "", ""},
             {"AmericanTypewriter-Condensed", "", "condensed", ""},
             {"AmericanTypewriter-CondensedBold", "bold", "condensed", ""},
             {"AmericanTypewriter-CondensedLight", "light", "condensed", ""},
             {"AmericanTypewriter-Light", "light", "", ""},
         }},
        {"Apple Color Emoji",
         {
             {"AppleColorEmoji", "regular", "", ""},
         }},
        {"Apple SD Gothic Neo",
         {
             {"AppleSDGothicNeo-UltraLight", "ultra-light", "", ""},
             {"AppleSDGothicNeo-Light", "light", "", ""},
             {"AppleSDGothicNeo-Regular", "regular", "", ""},
             {"AppleSDGothicNeo-Medium", "medium", "", ""},
             {"AppleSDGothicNeo-SemiBold", "semi-bold", "", ""},
             {"AppleSDGothicNeo-Bold", "bold", "", ""},
             {"AppleSDGothicNeo-ExtraBold", "extra-bold", "", ""},
             {"AppleSDGothicNeo-Heavy", "heavy", "", ""},
             {"AppleSDGothicNeo-Thin", "thin", "", ""},
         }},
        {"Arial",
         {
             {"ArialMT", "regular", "", ""},
             {"Arial-BoldItalicMT", "bold", "", "italic"},
             {"Arial-BoldMT", "bold", "", ""},
             {"Arial-ItalicMT", "", "", "italic"},
         }},
        {"Arial Hebrew",
         {
             {"ArialHebrew", "regular", "", ""},
             {"ArialHebrew-Bold", "bold", "", ""},
             {"ArialHebrew-Light", "light", "", ""},
         }},
        {"Arial Rounded MT Bold",
         {
             {"ArialRoundedMTBold", "regular", "", ""},
         }},
        {"Avenir",
         {
             {"Avenir-Black", "black", "", ""},
             {"Avenir-BlackOblique", "black", "", "oblique"},
             {"Avenir-Book", "book", "", ""},
             {"Avenir-BookOblique", "book", "", "oblique"},
             {"Avenir-Heavy", "heavy", "", ""},
             {"Avenir-HeavyOblique", "heavy", "", "oblique"},
             {"Avenir-Light", "light", "", ""},
             {"Avenir-LightOblique", "light", "", "oblique"},
             {"Avenir-Medium", "medium", "", ""},
             {"Avenir-MediumOblique", "medium", "", "oblique"},
             {"Avenir-Oblique", "", "", "oblique"},
             {"Avenir-Roman", "roman", "", ""},
         }},
        {"Avenir Next",
         {
             {"AvenirNext-Bold", "bold", "", ""},
             {"AvenirNext-BoldItalic", "bold", "", "italic"},
             {"AvenirNext-DemiBold", "demi-bold", "", ""},
             {"AvenirNext-DemiBoldItalic", "demi-bold", "", "italic"},
             {"AvenirNext-Heavy", "heavy", "", ""},
             {"AvenirNext-HeavyItalic", "heavy", "", "italic"},
             {"AvenirNext-Italic", "", "", "italic"},
             {"AvenirNext-Medium", "medium", "", ""},
             {"AvenirNext-MediumItalic", "medium", "", "italic"},
             {"AvenirNext-Regular", "regular", "", ""},
             {"AvenirNext-UltraLight", "ultra-light", "", ""},
             {"AvenirNext-UltraLightItalic", "ultra-light", "", "italic"},
         }},
        {"Avenir Next Condensed",
         {
             {"AvenirNextCondensed-Bold", "bold", "", ""},
             {"AvenirNextCondensed-BoldItalic", "bold", "", "italic"},
             {"AvenirNextCondensed-DemiBold", "demi-bold", "", ""},
             {"AvenirNextCondensed-DemiBoldItalic", "demi-bold", "", "italic"},
             {"AvenirNextCondensed-Heavy", "heavy", "", ""},
             {"AvenirNextCondensed-HeavyItalic", "heavy", "", "italic"},
             {"AvenirNextCondensed-Italic", "", "", "italic"},
             {"AvenirNextCondensed-Medium", "medium", "", ""},
             {"AvenirNextCondensed-MediumItalic", "medium", "", "italic"},
             {"AvenirNextCondensed-Regular", "regular", "", ""},
             {"AvenirNextCondensed-UltraLight", "ultra-light", "", ""},
             {"AvenirNextCondensed-UltraLightItalic", "ultra-light", "", "italic"},
         }},
        {"Baskerville",
         {
             {"Baskerville", "regular", "", ""},
             {"Baskerville-Bold", "bold", "", ""},
             {"Baskerville-BoldItalic", "bold", "", "italic"},
             {"Baskerville-Italic", "", "", "italic"},
             {"Baskerville-SemiBold", "semi-bold", "", ""},
             {"Baskerville-SemiBoldItalic", "semi-bold", "", "italic"},
         }},
        {"Bodoni 72",
         {
             {"BodoniSvtyTwoITCTT-Bold", "bold", "", ""},
             {"BodoniSvtyTwoITCTT-Book", "book", "", ""},
             {"BodoniSvtyTwoITCTT-BookIta", "book", "", "italic"},
         }},
        {"Bodoni 72 Oldstyle",
         {
             {"BodoniSvtyTwoOSITCTT-Bold", "bold", "", ""},
             {"BodoniSvtyTwoOSITCTT-Book", "book", "", ""},
             {"BodoniSvtyTwoOSITCTT-BookIt", "book", "", "italic"},
         }},
        {"Bodoni 72 Smallcaps",
         {
             {"BodoniSvtyTwoSCITCTT-Book", "book", "", ""},
         }},
        {"Bradley Hand",
         {
             {"BradleyHandITCTT-Bold", "bold", "", ""},
         }},
        {"Chalkboard SE",
         {
             {"ChalkboardSE-Bold", "bold", "", ""},
             {"ChalkboardSE-Light", "light", "", ""},
             {"ChalkboardSE-Regular", "regular", "", ""},
         }},
        {"Cochin",
         {
             {"Cochin", "regular", "", ""},
             {"Cochin-Bold", "bold", "", ""},
             {"Cochin-BoldItalic", "bold", "", "italic"},
             {"Cochin-Italic", "", "", "italic"},
         }},
        {"Copperplate",
         {
             {"Copperplate", "regular", "", ""},
             {"Copperplate-Bold", "bold", "", ""},
             {"Copperplate-Light", "light", "", ""},
         }},
        {"Courier",
         {
             {"Courier", "regular", "", ""},
             {"Courier-Bold", "bold", "", ""},
             {"Courier-BoldOblique", "bold", "", "oblique"},
             {"Courier-Oblique", "", "", "oblique"},
         }},
        {"Courier New",
         {
             {"CourierNewPS-BoldItalicMT", "bold", "", "italic"},
             {"CourierNewPS-BoldMT", "bold", "", ""},
             {"CourierNewPS-ItalicMT", "", "", "italic"},
             {"CourierNewPSMT", "regular", "", ""},
         }},
        {"DIN Alternate",
         {
             {"DINAlternate-Bold", "bold", "", ""},
         }},
        {"DIN Condensed",
         {
             {"DINCondensed-Bold", "bold", "", ""},
         }},
        {"Didot",
         {
             {"Didot", "regular", "", ""},
             {"Didot-Bold", "bold", "", ""},
             {"Didot-Italic", "", "", "italic"},
         }},
        {"Euphemia UCAS",
         {
             {"EuphemiaUCAS", "regular", "", ""},
             {"EuphemiaUCAS-Bold", "bold", "", ""},
             {"EuphemiaUCAS-Italic", "", "", "italic"},
         }},
        {"Farah",
         {
             {"Farah", "regular", "", ""},
         }},
        {"Futura",
         {
             {"Futura-CondensedExtraBold", "extra-bold", "condensed", ""},
             {"Futura-Bold", "bold", "", ""},
             {"Futura-CondensedMedium", "medium", "condensed", ""},
             {"Futura-Medium", "medium", "", ""},
             {"Futura-MediumItalic", "medium", "", "italic"},
         }},
        {"Georgia",
         {
             {"Georgia", "regular", "", ""},
             {"Georgia-Bold", "bold", "", ""},
             {"Georgia-BoldItalic", "bold", "", "italic"},
             {"Georgia-Italic", "", "", "italic"},
         }},
        {"Gill Sans",
         {
             {"GillSans", "regular", "", ""},
             {"GillSans-SemiBold", "semi-bold", "", ""},
             {"GillSans-SemiBoldItalic", "semi-bold", "", "italic"},
             {"GillSans-Bold", "bold", "", ""},
             {"GillSans-BoldItalic", "bold", "", "italic"},
             {"GillSans-UltraBold", "ultra-bold", "", ""},
             {"GillSans-Italic", "", "", "italic"},
             {"GillSans-Light", "light", "", ""},
             {"GillSans-LightItalic", "light", "", "italic"},
         }},
        {"Heiti SC",
         {
             {"STHeitiSC-Light", "light", "", ""},
             {"STHeitiSC-Medium", "medium", "", ""},
         }},
        {"Heiti TC",
         {
             {"STHeitiTC-Light", "light", "", ""},
             {"STHeitiTC-Medium", "medium", "", ""},
         }},
        {"Helvetica",
         {
             {"Helvetica", "regular", "", ""},
             {"Helvetica-Bold", "bold", "", ""},
             {"Helvetica-BoldOblique", "bold", "", "oblique"},
             {"Helvetica-Light", "light", "", ""},
             {"Helvetica-LightOblique", "light", "", "oblique"},
             {"Helvetica-Oblique", "", "", "oblique"},
         }},
        {"Helvetica Neue",
         {
             {"HelveticaNeue", "regular", "", ""},
             {"HelveticaNeue-Bold", "bold", "", ""},
             {"HelveticaNeue-BoldItalic", "bold", "", "italic"},
             {"HelveticaNeue-CondensedBlack", "black", "condensed", ""},
             {"HelveticaNeue-CondensedBold", "bold", "condensed", ""},
             {"HelveticaNeue-Italic", "", "", "italic"},
             {"HelveticaNeue-Light", "light", "", ""},
             {"HelveticaNeue-LightItalic", "light", "", "italic"},
             {"HelveticaNeue-Medium", "medium", "", ""},
             {"HelveticaNeue-MediumItalic", "medium", "", "italic"},
             {"HelveticaNeue-UltraLight", "ultra-light", "", ""},
             {"HelveticaNeue-UltraLightItalic", "ultra-light", "", "italic"},
             {"HelveticaNeue-Thin", "thin", "", ""},
             {"HelveticaNeue-ThinItalic", "thin", "", "italic"},
         }},
        {"Hiragino Mincho ProN",
         {
             {"HiraMinProN-W3", "regular", "", ""},
             {"HiraMinProN-W6", "semi-bold", "", ""},
         }},
        {"Hiragino Sans",
         {
             {"HiraginoSans-W3", "regular", "", ""},
             {"HiraginoSans-W6", "semi-bold", "", ""},
         }},
        {"Hoefler Text",
         {
             {"HoeflerText-Black", "black", "", ""},
             {"HoeflerText-BlackItalic", "black", "", "italic"},
             {"HoeflerText-Italic", "", "", "italic"},
             {"HoeflerText-Regular", "regular", "", ""},
             {"HoeflerText-Ornaments", "ornaments", "", ""},
         }},
        {"Marker Felt",
         {
             {"MarkerFelt-Thin", "thin", "", ""},
             {"MarkerFelt-Wide", "wide", "", ""},
         }},
        {"Menlo",
         {
             {"Menlo-BoldItalic", "bold", "", "italic"},
             {"Menlo-Regular", "regular", "", ""},
             {"Menlo-Bold", "bold", "", ""},
             {"Menlo-Italic", "", "", "italic"},
         }},
        {"Noteworthy",
         {
             {"Noteworthy-Bold", "bold", "", ""},
             {"Noteworthy-Light", "light", "", ""},
         }},
        {"Optima",
         {
             {"Optima-Bold", "bold", "", ""},
             {"Optima-BoldItalic", "bold", "", "italic"},
             {"Optima-ExtraBlack", "extra-black", "", ""},
             {"Optima-Italic", "", "", "italic"},
             {"Optima-Regular", "regular", "", ""},
         }},
        {"Palatino",
         {
             {"Palatino-Bold", "bold", "", ""},
             {"Palatino-BoldItalic", "bold", "", "italic"},
             {"Palatino-Italic", "", "", "italic"},
             {"Palatino-Roman", "roman", "", ""},
         }},
        {"Papyrus",
         {
             {"Papyrus", "regular", "", ""},
             {"Papyrus-Condensed", "", "condensed", ""},
         }},
        {"Party LET",
         {
             {"PartyLetPlain", "regular", "", ""},
         }},
        {"PingFang HK",
         {
             {"PingFangHK-Ultralight", "ultra-light", "", ""},
             {"PingFangHK-Light", "light", "", ""},
             {"PingFangHK-Thin", "thin", "", ""},
             {"PingFangHK-Regular", "regular", "", ""},
             {"PingFangHK-Medium", "medium", "", ""},
             {"PingFangHK-Semibold", "semi-bold", "", ""},
         }},
        {"PingFang SC",
         {
             {"PingFangSC-Ultralight", "ultra-light", "", ""},
             {"PingFangSC-Light", "light", "", ""},
             {"PingFangSC-Thin", "thin", "", ""},
             {"PingFangSC-Regular", "regular", "", ""},
             {"PingFangSC-Medium", "medium", "", ""},
             {"PingFangSC-Semibold", "semi-bold", "", ""},
         }},
        {"PingFang TC",
         {
             {"PingFangTC-Ultralight", "ultra-light", "", ""},
             {"PingFangTC-Light", "light", "", ""},
             {"PingFangTC-Thin", "thin", "", ""},
             {"PingFangTC-Regular", "regular", "", ""},
             {"PingFangTC-Medium", "medium", "", ""},
             {"PingFangTC-Semibold", "semi-bold", "", ""},
         }},
        {"Savoye Let",
         {
             {"SavoyeLetPlain", "regular", "", ""},
         }},
        {"Snell Roundhand",
         {
             {"SnellRoundhand", "regular", "", ""},
             {"SnellRoundhand-Black", "black", "", ""},
             {"SnellRoundhand-Bold", "bold", "", ""},
         }},
        {"Thonburi",
         {
             {"Thonburi", "regular", "", ""},
             {"Thonburi-Bold", "bold", "", ""},
             {"Thonburi-Light", "light", "", ""},
         }},
        {"Times New Roman",
         {
             {"TimesNewRomanPS-BoldItalicMT", "bold", "", "italic"},
             {"TimesNewRomanPS-BoldMT", "bold", "", ""},
             {"TimesNewRomanPS-ItalicMT", "", "", "italic"},
             {"TimesNewRomanPSMT", "regular", "", ""},
         }},
        {"Trebuchet MS",
         {
             {"Trebuchet-BoldItalic", "bold", "", "italic"},
             {"TrebuchetMS", "regular", "", ""},
             {"TrebuchetMS-Bold", "bold", "", ""},
             {"TrebuchetMS-Italic", "", "", "italic"},
         }},
        {"Verdana",
         {
             {"Verdana", "regular", "", ""},
             {"Verdana-Bold", "bold", "", ""},
             {"Verdana-BoldItalic", "bold", "", "italic"},
             {"Verdana-Italic", "", "", "italic"},
         }},
        {"Zapf Dingbats",
         {
             {"ZapfDingbatsITC", "regular", "", ""},
         }},
        {"Zapfino",
         {
             {"Zapfino", "regular", "", ""},
         }},
    };
    return families;
}

std::span<const std::string_view> fontStyleVocabulary() {
    return styleWords;
}
std::span<const std::string_view> fontWeightVocabulary() {
    return weightWords;
}
std::span<const std::string_view> fontWidthVocabulary() {
    return widthWords;
}

const ANFFontFamily* familyNamed(std::optional<std::string_view> name) {
    const auto families = fontCatalogue();
    const auto found = std::find_if(families.begin(), families.end(), [&](const ANFFontFamily& family) {
        return name && family.name == *name;
    });
    return found == families.end() ? nullptr : &*found;
}

std::optional<FontFace> variantWithPostScriptName(std::optional<std::string_view> postScriptName) {
    for (const ANFFontFamily& family : fontCatalogue()) {
        for (const ANFFontVariant& variant : family.variants) {
            if (postScriptName && variant.postScriptName == *postScriptName) {
                return FontFace{&family, &variant};
            }
        }
    }
    return std::nullopt;
}

std::string prettyFontTerm(std::string_view term) {
    std::string words(term);
    std::replace_if(
        words.begin(), words.end(), [](char c) { return c == '_' || c == '-'; }, ' ');
    return capitalizedWords(words);
}

std::string variantDisplayName(const ANFFontVariant& variant) {
    std::string name;
    for (const std::string_view term : {variant.fontWeight, variant.fontWidth, variant.fontStyle}) {
        if (!term.empty()) {
            name += (name.empty() ? "" : " ") + prettyFontTerm(term);
        }
    }
    return name.empty() ? "Regular" : name;
}

std::vector<std::string_view> fontWeightOptions(std::span<const ANFFontVariant> variants) {
    return optionsOf(variants, &ANFFontVariant::fontWeight);
}
std::vector<std::string_view> fontWidthOptions(std::span<const ANFFontVariant> variants) {
    return optionsOf(variants, &ANFFontVariant::fontWidth);
}
std::vector<std::string_view> fontStyleOptions(std::span<const ANFFontVariant> variants) {
    return optionsOf(variants, &ANFFontVariant::fontStyle);
}

} // namespace quillon
