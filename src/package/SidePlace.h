#pragma once

#include "base/DiskFailure.h"
#include "base/Expected.h"
#include "base/FileSystem.h"

#include <string>

namespace quillon {

/// Where a package stands or is to stand.
struct PackagePlace {
    std::string path;       ///< as given, for messages
    std::string parentPath; ///< for messages
    FileDescriptor parent;  ///< the folder that holds the package
    std::string name;       ///< of the package in `parent`
};

/// What a folder beside a package is for. A folder may be broken unless it is an aside one.
enum class SideKind {
    work,  ///< a new folder that is being built, or an old one that is being removed
    aside, ///< the old package, whole, while the new one takes its place
    kept,  ///< what another program wrote during a save and could not be put back; never removed
};

/// Finds the place of `path`; symbolic links in it are followed. Fails where its parent folder cannot be
/// opened.
Expected<PackagePlace, DiskFailure> findPackagePlace(const std::string& path, FileSystem& fileSystem);

/// A hidden name beside the package, ".NAME.quillon-save-x7k2p0", different at each call.
std::string newSideName(const std::string& packageName, SideKind kind);

/// Removes the folder `name` with all it holds, and tries a second time what failed. Returns whether it is
/// gone.
bool removeTree(FileSystem& fileSystem, int parent, const std::string& name);

/// Removes an aside folder. Whatever stops it half-way, no broken folder is ever left under the name of an
/// aside one. Returns the name of what is left, empty if nothing.
std::string removeAside(FileSystem& fileSystem, const PackagePlace& place, const std::string& asideName);

/// Where the package is missing and a dead process had moved it aside, puts it back. Returns whether it did.
Expected<bool, DiskFailure> putAsideBack(FileSystem& fileSystem, const PackagePlace& place);

/// Removes what dead processes left beside the package. What cannot be removed stays.
void removeStaleSides(FileSystem& fileSystem, const PackagePlace& place);

} // namespace quillon
