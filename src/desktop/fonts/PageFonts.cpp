#include "desktop/fonts/PageFonts.h"

#ifdef QUILLON_FONTCONFIG

#include "desktop/fonts/FontRules.h"

#include <fontconfig/fontconfig.h>

#include <memory>
#include <span>
#include <string>

namespace quillon {

namespace {

using Configuration = std::unique_ptr<FcConfig, decltype(&FcConfigDestroy)>;

std::string_view text(const FcChar8* bytes) {
    return reinterpret_cast<const char*>(bytes);
}

/// The web engine passes over fonts of other formats.
bool isUsable(FcPattern* font) {
    FcChar8* format = nullptr;
    return FcPatternGetString(font, FC_FONTFORMAT, 0, &format) == FcResultMatch &&
           (text(format) == "TrueType" || text(format) == "CFF");
}

FontFamilies familiesOf(FcConfig* configuration) {
    FontFamilies families;
    for (const FcSetName set : {FcSetSystem, FcSetApplication}) {
        const FcFontSet* fonts = FcConfigGetFonts(configuration, set);
        const auto count = fonts ? static_cast<std::size_t>(fonts->nfont) : 0;
        for (FcPattern* font : std::span(fonts ? fonts->fonts : nullptr, count)) {
            FcChar8* name = nullptr;
            for (int i = 0; isUsable(font) && FcPatternGetString(font, FC_FAMILY, i, &name) == FcResultMatch;
                 ++i) {
                families.add(text(name));
            }
        }
    }
    return families;
}

} // namespace

void preparePageFonts() {
    // In memory and in this process: a file named in the environment would reach every program that is
    // started from here. The web engine's processes ask this one for their fonts.
    const Configuration configuration(FcInitLoadConfigAndFonts(), FcConfigDestroy);
    if (!configuration) {
        return;
    }
    const std::string rules = fontRules(familiesOf(configuration.get()));
    const auto* bytes = reinterpret_cast<const FcChar8*>(rules.c_str());
    if (FcConfigParseAndLoadFromMemory(configuration.get(), bytes, FcTrue) == FcFalse) {
        return;
    }
    // When fonts are installed the library would load the system's configuration anew, without these rules.
    FcConfigSetRescanInterval(configuration.get(), 0);
    FcConfigSetCurrent(configuration.get());
}

} // namespace quillon

#else

namespace quillon {

void preparePageFonts() {}

} // namespace quillon

#endif
