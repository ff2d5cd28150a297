#pragma once

#include "base/Shared.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace quillon {

class BundleSchemeHandler;

enum class NavigationPolicy { allow, cancel };

/// Whom a web view asks and tells.
class WebViewDelegate {
public:
    virtual ~WebViewDelegate() = default;

    /// Whether the page or one of its frames may go to `url`, percent-encoded text; nothing for a navigation
    /// without an address.
    virtual NavigationPolicy navigationPolicy(const std::optional<std::string>& url) const = 0;
    /// The page that was loaded last is complete.
    virtual void didFinish() = 0;
};

struct WebViewConfiguration {
    std::string scheme; ///< whose addresses `schemeHandler` answers
    const BundleSchemeHandler* schemeHandler = nullptr;
    bool allowsContentJavaScript = false;
    bool javaScriptCanOpenWindowsAutomatically = false;
    bool mediaPlaybackRequiresUserAction = true;
    bool drawsBackground = true; ///< else what stands behind the view shows through a transparent page
    WebViewDelegate* delegate = nullptr;
};

/// A view that shows web pages, as far as the preview needs one. Main thread only.
class PreviewWebView {
public:
    virtual ~PreviewWebView() = default;

    /// Shows a page; of several in a row only the last needs to come up, and only that one is told to finish.
    virtual void loadHTML(const Shared<std::string>& html, const std::string& baseURL) = 0;
    /// Runs a script in the page; its result goes nowhere.
    virtual void evaluateJavaScript(const std::string& script) = 0;
};

using MakeWebView = std::function<std::unique_ptr<PreviewWebView>(const WebViewConfiguration&)>;

} // namespace quillon
