#include "package/ProgressFileSystem.h"

#include <algorithm>
#include <cerrno>

namespace quillon {

SystemResult<std::vector<FolderEntry>> ProgressFileSystem::list(int folder) {
    if (m_progress.isCancelled) {
        return unexpected(ECANCELED);
    }
    return m_base.list(folder);
}

SystemResult<std::size_t> ProgressFileSystem::read(int file, char* buffer, std::size_t size) {
    constexpr std::size_t piece = 1 << 20;
    if (m_progress.isCancelled) {
        return unexpected(ECANCELED);
    }
    SystemResult<std::size_t> count = m_base.read(file, buffer, std::min(size, piece));
    if (count) {
        m_progress.bytesRead += *count;
    }
    return count;
}

SystemResult<std::string> ProgressFileSystem::resolve(const std::string& path) {
    return m_base.resolve(path);
}

SystemResult<FileDescriptor> ProgressFileSystem::openRoot(const std::string& path) {
    return m_base.openRoot(path);
}

SystemResult<FileDescriptor> ProgressFileSystem::openFolder(int folder, const std::string& name) {
    return m_base.openFolder(folder, name);
}

SystemResult<FileDescriptor> ProgressFileSystem::openFile(int folder, const std::string& name) {
    return m_base.openFile(folder, name);
}

SystemResult<NodeStatus> ProgressFileSystem::status(int file) {
    return m_base.status(file);
}

SystemResult<NodeStatus> ProgressFileSystem::statusAt(int folder, const std::string& name) {
    return m_base.statusAt(folder, name);
}

SystemResult<FileDescriptor> ProgressFileSystem::createFile(int folder, const std::string& name,
                                                            unsigned mode) {
    return m_base.createFile(folder, name, mode);
}

SystemResult<void> ProgressFileSystem::makeFolder(int folder, const std::string& name, unsigned mode) {
    return m_base.makeFolder(folder, name, mode);
}

SystemResult<std::size_t> ProgressFileSystem::write(int file, std::string_view text) {
    return m_base.write(file, text);
}

SystemResult<void> ProgressFileSystem::link(int folder, const std::string& name, int newFolder) {
    return m_base.link(folder, name, newFolder);
}

SystemResult<void> ProgressFileSystem::clone(int from, int to) {
    return m_base.clone(from, to);
}

SystemResult<void> ProgressFileSystem::setAccess(int file, const NodeStatus& like) {
    return m_base.setAccess(file, like);
}

SystemResult<void> ProgressFileSystem::setModified(int file, std::int64_t modified) {
    return m_base.setModified(file, modified);
}

SystemResult<void> ProgressFileSystem::sync(int file) {
    return m_base.sync(file);
}

SystemResult<void> ProgressFileSystem::rename(int folder, const std::string& from, const std::string& to,
                                              RenameRule rule) {
    return m_base.rename(folder, from, to, rule);
}

SystemResult<void> ProgressFileSystem::unlink(int folder, const std::string& name) {
    return m_base.unlink(folder, name);
}

SystemResult<void> ProgressFileSystem::removeFolder(int folder, const std::string& name) {
    return m_base.removeFolder(folder, name);
}

SystemResult<void> ProgressFileSystem::lock(int folder) {
    return m_base.lock(folder);
}

} // namespace quillon
