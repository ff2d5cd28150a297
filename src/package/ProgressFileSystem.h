#pragma once

#include "base/FileSystem.h"

#include <atomic>
#include <cstdint>

namespace quillon {

/// How far a read has come, and whether it should go on; shared by the thread that reads and the one that
/// waits for it.
struct ReadProgress {
    std::atomic<std::uint64_t> bytesRead = 0;
    std::atomic<bool> isCancelled = false; ///< once set, every read and every list fails with ECANCELED
};

/// Another file system that keeps account of what is read. Files come in pieces, so that neither account nor
/// cancelling waits for the end of a large one.
class ProgressFileSystem : public FileSystem {
public:
    /// Both must outlive this.
    ProgressFileSystem(FileSystem& base, ReadProgress& progress) : m_base(base), m_progress(progress) {}

    SystemResult<std::string> resolve(const std::string& path) override;
    SystemResult<FileDescriptor> openRoot(const std::string& path) override;
    SystemResult<FileDescriptor> openFolder(int folder, const std::string& name) override;
    SystemResult<FileDescriptor> openFile(int folder, const std::string& name) override;
    SystemResult<NodeStatus> status(int file) override;
    SystemResult<NodeStatus> statusAt(int folder, const std::string& name) override;
    SystemResult<std::vector<FolderEntry>> list(int folder) override;
    SystemResult<std::size_t> read(int file, char* buffer, std::size_t size) override;
    SystemResult<FileDescriptor> createFile(int folder, const std::string& name, unsigned mode) override;
    SystemResult<void> makeFolder(int folder, const std::string& name, unsigned mode) override;
    SystemResult<std::size_t> write(int file, std::string_view text) override;
    SystemResult<void> link(int folder, const std::string& name, int newFolder) override;
    SystemResult<void> clone(int from, int to) override;
    SystemResult<void> setAccess(int file, const NodeStatus& like) override;
    SystemResult<void> setModified(int file, std::int64_t modified) override;
    SystemResult<void> sync(int file) override;
    SystemResult<void> rename(int folder, const std::string& from, const std::string& to,
                              RenameRule rule) override;
    SystemResult<void> unlink(int folder, const std::string& name) override;
    SystemResult<void> removeFolder(int folder, const std::string& name) override;
    SystemResult<void> lock(int folder) override;

private:
    FileSystem& m_base;
    ReadProgress& m_progress;
};

} // namespace quillon
