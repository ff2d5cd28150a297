#pragma once

#include "base/Bytes.h"
#include "base/Expected.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillon {

enum class NodeKind { folder, regularFile, other };

struct NodeStatus {
    NodeKind kind = NodeKind::other;
    FileIdentity identity;
    std::int64_t changed = 0; ///< when the system last noted a change, of a link too; nanoseconds since 1970
    unsigned mode = 0;        ///< permission bits, up to 07777
    unsigned owner = 0;
    unsigned group = 0;
};

struct FolderEntry {
    std::string name;
    NodeKind kind = NodeKind::other;
};

/// Owns an open file or folder and closes it.
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int number) : m_number(number) {}
    FileDescriptor(FileDescriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(m_number, other.m_number);
        return *this;
    }
    ~FileDescriptor();

    int number() const { return m_number; }

private:
    int m_number = -1;
};

/// A value, or the error number of the system.
template <typename Value>
using SystemResult = Expected<Value, int>;

enum class RenameRule {
    noReplace, ///< fails with EEXIST where the new name is taken
    exchange,  ///< both names exist and swap in one step; EINVAL where the file system cannot
};

/// Everything a package on disk is read and saved with, so that a test can make any single step fail. But for
/// `resolve` and `openRoot`, names are single path pieces below an open folder, and symbolic links are never
/// followed.
class FileSystem {
public:
    virtual ~FileSystem() = default;

    /// The absolute path of something that exists, with all symbolic links followed.
    virtual SystemResult<std::string> resolve(const std::string& path) = 0;
    virtual SystemResult<FileDescriptor> openRoot(const std::string& path) = 0;

    virtual SystemResult<FileDescriptor> openFolder(int folder, const std::string& name) = 0;
    /// For reading; returns at once for a pipe, too.
    virtual SystemResult<FileDescriptor> openFile(int folder, const std::string& name) = 0;
    virtual SystemResult<NodeStatus> status(int file) = 0;
    virtual SystemResult<NodeStatus> statusAt(int folder, const std::string& name) = 0;
    /// All entries but "." and "..", in any order.
    virtual SystemResult<std::vector<FolderEntry>> list(int folder) = 0;
    /// Fills up to `size` bytes and returns their number, 0 at the end of the file.
    virtual SystemResult<std::size_t> read(int file, char* buffer, std::size_t size) = 0;

    /// Makes a new file for writing; `mode` is narrowed by the process's mask. EEXIST where the name is
    /// taken.
    virtual SystemResult<FileDescriptor> createFile(int folder, const std::string& name, unsigned mode) = 0;
    virtual SystemResult<void> makeFolder(int folder, const std::string& name, unsigned mode) = 0;
    /// Returns the number of bytes written, at least 1 of a text that is not empty.
    virtual SystemResult<std::size_t> write(int file, std::string_view text) = 0;
    virtual SystemResult<void> link(int folder, const std::string& name, int newFolder) = 0;
    /// Makes the empty file `to` share the blocks of `from`, where the file system can.
    virtual SystemResult<void> clone(int from, int to) = 0;
    /// Gives a file the permissions of another and, as far as the process may, its owner and group.
    virtual SystemResult<void> setAccess(int file, const NodeStatus& like) = 0;
    /// Nanoseconds since 1970.
    virtual SystemResult<void> setModified(int file, std::int64_t modified) = 0;
    /// Flushes a file or a folder to the device.
    virtual SystemResult<void> sync(int file) = 0;

    virtual SystemResult<void> rename(int folder, const std::string& from, const std::string& to,
                                      RenameRule rule) = 0;
    virtual SystemResult<void> unlink(int folder, const std::string& name) = 0;
    virtual SystemResult<void> removeFolder(int folder, const std::string& name) = 0;

    /// Locks a folder for this descriptor until it is closed or its process ends; EWOULDBLOCK where another
    /// descriptor has it.
    virtual SystemResult<void> lock(int folder) = 0;
};

/// The file system of the machine; has no state and may be used from any thread.
FileSystem& systemFileSystem();

} // namespace quillon
