#include "base/FolderCursor.h"
#include "base/UnicodeText.h"
#include "package/PackageFolder.h"
#include "package/SidePlace.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <memory>
#include <new>
#include <stdexcept>
#include <vector>

namespace quillon {

namespace {

/// Whether a change from now on is sure to change the time as well: the clock that stamps files moves in
/// steps of some milliseconds, so two changes within a step look like one.
bool isSettled(const FileIdentity& identity) {
    constexpr std::int64_t clockStep = 20'000'000;
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count() - identity.modified > clockStep;
}

/// The folders of an opened package, and the way to the files in them.
class FolderReader : public std::enable_shared_from_this<FolderReader> {
public:
    FolderReader(FileSystem& fileSystem, std::string path, FileDescriptor root)
        : m_fileSystem(fileSystem), m_cursor(fileSystem, std::move(root)) {
        m_folders.push_back({std::move(path), 0, 0});
    }

    Expected<FileWrapper, DiskFailure> readTree() {
        const FileWrapper root = FileWrapper::directory();
        std::vector<Pending> pending;
        pending.push_back({root, 0});
        // The folder met last is listed first, so that the cursor's way from one to the next is short.
        while (!pending.empty()) {
            const Pending folder = std::move(pending.back());
            pending.pop_back();
            const Expected<void, DiskFailure> listed = listFolder(folder, pending);
            if (!listed) {
                return unexpected(listed.error());
            }
        }
        return root;
    }

private:
    struct Folder {
        std::string name;   ///< of the root, its path
        std::size_t parent; ///< index in `m_folders`
        std::size_t depth;
    };

    struct Pending {
        FileWrapper wrapper;
        std::size_t folder;
    };

    Expected<void, DiskFailure> listFolder(const Pending& folder, std::vector<Pending>& pending) {
        SystemResult<void> moved = moveTo(folder.folder);
        if (!moved) {
            return unexpected(diskFailure(pathOf(folder.folder), moved.error()));
        }
        const SystemResult<std::vector<FolderEntry>> entries = m_fileSystem.list(m_cursor.folder());
        if (!entries) {
            return unexpected(diskFailure(pathOf(folder.folder), entries.error()));
        }
        FileWrapper parent = folder.wrapper;
        for (const FolderEntry& entry : *entries) {
            if (entry.kind != NodeKind::other && !isValidUtf8(entry.name)) {
                return unexpected(
                    diskFailure(pathOf(folder.folder), EILSEQ, "holds a file whose name is not valid UTF-8"));
            }
            FileWrapper child = wrapperOf(entry, folder.folder);
            child.setPreferredFilename(entry.name);
            parent.addFileWrapper(child);
            if (child.isDirectory()) {
                m_folders.push_back({entry.name, folder.folder, m_folders[folder.folder].depth + 1});
                pending.push_back({child, m_folders.size() - 1});
            }
        }
        return {};
    }

    FileWrapper wrapperOf(const FolderEntry& entry, std::size_t folder) {
        switch (entry.kind) {
        case NodeKind::folder:
            return FileWrapper::directory();
        case NodeKind::regularFile:
            return FileWrapper::regularFile(
                [self = shared_from_this(), folder, name = entry.name] { return self->load(folder, name); });
        case NodeKind::other:
            break;
        }
        return FileWrapper::other();
    }

    /// Takes the cursor to a folder by way of the nearest folder above both.
    SystemResult<void> moveTo(std::size_t target) {
        std::vector<std::size_t> down;
        while (m_here != target) {
            if (m_folders[m_here].depth <= m_folders[target].depth) {
                down.push_back(target);
                target = m_folders[target].parent;
                continue;
            }
            if (const SystemResult<FileDescriptor> left = m_cursor.leave(); !left) {
                return unexpected(left.error());
            }
            m_here = m_folders[m_here].parent;
        }
        for (auto next = down.rbegin(); next != down.rend(); ++next) {
            if (SystemResult<void> entered = m_cursor.enter(m_folders[*next].name); !entered) {
                return entered;
            }
            m_here = *next;
        }
        return {};
    }

