#include "desktop/WebPage.h"

#include "preview/PreviewWebView.h"

#include <QAuthenticator>
#include <QWebEngineCertificateError>
#include <QWebEngineClientCertificateSelection>
#include <QWebEngineFileSystemAccessRequest>
#include <QWebEngineFullScreenRequest>
#include <QWebEngineQuotaRequest>
#include <QWebEngineRegisterProtocolHandlerRequest>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>

#include <array>
#include <utility>

namespace quillon {

namespace {

using Attribute = QWebEngineSettings::WebAttribute;

/// All that a page can be allowed or refused as a whole, where our answer is not the engine's own.
constexpr auto attributes = std::to_array<std::pair<Attribute, bool>>({
    {QWebEngineSettings::AllowGeolocationOnInsecureOrigins, false},
    {QWebEngineSettings::AllowWindowActivationFromJavaScript, false},
    // Asks the host of every page for a picture.
    {QWebEngineSettings::AutoLoadIconsForPage, false},
    {QWebEngineSettings::DnsPrefetchEnabled, false},
    {QWebEngineSettings::ErrorPageEnabled, false},
    // A page that loads must not take the keyboard from the field that is being typed in.
    {QWebEngineSettings::FocusOnNavigationEnabled, false},
    {QWebEngineSettings::FullScreenSupportEnabled, false},
    {QWebEngineSettings::HyperlinkAuditingEnabled, false},
    {QWebEngineSettings::JavascriptCanAccessClipboard, false},
    {QWebEngineSettings::JavascriptCanPaste, false},
    {QWebEngineSettings::LocalContentCanAccessFileUrls, false},
    {QWebEngineSettings::LocalContentCanAccessRemoteUrls, false},
    {QWebEngineSettings::NavigateOnDropEnabled, false},
    {QWebEngineSettings::PdfViewerEnabled, false},
    {QWebEngineSettings::PluginsEnabled, false},
    {QWebEngineSettings::ScreenCaptureEnabled, false},
    {QWebEngineSettings::TouchIconsEnabled, false},
    {QWebEngineSettings::WebRTCPublicInterfacesOnly, true},
});

/// Nothing is dragged out of a page: the engine would run an event loop of its own meanwhile, in which the
/// page could go.
QWebEngineScript withoutDrags() {
    QWebEngineScript script;
    script.setName(QStringLiteral("withoutDrags"));
    script.setSourceCode(QStringLiteral("window.addEventListener('dragstart', (event) => {"
                                        "  event.preventDefault();"
                                        "  event.stopImmediatePropagation();"
                                        "}, true);"));
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setWorldId(QWebEngineScript::ApplicationWorld);
    script.setRunsOnSubFrames(true);
    return script;
}

} // namespace

WebPage::WebPage(QWebEngineProfile* profile, const WebViewConfiguration& configuration)
    : QWebEnginePage(profile), m_delegate(*configuration.delegate) {
    for (const auto& [attribute, isOn] : attributes) {
        settings()->setAttribute(attribute, isOn);
    }
    settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, configuration.allowsContentJavaScript);
    settings()->setAttribute(QWebEngineSettings::JavascriptCanOpenWindows,
                             configuration.javaScriptCanOpenWindowsAutomatically);
    settings()->setAttribute(QWebEngineSettings::PlaybackRequiresUserGesture,
                             configuration.mediaPlaybackRequiresUserAction);
    settings()->setUnknownUrlSchemePolicy(QWebEngineSettings::DisallowUnknownUrlSchemes);
    scripts().insert(withoutDrags());
    refuseRequests();
}

void WebPage::refuseRequests() {
    connect(this, &QWebEnginePage::featurePermissionRequested, this,
            [this](const QUrl& origin, QWebEnginePage::Feature feature) {
                setFeaturePermission(origin, feature, QWebEnginePage::PermissionDeniedByUser);
            });
    connect(this, &QWebEnginePage::fullScreenRequested, this,
            [](QWebEngineFullScreenRequest request) { request.reject(); });
    connect(this, &QWebEnginePage::fileSystemAccessRequested, this,
            [](QWebEngineFileSystemAccessRequest request) { request.reject(); });
    connect(this, &QWebEnginePage::quotaRequested, this,
            [](QWebEngineQuotaRequest request) { request.reject(); });
    connect(this, &QWebEnginePage::registerProtocolHandlerRequested, this,
            [](QWebEngineRegisterProtocolHandlerRequest request) { request.reject(); });
    connect(this, &QWebEnginePage::selectClientCertificate, this,
            [](QWebEngineClientCertificateSelection selection) { selection.selectNone(); });
    connect(this, &QWebEnginePage::certificateError, this,
            [](QWebEngineCertificateError error) { error.rejectCertificate(); });
    // An empty answer cancels; the engine would ask the user otherwise.
    connect(this, &QWebEnginePage::authenticationRequired, this,
            [](const QUrl&, QAuthenticator* authenticator) { *authenticator = QAuthenticator(); });
    connect(this, &QWebEnginePage::proxyAuthenticationRequired, this,
            [](const QUrl&, QAuthenticator* authenticator, const QString&) {
                *authenticator = QAuthenticator();
            });
}

bool WebPage::acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) {
    const bool leadsToBase = !url.host().isEmpty() && url.host() == m_base.host();
    if (isMainFrame && (leadsToBase || type == NavigationTypeBackForward)) {
        return false;
    }
    std::optional<std::string> text;
    if (!url.isEmpty()) {
        text = url.toEncoded().toStdString();
    }
    return m_delegate.navigationPolicy(text) == NavigationPolicy::allow;
}

QWebEnginePage* WebPage::createWindow(WebWindowType) {
    return nullptr;
}

QStringList WebPage::chooseFiles(FileSelectionMode, const QStringList&, const QStringList&) {
    return {};
}

void WebPage::javaScriptAlert(const QUrl&, const QString&) {}

bool WebPage::javaScriptConfirm(const QUrl&, const QString&) {
    // The engine asks here as well whether a page may be left.
    return true;
}

bool WebPage::javaScriptPrompt(const QUrl&, const QString&, const QString&, QString*) {
    return false;
}

void WebPage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int, const QString&) {}

} // namespace quillon
