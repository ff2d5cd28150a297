#include "desktop/Settings.h"

#include "base/endpoints.h"

#include <QDir>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QSettings>
#include <QVariantMap>

#include <optional>

namespace quillon {

namespace {

constexpr auto showLaunchWindowKey = "showLaunchWindowOnLaunch";
constexpr auto showsDetailsKey = "componentOutlineShowsDetails";
constexpr auto mapsTokenKey = "preview.mapsEmbedToken";
constexpr auto mapsOriginKey = "preview.mapsEmbedOrigin";
constexpr auto recentDocumentsKey = "recentDocuments";

QString usersFile() {
    return QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Tarnwell"),
                     QStringLiteral("Quillon"))
        .fileName();
}

/// The file keeps all values as text.
std::optional<QString> textOf(const QVariant& value) {
    return value.typeId() == QMetaType::QString ? std::optional(value.toString()) : std::nullopt;
}

std::optional<bool> flagOf(const QVariant& value) {
    if (value.typeId() == QMetaType::Bool) {
        return value.toBool();
    }
    const std::optional<QString> text = textOf(value);
    if (text == QLatin1String("true") || text == QLatin1String("false")) {
        return text == QLatin1String("true");
    }
    return std::nullopt;
}

} // namespace

struct Settings::Parts {
    explicit Parts(const QString& path) : file(path), store(path, QSettings::IniFormat) {
        store.setFallbacksEnabled(false);
        // A folder that is not there cannot be watched for the file to appear in it.
        QDir().mkpath(QFileInfo(path).path());
        watcher.addPath(QFileInfo(path).path());
        watch();
        known = values();
    }

    /// A file that was replaced is another one for the watcher.
    void watch() {
        if (!watcher.files().contains(file) && QFileInfo::exists(file)) {
            watcher.addPath(file);
        }
    }

    QVariantMap values() const {
        QVariantMap all;
        for (const QString& key : store.allKeys()) {
            all.insert(key, store.value(key));
        }
        return all;
    }

    const QString file;
    QSettings store;
    QFileSystemWatcher watcher;
    QVariantMap known; ///< as of the last `changed`
};

Settings::Settings(QObject* parent) : Settings(usersFile(), parent) {}

Settings::Settings(const QString& file, QObject* parent)
    : QObject(parent), m_parts(std::make_unique<Parts>(file)) {
    for (const auto signal : {&QFileSystemWatcher::fileChanged, &QFileSystemWatcher::directoryChanged}) {
        connect(&m_parts->watcher, signal, this, &Settings::refresh);
    }
}

Settings::~Settings() = default;

bool Settings::showLaunchWindowOnLaunch() const {
    return flagOf(m_parts->store.value(showLaunchWindowKey)).value_or(true);
}

bool Settings::componentOutlineShowsDetails() const {
    return flagOf(m_parts->store.value(showsDetailsKey)).value_or(false);
}

QString Settings::mapsEmbedToken() const {
    return textOf(m_parts->store.value(mapsTokenKey)).value_or(QString());
}

QString Settings::mapsEmbedOrigin() const {
    return textOf(m_parts->store.value(mapsOriginKey))
        .value_or(QString::fromUtf8(endpoints::productOrigin.data(), endpoints::productOrigin.size()));
}

void Settings::setShowLaunchWindowOnLaunch(bool value) {
    m_parts->store.setValue(showLaunchWindowKey, value);
    refresh();
}

void Settings::setComponentOutlineShowsDetails(bool value) {
    m_parts->store.setValue(showsDetailsKey, value);
    refresh();
}

QStringList Settings::recentDocuments() const {
    const QVariant value = m_parts->store.value(recentDocumentsKey);
    const bool isList = value.typeId() == QMetaType::QStringList || value.typeId() == QMetaType::QString;
    return isList ? value.toStringList() : QStringList();
}

void Settings::setRecentDocuments(const QStringList& folders) {
    m_parts->store.setValue(recentDocumentsKey, folders);
    refresh();
}

void Settings::refresh() {
    m_parts->store.sync();
    m_parts->watch();
    QVariantMap now = m_parts->values();
    if (now != m_parts->known) {
        m_parts->known = std::move(now);
        Q_EMIT changed();
    }
}

} // namespace quillon
