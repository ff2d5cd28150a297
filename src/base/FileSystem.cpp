#include "base/FileSystem.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillon {

namespace {

constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;

struct CloseStream {
    void operator()(DIR* stream) const { ::closedir(stream); }
};

/// Calls again for as long as a signal interrupts the call.
template <typename Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR) {
        result = call();
    }
    return result;
}

SystemResult<void> done(int result) {
    if (result == -1) {
        return unexpected(errno);
    }
    return {};
}

SystemResult<FileDescriptor> opened(int number) {
    if (number == -1) {
        return unexpected(errno);
    }
    return FileDescriptor(number);
}

NodeKind kindOfMode(mode_t mode) {
    if (S_ISDIR(mode)) {
        return NodeKind::folder;
    }
    return S_ISREG(mode) ? NodeKind::regularFile : NodeKind::other;
}

NodeStatus nodeStatus(const struct stat& raw) {
    NodeStatus status;
    status.kind = kindOfMode(raw.st_mode);
    status.identity.device = raw.st_dev;
    status.identity.inode = raw.st_ino;
    status.identity.size = static_cast<std::uint64_t>(raw.st_size);
    status.identity.modified = raw.st_mtim.tv_sec * nanosecondsPerSecond + raw.st_mtim.tv_nsec;
    status.changed = raw.st_ctim.tv_sec * nanosecondsPerSecond + raw.st_ctim.tv_nsec;
    status.mode = raw.st_mode & 07777U;
    status.owner = raw.st_uid;
    status.group = raw.st_gid;
    return status;
}

bool isUnsupported(int error) {
    return error == EINVAL || error == ENOSYS || error == EOPNOTSUPP;
}

