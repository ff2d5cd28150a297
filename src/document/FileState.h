#pragma once

#include "base/Shared.h"
#include "package/PackageStamp.h"

#include <optional>
#include <string>
#include <variant>

namespace quillon {

/// How an open document stands to its folder. Paths are absolute.
namespace file {

/// It has none yet.
struct NeverSaved {
    bool operator==(const NeverSaved&) const = default;
};

/// The folder holds the value that was read or saved last.
struct AtPath {
    std::string path;
    Shared<PackageStamp> stamp; ///< of the folder at that time

    bool operator==(const AtPath&) const = default;
};

/// Somebody else wrote to the folder since.
struct ChangedOnDisk {
    std::string path;
    Shared<PackageStamp> stamp; ///< of the folder as the document knows it
    bool isRefused = false;     ///< what the folder holds was not taken over, so the document is all there is
    bool lacksAssets = false;   ///< the document came back from a crash without the folder's assets

    bool operator==(const ChangedOnDisk&) const = default;
};

/// The folder was removed or moved away.
struct Gone {
    std::string path;
    Shared<PackageStamp> stamp; ///< of the folder as the document knew it, in case it comes back
    bool lacksAssets = false;   ///< as above

    bool operator==(const Gone&) const = default;
};

/// A save is running on another thread.
struct Saving {
    std::string path;
    std::variant<NeverSaved, AtPath, ChangedOnDisk, Gone> before; ///< what a failure returns to

    bool operator==(const Saving&) const = default;
};

} // namespace file

using FileState = std::variant<file::NeverSaved, file::AtPath, file::ChangedOnDisk, file::Gone, file::Saving>;

/// The folder that the document belongs to, also while it is gone; while saving, the one being written.
/// Nothing before the first save.
std::optional<std::string> pathOf(const FileState& state);

} // namespace quillon
