#include "browser/BrowserEngine.h"

#include "desktop/WebEngine.h"

#include <QApplication>
#include <QLoggingCategory>

#include <unistd.h>

namespace quillon::test {

BrowserEngine::BrowserEngine(int& argc, char** argv, EngineScheme scheme) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    if (geteuid() == 0) {
        // The engine's sandbox refuses to start for root, which is who runs tests in a container.
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    }
    if (scheme == EngineScheme::dark) {
        qputenv("QTWEBENGINE_CHROMIUM_FLAGS",
                qgetenv("QTWEBENGINE_CHROMIUM_FLAGS").append(" --force-dark-mode"));
    }
    // Tells at length that there is no graphics card.
    QLoggingCategory::setFilterRules("qt.webenginecontext=false");
    prepareWebEngine();
    m_application = std::make_unique<QApplication>(argc, argv);
}

BrowserEngine::~BrowserEngine() = default;

} // namespace quillon::test
