#include "support/FaultyFileSystem.h"

#include <cerrno>

#include <unistd.h>

namespace quillon::test {

int FaultyFileSystem::strike(const char* operation, const std::string& name, Room room) {
    ++m_steps;
    if (m_plan.before) {
        m_plan.before(operation);
    }
    if (m_plan.step == 0 || m_steps < m_plan.step) {
        return 0;
    }
    if (m_plan.kind == FaultKind::kill) {
        ::_exit(killedStatus);
    }
    const bool fails = m_plan.kind == FaultKind::one ? m_steps == m_plan.step : room == Room::needed;
    if (!fails) {
        return 0;
    }
    if (!m_hasStruck) {
        m_hasStruck = true;
        m_struckOperation = operation;
        m_struckName = name;
    }
    return m_plan.errorNumber;
}

template <typename Call>
auto FaultyFileSystem::step(const char* operation, const std::string& name, Room room, Call call)
    -> decltype(call()) {
    if (const int error = strike(operation, name, room)) {
        return unexpected(error);
    }
    return call();
}

std::string FaultyFileSystem::nameOf(int file) const {
    const auto found = m_created.find(file);
    return found == m_created.end() ? std::string() : found->second;
}

SystemResult<std::string> FaultyFileSystem::resolve(const std::string& path) {
    return step("resolve", {}, Room::notNeeded, [&] { return m_real.resolve(path); });
}

SystemResult<FileDescriptor> FaultyFileSystem::openRoot(const std::string& path) {
    return step("openRoot", {}, Room::notNeeded, [&] { return m_real.openRoot(path); });
}

SystemResult<FileDescriptor> FaultyFileSystem::openFolder(int folder, const std::string& name) {
    return step("openFolder", {}, Room::notNeeded, [&] { return m_real.openFolder(folder, name); });
}

SystemResult<FileDescriptor> FaultyFileSystem::openFile(int folder, const std::string& name) {
    return step("openFile", name, Room::notNeeded, [&] { return m_real.openFile(folder, name); });
}

SystemResult<NodeStatus> FaultyFileSystem::status(int file) {
    return step("status", {}, Room::notNeeded, [&] { return m_real.status(file); });
}

SystemResult<NodeStatus> FaultyFileSystem::statusAt(int folder, const std::string& name) {
    return step("statusAt", {}, Room::notNeeded, [&] { return m_real.statusAt(folder, name); });
}

SystemResult<std::vector<FolderEntry>> FaultyFileSystem::list(int folder) {
    return step("list", {}, Room::notNeeded, [&] { return m_real.list(folder); });
}

SystemResult<std::size_t> FaultyFileSystem::read(int file, char* buffer, std::size_t size) {
    return step("read", {}, Room::notNeeded, [&] { return m_real.read(file, buffer, size); });
}

SystemResult<FileDescriptor> FaultyFileSystem::createFile(int folder, const std::string& name,
                                                          unsigned mode) {
    if (const int error = strike("createFile", name, Room::needed)) {
        return unexpected(error);
    }
    SystemResult<FileDescriptor> file = m_real.createFile(folder, name, mode);
    if (file) {
        m_created[file->number()] = name;
    }
    return file;
}

SystemResult<void> FaultyFileSystem::makeFolder(int folder, const std::string& name, unsigned mode) {
    return step("makeFolder", name, Room::needed, [&] { return m_real.makeFolder(folder, name, mode); });
}

SystemResult<std::size_t> FaultyFileSystem::write(int file, std::string_view text) {
    if (const int error = strike("write", nameOf(file), Room::needed)) {
        return unexpected(error);
    }
    constexpr std::size_t bytesAtOnce = 7;
    return m_real.write(file, text.substr(0, bytesAtOnce));
}

SystemResult<void> FaultyFileSystem::link(int folder, const std::string& name, int newFolder) {
    if (const int error = strike("link", name, Room::needed)) {
        return unexpected(error);
    }
    if (!m_plan.canLink) {
        return unexpected(EPERM);
    }
    return m_real.link(folder, name, newFolder);
}

SystemResult<void> FaultyFileSystem::clone(int from, int to) {
    if (const int error = strike("clone", nameOf(to), Room::needed)) {
        return unexpected(error);
    }
    if (!m_plan.canClone) {
        return unexpected(EOPNOTSUPP);
    }
    char buffer[4096];
    for (SystemResult<std::size_t> count = 1; count && *count > 0;) {
        count = m_real.read(from, buffer, sizeof buffer);
        if (count && *count > 0 && m_real.write(to, {buffer, *count}) != *count) {
            return unexpected(EIO);
        }
    }
    return {};
}

SystemResult<void> FaultyFileSystem::setAccess(int file, const NodeStatus& like) {
    return step("setAccess", {}, Room::needed, [&] { return m_real.setAccess(file, like); });
}

SystemResult<void> FaultyFileSystem::setModified(int file, std::int64_t modified) {
    return step("setModified", {}, Room::needed, [&] { return m_real.setModified(file, modified); });
}

SystemResult<void> FaultyFileSystem::sync(int) {
    if (const int error = strike("sync", {}, Room::needed)) {
        return unexpected(error);
    }
    return {};
}

SystemResult<void> FaultyFileSystem::rename(int folder, const std::string& from, const std::string& to,
                                            RenameRule rule) {
    if (const int error = strike("rename", {})) {
        return unexpected(error);
    }
    if (rule == RenameRule::exchange && !m_plan.canExchange) {
        return unexpected(EINVAL);
    }
    return m_real.rename(folder, from, to, rule);
}

SystemResult<void> FaultyFileSystem::unlink(int folder, const std::string& name) {
    return step("unlink", {}, Room::notNeeded, [&] { return m_real.unlink(folder, name); });
}

SystemResult<void> FaultyFileSystem::removeFolder(int folder, const std::string& name) {
    return step("removeFolder", {}, Room::notNeeded, [&] { return m_real.removeFolder(folder, name); });
}

SystemResult<void> FaultyFileSystem::lock(int folder) {
    if (const int error = strike("lock", {})) {
        return unexpected(error);
    }
    if (!m_plan.canLock) {
        return unexpected(EOPNOTSUPP);
    }
    return m_real.lock(folder);
}

} // namespace quillon::test
