#include "desktop/DocumentText.h"

#include "desktop/PackagePath.h"

#include <QDateTime>
#include <QDir>
#include <QLocale>

#include <algorithm>

namespace quillon {

QString shownPath(const std::string& path) {
    const QString text = QString::fromStdString(path);
    const QString home = QDir::homePath();
    return text.startsWith(home + QLatin1Char('/')) ? QLatin1Char('~') + text.mid(home.size()) : text;
}

QString shownFolderName(const std::string& path) {
    return QString::fromStdString(folderName(path));
}

QString shownLine(const std::string& text) {
    constexpr qsizetype longest = 300;
    constexpr qsizetype bytesOfLetter = 4;
    const auto bytes = std::min<qsizetype>(static_cast<qsizetype>(text.size()), bytesOfLetter * longest);
    return QString::fromUtf8(text.data(), bytes).left(longest).simplified();
}

QString shownTitle(const std::string& title) {
    const QString text = QString::fromStdString(title).simplified();
    return text.isEmpty() ? QStringLiteral("Untitled") : text;
}

QString windowTitle(const QString& articleTitle, const QString& folder) {
    const auto escaped = [](QString text) {
        return text.replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
    };
    return escaped(articleTitle) + QStringLiteral("[*] — ") + escaped(folder);
}

QString shownSize(std::uint64_t bytes) {
    return QLocale().formattedDataSize(static_cast<qint64>(bytes), 1, QLocale::DataSizeTraditionalFormat);
}

QString shownTime(double seconds) {
    constexpr double millisecondsPerSecond = 1000;
    const auto moment = QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(seconds * millisecondsPerSecond));
    return QLocale().toString(moment, QLocale::ShortFormat);
}

QString menuText(QString text) {
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

std::string pathFromUrl(const QUrl& url) {
    if (!url.isLocalFile()) {
        return {};
    }
    return QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1()).toStdString();
}

QString encodedPath(const std::string& path) {
    return QString::fromLatin1(QByteArray::fromStdString(path).toPercentEncoding("/"));
}

std::string decodedPath(const QString& text) {
    return QByteArray::fromPercentEncoding(text.toLatin1()).toStdString();
}

} // namespace quillon
