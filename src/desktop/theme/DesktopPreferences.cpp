#include "desktop/theme/DesktopPreferences.h"

#include <QDBusAbstractInterface>
#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QFileInfo>

namespace quillon {

namespace {

/// Whether asking for the session's bus would find one: without, the library tries to start one.
bool hasSessionBus() {
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

/// The desktop's settings, as its portal has them for every program.
class SettingsPortal : public QDBusAbstractInterface {
    Q_OBJECT

public:
    explicit SettingsPortal(QObject* parent)
        : QDBusAbstractInterface(QStringLiteral("org.freedesktop.portal.Desktop"),
                                 QStringLiteral("/org/freedesktop/portal/desktop"),
                                 "org.freedesktop.portal.Settings", QDBusConnection::sessionBus(), parent) {}

    QDBusPendingReply<QDBusVariant> read(const QString& space, const QString& key) {
        return asyncCall(QStringLiteral("Read"), space, key);
    }

Q_SIGNALS:
    void SettingChanged(const QString& space, const QString& key, const QDBusVariant& value);
};

/// A value out of the wrappers that some versions of the service put round it.
QVariant unwrapped(QVariant value) {
    while (value.canConvert<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    return value;
}

const QString appearanceSpace = QStringLiteral("org.freedesktop.appearance");
const QString colorScheme = QStringLiteral("color-scheme");
const QString interfaceSpace = QStringLiteral("org.gnome.desktop.interface");
const QString enableAnimations = QStringLiteral("enable-animations");

} // namespace

struct DesktopPreferences::Parts {
    std::optional<Appearance> appearance;
    std::optional<bool> reducedMotion;
    SettingsPortal* portal = nullptr; ///< owned by the object; null without a bus

    void take(const QString& space, const QString& key, const QVariant& value) {
        if (space == appearanceSpace && key == colorScheme) {
            constexpr uint prefersDark = 1;
            constexpr uint prefersLight = 2;
            const uint scheme = value.toUInt();
            appearance = scheme == prefersDark    ? std::optional(Appearance::Dark)
                         : scheme == prefersLight ? std::optional(Appearance::Light)
                                                  : std::nullopt;
        } else if (space == interfaceSpace && key == enableAnimations) {
            reducedMotion = !value.toBool();
        }
    }
};

DesktopPreferences::DesktopPreferences(QObject* parent)
    : QObject(parent), m_parts(std::make_unique<Parts>()) {
    if (!hasSessionBus()) {
        return;
    }
    m_parts->portal = new SettingsPortal(this);
    const auto take = [this](const QString& space, const QString& key, const QDBusVariant& value) {
        m_parts->take(space, key, unwrapped(value.variant()));
        Q_EMIT changed();
    };
    connect(m_parts->portal, &SettingsPortal::SettingChanged, this, take);
    const std::pair<QString, QString> wanted[] = {{appearanceSpace, colorScheme},
                                                  {interfaceSpace, enableAnimations}};
    for (const auto& [space, key] : wanted) {
        auto* watcher = new QDBusPendingCallWatcher(m_parts->portal->read(space, key), this);
        connect(watcher, &QDBusPendingCallWatcher::finished, this, [take, watcher, space = space, key = key] {
            const QDBusPendingReply<QDBusVariant> reply = *watcher;
            if (reply.isValid()) {
                take(space, key, reply.value());
            }
            watcher->deleteLater();
        });
    }
}

DesktopPreferences::~DesktopPreferences() = default;

std::optional<Appearance> DesktopPreferences::appearance() const {
    return m_parts->appearance;
}

std::optional<bool> DesktopPreferences::reducedMotion() const {
    return m_parts->reducedMotion;
}

} // namespace quillon

#include "DesktopPreferences.moc"
