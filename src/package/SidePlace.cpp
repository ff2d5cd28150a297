#include "package/SidePlace.h"

#include "base/FileTree.h"
#include "base/FolderCursor.h"

#include <cerrno>
#include <cstdint>
#include <random>

namespace quillon {

namespace {

constexpr std::size_t randomLength = 6;

/// The package's name, or a short form of a name so long that the rest would not fit behind it.
std::string sideStem(const std::string& name) {
    constexpr std::size_t longestStem = 200;
    constexpr std::size_t keptLength = 160;
    if (name.size() <= longestStem) {
        return name;
    }
    std::size_t cut = keptLength;
    while (cut > 0 && (static_cast<unsigned char>(name[cut]) & 0xC0U) == 0x80U) {
        --cut; // not inside a character
    }
    std::uint64_t hash = 0xcbf29ce484222325U;
    for (const char byte : name) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3U;
    }
    return name.substr(0, cut) + "~" + std::to_string(hash);
}

std::string sidePrefix(const std::string& name, SideKind kind) {
    constexpr std::string_view marks[] = {".quillon-save-", ".quillon-aside-", ".quillon-kept-"};
    return "." + sideStem(name) + std::string(marks[static_cast<std::size_t>(kind)]);
}

bool isSide(const FolderEntry& entry, const std::string& prefix) {
    return entry.kind == NodeKind::folder && entry.name.starts_with(prefix) &&
           entry.name.size() == prefix.size() + randomLength;
}

/// A descriptor that holds the lock of a side folder, if no living process does.
SystemResult<FileDescriptor> lockDead(FileSystem& fileSystem, int parent, const std::string& name) {
    SystemResult<FileDescriptor> folder = fileSystem.openFolder(parent, name);
    if (folder) {
        if (const SystemResult<void> locked = fileSystem.lock(folder->number()); !locked) {
            return unexpected(locked.error());
        }
    }
    return folder;
}

/// The side folders of one kind, in no order.
SystemResult<std::vector<std::string>> sideNames(FileSystem& fileSystem, const PackagePlace& place,
                                                 SideKind kind) {
    SystemResult<std::vector<FolderEntry>> entries = fileSystem.list(place.parent.number());
    if (!entries) {
        return unexpected(entries.error());
    }
    const std::string prefix = sidePrefix(place.name, kind);
    std::vector<std::string> names;
    for (FolderEntry& entry : *entries) {
        if (isSide(entry, prefix)) {
            names.push_back(std::move(entry.name));
        }
    }
    return names;
}

/// What is left to remove of a folder.
struct Remainder {
    std::string name;
    std::vector<FolderEntry> entries;
};

/// Lists a folder that is to be emptied; a failure shows later, when the folder turns out not to be empty.
Remainder remainder(FileSystem& fileSystem, int folder, const std::string& name) {
    constexpr unsigned ownerMay = 0700;
    if (SystemResult<NodeStatus> status = fileSystem.status(folder);
        status && (status->mode & ownerMay) != ownerMay) {
        status->mode |= ownerMay; // nothing can be removed from a folder that is read-only
        (void)fileSystem.setAccess(folder, *status);
    }
    return {name, fileSystem.list(folder).value_or(std::vector<FolderEntry>())};
}

/// Removes as much as it can. Returns whether all is gone.
bool removeTreeOnce(FileSystem& fileSystem, int parent, const std::string& name) {
    SystemResult<FileDescriptor> root = fileSystem.openFolder(parent, name);
    if (!root) {
        return root.error() == ENOENT;
    }
    FolderCursor cursor(fileSystem, std::move(*root));
    std::vector<Remainder> levels;
    levels.push_back(remainder(fileSystem, cursor.folder(), name));
    while (levels.size() > 1 || !levels.back().entries.empty()) {
        Remainder& level = levels.back();
        if (level.entries.empty()) {
            if (!cursor.leave()) {
                return false;
            }
            (void)fileSystem.removeFolder(cursor.folder(), level.name);
            levels.pop_back();
            continue;
        }
        const FolderEntry entry = std::move(level.entries.back());
        level.entries.pop_back();
        if (entry.kind != NodeKind::folder) {
            (void)fileSystem.unlink(cursor.folder(), entry.name);
        } else if (cursor.enter(entry.name)) {
            levels.push_back(remainder(fileSystem, cursor.folder(), entry.name));
        }
    }
    const SystemResult<void> removed = fileSystem.removeFolder(parent, name);
    return removed || removed.error() == ENOENT;
}

} // namespace

