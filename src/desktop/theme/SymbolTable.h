#pragma once

#include <string_view>

namespace quillon {

/// How the drawing of an icon is turned to show its symbol.
enum class SymbolTurn { None, Mirrored, Quarter, Eighth };

/// A symbol and the icon that draws it. The files are assets/symbols/ICON.svg and, where there is a filled
/// name, ICON-fill.svg; `scripts/fetch-symbols` makes them from these rows.
struct SymbolRow {
    std::string_view name;   ///< draws the outline; empty where only the filled one is used
    std::string_view filled; ///< draws the filled icon; empty where only the outline is used
    std::string_view icon;
    SymbolTurn turn = SymbolTurn::None;
    std::string_view inner = {}; ///< an icon that stands small in the middle of the other; always an outline
};

constexpr SymbolRow symbolRows[] = {
    // What stands where the name is not known comes first.
    {"questionmark.square.dashed", "", "selection", SymbolTurn::None, "question-mark"},
    // Components
    {"textformat.size.larger", "", "text-t"},
    {"textformat.size", "", "text-h"},
    {"textformat.alt", "", "text-aa"},
    {"1.square", "1.square.fill", "number-square-one"},
    {"2.square", "2.square.fill", "number-square-two"},
    {"3.square", "3.square.fill", "number-square-three"},
    {"4.square", "4.square.fill", "number-square-four"},
    {"5.square", "5.square.fill", "number-square-five"},
    {"6.square", "6.square.fill", "number-square-six"},
    {"text.alignleft", "", "text-align-left"},
    {"text.aligncenter", "", "text-align-center"},
    {"text.alignright", "", "text-align-right"},
    {"text.justify", "", "text-align-justify"},
    {"doc.text", "doc.text.fill", "file-text"},
    {"doc.richtext", "doc.richtext.fill", "article"},
    {"captions.bubble", "captions.bubble.fill", "subtitles"},
    {"person", "person.fill", "user"},
    {"person.2", "person.2.fill", "users"},
    {"person.crop.rectangle", "person.crop.rectangle.fill", "user-rectangle"},
    {"person.crop.rectangle.stack", "", "identification-card"},
    {"signature", "", "signature"},
    {"camera", "camera.fill", "camera"},
    {"camera.viewfinder", "", "corners-out", SymbolTurn::None, "camera"},
    {"paintbrush", "paintbrush.fill", "paint-brush"},
    {"quote.opening", "", "quotes"},
    {"text.quote", "", "text-indent"},
    {"quote.bubble", "", "chat-centered", SymbolTurn::None, "quotes"},
    {"star.bubble", "", "chat-centered", SymbolTurn::None, "star"},
    {"bubble.left.and.text.bubble.right", "bubble.left.and.text.bubble.right.fill", "chats"},
    {"photo", "photo.fill", "image"},
    {"photo.on.rectangle", "", "images-square"},
    {"photo.on.rectangle.angled", "photo.fill.on.rectangle.fill", "images"},
    {"rectangle.on.rectangle", "rectangle.fill.on.rectangle.fill", "cards"},
    {"seal", "seal.fill", "seal"},
    {"square.grid.2x2", "square.grid.2x2.fill", "squares-four"},
    {"tablecells", "tablecells.fill", "table"},
    {"tablecells.badge.ellipsis", "", "grid-nine"},
    {"square.stack.3d.up", "square.stack.3d.up.fill", "stack"},
    {"book", "", "book-open"},
    {"book.closed", "book.closed.fill", "book"},
    {"", "rectangle.topthird.inset.filled", "browser"},
    {"rectangle.split.1x2", "rectangle.split.1x2.fill", "rows"},
    {"play.rectangle", "play.rectangle.fill", "monitor-play"},
    {"play.tv", "play.tv.fill", "television-simple", SymbolTurn::None, "play"},
    {"play.circle", "play.circle.fill", "play-circle"},
    {"waveform", "", "waveform"},
    {"music.note", "", "music-note"},
    {"music.note.list", "", "playlist"},
    {"dot.radiowaves.left.and.right", "", "broadcast"},
    {"map", "map.fill", "map-trifold"},
    {"mappin.and.ellipse", "", "map-pin-line"},
    {"button.horizontal", "button.horizontal.fill", "rectangle", SymbolTurn::None, "cursor"},
    {"link", "", "link"},
    {"link.circle", "link.circle.fill", "circle", SymbolTurn::None, "link"},
    {"arkit", "", "cube-focus"},
    {"megaphone", "megaphone.fill", "megaphone"},
    {"rectangle.badge.plus", "rectangle.fill.badge.plus", "rectangle", SymbolTurn::None, "plus"},
    {"newspaper", "newspaper.fill", "newspaper"},
    // Templates and the launch window
    {"chart.line.uptrend.xyaxis", "", "chart-line-up"},
    {"checklist", "", "list-checks"},
    {"sparkles", "", "sparkle"},
    {"folder", "", "folder"},
    {"mail", "", "envelope-simple"},
    {"clock.badge.questionmark", "", "clock-counter-clockwise"},
    {"exclamationmark.triangle", "exclamationmark.triangle.fill", "warning"},
    // The window
    {"sidebar.leading", "", "sidebar-simple"},
    {"sidebar.trailing", "", "sidebar-simple", SymbolTurn::Mirrored},
    {"square.dashed", "", "selection"},
    {"macwindow", "", "app-window"},
    {"iphone", "", "device-mobile"},
    {"ipad", "", "device-tablet"},
    {"rectangle", "", "rectangle"},
    {"rectangle.portrait", "", "rectangle", SymbolTurn::Quarter},
    {"circle.lefthalf.filled", "", "circle-half"},
    {"sun.max", "", "sun"},
    {"moon", "", "moon"},
    // Forms
    {"arrow.left.and.right", "", "arrows-left-right"},
    {"arrow.right", "", "arrow-right"},
    {"arrow.up.left.and.arrow.down.right", "", "arrows-out-simple", SymbolTurn::Mirrored},
    {"arrow.clockwise", "", "arrow-clockwise"},
    {"align.vertical.top", "", "align-top"},
    {"align.vertical.center", "", "align-center-vertical"},
    {"align.vertical.bottom", "", "align-bottom"},
    {"bold", "", "text-b"},
    {"italic", "", "text-italic"},
    {"underline", "", "text-underline"},
    {"strikethrough", "", "text-strikethrough"},
    {"calendar", "", "calendar-blank"},
    {"checkmark", "", "check"},
    {"chevron.down", "", "caret-down"},
    {"chevron.left", "", "caret-left"},
    {"chevron.right", "", "caret-right"},
    {"chevron.up", "", "caret-up"},
    {"chevron.up.chevron.down", "", "caret-up-down"},
    {"doc.on.doc", "", "copy"},
    {"ellipsis", "", "dots-three"},
    {"eye", "", "eye"},
    {"info.circle", "", "info"},
    {"magnifyingglass", "", "magnifying-glass"},
    {"minus", "", "minus"},
    {"minus.circle", "", "minus-circle"},
    {"paintpalette", "", "palette"},
    {"plus", "", "plus"},
    {"trash", "", "trash"},
    {"xmark", "", "plus", SymbolTurn::Eighth},
};

} // namespace quillon
