#include "desktop/WebEngine.h"

#include <QApplication>
#include <QLoggingCategory>

#include <gtest/gtest.h>

#include <unistd.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    if (geteuid() == 0) {
        // The engine's sandbox refuses to start for root, which is who runs tests in a container.
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    }
    // Tells at length that there is no graphics card.
    QLoggingCategory::setFilterRules("qt.webenginecontext=false");
    quillon::prepareWebEngine();
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
