#include "desktop/DiskWatch.h"

#include "desktop/PackagePath.h"
#include "package/ArticleFileDocument.h"

#include <QStringList>

#include <set>

namespace quillon {

DiskWatch::DiskWatch(QObject* parent) : QObject(parent) {
    for (const auto signal : {&QFileSystemWatcher::fileChanged, &QFileSystemWatcher::directoryChanged}) {
        connect(&m_watcher, signal, this, &DiskWatch::heard);
    }
}

void DiskWatch::watch(const std::string& path, const PackageStamp& stamp) {
    std::set<std::string> places = {path, parentFolder(path), path + "/" + std::string(articleFileName)};
    for (const auto& [file, identity] : stamp.files) {
        const std::size_t slash = file.find_last_of('/');
        if (slash != std::string::npos && places.size() < mostFolders) {
            places.insert(path + "/" + file.substr(0, slash));
        }
    }
    // A place that was replaced is another one for the watcher, so it forgets all of them first.
    if (const QStringList before = m_watcher.files() + m_watcher.directories(); !before.isEmpty()) {
        m_watcher.removePaths(before);
    }
    QStringList texts;
    for (const std::string& place : places) {
        texts.append(QString::fromStdString(place));
    }
    m_watcher.addPaths(texts);
}

} // namespace quillon
