#include "base/FolderCursor.h"

#include <cerrno>

namespace quillon {

FolderCursor::FolderCursor(FileSystem& fileSystem, FileDescriptor root)
    : fileSystem_(&fileSystem), here_(std::move(root)) {}

SystemResult<void> FolderCursor::enter(const std::string& name) {
    const SystemResult<NodeStatus> status = fileSystem_->status(folder());
    if (!status)
        return unexpected(status.error());
    SystemResult<FileDescriptor> below = fileSystem_->openFolder(folder(), name);
    if (!below)
        return unexpected(below.error());
    above_.push_back(status->identity);
    here_ = std::move(*below);
    return {};
}

SystemResult<FileDescriptor> FolderCursor::leave() {
    SystemResult<FileDescriptor> up = fileSystem_->openFolder(folder(), "..");
    if (!up)
        return unexpected(up.error());
    const SystemResult<NodeStatus> status = fileSystem_->status(up->number());
    if (!status)
        return unexpected(status.error());
    if (status->identity.device != above_.back().device || status->identity.inode != above_.back().inode)
        return unexpected(ESTALE);
    above_.pop_back();
    std::swap(here_, *up);
    return std::move(*up);
}

} // namespace quillon
