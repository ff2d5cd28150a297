#pragma once

#include "desktop/PreviewWebWidget.h"
#include "desktop/QtScheduler.h"
#include "desktop/WaitFor.h"
#include "preview/BundleSchemeHandler.h"

#include <QWidget>

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace quillon::test {

/// A web view in a window, told what to load without a document.
class WebViewTest : public testing::Test, public WebViewDelegate {
protected:
    static constexpr std::chrono::seconds longestLoad{30};
    static constexpr std::chrono::seconds longestScript{10};

    WebViewTest() {
        window.resize(500, 400);
        web.resize(500, 400);
        window.show();
    }

    NavigationPolicy navigationPolicy(const std::optional<std::string>& url) const override {
        const bool isMail = url && url->starts_with("mailto:");
        return isMail ? NavigationPolicy::cancel : NavigationPolicy::allow;
    }
    void didFinish() override { ++finishes; }

    WebViewConfiguration configuration() {
        return {.scheme = "bundle",
                .schemeHandler = &assets,
                .allowsContentJavaScript = true,
                .javaScriptCanOpenWindowsAutomatically = true,
                .mediaPlaybackRequiresUserAction = false,
                .drawsBackground = false,
                .delegate = this};
    }

    static std::string page(const std::string& body, const std::string& head = {}) {
        return "<!doctype html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">" + head +
               "</head>\n<body>" + body + "</body>\n</html>\n";
    }

    /// Whether the page came up in time.
    bool load(const std::string& html, const std::string& base = "https://page.example/") {
        const int before = finishes;
        web.loadHTML(html, base);
        return waitFor([&] { return finishes > before; }, longestLoad);
    }

    /// The value of a JavaScript expression as text.
    std::string run(const std::string& expression) {
        const auto result = std::make_shared<std::optional<std::string>>();
        web.evaluate(QString::fromStdString("String(" + expression + ")"),
                     [result](const QString& value) { *result = value.toStdString(); });
        (void)waitFor([&] { return result->has_value(); }, longestScript);
        return result->value_or("no answer");
    }

    /// Whether an expression comes true in time.
    bool comesTrue(const std::string& expression) {
        return waitFor([&] { return run(expression) == "true"; }, longestScript);
    }

    QtScheduler scheduler;
    BundleSchemeHandler assets;
    QWidget window;
    PreviewWebWidget web{configuration(), scheduler, &window};
    int finishes = 0;
};

} // namespace quillon::test
