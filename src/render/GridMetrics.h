#pragma once

#include "model/Layout.h"

#include <cstdint>
#include <optional>
#include <string>

namespace quillon::HTMLRenderer {

/// The article's column grid in a viewport: lengths in points. A viewport narrower than the article scales
/// margins and gutters, and one below 768 points folds the grid into fewer columns.
struct GridMetrics {
    int64_t columns = 1; ///< at least 1
    int64_t width = 1;   ///< at least 1
    std::optional<int64_t> margin;
    std::optional<int64_t> gutter;
    double viewportWidth = 0;

    double viewportScale() const;
    int64_t effectiveColumnCount() const;
    double columnWidth() const;
    double contentWidth() const;
    /// The width of `span` columns, of all when absent.
    double spanWidth(std::optional<int64_t> span) const;
    double articleMaxWidth() const;
    double scaledMargin() const; ///< margin x viewportScale, 0 when absent
    double scaledGutter() const; ///< gutter x viewportScale, 0 when absent

    /// Append the declarations of a grid, and of the article's width.
    void gridStyle(std::string& out) const;
    void articleWidthStyle(std::string& out) const;

    bool operator==(const GridMetrics&) const = default;
};

/// The metrics of `layout`, its width and columns raised to 1.
GridMetrics gridMetrics(const Layout& layout, double viewportWidth);

} // namespace quillon::HTMLRenderer
