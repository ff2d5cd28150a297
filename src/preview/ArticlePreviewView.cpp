#include "preview/ArticlePreviewView.h"

#include "base/Log.h"
#include "base/UnicodeText.h"
#include "base/Url.h"
#include "base/endpoints.h"
#include "preview/BundleAddresses.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>
#include <utility>

namespace quillon {

namespace {

constexpr std::string_view focusScriptBefore =
    R"js((function () {
  const target = document.querySelector('[data-component-id=")js";
constexpr std::string_view focusScriptAfter =
    R"js("]');
  if (!target) { return false; }
  document.querySelectorAll('.anf-focus-flash').forEach((element) => {
    if (element !== target) { element.classList.remove('anf-focus-flash'); }
  });
  target.scrollIntoView({ block: 'center', inline: 'nearest' });
  target.classList.remove('anf-focus-flash');
  void target.offsetWidth;
  target.classList.add('anf-focus-flash');
  window.clearTimeout(target.__anfFocusTimer);
  target.__anfFocusTimer = window.setTimeout(() => {
    target.classList.remove('anf-focus-flash');
  }, 1800);
  return true;
})();)js";

/// The scheme of a URL in lower case; nothing for text without one (RFC 3986, 3.1).
std::optional<std::string> schemeOf(std::string_view url) {
    const std::size_t colon = url.find(':');
    if (colon == std::string_view::npos || colon == 0 || url.find_first_of("/?#") < colon) {
        return std::nullopt;
    }
    return lowercased(url.substr(0, colon));
}

std::string milliseconds(double seconds) {
    std::array<char, 400> text{};
    const int length = std::snprintf(text.data(), text.size(), "%.2f", seconds * 1000.0);
    return {text.data(), static_cast<std::size_t>(std::max(length, 0))};
}

std::string changeWord(std::string_view name, bool isSame) {
    return " " + std::string(name) + (isSame ? "=false" : "=true");
}

} // namespace

std::string previewBaseURL(const std::optional<std::string>& mapsEmbedOrigin) {
    std::string text(trimmed(mapsEmbedOrigin.value_or("")));
    const std::optional<UrlParts> parts = parseUrl(text);
    if (!parts || !parts->scheme || !parts->scheme->starts_with("http") ||
        parts->encodedHost.value_or("").empty()) {
        return std::string(endpoints::productOrigin);
    }
    return text;
}

std::string focusScript(const Uuid& id) {
    return std::string(focusScriptBefore) + id.text() + std::string(focusScriptAfter);
}

WebViewConfiguration ArticlePreviewView::Coordinator::configuration() {
    return {
        .scheme = "bundle",
        .schemeHandler = &m_bundleHandler,
        .allowsContentJavaScript = true,
        .javaScriptCanOpenWindowsAutomatically = true,
        .mediaPlaybackRequiresUserAction = false,
        .drawsBackground = false,
        .delegate = this,
    };
}

void ArticlePreviewView::Coordinator::update(PreviewWebView& webView, const ArticlePreviewView& view) {
    m_webView = &webView;
    m_wantedComponentID = view.focusedComponentID;
    m_bundleHandler.assets = view.assets;
    if (m_lastKey == view.contentKey) {
        focusWhenChanged(webView);
        return;
    }
    std::string baseURL = previewBaseURL(view.environment.mapsEmbedOrigin);
    const bool isSameHTML = m_lastHTML == view.html;
    const bool areSameAssets = m_lastAssetsFingerprint == view.assetsFingerprint;
    const bool isSameBase = m_lastBaseURL == baseURL;
    m_lastKey = view.contentKey;
    if (isSameHTML && areSameAssets && isSameBase) {
        logEvent("preview.webview.reload.skipped", "reason=unchanged-content");
        focusWhenChanged(webView);
        return;
    }
    m_lastHTML = view.html;
    m_lastAssetsFingerprint = view.assetsFingerprint;
    m_lastBaseURL = std::move(baseURL);
    m_pendingFocusedComponentID = view.focusedComponentID;
    m_reloadStart = logClock();
    logEvent("preview.webview.reload.start",
             "htmlBytes=" + std::to_string(view.html->size()) + changeWord("contentChanged", isSameHTML) +
                 changeWord("assetsChanged", areSameAssets) + changeWord("baseURLChanged", isSameBase));
    webView.loadHTML(view.html, *m_lastBaseURL);
}

void ArticlePreviewView::Coordinator::forgetAssets() {
    m_lastKey.reset();
    m_lastAssetsFingerprint.reset();
}

void ArticlePreviewView::Coordinator::focusWhenChanged(PreviewWebView& webView) {
    if (m_lastFocusedComponentID != m_wantedComponentID) {
        applyFocus(m_wantedComponentID, webView);
    }
}

void ArticlePreviewView::Coordinator::applyFocus(const std::optional<Uuid>& id, PreviewWebView& webView) {
    m_lastFocusedComponentID = id;
    if (id) {
        webView.evaluateJavaScript(focusScript(*id));
    }
}

NavigationPolicy
ArticlePreviewView::Coordinator::navigationPolicy(const std::optional<std::string>& url) const {
    static constexpr auto allowed =
        std::to_array<std::string_view>({"about", "blob", "bundle", "data", "http", "https"});
    const auto scheme = schemeOf(url.value_or(""));
    return !scheme || std::find(allowed.begin(), allowed.end(), *scheme) != allowed.end()
               ? NavigationPolicy::allow
               : NavigationPolicy::cancel;
}

void ArticlePreviewView::Coordinator::didFinish() {
    if (m_reloadStart) {
        logEvent("preview.webview.reload.finish", "elapsedMs=" + milliseconds(logClock() - *m_reloadStart));
        m_reloadStart.reset();
    }
    if (m_webView) {
        applyFocus(m_pendingFocusedComponentID, *m_webView);
        // A selection made during the load flashed in the old page and would be lost with it.
        focusWhenChanged(*m_webView);
    }
    m_pendingFocusedComponentID.reset();
}

} // namespace quillon
