#include "document/RecoveryStore.h"

#include "document/ArticleChange.h"
#include "document/RecoveryFolder.h"
#include "document/RecoveryJournal.h"

#include <algorithm>
#include <cerrno>
#include <new>
#include <stdexcept>
#include <utility>

namespace quillon {

namespace {

constexpr std::size_t largestJournal = std::size_t{1} << 30; // bytes
constexpr std::uint64_t smallArticle = 64 << 10;             // bytes; changes to it may take as much
constexpr std::size_t mostLeftCopies = 100;

DiskFailure notFinite(const std::string& path, const EncodeFailure& failure) {
    return diskFailure(path, EINVAL, failure.message);
}

bool isSamePlace(const RecoveryInfo& left, const RecoveryInfo& right) {
    return left.packagePath == right.packagePath && left.packageMark == right.packageMark;
}

} // namespace

struct RecoveryCopy::Parts {
    FileSystem* fileSystem;
    std::string store;
    std::optional<RecoveryFolder> folder;
    std::optional<JournalFile> journal;     ///< open for more changes
    std::uint64_t articleSize = 0;          ///< bytes of it at the journal's beginning
    std::optional<ArticleDocument> written; ///< what is safe on disk
    RecoveryInfo info;                      ///< written with it
    std::uint64_t bytesWritten = 0;

