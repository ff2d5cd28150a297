#include "render/LayoutCss.h"

#include "base/Numbers.h"
#include "base/UnicodeText.h"
#include "render/CssNumbers.h"
#include "render/EscapeHtml.h"
#include "render/Motion.h"

#include <algorithm>
#include <array>

namespace quillon::HTMLRenderer {

namespace {

/// What the number of a length counts.
enum class LengthUnit { point, pixel, browserUnit, columns, page, margin, gutter };

struct LengthSuffix {
    std::string_view text;
    LengthUnit unit;
};

constexpr std::array<LengthSuffix, 14> lengthSuffixes = {{
    {"pt", LengthUnit::point},
    {"px", LengthUnit::pixel},
    {"vh", LengthUnit::browserUnit},
    {"vw", LengthUnit::browserUnit},
    {"vmin", LengthUnit::browserUnit},
    {"vmax", LengthUnit::browserUnit},
    {"%", LengthUnit::browserUnit},
    {"rem", LengthUnit::browserUnit},
    {"em", LengthUnit::browserUnit},
    {"cw", LengthUnit::columns},
    {"pw", LengthUnit::page},
    {"dm", LengthUnit::margin},
    {"dg", LengthUnit::gutter},
    {"gut", LengthUnit::gutter},
}};

/// The unit at the end of a trimmed length; a bare number and an unknown unit are points.
LengthUnit unitOf(std::string_view text) {
    const std::string lower = lowercased(text);
    const auto* found = std::ranges::find_if(
        lengthSuffixes, [&lower](const LengthSuffix& suffix) { return lower.ends_with(suffix.text); });
    return found == lengthSuffixes.end() ? LengthUnit::point : found->unit;
}

std::string gridPixels(double pixels) {
    std::string css = formatGridNumber(pixels);
    css += "px";
    return css;
}

std::optional<std::string> textLengthCSS(const ANFLength& length, const std::string& text, int64_t span,
                                         const GridMetrics& grid) {
    const std::string_view core = trimmed(text);
    const std::optional<double> value =
        core.size() == text.size() ? length.numericValue() : ANFLength{std::string(core)}.numericValue();
    if (!value) {
        return length.plainLengthCSS();
    }
    switch (unitOf(core)) {
    case LengthUnit::point:
        return gridPixels(*value * grid.viewportScale());
    case LengthUnit::pixel:
        return gridPixels(*value);
    case LengthUnit::browserUnit:
        return text;
    case LengthUnit::columns:
        return gridPixels(grid.spanWidth(span) * *value / 100);
    case LengthUnit::page:
        return gridPixels(grid.contentWidth() * *value / 100);
    case LengthUnit::margin:
        return gridPixels(grid.scaledMargin() * *value / 100);
    case LengthUnit::gutter:
        return gridPixels(grid.scaledGutter() * *value / 100);
    }
    return std::nullopt;
}

/// A flag of a layout: off, on by `true`, or on by a text, of which two name one side.
enum class Reach { off, on, left, right, bothByText };

Reach reachOf(const Optional<ANFFlag>& flag) {
    if (!flag) {
        return Reach::off;
    }
    if (const bool* isOn = std::get_if<bool>(&flag->form)) {
        return *isOn ? Reach::on : Reach::off;
    }
    const std::string& text = std::get<std::string>(flag->form);
    if (text == "none" || text == "false") {
        return Reach::off;
    }
    return text == "left" ? Reach::left : text == "right" ? Reach::right : Reach::bothByText;
}

/// Writes "{left}{value}px;" and "{right}{value}px;", of a flag that names one side only that side's.
void sideDeclarations(std::string& out, Reach reach, std::string_view left, std::string_view right,
                      std::string_view value) {
    if (reach != Reach::right) {
        out.append(left).append(value).append("px;");
    }
    if (reach != Reach::left) {
        out.append(right).append(value).append("px;");
    }
}

/// Over the whole viewport: `true` also sets the width.
std::string_view viewportReachCSS(Reach reach) {
    switch (reach) {
    case Reach::off:
        return {};
    case Reach::on:
        return "grid-column: 1 / -1;width: 100vw; margin-left: calc(50% - 50vw); margin-right: calc(50% - "
               "50vw);";
    case Reach::left:
        return "grid-column: 1 / -1;margin-left: calc(50% - 50vw);";
    case Reach::right:
        return "grid-column: 1 / -1;margin-right: calc(50% - 50vw);";
    case Reach::bothByText:
        return "grid-column: 1 / -1;margin-left: calc(50% - 50vw);margin-right: calc(50% - 50vw);";
    }
    return {};
}

void reachCSS(std::string& out, const ComponentLayout& layout, const GridMetrics& grid) {
    const std::string_view overViewport = viewportReachCSS(reachOf(layout.ignoreViewportPadding));
    const Reach overMargin = reachOf(layout.ignoreDocumentMargin);
    out += overViewport;
    if (overViewport.empty() && overMargin != Reach::off) {
        sideDeclarations(out, overMargin, "margin-left: -", "margin-right: -",
                         formatNumber(grid.scaledMargin()));
    }
}

void marginCSS(std::string& out, const Optional<LayoutMargin>& margin, int64_t span,
               const GridMetrics& grid) {
    if (!margin) {
        return;
    }
    if (const Margin* sides = std::get_if<Margin>(&margin->form)) {
        lengthDeclaration(out, "margin-top: ", lengthCSS(sides->top, span, grid));
        lengthDeclaration(out, "margin-bottom: ", lengthCSS(sides->bottom, span, grid));
        return;
    }
    const auto both = lengthCSS(std::get<ANFLength>(margin->form), span, grid);
    lengthDeclaration(out, "margin-top: ", both);
    lengthDeclaration(out, "margin-bottom: ", both);
}

void contentInsetCSS(std::string& out, const Optional<ContentInsetValue>& contentInset) {
    if (!contentInset) {
        return;
    }
    if (const bool* isInset = std::get_if<bool>(&contentInset->form)) {
        out += *isInset ? "padding: 16px;" : "";
        return;
    }
    const ContentInset& sides = std::get<ContentInset>(contentInset->form);
    const auto sideCSS = [&out](std::optional<bool> side, std::string_view css) {
        out += side.value_or(false) ? css : "";
    };
    sideCSS(sides.top, "padding-top: 16px;");
    sideCSS(sides.right, "padding-right: 16px;");
    sideCSS(sides.bottom, "padding-bottom: 16px;");
    sideCSS(sides.left, "padding-left: 16px;");
}

std::string_view contentAlignmentCSS(const Optional<std::string>& alignment) {
    if (alignment == "center") {
        return "justify-self: center;";
    }
    if (alignment == "left") {
        return "justify-self: start;";
    }
    return alignment == "right" ? "justify-self: end;" : "";
}

/// The columns that a component covers.
struct ColumnRange {
    int64_t start = 0; ///< counted from 0
    int64_t span = 1;  ///< at least 1
};

/// What lies beyond the last column folds into it, so that nothing leaves the grid.
ColumnRange columnRange(const ComponentLayout& layout, const GridMetrics& grid) {
    const int64_t columns = grid.effectiveColumnCount();
    const int64_t start = std::clamp<int64_t>(layout.columnStart.value_or(0), 0, columns - 1);
    const int64_t rest = columns - start;
    return {start, std::clamp<int64_t>(layout.columnSpan.value_or(rest), 1, rest)};
}

} // namespace

std::optional<std::string> lengthCSS(const Optional<ANFLength>& length, int64_t span,
                                     const GridMetrics& grid) {
    if (!length) {
        return std::nullopt;
    }
    if (const double* number = std::get_if<double>(&length->form)) {
        return gridPixels(*number * grid.viewportScale());
    }
    return textLengthCSS(*length, std::get<std::string>(length->form), span, grid);
}

void lengthDeclaration(std::string& out, std::string_view opening, const std::optional<std::string>& length) {
    if (length) {
        out += opening;
        escapeHTML(out, *length); // any text that ends in a unit is a length
        out += ';';
    }
}

int64_t spanCount(const ComponentLayout* layout, const GridMetrics& grid) {
    return layout ? columnRange(*layout, grid).span : grid.effectiveColumnCount();
}

void gridColumnCSS(std::string& out, const ComponentLayout* layout, const GridMetrics& grid) {
    if (!layout) {
        out += "grid-column: 1 / -1;";
        return;
    }
    const ColumnRange range = columnRange(*layout, grid);
    out += "grid-column: ";
    appendInteger(out, range.start + 1);
    out += " / span ";
    appendInteger(out, range.span);
    out += ';';
}

void layoutCSS(std::string& out, const ComponentLayout* layout, const Optional<Anchor>& anchor,
               const GridMetrics& grid) {
    gridColumnCSS(out, layout, grid);
    if (layout) {
        const int64_t span = spanCount(layout, grid);
        reachCSS(out, *layout, grid);
        marginCSS(out, layout->margin, span, grid);
        lengthDeclaration(out, "min-height: ", lengthCSS(layout->minimumHeight, span, grid));
        lengthDeclaration(out, "max-width: ", lengthCSS(layout->maximumContentWidth, span, grid));
        contentInsetCSS(out, layout->contentInset);
        out += contentAlignmentCSS(layout->horizontalContentAlignment);
    }
    out += anchorAlignmentCSS(anchor);
}

void containerDisplayCSS(std::string& out, const Optional<ContentDisplay>& contentDisplay,
                         const GridMetrics& grid) {
    const Optional<std::string> type = contentDisplay ? contentDisplay->type : std::nullopt;
    const bool isStack = type == "horizontal_stack";
    if (!isStack && type != "collection") {
        grid.gridStyle(out);
        return;
    }
    const double scale = grid.viewportScale();
    const double gap = contentDisplay->gutter.value_or(0);
    out += isStack ? "display: flex; flex-direction: row; gap: "
                   : "display: flex; flex-wrap: wrap; column-gap: ";
    formatNumber(out, gap * scale);
    if (isStack) {
        out += "px; overflow-x: auto; align-items: flex-start;";
        return;
    }
    out += "px; row-gap: ";
    formatNumber(out, contentDisplay->rowSpacing.value_or(gap) * scale);
    out += "px; align-items: flex-start;";
}

void marginInsetCSS(std::string& out, const ComponentLayout* layout, const GridMetrics& grid) {
    if (!layout) {
        return;
    }
    const Reach reach =
        reachOf(layout->ignoreViewportPadding ? layout->ignoreViewportPadding : layout->ignoreDocumentMargin);
    const std::string margin = formatNumber(grid.scaledMargin());
    if (reach != Reach::off && margin != "0") {
        sideDeclarations(out, reach, "padding-left: ", "padding-right: ", margin);
    }
}

void minimumHeightCSS(std::string& out, const ComponentLayout* layout, const GridMetrics& grid) {
    if (layout) {
        lengthDeclaration(out,
                          "min-height: ", lengthCSS(layout->minimumHeight, spanCount(layout, grid), grid));
    }
}

} // namespace quillon::HTMLRenderer
