#include "desktop/WebRequests.h"

#include <QHostAddress>
#include <QWebEngineUrlRequestInfo>

#include <algorithm>
#include <array>
#include <string_view>

namespace quillon {

namespace {

constexpr auto allowedSchemes =
    std::to_array<std::string_view>({"about", "blob", "bundle", "data", "http", "https", "ws", "wss"});

bool isThisMachine(const QString& host) {
    if (host == QLatin1String("localhost") || host.endsWith(QLatin1String(".localhost"))) {
        return true;
    }
    QHostAddress address(host.startsWith('[') ? host.mid(1, host.size() - 2) : host);
    if (address.isNull()) {
        return false;
    }
    bool isMapped = false;
    if (const quint32 plain = address.toIPv4Address(&isMapped); isMapped) {
        address = QHostAddress(plain);
        // All of 0.0.0.0/8 reaches this machine.
        if (plain >> 24U == 0) {
            return true;
        }
    }
    return address.isLoopback() || address.isLinkLocal() || address == QHostAddress(QHostAddress::AnyIPv6);
}

} // namespace

bool isRequestAllowed(const QUrl& url) {
    const std::string scheme = url.scheme().toStdString();
    return std::find(allowedSchemes.begin(), allowedSchemes.end(), scheme) != allowedSchemes.end() &&
           !isThisMachine(url.host());
}

void WebRequests::interceptRequest(QWebEngineUrlRequestInfo& request) {
    request.block(!isRequestAllowed(request.requestUrl()));
}

} // namespace quillon
