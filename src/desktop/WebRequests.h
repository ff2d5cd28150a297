#pragma once

#include <QUrl>
#include <QWebEngineUrlRequestInterceptor>

namespace quillon {

/// Whether a page may ask for `url`: what comes over the net, from the package or out of the page itself, but
/// nothing that this machine serves to itself.
bool isRequestAllowed(const QUrl& url);

/// Stops every request of a page that leads into the user's machine.
class WebRequests : public QWebEngineUrlRequestInterceptor {
    Q_OBJECT

public:
    void interceptRequest(QWebEngineUrlRequestInfo& request) override;
};

} // namespace quillon
