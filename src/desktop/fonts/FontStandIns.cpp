#include "desktop/fonts/FontStandIns.h"

namespace quillon {

namespace {

// docs/fonts.md says why each stands here.
constexpr FontStandIn::Families helvetica = {"Nimbus Sans", "TeX Gyre Heros", "Liberation Sans"};
constexpr FontStandIn::Families helveticaNarrow = {"Nimbus Sans Narrow", "TeX Gyre Heros Cn",
                                                   "Liberation Sans Narrow"};
constexpr FontStandIn::Families arial = {"Liberation Sans", "Arimo", "Nimbus Sans"};
constexpr FontStandIn::Families times = {"Liberation Serif", "Tinos", "Nimbus Roman"};
constexpr FontStandIn::Families weights = {"Roboto", "Inter"};
constexpr FontStandIn::Families narrowWeights = {"Roboto Condensed", "Nimbus Sans Narrow",
                                                 "TeX Gyre Heros Cn"};
constexpr FontStandIn::Families geometric = {"Lato", "Open Sans"};
constexpr FontStandIn::Families bodoni = {"Berenis ADF Pro", "Old Standard TT"};
constexpr FontStandIn::Families smallCapitals = {"Romande ADF Style Std"};
constexpr FontStandIn::Families arabic = {"Amiri", "Noto Naskh Arabic"};
constexpr FontStandIn::Families script = {"Dancing Script"};
constexpr FontStandIn::Families monospaced = {"DejaVu Sans Mono", "Liberation Mono"};
constexpr FontStandIn::Families chinese = {"Noto Sans CJK SC"};
constexpr FontStandIn::Families taiwanese = {"Noto Sans CJK TC"};
constexpr FontStandIn::Families systemFaces = {"Inter", "Roboto", "Open Sans"};
constexpr FontStandIn::Families systemSerif = {"PT Serif", "Charis SIL"};

constexpr FontStandIn standIns[] = {
    {"Academy Engraved LET", {"Goudy Bookletter 1911", "Linux Libertine O"}},
    {"Al Nile", arabic},
    {"American Typewriter", {"Roboto Slab"}, {"Mekanus ADF Std"}},
    {"Apple Color Emoji", {"Noto Color Emoji"}},
    {"Apple SD Gothic Neo", {"Noto Sans CJK KR", "NanumGothic"}},
    {"Arial", arial, helveticaNarrow},
    {"Arial Hebrew", arial},
    {.family = "Arial Rounded MT Bold", .faces = {"Quicksand"}, .isBold = true},
    {"Avenir", geometric},
    {"Avenir Next", geometric, narrowWeights},
    {"Avenir Next Condensed", narrowWeights},
    {"Baskerville", {"Baskervald ADF Std", "Libre Baskerville"}},
    {"Bodoni 72", bodoni},
    {"Bodoni 72 Oldstyle", bodoni},
    {"Bodoni 72 Smallcaps", smallCapitals},
    {.family = "Bradley Hand", .faces = {"Rufscript"}, .isBold = true},
    {"Chalkboard SE", {"Comic Neue", "Comic Relief"}},
    {"Cochin", {"Cardo", "Linux Libertine O"}},
    {"Copperplate", smallCapitals},
    {"Courier", {"Nimbus Mono PS", "TeX Gyre Cursor", "Liberation Mono"}},
    {"Courier New", {"Liberation Mono", "Cousine", "Nimbus Mono PS"}},
    {.family = "DIN Alternate", .faces = {"Roboto", "Open Sans"}, .isBold = true},
    {.family = "DIN Condensed", .faces = {"OSP-DIN", "PT Sans Narrow"}, .isBold = true},
    {"Didot", {"GFS Didot"}},
    {"Euphemia UCAS", {"Aboriginal Sans"}},
    {"Farah", arabic},
    {"Futura", {"Universalis ADF Std"}},
    {"Georgia", {"Gelasio", "PT Serif", "Charis SIL"}},
    {"Gill Sans", {"Gillius ADF"}},
    {"Heiti SC", chinese},
    {"Heiti TC", taiwanese},
    {"Helvetica", helvetica, helveticaNarrow, weights},
    {"Helvetica Neue", helvetica, helveticaNarrow, weights},
    {"Hiragino Mincho ProN", {"Noto Serif CJK JP", "IPAMincho"}},
    {"Hiragino Sans", {"Noto Sans CJK JP", "IPAGothic"}},
    {"Hoefler Text", {"Linux Libertine O", "Cardo"}},
    {"Marker Felt", {"Kaushan Script"}},
    {"Menlo", monospaced},
    {"Noteworthy", {"DkgHandwriting", "Rufscript"}},
    {"Optima", {"Linux Biolinum O"}},
    {"Palatino", {"P052", "TeX Gyre Pagella"}},
    {"Papyrus", {"Oldania ADF Std"}},
    {"Party LET", {"Lobster Two"}},
    {"PingFang HK", {"Noto Sans CJK HK", "Noto Sans CJK TC"}},
    {"PingFang SC", chinese},
    {"PingFang TC", taiwanese},
    {"Savoye Let", script},
    {"Snell Roundhand", script},
    {"Thonburi", {"Loma"}},
    {"Times New Roman", times},
    {"Trebuchet MS", {"Fira Sans", "Open Sans"}},
    {"Verdana", {"Verana Sans", "DejaVu Sans"}},
    {"Zapf Dingbats", {"DejaVu Sans", "Symbola"}},
    {"Zapfino", {"Z003", "TeX Gyre Chorus"}},

    {"-apple-system", systemFaces},
    {"BlinkMacSystemFont", systemFaces},
    {"SF Pro", systemFaces},
    {"SF Pro Text", systemFaces},
    {"SF Pro Display", systemFaces},
    {"ui-sans-serif", systemFaces},
    {"ui-rounded", {"Quicksand"}},
    {"ui-serif", systemSerif},
    {"New York", systemSerif},
    {"ui-monospace", monospaced},
    {"SF Mono", monospaced},
    {"Times", times},
};

} // namespace

std::span<const FontStandIn> fontStandIns() {
    return standIns;
}

} // namespace quillon
