#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

/// One face of a family. The texts use the vocabulary of the text style fields of the same names and are
/// empty where the face has no such property.
struct ANFFontVariant {
    std::string_view postScriptName;
    std::string_view fontWeight;
    std::string_view fontWidth;
    std::string_view fontStyle;

    bool operator==(const ANFFontVariant&) const = default;
};

/// A family of faces that the editor offers.
struct ANFFontFamily {
    std::string_view name;
    std::vector<ANFFontVariant> variants;
};

/// A face and its family.
struct FontFace {
    const ANFFontFamily* family;
    const ANFFontVariant* variant;
};

/// The families that Apple News provides, in alphabetical order. What an article may name is not limited to
/// them.
std::span<const ANFFontFamily> fontCatalogue();

/// The words that the editors offer for fontStyle, fontWeight and fontWidth.
std::span<const std::string_view> fontStyleVocabulary();
std::span<const std::string_view> fontWeightVocabulary();
std::span<const std::string_view> fontWidthVocabulary();

/// The family of exactly this name; null for none, and for no name.
const ANFFontFamily* familyNamed(std::optional<std::string_view> name);
/// The first face of exactly this PostScript name, in the order of the catalogue.
std::optional<FontFace> variantWithPostScriptName(std::optional<std::string_view> postScriptName);

/// "ultra-light" as people read it: "Ultra Light".
std::string prettyFontTerm(std::string_view term);
/// "Bold Condensed Italic"; "Regular" for a face without properties.
std::string variantDisplayName(const ANFFontVariant& variant);

/// The distinct properties of `variants`, in the order of their pretty terms.
std::vector<std::string_view> fontWeightOptions(std::span<const ANFFontVariant> variants);
std::vector<std::string_view> fontWidthOptions(std::span<const ANFFontVariant> variants);
std::vector<std::string_view> fontStyleOptions(std::span<const ANFFontVariant> variants);

} // namespace quillon
