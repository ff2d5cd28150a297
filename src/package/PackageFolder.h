#pragma once

#include "base/DiskFailure.h"
#include "base/Expected.h"
#include "base/FileSystem.h"
#include "base/FileTree.h"
#include "package/PackageStamp.h"

#include <cstdint>
#include <string>

namespace quillon {

/// What a save does with what stands at its path, also where a killed save had moved it aside.
enum class Existing { replace, refuse };

/// What a save did.
struct SaveReport {
    std::size_t filesWritten = 0;
    std::size_t filesLinked = 0; ///< unchanged since they were read, taken over from the old folder
    std::size_t filesCloned = 0; ///< the same, where links are refused and the file system can share blocks
    std::uint64_t bytesWritten = 0;
    std::string leftBehind; ///< path of the old folder where it could not be removed whole; else empty
    PackageStamp stamp;     ///< of the new folder, before anybody else could write to it
};

/// Reads the folder at `path`, which may be a symbolic link to it, with all folders below it. The folders are
/// listed now; a file is read when its contents are asked for, and fails then if it cannot be read, so the
/// tree holds one descriptor until it is let go. Symbolic links, sockets, pipes and devices become nodes
/// without contents and are never followed or opened. A name that is not valid UTF-8 is a failure, since a
/// later save would lose the file. Where a save was killed half-way, the package is put back first.
Expected<FileWrapper, DiskFailure> readFolder(const std::string& path,
                                              FileSystem& fileSystem = systemFileSystem());

/// Makes the folder at `path` hold exactly the files and folders of `tree`, a folder: all or nothing. The new
/// folder is built beside the old one, flushed, and takes its place in one step; after a failure, and when
/// the process is killed at any time, the old folder is as it was. Files whose bytes come unchanged from the
/// old folder are linked, not written. Files and folders that exist keep their modes. Nodes without contents
/// are passed over. After a success all bytes know the file that holds them now. What killed saves of the
/// same package left behind is removed. Where `known` is given, an old folder is replaced only as long as it
/// has that stamp, up to the step that replaces it: otherwise it stays and the save fails with ESTALE.
Expected<SaveReport, DiskFailure> writeFolder(const FileWrapper& tree, const std::string& path,
                                              FileSystem& fileSystem = systemFileSystem(),
                                              Existing existing = Existing::replace,
                                              const PackageStamp* known = nullptr);

/// Puts a package back that a killed save had moved aside, where nothing stands at `path`; returns whether
/// there was one. Only file systems that cannot exchange two folders in one step ever need it.
Expected<bool, DiskFailure> recoverInterruptedSave(const std::string& path,
                                                   FileSystem& fileSystem = systemFileSystem());

} // namespace quillon
