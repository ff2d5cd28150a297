#include "package/PackageStamp.h"

#include "base/FolderCursor.h"

#include <cerrno>
#include <utility>
#include <vector>

namespace quillon {

namespace {

/// FNV-1a, of 64 bits.
class Hash {
public:
    void add(std::string_view bytes) {
        for (const char byte : bytes) {
            m_value = (m_value ^ static_cast<unsigned char>(byte)) * 0x100000001b3U;
        }
    }
    void add(std::uint64_t number) {
        for (int shift = 0; shift < 64; shift += 8) {
            m_value = (m_value ^ (number >> shift & 0xFFU)) * 0x100000001b3U;
        }
    }
    std::uint64_t value() const { return m_value; }

private:
    std::uint64_t m_value = 0xcbf29ce484222325U;
};

/// Walks the folders of a package, each after the one it lies in.
class StampTaker {
public:
    StampTaker(FileSystem& fileSystem, std::string path, FileDescriptor root)
        : m_fileSystem(fileSystem), m_path(std::move(path)), m_cursor(fileSystem, std::move(root)) {}

    Expected<PackageStamp, DiskFailure> take() {
        SystemResult<void> result = look();
        while (result && !m_levels.empty()) {
            result = step();
        }
        if (!result) {
            return unexpected(diskFailure(m_below.empty() ? m_path : m_path + "/" + m_below, result.error()));
        }
        return std::move(m_stamp);
    }

private:
    /// A folder on the way from the root to where the cursor stands.
    struct Level {
        std::vector<std::string> folders; ///< still to be walked
        std::size_t pathLength = 0;
    };

    /// Takes down the files of the cursor's folder.
    SystemResult<void> look() {
        const SystemResult<std::vector<FolderEntry>> entries = m_fileSystem.list(m_cursor.folder());
        if (!entries) {
            return unexpected(entries.error());
        }
        Level level{{}, m_below.size()};
        for (const FolderEntry& entry : *entries) {
            if (entry.kind == NodeKind::folder) {
                level.folders.push_back(entry.name);
            } else if (entry.kind == NodeKind::regularFile) {
                const SystemResult<NodeStatus> status = m_fileSystem.statusAt(m_cursor.folder(), entry.name);
                if (status) {
                    m_stamp.files.emplace(m_below + entry.name, status->identity);
                    m_stamp.changeTimes.emplace(m_below + entry.name, status->changed);
                } else if (status.error() != ENOENT) { // gone since it was listed
                    m_below += entry.name;
                    return unexpected(status.error());
                }
            }
        }
        m_levels.push_back(std::move(level));
        return {};
    }

    SystemResult<void> step() {
        Level& level = m_levels.back();
        m_below.resize(level.pathLength);
        if (level.folders.empty()) {
            m_levels.pop_back();
            return m_levels.empty() ? SystemResult<void>() : m_cursor.leave().map([](const auto&) {});
        }
        const std::string name = std::move(level.folders.back());
        level.folders.pop_back();
        m_below += name;
        if (const SystemResult<void> entered = m_cursor.enter(name); !entered) {
            return entered.error() == ENOENT ? SystemResult<void>() : entered;
        }
        m_below += "/";
        return look();
    }

    FileSystem& m_fileSystem;
    std::string m_path;
    FolderCursor m_cursor;
    std::string m_below; ///< the way from the root to the cursor's folder, with a "/" at its end; after a
                         ///< failure to what failed
    std::vector<Level> m_levels;
    PackageStamp m_stamp;
};

} // namespace

std::uint64_t PackageStamp::mark() const {
    Hash hash;
    for (const auto& [path, identity] : files) {
        hash.add(path.size());
        hash.add(path);
        hash.add(identity.device);
        hash.add(identity.inode);
        hash.add(identity.size);
        hash.add(static_cast<std::uint64_t>(identity.modified));
    }
    return hash.value();
}

Expected<PackageStamp, DiskFailure> packageStamp(const std::string& path, FileSystem& fileSystem) {
    if (path.find('\0') != std::string::npos) {
        return unexpected(diskFailure(path, EINVAL));
    }
    SystemResult<FileDescriptor> root = fileSystem.openRoot(path);
    if (!root) {
        return unexpected(diskFailure(path, root.error()));
    }
    return packageStamp(std::move(*root), path, fileSystem);
}

Expected<PackageStamp, DiskFailure> packageStamp(FileDescriptor folder, const std::string& path,
                                                 FileSystem& fileSystem) {
    return StampTaker(fileSystem, path, std::move(folder)).take();
}

} // namespace quillon