class SystemFileSystem final : public FileSystem {
public:
    SystemResult<std::string> resolve(const std::string& path) override {
        const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.c_str(), nullptr), &std::free);
        if (!real) {
            return unexpected(errno);
        }
        return std::string(real.get());
    }

    SystemResult<FileDescriptor> openRoot(const std::string& path) override {
        return open(AT_FDCWD, path, O_RDONLY | O_DIRECTORY);
    }

    SystemResult<FileDescriptor> openFolder(int folder, const std::string& name) override {
        return open(folder, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
    }

    SystemResult<FileDescriptor> openFile(int folder, const std::string& name) override {
        return open(folder, name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY);
    }

    SystemResult<NodeStatus> status(int file) override {
        struct stat raw {};
        if (::fstat(file, &raw) == -1) {
            return unexpected(errno);
        }
        return nodeStatus(raw);
    }

    SystemResult<NodeStatus> statusAt(int folder, const std::string& name) override {
        struct stat raw {};
        if (::fstatat(folder, name.c_str(), &raw, AT_SYMLINK_NOFOLLOW) == -1) {
            return unexpected(errno);
        }
        return nodeStatus(raw);
    }

    SystemResult<std::vector<FolderEntry>> list(int folder) override {
        // A descriptor of its own: the caller's may have been read before.
        const int own =
            uninterrupted([&] { return ::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
        if (own == -1) {
            return unexpected(errno);
        }
        const std::unique_ptr<DIR, CloseStream> stream(::fdopendir(own));
        if (!stream) {
            const int error = errno;
            ::close(own);
            return unexpected(error);
        }
        std::vector<FolderEntry> entries;
        while (true) {
            errno = 0;
            const dirent* entry = ::readdir(stream.get());
            if (!entry) {
                break;
            }
            std::string name = entry->d_name;
            if (name == "." || name == "..") {
                continue;
            }
            const SystemResult<NodeKind> kind = kindOf(folder, *entry);
            if (kind) {
                entries.push_back({std::move(name), *kind});
            } else if (kind.error() != ENOENT) { // gone since it was listed
                return unexpected(kind.error());
            }
        }
        if (errno != 0) {
            return unexpected(errno);
        }
        return entries;
    }

    SystemResult<std::size_t> read(int file, char* buffer, std::size_t size) override {
        const ssize_t count = uninterrupted([&] { return ::read(file, buffer, size); });
        if (count == -1) {
            return unexpected(errno);
        }
        return static_cast<std::size_t>(count);
    }

    SystemResult<FileDescriptor> createFile(int folder, const std::string& name, unsigned mode) override {
        return opened(uninterrupted([&] {
            return ::openat(folder, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
        }));
    }

    SystemResult<void> makeFolder(int folder, const std::string& name, unsigned mode) override {
        return done(::mkdirat(folder, name.c_str(), mode));
    }

    SystemResult<std::size_t> write(int file, std::string_view text) override {
        const ssize_t count = uninterrupted([&] { return ::write(file, text.data(), text.size()); });
        if (count == -1) {
            return unexpected(errno);
        }
        if (count == 0 && !text.empty()) {
            return unexpected(EIO);
        }
        return static_cast<std::size_t>(count);
    }

    SystemResult<void> link(int folder, const std::string& name, int newFolder) override {
        return done(::linkat(folder, name.c_str(), newFolder, name.c_str(), 0));
    }

    SystemResult<void> clone(int from, int to) override { return done(::ioctl(to, FICLONE, from)); }

    SystemResult<void> setAccess(int file, const NodeStatus& like) override {
        struct stat raw {};
        if (::fstat(file, &raw) == -1) {
            return unexpected(errno);
        }
        // Only root may give a file away, but everyone may choose among the groups they are in. The owner
        // comes first because a change of owner takes permission bits away.
        unsigned mode = like.mode;
        if (raw.st_uid != like.owner && ::fchown(file, like.owner, static_cast<gid_t>(-1)) == -1) {
            if (errno != EPERM) {
                return unexpected(errno);
            }
            mode &= ~static_cast<unsigned>(S_ISUID); // the right was another owner's to give
        }
        if (raw.st_gid != like.group && ::fchown(file, static_cast<uid_t>(-1), like.group) == -1) {
            if (errno != EPERM) {
                return unexpected(errno);
            }
            mode &= ~static_cast<unsigned>(S_ISGID);
            mode &= ~070U | ((mode & 07U) << 3U); // another group may do no more than everyone
        }
        return done(::fchmod(file, mode));
    }

    SystemResult<void> setModified(int file, std::int64_t modified) override {
        std::int64_t seconds = modified / nanosecondsPerSecond;
        std::int64_t rest = modified % nanosecondsPerSecond;
        if (rest < 0) {
            rest += nanosecondsPerSecond;
            --seconds;
        }
        const timespec times[2] = {{0, UTIME_OMIT}, {seconds, rest}};
        return done(::futimens(file, times));
    }

    SystemResult<void> sync(int file) override {
        const SystemResult<void> result = done(uninterrupted([&] { return ::fsync(file); }));
        if (!result && isUnsupported(result.error())) {
            return {}; // some file systems flush folders by themselves and refuse the call
        }
        return result;
    }

    SystemResult<void> rename(int folder, const std::string& from, const std::string& to,
                              RenameRule rule) override {
        const unsigned flags = rule == RenameRule::exchange ? RENAME_EXCHANGE : RENAME_NOREPLACE;
        const SystemResult<void> result = done(::renameat2(folder, from.c_str(), folder, to.c_str(), flags));
        if (result || !isUnsupported(result.error())) {
            return result;
        }
        if (rule == RenameRule::exchange) {
            return unexpected(EINVAL);
        }
        if (statusAt(folder, to)) {
            return unexpected(EEXIST);
        }
        return done(::renameat(folder, from.c_str(), folder, to.c_str()));
    }

    SystemResult<void> unlink(int folder, const std::string& name) override {
        return done(::unlinkat(folder, name.c_str(), 0));
    }

    SystemResult<void> removeFolder(int folder, const std::string& name) override {
        return done(::unlinkat(folder, name.c_str(), AT_REMOVEDIR));
    }

    SystemResult<void> lock(int folder) override {
        return done(uninterrupted([&] { return ::flock(folder, LOCK_EX | LOCK_NB); }));
    }

private:
    static SystemResult<FileDescriptor> open(int folder, const std::string& name, int flags) {
        return opened(uninterrupted([&] { return ::openat(folder, name.c_str(), flags | O_CLOEXEC); }));
    }

    SystemResult<NodeKind> kindOf(int folder, const dirent& entry) {
        if (entry.d_type != DT_UNKNOWN) {
            return kindOfMode(DTTOIF(entry.d_type));
        }
        return statusAt(folder, entry.d_name).map([](const NodeStatus& status) { return status.kind; });
    }
};

} // namespace

FileDescriptor::~FileDescriptor() {
    if (m_number != -1) {
        ::close(m_number);
    }
}

FileSystem& systemFileSystem() {
    static SystemFileSystem instance;
    return instance;
}

} // namespace quillon