    void forgetWhatIsGone();
    Expected<void, DiskFailure> begin(const ArticleDocument& article, const RecoveryInfo& place);
    Expected<bool, DiskFailure> append(const ArticleChange& change);
};

/// Somebody may have cleared away what was written: it is not left to the luck of the next crash.
void RecoveryCopy::Parts::forgetWhatIsGone() {
    if (journal && folder->lacks(journal->number)) {
        journal.reset();
        written.reset();
    }
    if (folder && folder->isGone()) {
        journal.reset();
        written.reset();
        folder.reset();
    }
}

/// Writes a new journal.
Expected<void, DiskFailure> RecoveryCopy::Parts::begin(const ArticleDocument& article,
                                                       const RecoveryInfo& place) {
    journal.reset();
    const auto json = sharedArticleEncoder.encode(article);
    if (!json) {
        return unexpected(notFinite(store, json.error()));
    }
    if (!folder) {
        Expected<RecoveryFolder, DiskFailure> made = RecoveryFolder::make(*fileSystem, store);
        if (!made) {
            return unexpected(made.error());
        }
        folder = std::move(*made);
    }
    const std::string text = journalBeginning({place.packagePath, place.packageMark, article.title}, *json);
    Expected<JournalFile, DiskFailure> begun = folder->begin(text);
    if (!begun) {
        return unexpected(begun.error());
    }
    journal = std::move(*begun);
    articleSize = text.size();
    bytesWritten += text.size();
    written = article;
    info = place;
    return {};
}

/// Adds a change to the journal; false where it takes a new journal.
Expected<bool, DiskFailure> RecoveryCopy::Parts::append(const ArticleChange& change) {
    if (!journal) {
        return false;
    }
    const auto line = writeChange(change);
    if (!line) {
        return unexpected(notFinite(folder->path(), line.error()));
    }
    const std::string record = changeRecord(*line);
    const std::uint64_t changes = journal->size - articleSize + record.size();
    if (changes > std::max(articleSize, smallArticle)) {
        return false;
    }
    if (Expected<void, DiskFailure> added = folder->append(*journal, record); !added) {
        journal.reset(); // nothing that follows a piece of a change would be found
        return unexpected(added.error());
    }
    bytesWritten += record.size();
    return true;
}

RecoveryCopy::RecoveryCopy(std::unique_ptr<Parts> parts) : m_parts(std::move(parts)) {}
RecoveryCopy::~RecoveryCopy() = default;

Expected<void, DiskFailure> RecoveryCopy::write(const ArticleDocument& article, const RecoveryInfo& info) {
    Parts& parts = *m_parts;
    parts.forgetWhatIsGone();
    if (parts.written && isSamePlace(parts.info, info)) {
        const ArticleChange change = changeBetween(*parts.written, article);
        const Expected<bool, DiskFailure> added = change.empty() ? true : parts.append(change);
        if (!added) {
            return unexpected(added.error());
        }
        if (*added) {
            parts.written = article;
            return {};
        }
    }
    return parts.begin(article, info);
}

void RecoveryCopy::remove() {
    Parts& parts = *m_parts;
    if (parts.folder) {
        parts.folder->remove();
    }
    parts.folder.reset();
    parts.journal.reset();
    parts.written.reset();
}

bool RecoveryCopy::isOnDisk() const {
    return m_parts->folder.has_value();
}

std::uint64_t RecoveryCopy::bytesWritten() const {
    return m_parts->bytesWritten;
}

struct LeftRecoveryCopy::Parts {
    std::string store;
    RecoveryFolder folder;
    RecoveryInfo info;
    std::vector<std::uint64_t> journals; ///< the latest first
};

LeftRecoveryCopy::LeftRecoveryCopy(std::unique_ptr<Parts> parts) : m_parts(std::move(parts)) {}
LeftRecoveryCopy::LeftRecoveryCopy(LeftRecoveryCopy&&) noexcept = default;
LeftRecoveryCopy& LeftRecoveryCopy::operator=(LeftRecoveryCopy&&) noexcept = default;
LeftRecoveryCopy::~LeftRecoveryCopy() = default;

const RecoveryInfo& LeftRecoveryCopy::info() const {
    return m_parts->info;
}

Expected<ArticleDocument, DiskFailure> LeftRecoveryCopy::article() const try {
    DiskFailure failure = diskFailure(m_parts->folder.path(), EIO, "the recovery copy is damaged");
    for (const std::uint64_t number : m_parts->journals) {
        const auto journal = m_parts->folder.read(number, largestJournal);
        if (!journal) {
            failure = journal.error();
        } else if (auto article = readJournalArticle(*journal)) {
            return std::move(*article);
        }
    }
    return unexpected(std::move(failure));
} catch (const std::bad_alloc&) {
    return unexpected(diskFailure(m_parts->folder.path(), ENOMEM));
} catch (const std::length_error&) {
    return unexpected(diskFailure(m_parts->folder.path(), ENOMEM));
}

std::unique_ptr<RecoveryCopy> LeftRecoveryCopy::adopt(const ArticleDocument& article) {
    auto parts = std::make_unique<RecoveryCopy::Parts>();
    parts->fileSystem = &m_parts->folder.fileSystem();
    parts->store = m_parts->store;
    parts->folder = std::move(m_parts->folder);
    parts->written = article;
    parts->info = m_parts->info;
    m_parts.reset();
    return std::unique_ptr<RecoveryCopy>(new RecoveryCopy(std::move(parts)));
}

void LeftRecoveryCopy::discard() {
    if (m_parts) {
        m_parts->folder.remove();
        m_parts.reset();
    }
}

RecoveryStore::RecoveryStore(std::string folder, FileSystem& fileSystem)
    : m_folder(std::move(folder)), m_fileSystem(&fileSystem) {}

std::unique_ptr<RecoveryCopy> RecoveryStore::newCopy() const {
    auto parts = std::make_unique<RecoveryCopy::Parts>();
    parts->fileSystem = m_fileSystem;
    parts->store = m_folder;
    return std::unique_ptr<RecoveryCopy>(new RecoveryCopy(std::move(parts)));
}

std::optional<LeftRecoveryCopy> RecoveryStore::leftCopy(const FileDescriptor& store,
                                                        const std::string& name) const {
    std::optional<RecoveryFolder> folder = RecoveryFolder::take(*m_fileSystem, m_folder, store, name);
    const auto journals = folder ? folder->journals() : unexpected(ENOENT);
    if (!journals) {
        return std::nullopt;
    }
    bool areAllRead = true;
    for (const std::uint64_t number : *journals) {
        const auto status = folder->status(number);
        const auto beginning = folder->read(number, longestJournalHead);
        if (!status || !beginning) {
            areAllRead = false;
            continue;
        }
        if (auto head = readJournalHead(*beginning, status->identity.size)) {
            constexpr double nanosecond = 1e-9;
            RecoveryInfo info{std::move(head->packagePath), head->packageMark, std::move(head->title),
                              static_cast<double>(status->identity.modified) * nanosecond};
            return LeftRecoveryCopy(std::make_unique<LeftRecoveryCopy::Parts>(
                LeftRecoveryCopy::Parts{m_folder, std::move(*folder), std::move(info), *journals}));
        }
    }
    if (areAllRead) {
        folder->remove();
    }
    return std::nullopt;
}

std::vector<LeftRecoveryCopy> RecoveryStore::leftCopies() const {
    const auto store = m_fileSystem->openRoot(m_folder);
    const auto entries = store ? m_fileSystem->list(store->number()) : unexpected(store.error());
    std::vector<LeftRecoveryCopy> copies;
    if (!entries) {
        return copies;
    }
    for (const FolderEntry& entry : *entries) {
        if (copies.size() == mostLeftCopies) {
            break;
        }
        if (entry.kind == NodeKind::folder && RecoveryFolder::isName(entry.name)) {
            if (auto copy = leftCopy(*store, entry.name)) {
                copies.push_back(std::move(*copy));
            }
        }
    }
    std::sort(copies.begin(), copies.end(), [](const LeftRecoveryCopy& left, const LeftRecoveryCopy& right) {
        return left.info().time > right.info().time;
    });
    return copies;
}

} // namespace quillon