Expected<PackagePlace, DiskFailure> findPackagePlace(const std::string& path, FileSystem& fileSystem) {
    if (path.empty() || path.find('\0') != std::string::npos) {
        return unexpected(diskFailure(path, EINVAL));
    }
    PackagePlace place;
    place.path = path.substr(0, path.find_last_not_of('/') + 1);

    SystemResult<std::string> real = fileSystem.resolve(path);
    if (!real && real.error() != ENOENT) {
        return unexpected(diskFailure(place.path, real.error()));
    }
    const std::string& full = real ? *real : place.path;
    const std::size_t slash = full.rfind('/');
    place.name = slash == std::string::npos ? full : full.substr(slash + 1);
    if (!isSafePathPiece(place.name)) {
        return unexpected(diskFailure(path, place.name.size() > 255 ? ENAMETOOLONG : EINVAL));
    }
    place.parentPath = slash == std::string::npos ? "." : full.substr(0, slash == 0 ? 1 : slash);

    SystemResult<FileDescriptor> parent = fileSystem.openRoot(place.parentPath);
    if (!parent) {
        return unexpected(diskFailure(place.parentPath, parent.error()));
    }
    place.parent = std::move(*parent);
    return place;
}

std::string newSideName(const std::string& packageName, SideKind kind) {
    constexpr std::string_view letters = "0123456789abcdefghijklmnopqrstuvwxyz";
    std::random_device device;
    std::uniform_int_distribution<std::size_t> index(0, letters.size() - 1);
    std::string name = sidePrefix(packageName, kind);
    for (std::size_t position = 0; position < randomLength; ++position) {
        name += letters[index(device)];
    }
    return name;
}

bool removeTree(FileSystem& fileSystem, int parent, const std::string& name) {
    // Twice: another program may have put something in while the first round was at it.
    const bool isRemoved = removeTreeOnce(fileSystem, parent, name);
    return isRemoved || removeTreeOnce(fileSystem, parent, name);
}

std::string removeAside(FileSystem& fileSystem, const PackagePlace& place, const std::string& asideName) {
    const int parent = place.parent.number();
    const std::string workName = newSideName(place.name, SideKind::work);
    SystemResult<void> renamed = fileSystem.rename(parent, asideName, workName, RenameRule::noReplace);
    if (!renamed) {
        renamed = fileSystem.rename(parent, asideName, workName, RenameRule::noReplace);
    }
    if (!renamed) {
        return asideName;
    }
    return removeTree(fileSystem, parent, workName) ? std::string() : workName;
}

Expected<bool, DiskFailure> putAsideBack(FileSystem& fileSystem, const PackagePlace& place) {
    const int parent = place.parent.number();
    const SystemResult<NodeStatus> present = fileSystem.statusAt(parent, place.name);
    if (present) {
        return false;
    }
    if (present.error() != ENOENT) {
        return unexpected(diskFailure(place.path, present.error()));
    }
    const SystemResult<std::vector<std::string>> names = sideNames(fileSystem, place, SideKind::aside);
    if (!names) {
        return unexpected(diskFailure(place.parentPath, names.error()));
    }
    for (const std::string& name : *names) {
        const SystemResult<FileDescriptor> lock = lockDead(fileSystem, parent, name);
        if (!lock) {
            continue;
        }
        SystemResult<void> back = fileSystem.rename(parent, name, place.name, RenameRule::noReplace);
        if (back) {
            back = fileSystem.sync(parent);
        }
        if (!back) {
            return unexpected(diskFailure(place.path, back.error()));
        }
        return true;
    }
    return false;
}

void removeStaleSides(FileSystem& fileSystem, const PackagePlace& place) {
    const int parent = place.parent.number();
    for (const SideKind kind : {SideKind::work, SideKind::aside}) {
        const SystemResult<std::vector<std::string>> names = sideNames(fileSystem, place, kind);
        if (!names) {
            continue;
        }
        for (const std::string& name : *names) {
            const SystemResult<FileDescriptor> lock = lockDead(fileSystem, parent, name);
            if (!lock) {
                continue;
            }
            if (kind == SideKind::work) {
                (void)removeTree(fileSystem, parent, name);
            } else {
                (void)removeAside(fileSystem, place, name);
            }
        }
    }
}

} // namespace quillon
