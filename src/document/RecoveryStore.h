#pragma once

#include "base/DiskFailure.h"
#include "base/Expected.h"
#include "base/FileSystem.h"
#include "model/ArticleDocument.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillon {

/// What stands beside a recovery copy.
struct RecoveryInfo {
    std::optional<std::string> packagePath; ///< nothing for a document never saved
    std::uint64_t packageMark = 0;          ///< PackageStamp::mark of the folder as the document knew it
    std::string title;                      ///< of the article, when the copy was begun
    double time = 0;                        ///< of the last write, in seconds since 1970

    bool operator==(const RecoveryInfo&) const = default;
};

/// The recovery copy of one open document: the article as it was at the last write, without assets. It stands
/// in a folder of its own, locked as long as this object lives, so that no other program takes it for that of
/// a program that crashed. It may be used from any thread, by one at a time.
///
/// The folder holds one file, a journal: where the article belongs, the article at some moment, and the
/// changes since, one for each write. A change that a crash cut short is passed over. When the changes
/// outgrow the article, a new journal takes the place of the old one.
class RecoveryCopy {
public:
    ~RecoveryCopy();
    RecoveryCopy(const RecoveryCopy&) = delete;
    RecoveryCopy& operator=(const RecoveryCopy&) = delete;

    /// Makes the copy hold `article`, safe on disk when it returns. Writes what changed since the last write.
    /// `info.title` and `info.time` need not be filled in.
    Expected<void, DiskFailure> write(const ArticleDocument& article, const RecoveryInfo& info);

    /// Removes the copy from disk; a later write makes it anew.
    void remove();

    /// Whether there may be something to remove.
    bool isOnDisk() const;

    std::uint64_t bytesWritten() const; ///< by all writes so far

private:
    friend class RecoveryStore;
    friend class LeftRecoveryCopy;
    struct Parts;
    explicit RecoveryCopy(std::unique_ptr<Parts> parts);

    std::unique_ptr<Parts> m_parts;
};

/// A copy that a crashed program left. It is locked for this one until it goes.
class LeftRecoveryCopy {
public:
    LeftRecoveryCopy(LeftRecoveryCopy&&) noexcept;
    LeftRecoveryCopy& operator=(LeftRecoveryCopy&&) noexcept;
    ~LeftRecoveryCopy();

    const RecoveryInfo& info() const;

    /// The article as it was at the last write that reached the disk.
    Expected<ArticleDocument, DiskFailure> article() const;

    /// Goes on with the copy for the document that was made from it; `article` is what it holds. This object
    /// must not be used any more.
    std::unique_ptr<RecoveryCopy> adopt(const ArticleDocument& article);

    /// Removes the copy from disk.
    void discard();

private:
    friend class RecoveryStore;
    struct Parts;
    explicit LeftRecoveryCopy(std::unique_ptr<Parts> parts);

    std::unique_ptr<Parts> m_parts;
};

/// The folder in which the recovery copies of all documents stand, of this program and of others running
/// beside it.
class RecoveryStore {
public:
    /// `folder` is made when it is first needed.
    explicit RecoveryStore(std::string folder, FileSystem& fileSystem = systemFileSystem());

    /// A place for the copy of a document; nothing is on disk before its first write.
    std::unique_ptr<RecoveryCopy> newCopy() const;

    /// The copies that no running program owns, the latest first, up to a number that no program leaves.
    /// Those that hold nothing to recover are removed on the way, unless they hold files of others. A folder
    /// that cannot be read gives none. Reads no article.
    std::vector<LeftRecoveryCopy> leftCopies() const;

private:
    std::optional<LeftRecoveryCopy> leftCopy(const FileDescriptor& store, const std::string& name) const;

    std::string m_folder;
    FileSystem* m_fileSystem;
};

} // namespace quillon
