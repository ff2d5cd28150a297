#pragma once

#include "package/PackageStamp.h"

#include <QFileSystemWatcher>
#include <QObject>

#include <string>

namespace quillon {

/// Hears of changes in and around the folder of a package: the folder itself, the one above it, its article
/// and the folders of its assets. It may miss some, such as an asset written in place.
class DiskWatch : public QObject {
    Q_OBJECT

public:
    static constexpr std::size_t mostFolders = 64; ///< of assets; beyond them changes go unheard

    explicit DiskWatch(QObject* parent = nullptr);

    /// Watches what stands at `path` now, in place of all before; `stamp` tells where assets are.
    void watch(const std::string& path, const PackageStamp& stamp);

Q_SIGNALS:
    void heard();

private:
    QFileSystemWatcher m_watcher;
};

} // namespace quillon
