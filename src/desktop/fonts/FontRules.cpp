#include "desktop/fonts/FontRules.h"

#include "desktop/fonts/FontStandIns.h"
#include "model/FontCatalogue.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace quillon {

namespace {

// The matcher's own scales.
constexpr int lightWeight = 50;
constexpr int regularWeight = 80;
constexpr int mediumWeight = 100;
constexpr int semiBoldWeight = 180;
constexpr int boldWeight = 200;
constexpr int condensedWidth = 75;
constexpr int semiCondensedWidth = 87;
constexpr int italicSlant = 100;
constexpr int obliqueSlant = 110;

constexpr std::pair<std::string_view, int> weightScale[] = {
    {"thin", 0},
    {"ultra-light", 40},
    {"light", lightWeight},
    {"medium", mediumWeight},
    {"semi-bold", semiBoldWeight},
    {"demi-bold", semiBoldWeight},
    {"bold", boldWeight},
    {"wide", boldWeight},
    {"extra-bold", 205},
    {"ultra-bold", 205},
    {"heavy", 205},
    {"black", 210},
    {"extra-black", 215},
};

int weightOf(std::string_view term) {
    const auto* found = std::ranges::find(weightScale, term, &std::pair<std::string_view, int>::first);
    return found == std::end(weightScale) ? regularWeight : found->second;
}

std::string smallLetters(std::string_view text) {
    std::string small(text);
    std::ranges::transform(small, small.begin(),
                           [](char c) { return c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c; });
    return small;
}

std::string test(std::string_view property, std::string_view comparison, int value) {
    std::string out = "<test name=\"";
    out.append(property).append("\" compare=\"").append(comparison);
    return out.append("\"><int>").append(std::to_string(value)).append("</int></test>");
}

std::string assignment(std::string_view property, int value) {
    std::string out = "<edit name=\"";
    out.append(property).append("\" mode=\"assign\"><int>");
    return out.append(std::to_string(value)).append("</int></edit>");
}

/// The first name of the wanted families becomes `to`. Only the first, as the system's rules and the user's,
/// which have run by now, may have added kindred families behind it; where they put one before it, theirs
/// holds.
std::string familyEdit(std::string_view to) {
    std::string out = "<edit name=\"family\" mode=\"assign\" binding=\"same\"><string>";
    return out.append(to).append("</string></edit>");
}

void addRule(std::string& out, std::string_view family, std::string_view tests, std::string_view edits) {
    out.append("<match><test name=\"family\" qual=\"first\"><string>").append(family);
    out.append("</string></test>").append(tests).append(edits).append("</match>\n");
}

/// The rules by which the PostScript name of a face means that face.
void addFace(std::string& out, std::string_view family, const ANFFontVariant& face) {
    const int weight = weightOf(face.fontWeight);
    std::string edits = familyEdit(family);
    if (weight > regularWeight && weight < semiBoldWeight) {
        // Bold words in a text of this face have the bold one of its family.
        addRule(out, face.postScriptName, test("weight", "less", semiBoldWeight),
                assignment("weight", weight));
    } else if (weight != regularWeight) {
        edits += assignment("weight", weight);
    }
    if (face.fontWidth == "condensed") {
        edits += assignment("width", condensedWidth);
    }
    if (!face.fontStyle.empty()) {
        edits += assignment("slant", face.fontStyle == "oblique" ? obliqueSlant : italicSlant);
    }
    addRule(out, face.postScriptName, {}, edits);
}

std::optional<std::string_view> firstInstalled(const FontStandIn::Families& families,
                                               const FontFamilies& installed) {
    const auto* found = std::ranges::find_if(
        families, [&](std::string_view family) { return !family.empty() && installed.contains(family); });
    return found == families.end() ? std::nullopt : std::optional(*found);
}

/// The rules that put free faces in the place of a family.
void addStandIn(std::string& out, const FontStandIn& standIn, const FontFamilies& installed) {
    if (const auto condensed = firstInstalled(standIn.condensed, installed)) {
        addRule(out, standIn.family, test("width", "less_eq", semiCondensedWidth), familyEdit(*condensed));
    }
    if (const auto other = firstInstalled(standIn.otherWeights, installed)) {
        addRule(out, standIn.family, test("weight", "less_eq", lightWeight), familyEdit(*other));
        addRule(out, standIn.family,
                test("weight", "more", regularWeight) + test("weight", "less", semiBoldWeight),
                familyEdit(*other));
    }
    if (const auto face = firstInstalled(standIn.faces, installed)) {
        const std::string weight = standIn.isBold ? assignment("weight", boldWeight) : std::string();
        addRule(out, standIn.family, {}, familyEdit(*face) + weight);
    }
}

} // namespace

void FontFamilies::add(std::string_view name) {
    m_names.insert(smallLetters(name));
}

bool FontFamilies::contains(std::string_view name) const {
    return m_names.contains(smallLetters(name));
}

std::string fontRules(const FontFamilies& installed) {
    std::string out = "<?xml version=\"1.0\"?>\n<!DOCTYPE fontconfig SYSTEM \"fonts.dtd\">\n<fontconfig>\n";
    for (const ANFFontFamily& family : fontCatalogue()) {
        for (const ANFFontVariant& face : family.variants) {
            // Where family and face share a name, the text's own weight and style choose the face.
            if (face.postScriptName != family.name && !installed.contains(face.postScriptName)) {
                addFace(out, family.name, face);
            }
        }
    }
    for (const FontStandIn& standIn : fontStandIns()) {
        if (!installed.contains(standIn.family)) {
            addStandIn(out, standIn, installed);
        }
    }
    return out + "</fontconfig>\n";
}

} // namespace quillon
