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
    OldFolder(FileSystem& fileSystem, std::optional<FileDescriptor> root) : fileSystem_(&fileSystem) {
        if (root)
            cursor_.emplace(fileSystem, std::move(*root));
    }

    bool isPresent() const { return cursor_ && missingLevels_ == 0; }
    int folder() const { return cursor_->folder(); }

    void enter(const std::string& name) {
        if (!isPresent() || !cursor_->enter(name))
            ++missingLevels_;
    }

    void leave() {
        if (missingLevels_ > 0)
            --missingLevels_;
        else if (cursor_ && !cursor_->leave())
            cursor_.reset();
    }

    /// The status of the folder it stands at.
    std::optional<NodeStatus> status() const {
        if (!isPresent())
            return std::nullopt;
        return optional(fileSystem_->status(folder()));
    }

    /// The status of a regular file in it.
    std::optional<NodeStatus> fileStatus(const std::string& name) const {
        if (!isPresent())
            return std::nullopt;
        std::optional<NodeStatus> found = optional(fileSystem_->statusAt(folder(), name));
        return found && found->kind == NodeKind::regularFile ? found : std::nullopt;
    }

private:
    static std::optional<NodeStatus> optional(const SystemResult<NodeStatus>& result) {
        return result ? std::optional(*result) : std::nullopt;
    }

    FileSystem* fileSystem_;
    std::optional<FolderCursor> cursor_;
    std::size_t missingLevels_ = 0;
};

class FolderBuilder {
public:
    FolderBuilder(FileSystem& fileSystem, std::string path, FileDescriptor made,
                  std::optional<FileDescriptor> old)
        : fileSystem_(fileSystem), path_(std::move(path)), made_(fileSystem, std::move(made)),
          old_(fileSystem, std::move(old)) {}

    Expected<BuiltFolder, DiskFailure> build(const FileWrapper& tree) {
        begin(*tree.fileWrappers());
        while (!levels_.empty()) {
            const Outcome outcome = step();
            if (!outcome)
                return unexpected(outcome.error());
        }
        return std::move(built_);
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
        levels_.push_back({children.begin(), children.end(), path_.size(), old_.status()});
    }

    Outcome step() {
        Level& level = levels_.back();
        path_.resize(level.pathLength);
        if (level.next == level.end)
            return finishFolder();
        const auto& [name, wrapper] = *level.next++;
        path_ += "/" + name;
        if (!isSafePathPiece(name))
            return unexpected(diskFailure(path_, EINVAL, "cannot be the name of a file or folder"));
        if (wrapper.isDirectory())
            return beginFolder(name, *wrapper.fileWrappers());
        return wrapper.isRegularFile() ? placeFile(name, wrapper) : Outcome();
    }

    Outcome beginFolder(const std::string& name, const FileWrapper::Children& children) {
        SystemResult<void> entered = fileSystem_.makeFolder(made_.folder(), name, newFolderMode);
        if (entered)
            entered = made_.enter(name);
        if (!entered)
            return failure(entered);
        old_.enter(name);
        begin(children);
        return {};
    }

    Outcome finishFolder() {
        const std::optional<NodeStatus> like = levels_.back().old;
        levels_.pop_back();
        if (levels_.empty()) {
            if (const SystemResult<void> set = setAccess(made_.folder(), like); !set)
                return failure(set);
            Outcome flushed = flush();
            const SystemResult<void> synced =
                flushed ? fileSystem_.sync(made_.folder()) : SystemResult<void>();
            return synced ? flushed : failure(synced);
        }
        SystemResult<FileDescriptor> left = made_.leave();
        if (!left)
            return failure(left);
        old_.leave();
        const SystemResult<void> set = setAccess(left->number(), like);
        return set ? keep(std::move(*left), std::nullopt) : failure(set);
    }

    SystemResult<void> setAccess(int descriptor, const std::optional<NodeStatus>& like) {
        return like ? fileSystem_.setAccess(descriptor, *like) : SystemResult<void>();
    }

    Outcome placeFile(const std::string& name, const FileWrapper& wrapper) {
        const Expected<std::optional<Bytes>, DiskFailure> contents = wrapper.regularFileContents();
        if (!contents)
            return unexpected(contents.error());
        const Bytes& bytes = **contents;
        const std::optional<NodeStatus> old = old_.fileStatus(name);
        if (old && bytes.origin() == old->identity) {
            const SystemResult<bool> linked = link(name, *old);
            if (!linked)
                return failure(linked);
            if (*linked) {
                ++built_.report.filesLinked;
                return {};
            }
            SystemResult<std::optional<FileDescriptor>> copy = clone(name, *old);
            if (!copy)
                return failure(copy);
            if (*copy) {
                ++built_.report.filesCloned;
                return keep(std::move(**copy), bytes);
            }
        }
        return write(name, old, bytes);
    }

