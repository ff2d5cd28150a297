#pragma once

#include "base/FileSystem.h"

#include <string>
#include <vector>

namespace quillon {

/// A place in a tree of folders on disk that moves one step at a time. Holds a single descriptor, however
/// deep it stands, and never passes through a symbolic link.
class FolderCursor {
public:
    /// Stands at `root`, an open folder.
    FolderCursor(FileSystem& fileSystem, FileDescriptor root);

    /// The descriptor of the folder it stands at.
    int folder() const { return here_.number(); }
    /// Steps below the root.
    std::size_t depth() const { return above_.size(); }

    /// Goes down into a folder. A failure leaves it where it was.
    SystemResult<void> enter(const std::string& name);

    /// Goes up and returns the folder that was left. A failure leaves it where it was: ESTALE where the
    /// folder has been moved to another place since it was entered.
    SystemResult<FileDescriptor> leave();

private:
    FileSystem* fileSystem_;
    FileDescriptor here_;
    std::vector<FileIdentity> above_;
};

} // namespace quillon
