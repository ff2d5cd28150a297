#include "render/GridMetrics.h"

#include "base/Numbers.h"
#include "render/CssNumbers.h"

#include <algorithm>
#include <cmath>

namespace quillon::HTMLRenderer {

namespace {

/// Below this the columns of a grid fold; at or above it all stand, however narrow they become.
constexpr double foldingWidth = 768;
/// At least this part of the columns remains in the narrowest viewport.
constexpr double leastColumnRatio = 0.1;

// An article may give any 64-bit number for its lengths: they are reckoned in floating point, which cannot
// overflow.
double pointsOf(std::optional<int64_t> length) {
    return static_cast<double>(length.value_or(0));
}

double gutterCount(int64_t columns) {
    return static_cast<double>(columns) - 1;
}

} // namespace

double GridMetrics::viewportScale() const {
    return std::min(viewportWidth / static_cast<double>(width), 1.0);
}

int64_t GridMetrics::effectiveColumnCount() const {
    const auto articleWidth = static_cast<double>(width);
    if (viewportWidth >= foldingWidth || viewportWidth >= articleWidth) {
        return columns;
    }
    const double ratio = std::max(viewportWidth / articleWidth, leastColumnRatio);
    const double folded = std::ceil(ratio * static_cast<double>(columns));
    return folded < static_cast<double>(columns) ? std::max<int64_t>(static_cast<int64_t>(folded), 1)
                                                 : columns;
}

double GridMetrics::columnWidth() const {
    const double free =
        static_cast<double>(width) - 2 * pointsOf(margin) - pointsOf(gutter) * gutterCount(columns);
    return std::max(free / static_cast<double>(columns), 0.0);
}

double GridMetrics::contentWidth() const {
    return spanWidth(std::nullopt);
}

double GridMetrics::spanWidth(std::optional<int64_t> span) const {
    const int64_t all = effectiveColumnCount();
    const int64_t covered = std::clamp<int64_t>(span.value_or(all), 1, all);
    return columnWidth() * static_cast<double>(covered) + gutterCount(covered) * scaledGutter();
}

double GridMetrics::articleMaxWidth() const {
    return std::min(contentWidth() + 2 * scaledMargin(), static_cast<double>(width));
}

double GridMetrics::scaledMargin() const {
    return pointsOf(margin) * viewportScale();
}

double GridMetrics::scaledGutter() const {
    return pointsOf(gutter) * viewportScale();
}

void GridMetrics::gridStyle(std::string& out) const {
    out += "display: grid; grid-template-columns: repeat(";
    appendInteger(out, effectiveColumnCount());
    out += ", minmax(0, 1fr)); column-gap: ";
    formatGridNumber(out, scaledGutter());
    out += "px; align-items: start;";
}

void GridMetrics::articleWidthStyle(std::string& out) const {
    const std::string padding = formatGridNumber(scaledMargin());
    out += "width: 100%; max-width: ";
    formatGridNumber(out, articleMaxWidth());
    out.append("px; padding-left: ").append(padding);
    out.append("px; padding-right: ").append(padding).append("px;");
}

GridMetrics gridMetrics(const Layout& layout, double viewportWidth) {
    return {
        .columns = std::max<int64_t>(layout.columns, 1),
        .width = std::max<int64_t>(layout.width, 1),
        .margin = layout.margin,
        .gutter = layout.gutter,
        .viewportWidth = viewportWidth,
    };
}

} // namespace quillon::HTMLRenderer
