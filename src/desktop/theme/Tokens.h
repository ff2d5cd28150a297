#pragma once

#include <QColor>
#include <QFont>

namespace quillon {

enum class Appearance { Light, Dark };

/// The colours of one appearance. Text reaches a contrast of 4.5 to 1 on window, sidebar and surface, and
/// `onAccent` and `onDanger` do so on theirs; `textTertiary` is for prompts and what is disabled.
struct ThemeColors {
    QColor window;
    QColor sidebar;
    QColor surface;
    QColor separator; ///< see-through
    QColor text;
    QColor textSecondary;
    QColor textTertiary;
    QColor accent;
    QColor onAccent;
    QColor selection; ///< of a row without focus
    QColor danger;
    QColor onDanger;
    QColor good;
    QColor warn;
    QColor hover;        ///< see-through, over whatever is below
    QColor pressed;      ///< the same
    QColor track;        ///< see-through: of switches, segments and progress
    QColor raised;       ///< what stands on a track: the chosen segment
    QColor knob;         ///< of a switch
    QColor accentTint;   ///< see-through: behind the chosen tab
    QColor pillSelected; ///< see-through: behind the chosen control of a pill
    QColor pillOutline;  ///< see-through
    QColor match;        ///< see-through: behind what a search has found
    QColor matchCurrent; ///< see-through: behind the one it is at
    QColor columnLine;   ///< see-through: between the columns of a window
    QColor shadow;       ///< see-through
    QColor frameShadow;  ///< see-through: of a page in a device's frame, before it is blurred; in both
                         ///< appearances
    QColor frameOutline; ///< see-through: of that page
    QColor overPage;     ///< almost opaque: behind text that lies over a page of whatever colour
};

const ThemeColors& themeColors(Appearance appearance);

/// The ratio of the luminances of two opaque colours, from 1 to 21.
double contrast(const QColor& one, const QColor& other);
/// `color` at `opacity`, from 0 to 1, times its own.
QColor faded(QColor color, double opacity);

/// Sizes of text, in points.
enum class TextSize { Caption = 11, Label = 12, Body = 13, Heading = 15, Title = 17, LargeTitle = 24 };

/// Distances, in points.
namespace distance {
constexpr int inside = 4;     ///< within a control
constexpr int beside = 8;     ///< between a label and its field
constexpr int groups = 12;    ///< between groups of rows
constexpr int around = 16;    ///< round a section
constexpr int pillInset = 3;  ///< between a pill's edge and what it holds
constexpr int segments = 2;   ///< between the segments of a pill or track
constexpr int iconToText = 5; ///< between a symbol and the text beside it
} // namespace distance

/// Corner radii, in points.
namespace radius {
constexpr int swatch = 4;
constexpr int field = 6; ///< and small buttons
constexpr int row = 8;   ///< and cards
constexpr int card = 12; ///< large ones
} // namespace radius

/// Heights, widths and line widths, in points.
namespace extent {
constexpr int control = 28; ///< height of a field or button
constexpr int largeControl = 34;
constexpr int toolbar = 52;       ///< height of the row at the top of a window
constexpr int pillControl = 25;   ///< height of a titled button in a pill
constexpr int pillSymbol = 28;    ///< width, or side, of a button in a pill that shows a symbol
constexpr int toolbarButton = 36; ///< width of a button that stands in the toolbar by itself
constexpr int buttonPadding = 12;
constexpr int pillPadding = 11;
constexpr int tab = 32;
constexpr int checkMark = 16; ///< side of a check box
constexpr int switchWidth = 36;
constexpr int switchHeight = 20;
constexpr int rowLabel = 132; ///< width of the labels' column
constexpr int line = 1;
constexpr int focusRing = 2;
constexpr int underline = 2;
constexpr int caret = 1;
constexpr int scrollBar = 10;
constexpr int progressBar = 6;
constexpr int spinner = 20;
constexpr int emptyStateText = 320; ///< widest line of an empty place's description
} // namespace extent

/// Sizes of symbols, in points.
namespace symbolSize {
constexpr int chevron = 9;
constexpr int control = 13; ///< beside text
constexpr int pill = 14;
constexpr int header = 22;
constexpr int emptyState = 40;
} // namespace symbolSize

/// Times, in milliseconds.
namespace motion {
constexpr int quick = 120;
constexpr int usual = 180;
constexpr int spring = 220;        ///< until a spring rests, as near as can be seen
constexpr int spinnerTurn = 900;   ///< one turn of it
constexpr int progressDelay = 300; ///< before progress shows at all
} // namespace motion

} // namespace quillon
