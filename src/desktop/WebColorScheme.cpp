#include "desktop/WebColorScheme.h"

#include <QPointer>
#include <QTimer>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineScript>

#include <chrono>

namespace quillon {

namespace {

using namespace std::chrono_literals;

constexpr auto checkDelay = 100ms;
constexpr int mostAttempts = 50;

/// Says nothing about the answers that the tools did not ask for.
class ToolsPage : public QWebEnginePage {
public:
    using QWebEnginePage::QWebEnginePage;

protected:
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int,
                                  const QString&) override {}
};

} // namespace

struct WebColorScheme::Parts {
    explicit Parts(QWebEnginePage& thePage) : page(thePage) {}

    QWebEnginePage& page;
    QWebEngineProfile profile; ///< of the tools, whose own addresses the page's profile refuses
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
        parts.tools = std::make_unique<ToolsPage>(&parts.profile);
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
    // Without a debugger: a page's own "debugger" must not halt it.
    m_parts->tools->runJavaScript(
        QStringLiteral("for (const message of ["
                       "    {id: 900001, method: 'Debugger.disable'},"
                       "    {id: 900002, method: 'Emulation.setEmulatedMedia', params: {features: "
                       "       [{name: 'prefers-color-scheme', value: '%1'}]}}]) {"
                       "  InspectorFrontendHost.sendMessageToBackend(JSON.stringify(message));"
                       "}")
            .arg(value));
    // While the tools come up they undo what was sent before.
    const auto sent = m_parts->scheme;
    QTimer::singleShot(checkDelay, this, [this, sent, value] { check(sent, value); });
}

void WebColorScheme::check(Scheme sent, const QString& value) {
    if (sent != m_parts->scheme) {
        return;
    }
    m_parts->page.runJavaScript(QStringLiteral("matchMedia('(prefers-color-scheme: %1)').matches").arg(value),
                                QWebEngineScript::ApplicationWorld,
                                [self = QPointer<WebColorScheme>(this), sent](const QVariant& matches) {
                                    if (self && sent == self->m_parts->scheme && !matches.toBool() &&
                                        ++self->m_parts->attempts < mostAttempts) {
                                        self->send();
                                    }
                                });
}

} // namespace quillon