    Expected<Bytes, DiskFailure> load(std::size_t folder, const std::string& name) try {
        SystemResult<void> moved = moveTo(folder);
        if (!moved) {
            return unexpected(diskFailure(pathOf(folder), moved.error()));
        }
        const SystemResult<Bytes> bytes = readWhole(name);
        if (!bytes) {
            return unexpected(diskFailure(pathOf(folder) + "/" + name, bytes.error()));
        }
        return *bytes;
    } catch (const std::bad_alloc&) {
        return unexpected(diskFailure(pathOf(folder) + "/" + name, ENOMEM));
    } catch (const std::length_error&) {
        return unexpected(diskFailure(pathOf(folder) + "/" + name, ENOMEM));
    }

    /// The contents of a file in the cursor's folder; EBUSY where the file keeps changing while it is read.
    SystemResult<Bytes> readWhole(const std::string& name) {
        constexpr int attempts = 3;
        for (int attempt = 0; attempt < attempts; ++attempt) {
            SystemResult<Bytes> bytes = readOnce(name);
            if (bytes || bytes.error() != EBUSY) {
                return bytes;
            }
        }
        return unexpected(EBUSY);
    }

    SystemResult<Bytes> readOnce(const std::string& name) {
        const SystemResult<FileDescriptor> file = m_fileSystem.openFile(m_cursor.folder(), name);
        if (!file) {
            return unexpected(file.error());
        }
        const SystemResult<NodeStatus> before = m_fileSystem.status(file->number());
        if (!before) {
            return unexpected(before.error());
        }
        if (before->kind != NodeKind::regularFile) {
            return unexpected(ESTALE);
        }
        std::string text(before->identity.size, '\0');
        std::size_t length = 0;
        while (length < text.size()) {
            const SystemResult<std::size_t> count =
                m_fileSystem.read(file->number(), text.data() + length, text.size() - length);
            if (!count) {
                return unexpected(count.error());
            }
            if (*count == 0) {
                return unexpected(EBUSY);
            }
            length += *count;
        }
        const SystemResult<NodeStatus> after = m_fileSystem.status(file->number());
        if (!after) {
            return unexpected(after.error());
        }
        if (after->identity != before->identity) {
            return unexpected(EBUSY);
        }
        return isSettled(after->identity) ? Bytes(std::move(text), after->identity) : Bytes(std::move(text));
    }

    std::string pathOf(std::size_t folder) const {
        std::vector<std::size_t> names;
        for (; folder != 0; folder = m_folders[folder].parent) {
            names.push_back(folder);
        }
        std::string path = m_folders[0].name;
        for (auto name = names.rbegin(); name != names.rend(); ++name) {
            path += "/" + m_folders[*name].name;
        }
        return path;
    }

    FileSystem& m_fileSystem;
    FolderCursor m_cursor;
    std::vector<Folder> m_folders; ///< the root first, every other after its parent
    std::size_t m_here = 0;        ///< where the cursor stands
};

std::string withoutFinalSlashes(const std::string& path) {
    const std::size_t last = path.find_last_not_of('/');
    return last == std::string::npos ? path : path.substr(0, last + 1);
}

} // namespace

Expected<bool, DiskFailure> recoverInterruptedSave(const std::string& path, FileSystem& fileSystem) {
    const Expected<PackagePlace, DiskFailure> place = findPackagePlace(path, fileSystem);
    if (!place) {
        return unexpected(place.error());
    }
    return putAsideBack(fileSystem, *place);
}

Expected<FileWrapper, DiskFailure> readFolder(const std::string& path, FileSystem& fileSystem) {
    const std::string shown = withoutFinalSlashes(path);
    if (path.find('\0') != std::string::npos) {
        return unexpected(diskFailure(shown, EINVAL));
    }
    SystemResult<FileDescriptor> root = fileSystem.openRoot(path);
    if (!root && root.error() == ENOENT) {
        const Expected<bool, DiskFailure> recovered = recoverInterruptedSave(path, fileSystem);
        if (recovered && *recovered) {
            root = fileSystem.openRoot(path);
        }
    }
    if (!root) {
        return unexpected(diskFailure(shown, root.error()));
    }
    return std::make_shared<FolderReader>(fileSystem, shown, std::move(*root))->readTree();
}

} // namespace quillon
