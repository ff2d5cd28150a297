#include "package/FolderBuilder.h"

#include "base/FolderCursor.h"

#include <cerrno>

namespace quillon {

namespace {

using Outcome = Expected<void, DiskFailure>;

constexpr unsigned newFileMode = 0666;
constexpr unsigned newFolderMode = 0777;
constexpr unsigned privateFileMode = 0600; ///< until the file has the mode of the one it stands for

/// Follows the cursor in the new folder through the old one, as far as that has the same folders.
class OldFolder {
public:
    OldFolder(FileSystem& fileSystem, std::optional<FileDescriptor> root) : m_fileSystem(&fileSystem) {
        if (root) {
            m_cursor.emplace(fileSystem, std::move(*root));
        }
    }

    bool isPresent() const { return m_cursor && m_missingLevels == 0; }
    int folder() const { return m_cursor->folder(); }

    void enter(const std::string& name) {
        if (!isPresent() || !m_cursor->enter(name)) {
            ++m_missingLevels;
        }
    }

    void leave() {
        if (m_missingLevels > 0) {
            --m_missingLevels;
        } else if (m_cursor && !m_cursor->leave()) {
            m_cursor.reset();
        }
    }

    /// The status of the folder it stands at.
    std::optional<NodeStatus> status() const {
        if (!isPresent()) {
            return std::nullopt;
        }
        return optional(m_fileSystem->status(folder()));
    }

    /// The status of a regular file in it.
    std::optional<NodeStatus> fileStatus(const std::string& name) const {
        if (!isPresent()) {
            return std::nullopt;
        }
        std::optional<NodeStatus> found = optional(m_fileSystem->statusAt(folder(), name));
        return found && found->kind == NodeKind::regularFile ? found : std::nullopt;
    }

private:
    static std::optional<NodeStatus> optional(const SystemResult<NodeStatus>& result) {
        return result ? std::optional(*result) : std::nullopt;
    }

    FileSystem* m_fileSystem;
    std::optional<FolderCursor> m_cursor;
    std::size_t m_missingLevels = 0;
};

class FolderBuilder {
public:
    FolderBuilder(FileSystem& fileSystem, std::string path, FileDescriptor made,
                  std::optional<FileDescriptor> old)
        : m_fileSystem(fileSystem), m_path(std::move(path)), m_made(fileSystem, std::move(made)),
          m_old(fileSystem, std::move(old)) {}

    Expected<BuiltFolder, DiskFailure> build(const FileWrapper& tree) {
        begin(*tree.fileWrappers());
        while (!m_levels.empty()) {
            const Outcome outcome = step();
            if (!outcome) {
                return unexpected(outcome.error());
            }
        }
        return std::move(m_built);
    }

private:
    /// A folder on the way from the root to where the work is.
    struct Level {
        FileWrapper::Children::const_iterator next;
        FileWrapper::Children::const_iterator end;
        std::size_t pathLength;
        std::optional<NodeStatus> old;
    };

    /// A finished file or folder that has yet to be flushed.
    struct Finished {
        FileDescriptor descriptor;
        std::string path;
        std::optional<Bytes> bytes; ///< of a file
    };

    void begin(const FileWrapper::Children& children) {
        m_levels.push_back({children.begin(), children.end(), m_path.size(), m_old.status()});
    }

    Outcome step() {
        Level& level = m_levels.back();
        m_path.resize(level.pathLength);
        if (level.next == level.end) {
            return finishFolder();
        }
        const auto& [name, wrapper] = *level.next++;
        m_path += "/" + name;
        if (!isSafePathPiece(name)) {
            return unexpected(diskFailure(m_path, EINVAL, "cannot be the name of a file or folder"));
        }
        if (wrapper.isDirectory()) {
            return beginFolder(name, *wrapper.fileWrappers());
        }
        return wrapper.isRegularFile() ? placeFile(name, wrapper) : Outcome();
    }

    Outcome beginFolder(const std::string& name, const FileWrapper::Children& children) {
        SystemResult<void> entered = m_fileSystem.makeFolder(m_made.folder(), name, newFolderMode);
        if (entered) {
            entered = m_made.enter(name);
        }
        if (!entered) {
            return failure(entered);
        }
        m_old.enter(name);
        begin(children);
        return {};
    }

    Outcome finishFolder() {
        const std::optional<NodeStatus> like = m_levels.back().old;
        m_levels.pop_back();
        if (m_levels.empty()) {
            if (const SystemResult<void> set = setAccess(m_made.folder(), like); !set) {
                return failure(set);
            }
            Outcome flushed = flush();
            const SystemResult<void> synced =
                flushed ? m_fileSystem.sync(m_made.folder()) : SystemResult<void>();
            return synced ? flushed : failure(synced);
        }
        SystemResult<FileDescriptor> left = m_made.leave();
        if (!left) {
            return failure(left);
        }
        m_old.leave();
        const SystemResult<void> set = setAccess(left->number(), like);
        return set ? keep(std::move(*left), std::nullopt) : failure(set);
    }

    SystemResult<void> setAccess(int descriptor, const std::optional<NodeStatus>& like) {
        return like ? m_fileSystem.setAccess(descriptor, *like) : SystemResult<void>();
    }

