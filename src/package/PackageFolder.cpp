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
};

class FolderSave {
public:
    FolderSave(FileSystem& fileSystem, const PackagePlace& place)
        : fileSystem_(fileSystem), place_(place), workName_(newSideName(place.name, SideKind::work)) {}

    Expected<SaveReport, DiskFailure> run(const FileWrapper& tree) {
        if (Outcome opened = openOld(); !opened)
            return unexpected(opened.error());
        Expected<BuiltFolder, DiskFailure> built = buildNew(tree);
        Outcome placed = built ? putInPlace() : Outcome(unexpected(built.error()));
        if (!placed) {
            if (!workIsOld_)
                (void)removeTree(fileSystem_, parent(), workName_);
            return unexpected(placed.error());
        }
        removeOld(built->report);
        for (const auto& [bytes, origin] : built->origins)
            bytes.noteOrigin(origin);
        return std::move(built->report);
    }

private:
    int parent() const { return place_.parent.number(); }

    Outcome openOld() {
        const SystemResult<NodeStatus> status = fileSystem_.statusAt(parent(), place_.name);
        if (!status && status.error() == ENOENT)
            return {};
        if (!status)
            return failure(place_.path, status.error());
        if (status->kind != NodeKind::folder)
            return failure(place_.path, ENOTDIR);
        SystemResult<LockedFolder> folder = openLocked(place_.name);
        if (!folder)
            return failure(place_.path, folder.error());
        old_ = std::move(*folder);
        return {};
    }

    Expected<BuiltFolder, DiskFailure> buildNew(const FileWrapper& tree) {
        const SystemResult<void> made = fileSystem_.makeFolder(parent(), workName_, old_ ? 0700 : 0777);
        if (!made)
            return unexpected(diskFailure(place_.parentPath, made.error()));
        SystemResult<LockedFolder> work = openLocked(workName_);
        if (!work)
            return unexpected(diskFailure(place_.path, work.error()));
        workLock_ = std::move(work->lock);
        std::optional<FileDescriptor> oldFolder;
        if (old_)
            oldFolder = std::move(old_->folder);
        return buildFolder(fileSystem_, tree, place_.path, std::move(work->folder), std::move(oldFolder));
    }

    Outcome putInPlace() {
        if (!old_)
            return finish(putWhereNothingIs());
        const SystemResult<NodeStatus> now = fileSystem_.statusAt(parent(), place_.name);
        if (!now)
            return failure(place_.path, now.error());
        if (now->identity.device != old_->status.identity.device ||
            now->identity.inode != old_->status.identity.inode)
            return failure(place_.path, ESTALE);
        SystemResult<void> result =
            fileSystem_.rename(parent(), workName_, place_.name, RenameRule::exchange);
        if (result)
            return finish(settleExchange());
        return finish(result.error() == EINVAL ? putByMovingAside() : result);
    }

    SystemResult<void> putWhereNothingIs() {
        SystemResult<void> result = rename(workName_, place_.name);
        if (!result)
            return result;
        result = fileSystem_.sync(parent());
        if (!result)
            (void)rename(place_.name, workName_);
        return result;
    }

    /// After the exchange: makes it last, or takes it back.
    SystemResult<void> settleExchange() {
        const SystemResult<void> result = fileSystem_.sync(parent());
        workIsOld_ = result || !fileSystem_.rename(parent(), workName_, place_.name, RenameRule::exchange);
        return result;
    }

    /// Where folders cannot be exchanged. A process that is killed between the two renames leaves the package
    /// whole under the aside name, and the next one that opens or saves it puts it back.
    SystemResult<void> putByMovingAside() {
        asideName_ = newSideName(place_.name, SideKind::aside);
        SystemResult<void> result = rename(place_.name, asideName_);
        if (!result)
            return result;
        result = rename(workName_, place_.name);
        if (!result) {
            (void)rename(asideName_, place_.name);
            return result;
        }
        result = fileSystem_.sync(parent());
        if (!result && rename(place_.name, workName_))
            (void)rename(asideName_, place_.name);
        return result;
    }

    void removeOld(SaveReport& report) {
        std::string left;
        if (!asideName_.empty())
            left = removeAside(fileSystem_, place_, asideName_);
        else if (workIsOld_ && !removeTree(fileSystem_, parent(), workName_))
            left = workName_;
        if (!left.empty())
            report.leftBehind = place_.parentPath + "/" + left;
    }

    SystemResult<LockedFolder> openLocked(const std::string& name) {
        LockedFolder locked;
        for (FileDescriptor* descriptor : {&locked.folder, &locked.lock}) {
            SystemResult<FileDescriptor> opened = fileSystem_.openFolder(parent(), name);
            if (!opened)
                return unexpected(opened.error());
            *descriptor = std::move(*opened);
        }
        const SystemResult<NodeStatus> status = fileSystem_.status(locked.folder.number());
        if (!status)
            return unexpected(status.error());
        locked.status = *status;
        // Where a file system knows no locks, other processes get none either and leave the folder alone.
        (void)fileSystem_.lock(locked.lock.number());
        return locked;
    }

    SystemResult<void> rename(const std::string& from, const std::string& to) {
        return fileSystem_.rename(parent(), from, to, RenameRule::noReplace);
    }

    Outcome finish(const SystemResult<void>& result) const {
        return result ? Outcome() : failure(place_.path, result.error());
    }

    static Outcome failure(const std::string& path, int error) {
        return unexpected(diskFailure(path, error));
    }

    FileSystem& fileSystem_;
    const PackagePlace& place_;
    const std::string workName_;
    std::string asideName_;  ///< empty while the old package has not been moved aside
    bool workIsOld_ = false; ///< the old package has the work name
    std::optional<LockedFolder> old_;
    FileDescriptor workLock_;
};

} // namespace

Expected<SaveReport, DiskFailure> writeFolder(const FileWrapper& tree, const std::string& path,
                                              FileSystem& fileSystem) {
    if (!tree.isDirectory())
        return unexpected(diskFailure(path, ENOTDIR));
    const Expected<PackagePlace, DiskFailure> place = findPackagePlace(path, fileSystem);
    if (!place)
        return unexpected(place.error());
    const Expected<bool, DiskFailure> recovered = putAsideBack(fileSystem, *place);
    if (!recovered)
        return unexpected(recovered.error());
    removeStaleSides(fileSystem, *place);
    return FolderSave(fileSystem, *place).run(tree);
}

} // namespace quillon
