#include "desktop/WebRequests.h"

#include <QHostAddress>
#include <QHostInfo>
#include <QNetworkInterface>
#include <QStringList>
#include <QWebEngineUrlRequestInfo>

#include <algorithm>
#include <array>
#include <string_view>

namespace quillon {

namespace {

constexpr auto allowedSchemes =
    std::to_array<std::string_view>({"about", "blob", "bundle", "data", "http", "https", "ws", "wss"});

/// The names that this machine has for itself, in lower case.
const QStringList& ownNames() {
    static const QStringList names = [] {
        QStringList list = {"localhost", "localhost.localdomain", "ip6-localhost", "ip6-loopback"};
        const QString own = QHostInfo::localHostName().toLower();
        if (!own.isEmpty()) {
            list << own << own.section('.', 0, 0) << own + '.' + QHostInfo::localDomainName().toLower();
        }
        return list;
    }();
    return names;
}

bool isOwnAddress(QHostAddress address) {
    bool isMapped = false;
    if (const quint32 plain = address.toIPv4Address(&isMapped); isMapped) {
        address = QHostAddress(plain);
        // All of 0.0.0.0/8 reaches this machine.
        if (plain >> 24U == 0) {
            return true;
        }
    }
    return address.isLoopback() || address.isLinkLocal() || address == QHostAddress(QHostAddress::AnyIPv6) ||
           QNetworkInterface::allAddresses().contains(address);
}

bool isThisMachine(QString host) {
    if (host.endsWith('.')) {
        host.chop(1);
    }
    if (ownNames().contains(host) || host.endsWith(QLatin1String(".localhost"))) {
        return true;
    }
    const QHostAddress address(host.startsWith('[') ? host.mid(1, host.size() - 2) : host);
    return !address.isNull() && isOwnAddress(address);
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
