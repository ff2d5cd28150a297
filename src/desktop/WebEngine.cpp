#include "desktop/WebEngine.h"

#include <QWebEngineUrlScheme>

namespace quillon {

void prepareWebEngine() {
    QWebEngineUrlScheme scheme("bundle");
    // Any form with a host lowers the capitals of the first folder's name.
    scheme.setSyntax(QWebEngineUrlScheme::Syntax::Path);
    // Without CorsEnabled scripts of the page can show assets but not read them.
    scheme.setFlags(QWebEngineUrlScheme::SecureScheme);
    QWebEngineUrlScheme::registerScheme(scheme);
}

} // namespace quillon
