#pragma once

#include "base/Bytes.h"
#include "base/DiskFailure.h"
#include "base/Expected.h"
#include "base/FileSystem.h"

#include <cstdint>
#include <map>
#include <string>

namespace quillon {

/// The state of a package's files on disk, as far as it can be told without reading them: which there are,
/// and of each its identity. Two equal stamps mean that nobody wrote in between, but for a file that was
/// written twice at its place within one step of the file system's clock, some milliseconds.
struct PackageStamp {
    std::map<std::string, FileIdentity> files; ///< by path within the package, folders left out

    /// When the system last noted a change of each file, in nanoseconds since 1970. It moves with every link
    /// that is made or removed, so that it takes no part in equality; but nobody can set it back.
    std::map<std::string, std::int64_t> changeTimes = {};

    bool operator==(const PackageStamp& other) const { return files == other.files; }

    /// A number that stands for the whole, to be kept in a file; equal stamps have equal numbers.
    std::uint64_t mark() const;
};

/// The stamp of the folder at `path`; ENOENT or ENOTDIR where none stands. Symbolic links are not followed
/// below it. Costs one look at every file.
Expected<PackageStamp, DiskFailure> packageStamp(const std::string& path,
                                                 FileSystem& fileSystem = systemFileSystem());

/// The same of an open folder, which failures name as `path`.
Expected<PackageStamp, DiskFailure> packageStamp(FileDescriptor folder, const std::string& path,
                                                 FileSystem& fileSystem);

} // namespace quillon
