#pragma once

#include "base/DiskFailure.h"
#include "base/Expected.h"
#include "base/FileSystem.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

/// A journal in the folder of a recovery copy. Of several that a crash left the one of the highest number is
/// the latest.
struct JournalFile {
    std::uint64_t number = 0;
    FileDescriptor file;
    std::uint64_t size = 0; ///< bytes
};

/// The locked folder of one recovery copy, and the steps on disk that a copy is made of: each leaves the old
/// state or the new one, wherever it is stopped.
class RecoveryFolder {
public:
    /// Makes a new folder below the one at `store`, which is made as well where it is missing.
    static Expected<RecoveryFolder, DiskFailure> make(FileSystem& fileSystem, const std::string& store);

    /// Takes over the folder `name` below an open one; nothing where a running program owns it, and where it
    /// is none of ours.
    static std::optional<RecoveryFolder> take(FileSystem& fileSystem, const std::string& store,
                                              const FileDescriptor& storeFolder, const std::string& name);

    /// Whether a folder below the store may be that of a copy.
    static bool isName(std::string_view name);

    const std::string& path() const { return m_path; }
    FileSystem& fileSystem() const { return *m_fileSystem; }

    /// Whether somebody removed the folder, or the journal of that number. A look that fails says no.
    bool isGone() const;
    bool lacks(std::uint64_t journal) const;

    /// Numbers of the journals, the latest first.
    SystemResult<std::vector<std::uint64_t>> journals() const;
    /// A journal, not larger than any that is written.
    Expected<std::string, DiskFailure> read(std::uint64_t journal, std::size_t most) const;
    SystemResult<NodeStatus> status(std::uint64_t journal) const;

    /// Writes a new journal beside the others, then removes those. It stays open for more.
    Expected<JournalFile, DiskFailure> begin(std::string_view contents);
    /// Adds to a journal. After a failure its end may be in pieces.
    Expected<void, DiskFailure> append(JournalFile& journal, std::string_view text);

    /// Removes journals and folder. Where the folder holds anything else it does nothing and returns false.
    bool remove();

private:
    RecoveryFolder(FileSystem& fileSystem, std::string path, std::string name);
    SystemResult<void> writeAll(int file, std::string_view text);
    SystemResult<JournalFile> write(std::string_view contents);
    SystemResult<void> publish();

    FileSystem* m_fileSystem;
    std::string m_path; ///< for messages
    std::string m_name;
    FileDescriptor m_store;
    FileDescriptor m_folder;
    std::uint64_t m_latest = 0; ///< number of the last journal, also of one that failed
};

} // namespace quillon