    Outcome placeFile(const std::string& name, const FileWrapper& wrapper) {
        const Expected<std::optional<Bytes>, DiskFailure> contents = wrapper.regularFileContents();
        if (!contents) {
            return unexpected(contents.error());
        }
        const Bytes& bytes = **contents;
        const std::optional<NodeStatus> old = m_old.fileStatus(name);
        if (old && bytes.origin() == old->identity) {
            const SystemResult<bool> linked = link(name, *old);
            if (!linked) {
                return failure(linked);
            }
            if (*linked) {
                ++m_built.report.filesLinked;
                return {};
            }
            SystemResult<std::optional<FileDescriptor>> copy = clone(name, *old);
            if (!copy) {
                return failure(copy);
            }
            if (*copy) {
                ++m_built.report.filesCloned;
                return keep(std::move(**copy), bytes);
            }
        }
        return write(name, old, bytes);
    }

    /// Returns whether the new folder holds the file now. Where it does not, the file can still be written;
    /// an error is one that leaves the name taken.
    SystemResult<bool> link(const std::string& name, const NodeStatus& old) {
        if (!m_fileSystem.link(m_old.folder(), name, m_made.folder())) {
            return false;
        }
        // The name may have come to stand for another file since it was looked at.
        const SystemResult<NodeStatus> linked = m_fileSystem.statusAt(m_made.folder(), name);
        if (linked && linked->identity == old.identity) {
            return true;
        }
        return m_fileSystem.unlink(m_made.folder(), name).map([] { return false; });
    }

    /// The same with a file of its own that shares the contents, where the file system can.
    SystemResult<std::optional<FileDescriptor>> clone(const std::string& name, const NodeStatus& old) {
        if (!m_canClone) {
            return std::nullopt;
        }
        const SystemResult<FileDescriptor> from = m_fileSystem.openFile(m_old.folder(), name);
        if (!from) {
            return std::nullopt;
        }
        SystemResult<FileDescriptor> to = m_fileSystem.createFile(m_made.folder(), name, privateFileMode);
        if (!to) {
            return unexpected(to.error());
        }
        m_canClone = m_fileSystem.clone(from->number(), to->number()).has_value();
        if (m_canClone && m_fileSystem.setAccess(to->number(), old) &&
            m_fileSystem.setModified(to->number(), old.identity.modified)) {
            const SystemResult<NodeStatus> after = m_fileSystem.status(from->number());
            if (after && after->identity == old.identity) {
                return std::move(*to);
            }
        }
        if (const SystemResult<void> removed = m_fileSystem.unlink(m_made.folder(), name); !removed) {
            return unexpected(removed.error());
        }
        return std::nullopt;
    }

    Outcome write(const std::string& name, const std::optional<NodeStatus>& old, const Bytes& bytes) {
        SystemResult<FileDescriptor> file =
            m_fileSystem.createFile(m_made.folder(), name, old ? privateFileMode : newFileMode);
        if (!file) {
            return failure(file);
        }
        for (std::string_view rest = bytes.view(); !rest.empty();) {
            const SystemResult<std::size_t> count = m_fileSystem.write(file->number(), rest);
            if (!count) {
                return failure(count);
            }
            rest.remove_prefix(*count);
        }
        if (const SystemResult<void> set = setAccess(file->number(), old); !set) {
            return failure(set);
        }
        ++m_built.report.filesWritten;
        m_built.report.bytesWritten += bytes.size();
        return keep(std::move(*file), bytes);
    }

    /// Keeps what is finished open to flush it together with the rest: the first flush of many carries most
    /// of the work of all, as long as nothing changes in between.
    Outcome keep(FileDescriptor descriptor, const std::optional<Bytes>& bytes) {
        constexpr std::size_t batch = 128;
        m_finished.push_back({std::move(descriptor), m_path, bytes});
        return m_finished.size() < batch ? Outcome() : flush();
    }

    Outcome flush() {
        for (const Finished& each : m_finished) {
            const SystemResult<void> synced = m_fileSystem.sync(each.descriptor.number());
            if (!synced) {
                return unexpected(diskFailure(each.path, synced.error()));
            }
            if (!each.bytes) {
                continue;
            }
            const SystemResult<NodeStatus> status = m_fileSystem.status(each.descriptor.number());
            if (!status) {
                return unexpected(diskFailure(each.path, status.error()));
            }
            m_built.origins.emplace_back(*each.bytes, status->identity);
        }
        m_finished.clear();
        return {};
    }

    template <typename Value>
    Outcome failure(const SystemResult<Value>& result) const {
        return unexpected(diskFailure(m_path, result.error()));
    }

    FileSystem& m_fileSystem;
    std::string m_path; ///< of the file or folder at work
    FolderCursor m_made;
    OldFolder m_old;
    std::vector<Level> m_levels;
    std::vector<Finished> m_finished;
    BuiltFolder m_built;
    bool m_canClone = true;
};

} // namespace

Expected<BuiltFolder, DiskFailure> buildFolder(FileSystem& fileSystem, const FileWrapper& tree,
                                               const std::string& path, FileDescriptor made,
                                               std::optional<FileDescriptor> old) {
    return FolderBuilder(fileSystem, path, std::move(made), std::move(old)).build(tree);
}

} // namespace quillon
