#include "support/FaultyFileSystem.h"

#include <cerrno>

#include <unistd.h>

namespace quillon::test {

int FaultyFileSystem::strike(const char* operation, const std::string& name, Room room) {
    ++steps_;
    if (plan_.before)
        plan_.before(operation);
    if (plan_.step == 0 || steps_ < plan_.step)
        return 0;
    if (plan_.kind == FaultKind::kill)
        ::_exit(killedStatus);
    const bool fails = plan_.kind == FaultKind::one ? steps_ == plan_.step : room == Room::needed;
    if (!fails)
        return 0;
    if (!hasStruck_) {
        hasStruck_ = true;
        struckOperation_ = operation;
        struckName_ = name;
    }
    return plan_.errorNumber;
}

template <typename Call>
auto FaultyFileSystem::step(const char* operation, const std::string& name, Room room, Call call)
    -> decltype(call()) {
    if (const int error = strike(operation, name, room))
        return unexpected(error);
    return call();
}

std::string FaultyFileSystem::nameOf(int file) const {
    const auto found = created_.find(file);
    return found == created_.end() ? std::string() : found->second;
}

SystemResult<std::string> FaultyFileSystem::resolve(const std::string& path) {
    return step("resolve", {}, Room::notNeeded, [&] { return real_.resolve(path); });
}

SystemResult<FileDescriptor> FaultyFileSystem::openRoot(const std::string& path) {
    return step("openRoot", {}, Room::notNeeded, [&] { return real_.openRoot(path); });
}

SystemResult<FileDescriptor> FaultyFileSystem::openFolder(int folder, const std::string& name) {
    return step("openFolder", {}, Room::notNeeded, [&] { return real_.openFolder(folder, name); });
}

SystemResult<FileDescriptor> FaultyFileSystem::openFile(int folder, const std::string& name) {
    return step("openFile", name, Room::notNeeded, [&] { return real_.openFile(folder, name); });
}

SystemResult<NodeStatus> FaultyFileSystem::status(int file) {
    return step("status", {}, Room::notNeeded, [&] { return real_.status(file); });
}

SystemResult<NodeStatus> FaultyFileSystem::statusAt(int folder, const std::string& name) {
    return step("statusAt", {}, Room::notNeeded, [&] { return real_.statusAt(folder, name); });
}

SystemResult<std::vector<FolderEntry>> FaultyFileSystem::list(int folder) {
    return step("list", {}, Room::notNeeded, [&] { return real_.list(folder); });
}

SystemResult<std::size_t> FaultyFileSystem::read(int file, char* buffer, std::size_t size) {
    return step("read", {}, Room::notNeeded, [&] { return real_.read(file, buffer, size); });
}

SystemResult<FileDescriptor> FaultyFileSystem::createFile(int folder, const std::string& name,
                                                          unsigned mode) {
    if (const int error = strike("createFile", name, Room::needed))
        return unexpected(error);
    SystemResult<FileDescriptor> file = real_.createFile(folder, name, mode);
    if (file)
        created_[file->number()] = name;
    return file;
}

SystemResult<void> FaultyFileSystem::makeFolder(int folder, const std::string& name, unsigned mode) {
    return step("makeFolder", name, Room::needed, [&] { return real_.makeFolder(folder, name, mode); });
}

SystemResult<std::size_t> FaultyFileSystem::write(int file, std::string_view text) {
    if (const int error = strike("write", nameOf(file), Room::needed))
        return unexpected(error);
    constexpr std::size_t bytesAtOnce = 7;
    return real_.write(file, text.substr(0, bytesAtOnce));
}

SystemResult<void> FaultyFileSystem::link(int folder, const std::string& name, int newFolder) {
    if (const int error = strike("link", name, Room::needed))
        return unexpected(error);
    if (!plan_.canLink)
        return unexpected(EPERM);
    return real_.link(folder, name, newFolder);
}

SystemResult<void> FaultyFileSystem::clone(int from, int to) {
    if (const int error = strike("clone", nameOf(to), Room::needed))
        return unexpected(error);
    if (!plan_.canClone)
        return unexpected(EOPNOTSUPP);
    char buffer[4096];
    for (SystemResult<std::size_t> count = 1; count && *count > 0;) {
        count = real_.read(from, buffer, sizeof buffer);
        if (count && *count > 0 && real_.write(to, {buffer, *count}) != *count)
            return unexpected(EIO);
    }
    return {};
}

SystemResult<void> FaultyFileSystem::setAccess(int file, const NodeStatus& like) {
    return step("setAccess", {}, Room::needed, [&] { return real_.setAccess(file, like); });
}

SystemResult<void> FaultyFileSystem::setModified(int file, std::int64_t modified) {
    return step("setModified", {}, Room::needed, [&] { return real_.setModified(file, modified); });
}

SystemResult<void> FaultyFileSystem::sync(int) {
    if (const int error = strike("sync", {}, Room::needed))
        return unexpected(error);
    return {};
}

SystemResult<void> FaultyFileSystem::rename(int folder, const std::string& from, const std::string& to,
                                            RenameRule rule) {
    if (const int error = strike("rename", {}))
        return unexpected(error);
    if (rule == RenameRule::exchange && !plan_.canExchange)
        return unexpected(EINVAL);
    return real_.rename(folder, from, to, rule);
}

SystemResult<void> FaultyFileSystem::unlink(int folder, const std::string& name) {
    return step("unlink", {}, Room::notNeeded, [&] { return real_.unlink(folder, name); });
}

SystemResult<void> FaultyFileSystem::removeFolder(int folder, const std::string& name) {
    return step("removeFolder", {}, Room::notNeeded, [&] { return real_.removeFolder(folder, name); });
}

SystemResult<void> FaultyFileSystem::lock(int folder) {
    if (const int error = strike("lock", {}))
        return unexpected(error);
    if (!plan_.canLock)
        return unexpected(EOPNOTSUPP);
    return real_.lock(folder);
}

} // namespace quillon::test