    /// Returns whether the new folder holds the file now. Where it does not, the file can still be written;
    /// an error is one that leaves the name taken.
    SystemResult<bool> link(const std::string& name, const NodeStatus& old) {
        if (!fileSystem_.link(old_.folder(), name, made_.folder()))
            return false;
        // The name may have come to stand for another file since it was looked at.
        const SystemResult<NodeStatus> linked = fileSystem_.statusAt(made_.folder(), name);
        if (linked && linked->identity == old.identity)
            return true;
        return fileSystem_.unlink(made_.folder(), name).map([] { return false; });
    }

    /// The same with a file of its own that shares the contents, where the file system can.
    SystemResult<std::optional<FileDescriptor>> clone(const std::string& name, const NodeStatus& old) {
        if (!canClone_)
            return std::nullopt;
        const SystemResult<FileDescriptor> from = fileSystem_.openFile(old_.folder(), name);
        if (!from)
            return std::nullopt;
        SystemResult<FileDescriptor> to = fileSystem_.createFile(made_.folder(), name, privateFileMode);
        if (!to)
            return unexpected(to.error());
        canClone_ = fileSystem_.clone(from->number(), to->number()).has_value();
        if (canClone_ && fileSystem_.setAccess(to->number(), old) &&
            fileSystem_.setModified(to->number(), old.identity.modified)) {
            const SystemResult<NodeStatus> after = fileSystem_.status(from->number());
            if (after && after->identity == old.identity)
                return std::move(*to);
        }
        if (const SystemResult<void> removed = fileSystem_.unlink(made_.folder(), name); !removed)
            return unexpected(removed.error());
        return std::nullopt;
    }

    Outcome write(const std::string& name, const std::optional<NodeStatus>& old, const Bytes& bytes) {
        SystemResult<FileDescriptor> file =
            fileSystem_.createFile(made_.folder(), name, old ? privateFileMode : newFileMode);
        if (!file)
            return failure(file);
        for (std::string_view rest = bytes.view(); !rest.empty();) {
            const SystemResult<std::size_t> count = fileSystem_.write(file->number(), rest);
            if (!count)
                return failure(count);
            rest.remove_prefix(*count);
        }
        if (const SystemResult<void> set = setAccess(file->number(), old); !set)
            return failure(set);
        ++built_.report.filesWritten;
        built_.report.bytesWritten += bytes.size();
        return keep(std::move(*file), bytes);
    }

    /// Keeps what is finished open to flush it together with the rest: the first flush of many carries most
    /// of the work of all, as long as nothing changes in between.
    Outcome keep(FileDescriptor descriptor, const std::optional<Bytes>& bytes) {
        constexpr std::size_t batch = 128;
        finished_.push_back({std::move(descriptor), path_, bytes});
        return finished_.size() < batch ? Outcome() : flush();
    }

    Outcome flush() {
        for (const Finished& each : finished_) {
            const SystemResult<void> synced = fileSystem_.sync(each.descriptor.number());
            if (!synced)
                return unexpected(diskFailure(each.path, synced.error()));
            if (!each.bytes)
                continue;
            const SystemResult<NodeStatus> status = fileSystem_.status(each.descriptor.number());
            if (!status)
                return unexpected(diskFailure(each.path, status.error()));
            built_.origins.emplace_back(*each.bytes, status->identity);
        }
        finished_.clear();
        return {};
    }

    template <typename Value>
    Outcome failure(const SystemResult<Value>& result) const {
        return unexpected(diskFailure(path_, result.error()));
    }

    FileSystem& fileSystem_;
    std::string path_; ///< of the file or folder at work
    FolderCursor made_;
    OldFolder old_;
    std::vector<Level> levels_;
    std::vector<Finished> finished_;
    BuiltFolder built_;
    bool canClone_ = true;
};

} // namespace

Expected<BuiltFolder, DiskFailure> buildFolder(FileSystem& fileSystem, const FileWrapper& tree,
                                               const std::string& path, FileDescriptor made,
                                               std::optional<FileDescriptor> old) {
    return FolderBuilder(fileSystem, path, std::move(made), std::move(old)).build(tree);
}

} // namespace quillon
