#pragma once

#include "base/Uuid.h"
#include "package/ArticleFileDocument.h"
#include "preview/BundleSchemeHandler.h"
#include "preview/PreviewWebView.h"
#include "render/PreviewEnvironment.h"

#include <functional>
#include <optional>
#include <string>

namespace quillon {

/// What the web view is to show. While a page is being rendered, `html` and `contentKey` are older than the
/// rest.
struct ArticlePreviewView {
    class Coordinator;

    Shared<std::string> html;
    std::string contentKey; ///< of the render that gave `html`
    Shared<std::string> assetsFingerprint;
    Shared<Assets> assets;
    PreviewEnvironment environment;
    std::optional<Uuid> focusedComponentID;
};

/// Remembers what a web view shows and decides for each new value whether to reload the page, to flash the
/// focused component in it, or to do nothing. Lives and dies with its web view. Main thread only.
class ArticlePreviewView::Coordinator : public WebViewDelegate {
public:
    Coordinator() = default;
    Coordinator(const Coordinator&) = delete;
    Coordinator& operator=(const Coordinator&) = delete;

    /// What the web view is made with; this is its delegate.
    WebViewConfiguration configuration();

    void update(PreviewWebView& webView, const ArticlePreviewView& view);
    /// Assets have other contents under the same names and sizes, which no fingerprint tells: the next update
    /// loads the page again.
    void forgetAssets();
    /// The reader has pointed at a component of the page: when it gets the focus next, the page need not
    /// scroll to it.
    void noteSeen(const Uuid& id) { m_lastFocusedComponentID = id; }
    NavigationPolicy navigationPolicy(const std::optional<std::string>& url) const override;
    void didFinish() override;

private:
    void applyFocus(const std::optional<Uuid>& id, PreviewWebView& webView);
    void focusWhenChanged(PreviewWebView& webView);

    BundleSchemeHandler m_bundleHandler;
    PreviewWebView* m_webView = nullptr;     ///< the one updated last
    std::optional<Uuid> m_wantedComponentID; ///< the focus of the last update
    std::optional<std::string> m_lastKey;
    std::optional<Shared<std::string>> m_lastHTML;
    std::optional<Shared<std::string>> m_lastAssetsFingerprint;
    std::optional<std::string> m_lastBaseURL;
    std::optional<Uuid> m_lastFocusedComponentID;
    std::optional<Uuid> m_pendingFocusedComponentID;
    std::optional<double> m_reloadStart; ///< as of logClock
};

/// The address that a page is shown under: `mapsEmbedOrigin`, if it is an http or https URL with a host, else
/// the product's own origin.
std::string previewBaseURL(const std::optional<std::string>& mapsEmbedOrigin);

/// The script that scrolls to a component of the page and lets it flash for 1.8 seconds.
std::string focusScript(const Uuid& id);

} // namespace quillon
