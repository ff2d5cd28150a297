#include "package/PackageFolder.h"

#include "package/FolderBuilder.h"
#include "package/SidePlace.h"

#include <cerrno>
#include <optional>

namespace quillon {

namespace {

using Outcome = Expected<void, DiskFailure>;

/// A folder that stands beside the package, locked so that no other process takes it for a left-over.
struct LockedFolder {
    FileDescriptor folder;
    FileDescriptor lock;
    NodeStatus status;
    bool isTaken = false; ///< another process has the lock
};

class FolderSave {
public:
    FolderSave(FileSystem& fileSystem, const PackagePlace& place, Existing existing,
               const PackageStamp* known)
        : m_fileSystem(fileSystem), m_place(place), m_existing(existing), m_known(known),
          m_workName(newSideName(place.name, SideKind::work)) {}

    Expected<SaveReport, DiskFailure> run(const FileWrapper& tree) {
        if (Outcome opened = openOld(); !opened) {
            return unexpected(opened.error());
        }
        Expected<BuiltFolder, DiskFailure> built = buildNew(tree);
        Outcome placed = built ? putInPlace() : Outcome(unexpected(built.error()));
        if (!placed) {
            if (!m_workIsOld) {
                (void)removeTree(m_fileSystem, parent(), m_workName);
            }
            return unexpected(placed.error());
        }
        removeOld(built->report);
        noteChangeTimes(built->report.stamp);
        for (const auto& [bytes, origin] : built->origins) {
            bytes.noteOrigin(origin);
        }
        return std::move(built->report);
    }

private:
    int parent() const { return m_place.parent.number(); }

    Outcome openOld() {
        const SystemResult<NodeStatus> status = m_fileSystem.statusAt(parent(), m_place.name);
        if (!status && status.error() == ENOENT) {
            return {};
        }
        if (!status) {
            return failure(m_place.path, status.error());
        }
        if (m_existing == Existing::refuse) {
            return failure(m_place.path, EEXIST);
        }
        if (status->kind != NodeKind::folder) {
            return failure(m_place.path, ENOTDIR);
        }
        SystemResult<LockedFolder> folder = openLocked(m_place.name);
        if (!folder) {
            return failure(m_place.path, folder.error());
        }
        m_old = std::move(*folder);
        return {};
    }

    Expected<BuiltFolder, DiskFailure> buildNew(const FileWrapper& tree) {
        const SystemResult<void> made = m_fileSystem.makeFolder(parent(), m_workName, m_old ? 0700 : 0777);
        if (!made) {
            return unexpected(diskFailure(m_place.parentPath, made.error()));
        }
        SystemResult<LockedFolder> work = openLocked(m_workName);
        if (!work) {
            return unexpected(diskFailure(m_place.path, work.error()));
        }
        if (work->isTaken) {
            // Another save takes the fresh folder for what a killed one left, and is about to remove it.
            return unexpected(diskFailure(m_place.path, EBUSY));
        }
        m_workLock = std::move(work->lock);
        std::optional<FileDescriptor> oldFolder;
        if (m_old) {
            oldFolder = std::move(m_old->folder);
        }
        auto built =
            buildFolder(m_fileSystem, tree, m_place.path, std::move(work->folder), std::move(oldFolder));
        if (built) {
            auto stamp = stampOf(m_workName);
            if (!stamp) {
                return unexpected(std::move(stamp.error()));
            }
            built->report.stamp = std::move(*stamp);
        }
        return built;
    }

    Expected<PackageStamp, DiskFailure> stampOf(const std::string& name) {
        SystemResult<FileDescriptor> folder = m_fileSystem.openFolder(parent(), name);
        if (!folder) {
            return unexpected(diskFailure(m_place.path, folder.error()));
        }
        return packageStamp(std::move(*folder), m_place.path, m_fileSystem);
    }

    /// Fails where the old folder, which has the name `name` now, is not as it is known.
    Outcome expectKnown(const std::string& name) {
        if (!m_known) {
            return {};
        }
        const auto stamp = stampOf(name);
        if (!stamp) {
            return unexpected(stamp.error());
        }
        return *stamp == *m_known
                   ? Outcome()
                   : unexpected(diskFailure(m_place.path, ESTALE, "changed by another program"));
    }

    Outcome putInPlace() {
        if (!m_old) {
            return finish(putWhereNothingIs());
        }
        const SystemResult<NodeStatus> now = m_fileSystem.statusAt(parent(), m_place.name);
        if (!now) {
            return failure(m_place.path, now.error());
        }
        if (now->identity.device != m_old->status.identity.device ||
            now->identity.inode != m_old->status.identity.inode) {
            return failure(m_place.path, ESTALE);
        }
        if (Outcome same = expectKnown(m_place.name); !same) {
            return same;
        }
        const SystemResult<void> result = exchange();
        if (result) {
            return settleExchange();
        }
        return result.error() == EINVAL ? putByMovingAside() : finish(result);
    }

