#include "desktop/WebColorScheme.h"

#include <QPointer>
#include <QTimer>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineUrlRequestInfo>
#include <QWebEngineUrlRequestInterceptor>

#include <chrono>

namespace quillon {

namespace {

using namespace std::chrono_literals;

constexpr auto checkDelay = 50ms;
constexpr int mostAttempts = 100;

/// Lets the tools' page come up without the tools themselves, which would switch their debugger on: a page's
/// own "debugger" must not halt it.
class NoTools : public QWebEngineUrlRequestInterceptor {
public:
    void interceptRequest(QWebEngineUrlRequestInfo& request) override {
        request.block(request.resourceType() != QWebEngineUrlRequestInfo::ResourceTypeMainFrame);
    }
};

} // namespace

struct WebColorScheme::Parts {
    explicit Parts(QWebEnginePage& thePage) : page(thePage) { profile.setUrlRequestInterceptor(&noTools); }

    QWebEnginePage& page;
    NoTools noTools;
    QWebEngineProfile profile; ///< of the tools
    std::unique_ptr<QWebEnginePage> tools;
    bool areReady = false;
    Scheme scheme = Scheme::light;
    int attempts = 0; ///< to bring the present scheme through
};

WebColorScheme::WebColorScheme(QWebEnginePage& page) : m_parts(std::make_unique<Parts>(page)) {}

WebColorScheme::~WebColorScheme() {
    m_parts->page.setDevToolsPage(nullptr);
}

void WebColorScheme::set(Scheme scheme) {
    Parts& parts = *m_parts;
    if (scheme == parts.scheme) {
        return;
    }
    parts.scheme = scheme;
    parts.attempts = 0;
    if (!parts.tools) {
        parts.tools = std::make_unique<QWebEnginePage>(&parts.profile);
        connect(parts.tools.get(), &QWebEnginePage::loadFinished, this, [this](bool isLoaded) {
            m_parts->areReady = isLoaded;
            send();
        });
        parts.page.setDevToolsPage(parts.tools.get());
    }
    send();
}

void WebColorScheme::send() {
    if (!m_parts->areReady) {
        return;
    }
    const QString value = m_parts->scheme == Scheme::dark ? QStringLiteral("dark") : QStringLiteral("light");
    m_parts->tools->runJavaScript(
        QStringLiteral("window.InspectorFrontendAPI = {dispatchMessage() {}, dispatchMessageChunk() {}};"
                       "InspectorFrontendHost.sendMessageToBackend(JSON.stringify({id: 1,"
                       "  method: 'Emulation.setEmulatedMedia',"
                       "  params: {features: [{name: 'prefers-color-scheme', value: '%1'}]}}));")
            .arg(value));
    // The tools say nothing of when they are attached; what is sent before is lost.
    QTimer::singleShot(checkDelay, this, [this, sent = m_parts->scheme, value] { check(sent, value); });
}

void WebColorScheme::check(Scheme sent, const QString& value) {
    // A page that goes away answers with nothing.
    const auto sendAgain = [self = QPointer<WebColorScheme>(this), sent](const QVariant& matches) {
        if (self && matches.isValid() && sent == self->m_parts->scheme && !matches.toBool() &&
            ++self->m_parts->attempts < mostAttempts) {
            self->send();
        }
    };
    m_parts->page.runJavaScript(QStringLiteral("matchMedia('(prefers-color-scheme: %1)').matches").arg(value),
                                QWebEngineScript::ApplicationWorld, sendAgain);
}

} // namespace quillon
