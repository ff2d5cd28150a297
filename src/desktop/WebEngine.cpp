#include "desktop/WebEngine.h"

#include "desktop/fonts/PageFonts.h"

#include <QByteArray>
#include <QWebEngineUrlScheme>

namespace quillon {

void prepareWebEngine() {
    preparePageFonts();
    // Scroll bars that take room would make every page that follows its pane wider than what shows of it.
    constexpr char flags[] = "QTWEBENGINE_CHROMIUM_FLAGS";
    qputenv(flags, qgetenv(flags).append(" --enable-features=OverlayScrollbar"));
    QWebEngineUrlScheme scheme("bundle");
    // Any form with a host lowers the capitals of the first folder's name.
    scheme.setSyntax(QWebEngineUrlScheme::Syntax::Path);
    // Without CorsEnabled scripts of the page can show assets but not read them.
    scheme.setFlags(QWebEngineUrlScheme::SecureScheme);
    QWebEngineUrlScheme::registerScheme(scheme);
}

} // namespace quillon