    SystemResult<void> putWhereNothingIs() {
        SystemResult<void> result = rename(m_workName, m_place.name);
        if (!result) {
            return result;
        }
        result = m_fileSystem.sync(parent());
        if (!result) {
            (void)rename(m_place.name, m_workName);
        }
        return result;
    }

    SystemResult<void> exchange() {
        return m_fileSystem.rename(parent(), m_workName, m_place.name, RenameRule::exchange);
    }

    /// After the exchange: makes it last, or takes it back. Only now nobody finds the old folder any more, so
    /// that what it holds is all that was ever written to it.
    Outcome settleExchange() {
        const Outcome same = expectKnown(m_workName);
        const Outcome settled = same ? finish(m_fileSystem.sync(parent())) : same;
        m_workIsOld = settled || !exchange();
        if (!same && m_workIsOld) {
            (void)rename(m_workName, newSideName(m_place.name, SideKind::kept));
        }
        return settled;
    }

    /// Where folders cannot be exchanged. A process that is killed between the two renames leaves the package
    /// whole under the aside name, and the next one that opens or saves it puts it back.
    Outcome putByMovingAside() {
        m_asideName = newSideName(m_place.name, SideKind::aside);
        Outcome result = finish(rename(m_place.name, m_asideName));
        if (!result) {
            return result;
        }
        result = expectKnown(m_asideName);
        if (result) {
            result = finish(rename(m_workName, m_place.name));
        }
        if (!result) {
            (void)rename(m_asideName, m_place.name);
            return result;
        }
        result = finish(m_fileSystem.sync(parent()));
        if (!result && rename(m_place.name, m_workName)) {
            (void)rename(m_asideName, m_place.name);
        }
        return result;
    }

    void removeOld(SaveReport& report) {
        std::string left;
        if (!m_asideName.empty()) {
            left = removeAside(m_fileSystem, m_place, m_asideName);
        } else if (m_workIsOld && !removeTree(m_fileSystem, parent(), m_workName)) {
            left = m_workName;
        }
        if (!left.empty()) {
            report.leftBehind = m_place.parentPath + "/" + left;
        }
    }

    /// Files that both folders shared were changed once more, by the end of the old folder.
    void noteChangeTimes(PackageStamp& stamp) {
        if (auto now = stampOf(m_place.name); now && *now == stamp) {
            stamp.changeTimes = std::move(now->changeTimes);
        }
    }

    SystemResult<LockedFolder> openLocked(const std::string& name) {
        LockedFolder locked;
        for (FileDescriptor* descriptor : {&locked.folder, &locked.lock}) {
            SystemResult<FileDescriptor> opened = m_fileSystem.openFolder(parent(), name);
            if (!opened) {
                return unexpected(opened.error());
            }
            *descriptor = std::move(*opened);
        }
        const SystemResult<NodeStatus> status = m_fileSystem.status(locked.folder.number());
        if (!status) {
            return unexpected(status.error());
        }
        locked.status = *status;
        // Where a file system knows no locks, other processes get none either and leave the folder alone.
        const SystemResult<void> held = m_fileSystem.lock(locked.lock.number());
        locked.isTaken = !held && held.error() == EWOULDBLOCK;
        return locked;
    }

    SystemResult<void> rename(const std::string& from, const std::string& to) {
        return m_fileSystem.rename(parent(), from, to, RenameRule::noReplace);
    }

    Outcome finish(const SystemResult<void>& result) const {
        return result ? Outcome() : failure(m_place.path, result.error());
    }

    static Outcome failure(const std::string& path, int error) {
        return unexpected(diskFailure(path, error));
    }

    FileSystem& m_fileSystem;
    const PackagePlace& m_place;
    Existing m_existing;
    const PackageStamp* m_known; ///< null where any old folder may be replaced
    const std::string m_workName;
    std::string m_asideName;  ///< empty while the old package has not been moved aside
    bool m_workIsOld = false; ///< the old package has the work name
    std::optional<LockedFolder> m_old;
    FileDescriptor m_workLock;
};

} // namespace

Expected<SaveReport, DiskFailure> writeFolder(const FileWrapper& tree, const std::string& path,
                                              FileSystem& fileSystem, Existing existing,
                                              const PackageStamp* known) {
    if (!tree.isDirectory()) {
        return unexpected(diskFailure(path, ENOTDIR));
    }
    const Expected<PackagePlace, DiskFailure> place = findPackagePlace(path, fileSystem);
    if (!place) {
        return unexpected(place.error());
    }
    const Expected<bool, DiskFailure> recovered = putAsideBack(fileSystem, *place);
    if (!recovered) {
        return unexpected(recovered.error());
    }
    removeStaleSides(fileSystem, *place);
    return FolderSave(fileSystem, *place, existing, known).run(tree);
}

} // namespace quillon
