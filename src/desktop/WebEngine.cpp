#include "desktop/WebEngine.h"

#include "desktop/fonts/PageFonts.h"

#include <QByteArray>
#include <QWebEngineUrlScheme>

namespace quillon {

namespace {

constexpr char engineFlags[] =
    // Scroll bars that take room would make every page that follows its pane wider than what shows of it.
    " --enable-features=OverlayScrollbar"
    // Nothing on disk.
    " --disable-gpu-shader-disk-cache"
    // The requests of shared workers are not shown to anybody who could stop them.
    " --disable-blink-features=SharedWorker"
    " --force-webrtc-ip-handling-policy=disable_non_proxied_udp"
    // What a request is redirected to is not shown either, so this machine has no address for the engine.
    " --host-resolver-rules=\"MAP localhost ~NOTFOUND, MAP *.localhost ~NOTFOUND, MAP 127.* ~NOTFOUND,"
    " MAP 0.0.0.0 ~NOTFOUND, MAP [::1] ~NOTFOUND, MAP 169.254.* ~NOTFOUND\"";

} // namespace

void prepareWebEngine() {
    preparePageFonts();
    constexpr char variable[] = "QTWEBENGINE_CHROMIUM_FLAGS";
    qputenv(variable, qgetenv(variable).append(engineFlags));
    QWebEngineUrlScheme scheme("bundle");
    // Any form with a host lowers the capitals of the first folder's name.
    scheme.setSyntax(QWebEngineUrlScheme::Syntax::Path);
    // Without CorsEnabled scripts of the page can show assets but not read them.
    scheme.setFlags(QWebEngineUrlScheme::SecureScheme);
    QWebEngineUrlScheme::registerScheme(scheme);
}

} // namespace quillon
