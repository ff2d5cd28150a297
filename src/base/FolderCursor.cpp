#include "base/FolderCursor.h"

#include <cerrno>

namespace quillon {

FolderCursor::FolderCursor(FileSystem& fileSystem, FileDescriptor root)
    : m_fileSystem(&fileSystem), m_here(std::move(root)) {}

SystemResult<void> FolderCursor::enter(const std::string& name) {
    const SystemResult<NodeStatus> status = m_fileSystem->status(folder());
    if (!status) {
        return unexpected(status.error());
    }
    SystemResult<FileDescriptor> below = m_fileSystem->openFolder(folder(), name);
    if (!below) {
        return unexpected(below.error());
    }
    m_above.push_back(status->identity);
    m_here = std::move(*below);
    return {};
}

SystemResult<FileDescriptor> FolderCursor::leave() {
    SystemResult<FileDescriptor> up = m_fileSystem->openFolder(folder(), "..");
    if (!up) {
        return unexpected(up.error());
    }
    const SystemResult<NodeStatus> status = m_fileSystem->status(up->number());
    if (!status) {
        return unexpected(status.error());
    }
    if (status->identity.device != m_above.back().device || status->identity.inode != m_above.back().inode) {
        return unexpected(ESTALE);
    }
    m_above.pop_back();
    std::swap(m_here, *up);
    return std::move(*up);
}

} // namespace quillon
