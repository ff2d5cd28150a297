#pragma once

#include "package/PackageFolder.h"

#include <optional>
#include <utility>
#include <vector>

namespace quillon {

/// A finished and flushed folder that has yet to take its place.
struct BuiltFolder {
    SaveReport report;
    std::vector<std::pair<Bytes, FileIdentity>> origins; ///< the files that were written, and their bytes
};

/// Fills the empty folder `made` with the files and folders of `tree` and flushes all to the device. What is
/// unchanged is linked or cloned from `old`, the folder that stands at `path` so far, and what both hold
/// keeps its mode. `path` names files in failures. After a failure `made` is left half-filled.
Expected<BuiltFolder, DiskFailure> buildFolder(FileSystem& fileSystem, const FileWrapper& tree,
                                               const std::string& path, FileDescriptor made,
                                               std::optional<FileDescriptor> old);

} // namespace quillon
