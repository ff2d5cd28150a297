#include "preview/ResponsiveArticlePreview.h"

#include "base/Log.h"
#include "base/UnicodeText.h"
#include "base/endpoints.h"
#include "render/Page.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace quillon {

namespace {

/// The value of the program goes before that of the user.
std::optional<std::string> chosen(std::optional<std::string> info, std::string_view setting) {
    if (info) {
        return info;
    }
    const std::string_view text = trimmed(setting);
    return text.empty() ? std::nullopt : std::optional<std::string>(text);
}

} // namespace

std::string_view title(PreviewMode mode) {
    return mode == PreviewMode::rendered ? "Preview" : "JSON";
}

ResponsiveArticlePreview::ResponsiveArticlePreview(PreviewState state, ArticleDerivedContentCache& cache,
                                                   PreviewHost host)
    : m_state(std::move(state)), m_cache(cache), m_host(std::move(host)) {
    m_request.environment = resolvedEnvironment(m_paneWidth, m_paneHeight);
}

void ResponsiveArticlePreview::layOut(double paneWidth, double paneHeight) {
    m_paneWidth = paneWidth;
    m_paneHeight = paneHeight;
    const bool isFirst = !std::exchange(m_isOnScreen, true);
    if (isFirst) {
        m_request = {m_state.document.article, resolvedEnvironment(paneWidth, paneHeight),
                     m_state.document.assetsFingerprint};
        startTask();
    } else {
        refresh();
    }
}

void ResponsiveArticlePreview::setState(PreviewState state) {
    m_state = std::move(state);
    if (m_isOnScreen) {
        refresh();
    }
}

void ResponsiveArticlePreview::refresh() {
    PreviewRenderRequest request{m_state.document.article, resolvedEnvironment(m_paneWidth, m_paneHeight),
                                 m_state.document.assetsFingerprint};
    if (!(request == m_request)) {
        m_request = std::move(request);
        startTask();
    }
}

void ResponsiveArticlePreview::startTask() {
    const std::uint64_t task = ++m_task;
    if (m_renderedPreview) {
        m_host.scheduler.after(pause, m_whileAlive([this, task] { testCache(task); }));
    } else {
        testCache(task);
    }
}

void ResponsiveArticlePreview::testCache(std::uint64_t task) {
    if (task != m_task) {
        return;
    }
    if (std::optional<RenderedPreview> known = m_cache.renderedPreview(m_request)) {
        logEvent("preview.cache.hit",
                 previewDetail(m_request.article, m_request.environment, *m_state.document.assets));
        apply(std::move(*known));
        return;
    }
    render(task);
}

void ResponsiveArticlePreview::render(std::uint64_t task) {
    auto work = [article = m_request.article, environment = m_request.environment, clock = m_host.wallClock,
                 detail = previewDetail(m_request.article, m_request.environment, *m_state.document.assets)] {
        const double start = logClock();
        Shared<std::string> html = HTMLRenderer::renderPage(article, environment, clock());
        logDuration("preview.render.background", start, detail);
        return html;
    };
    m_host.scheduler.inBackground(Lane::pages,
                                  [this, task, work = std::move(work), whileAlive = m_whileAlive.handle()] {
                                      return whileAlive([this, task, html = work()]() mutable {
                                          // A result that nobody wants any more touches nothing.
                                          if (task == m_task) {
                                              std::string key = m_cache.storePreview(html, m_request);
                                              apply({std::move(html), std::move(key)});
                                          }
                                      });
                                  });
}

void ResponsiveArticlePreview::apply(RenderedPreview preview) {
    m_renderedPreview = std::move(preview);
    if (onRendered) {
        onRendered();
    }
}

PreviewEnvironment ResponsiveArticlePreview::resolvedEnvironment(double paneWidth, double paneHeight) const {
    PreviewEnvironment environment =
        previewEnvironment(m_state.device, m_state.orientation, std::max(paneWidth, smallestPane),
                           std::max(paneHeight, smallestPane));
    environment.appearance = m_state.appearance;
    environment.mapsEmbedToken = chosen(infoString("QuillonMapsEmbedToken"), m_state.mapsEmbedToken);
    environment.mapsEmbedOrigin = chosen(infoString("QuillonMapsEmbedOrigin"), m_state.mapsEmbedOrigin)
                                      .value_or(std::string(endpoints::productOrigin));
    return environment;
}

/// Nothing for a key that was never filled in when the program was built.
std::optional<std::string> ResponsiveArticlePreview::infoString(std::string_view key) const {
    const auto value = m_host.applicationInfo ? m_host.applicationInfo(key) : std::nullopt;
    const std::string_view text = value ? trimmed(*value) : std::string_view();
    if (text.empty() || text.starts_with("$(")) {
        return std::nullopt;
    }
    return std::string(text);
}

} // namespace quillon
