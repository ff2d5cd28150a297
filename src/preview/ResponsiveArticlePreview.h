#pragma once

#include "base/Scheduler.h"
#include "preview/ArticleDerivedContentCache.h"
#include "preview/PreviewRenderRequest.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quillon {

/// What the middle of a document window shows.
enum class PreviewMode { rendered, json };

/// "Preview", "JSON".
std::string_view title(PreviewMode mode);

/// Everything that a preview follows, but for the size of its pane.
struct PreviewState {
    ArticleFileDocument document;
    PreviewDevice device = PreviewDevice::automatic;
    PreviewOrientation orientation = PreviewOrientation::portrait;
    PreviewAppearance appearance = PreviewAppearance::automatic;
    std::string mapsEmbedToken;  ///< the setting as it stands
    std::string mapsEmbedOrigin; ///< the setting as it stands
};

/// What a preview asks of the program round it.
struct PreviewHost {
    Scheduler& scheduler;
    /// Values that were built into the program, by key; nothing for one that is not there.
    std::function<std::optional<std::string>(std::string_view key)> applicationInfo;
    /// Seconds since 1970.
    std::function<double()> wallClock;
};

/// Decides when which page is rendered, and what becomes of it. A change of what is wanted cancels the task
/// that runs for it and starts another: a pause, so that a burst of edits costs one render; the cache; a
/// render in the background; and its result counts only if nothing else is wanted meanwhile. Main thread
/// only.
class ResponsiveArticlePreview {
public:
    static constexpr double pause = 0.18;       ///< seconds from a change to its render, once a page is shown
    static constexpr double smallestPane = 320; ///< points; a smaller pane counts as this large

    /// `cache` is the window's, and outlives this.
    ResponsiveArticlePreview(PreviewState state, ArticleDerivedContentCache& cache, PreviewHost host);

    /// Nothing happens before the pane has a size, in points.
    void layOut(double paneWidth, double paneHeight);
    void setState(PreviewState state);

    const PreviewState& state() const { return m_state; }
    /// Where the pane has no size yet, that of the smallest one.
    const PreviewEnvironment& environment() const { return m_request.environment; }
    /// The last finished page; nothing before the first.
    const std::optional<RenderedPreview>& renderedPreview() const { return m_renderedPreview; }

    /// Called when `renderedPreview` was replaced.
    std::function<void()> onRendered;

    PreviewEnvironment resolvedEnvironment(double paneWidth, double paneHeight) const;

private:
    void refresh();
    void startTask();
    void testCache(std::uint64_t task);
    void render(std::uint64_t task);
    void apply(RenderedPreview preview);
    std::optional<std::string> infoString(std::string_view key) const;

    PreviewState m_state;
    ArticleDerivedContentCache& m_cache;
    PreviewHost m_host;
    double m_paneWidth = 0;
    double m_paneHeight = 0;
    bool m_isOnScreen = false;
    PreviewRenderRequest m_request;
    std::uint64_t m_task = 0; ///< the number of the live task; any other is cancelled
    std::optional<RenderedPreview> m_renderedPreview;
    WhileAlive m_whileAlive;
};

} // namespace quillon
