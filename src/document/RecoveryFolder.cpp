#include "document/RecoveryFolder.h"

#include "base/Uuid.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <functional>
#include <utility>

#include <unistd.h>

namespace quillon {

namespace {

constexpr std::string_view journalPrefix = "journal-1-"; // 1 is the version of its form
constexpr std::string_view unfinishedName = "journal-1-unfinished";
constexpr unsigned privateFolderMode = 0700;
constexpr unsigned privateFileMode = 0600;

std::string journalName(std::uint64_t number) {
    return std::string(journalPrefix) + std::to_string(number);
}

std::optional<std::uint64_t> journalNumber(std::string_view name) {
    constexpr std::uint64_t highest = 1'000'000'000'000'000'000;
    if (!name.starts_with(journalPrefix)) {
        return std::nullopt;
    }
    name.remove_prefix(journalPrefix.size());
    std::uint64_t number = 0;
    const auto result = std::from_chars(name.data(), name.data() + name.size(), number);
    const bool isWhole = result.ec == std::errc() && result.ptr == name.data() + name.size();
    return isWhole && number <= highest ? std::optional(number) : std::nullopt;
}

/// The folder at `path`, made with those above it where it is missing.
SystemResult<FileDescriptor> openOrMake(FileSystem& fileSystem, const std::string& path) {
    SystemResult<FileDescriptor> folder = fileSystem.openRoot(path);
    const std::size_t slash = path.find_last_of('/');
    if (folder || folder.error() != ENOENT || slash == std::string::npos || slash == 0) {
        return folder;
    }
    if (slash + 1 == path.size()) {
        return openOrMake(fileSystem, path.substr(0, slash));
    }
    const SystemResult<FileDescriptor> parent = openOrMake(fileSystem, path.substr(0, slash));
    if (!parent) {
        return unexpected(parent.error());
    }
    SystemResult<void> made =
        fileSystem.makeFolder(parent->number(), path.substr(slash + 1), privateFolderMode);
    if (!made && made.error() != EEXIST) { // another program may have been faster
        return unexpected(made.error());
    }
    made = fileSystem.sync(parent->number());
    return made ? fileSystem.openRoot(path) : unexpected(made.error());
}

/// Takes all rights to the folder from others, where it is ours.
void makePrivate(FileSystem& fileSystem, const FileDescriptor& folder) {
    SystemResult<NodeStatus> status = fileSystem.status(folder.number());
    if (status && status->owner == ::geteuid() && status->mode != privateFolderMode) {
        status->mode = privateFolderMode;
        (void)fileSystem.setAccess(folder.number(), *status);
    }
}

bool isSameNode(const NodeStatus& left, const NodeStatus& right) {
    return left.identity.device == right.identity.device && left.identity.inode == right.identity.inode;
}

} // namespace

RecoveryFolder::RecoveryFolder(FileSystem& fileSystem, std::string path, std::string name)
    : m_fileSystem(&fileSystem), m_path(std::move(path)), m_name(std::move(name)) {}

bool RecoveryFolder::isName(std::string_view name) {
    const std::optional<Uuid> uuid = parseUuid(name);
    return uuid && uuid->text() == name;
}

Expected<RecoveryFolder, DiskFailure> RecoveryFolder::make(FileSystem& fileSystem, const std::string& store) {
    SystemResult<FileDescriptor> storeFolder = openOrMake(fileSystem, store);
    if (!storeFolder) {
        return unexpected(diskFailure(store, storeFolder.error()));
    }
    makePrivate(fileSystem, *storeFolder);
    // Another program that starts right now may take the empty folder for one that is left, and remove it.
    constexpr int attempts = 10;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const std::string name = Uuid::random().text();
        std::string path = store;
        path.append("/").append(name);
        RecoveryFolder made(fileSystem, path, name);
        SystemResult<void> result = fileSystem.makeFolder(storeFolder->number(), name, privateFolderMode);
        if (result) {
            SystemResult<FileDescriptor> folder = fileSystem.openFolder(storeFolder->number(), name);
            result = folder ? fileSystem.lock(folder->number()) : unexpected(folder.error());
            made.m_folder = folder ? std::move(*folder) : FileDescriptor();
        }
        if (!result && result.error() != EWOULDBLOCK && result.error() != ENOENT) {
            (void)fileSystem.removeFolder(storeFolder->number(), name);
            return unexpected(diskFailure(made.m_path, result.error()));
        }
        const auto here = result ? fileSystem.statusAt(storeFolder->number(), name) : unexpected(ENOENT);
        const auto own = result ? fileSystem.status(made.m_folder.number()) : unexpected(ENOENT);
        if (here && own && isSameNode(*here, *own)) {
            made.m_store = std::move(*storeFolder);
            return made;
        }
    }
    return unexpected(diskFailure(store, EBUSY));
}

std::optional<RecoveryFolder> RecoveryFolder::take(FileSystem& fileSystem, const std::string& store,
                                                   const FileDescriptor& storeFolder,
                                                   const std::string& name) {
    RecoveryFolder taken(fileSystem, store + "/" + name, name);
    SystemResult<FileDescriptor> folder = fileSystem.openFolder(storeFolder.number(), name);
    SystemResult<FileDescriptor> own = fileSystem.openFolder(storeFolder.number(), ".");
    if (!folder || !own) {
        return std::nullopt;
    }
    const auto status = fileSystem.status(folder->number());
    if (!status || status->owner != ::geteuid() || !fileSystem.lock(folder->number())) {
        return std::nullopt;
    }
    // Its owner may have removed it between the look at it and the lock.
    const auto here = fileSystem.statusAt(storeFolder.number(), name);
    if (!here || !isSameNode(*here, *status)) {
        return std::nullopt;
    }
    taken.m_store = std::move(*own);
    taken.m_folder = std::move(*folder);
    return taken;
}

bool RecoveryFolder::isGone() const {
    const auto here = m_fileSystem->statusAt(m_store.number(), m_name);
    if (!here) {
        return here.error() == ENOENT;
    }
    const auto own = m_fileSystem->status(m_folder.number());
    return own && !isSameNode(*here, *own);
}

bool RecoveryFolder::lacks(std::uint64_t journal) const {
    const SystemResult<NodeStatus> found = status(journal);
    return !found && found.error() == ENOENT;
}

SystemResult<std::vector<std::uint64_t>> RecoveryFolder::journals() const {
    const SystemResult<std::vector<FolderEntry>> entries = m_fileSystem->list(m_folder.number());
    if (!entries) {
        return unexpected(entries.error());
    }
    std::vector<std::uint64_t> numbers;
    for (const FolderEntry& entry : *entries) {
        const auto number = journalNumber(entry.name);
        if (number && entry.kind == NodeKind::regularFile && journalName(*number) == entry.name) {
            numbers.push_back(*number);
        }
    }
    std::sort(numbers.begin(), numbers.end(), std::greater<>());
    return numbers;
}

SystemResult<NodeStatus> RecoveryFolder::status(std::uint64_t journal) const {
    return m_fileSystem->statusAt(m_folder.number(), journalName(journal));
}

Expected<std::string, DiskFailure> RecoveryFolder::read(std::uint64_t journal, std::size_t most) const {
    const std::string path = m_path + "/" + journalName(journal);
    const auto file = m_fileSystem->openFile(m_folder.number(), journalName(journal));
    const auto status = file ? m_fileSystem->status(file->number()) : unexpected(file.error());
    if (!status) {
        return unexpected(diskFailure(path, status.error()));
    }
    if (status->kind != NodeKind::regularFile) {
        return unexpected(diskFailure(path, ESTALE));
    }
    std::string text(std::min<std::uint64_t>(status->identity.size, most), '\0');
    std::size_t length = 0;
    while (length < text.size()) {
        const auto count = m_fileSystem->read(file->number(), text.data() + length, text.size() - length);
        if (!count) {
            return unexpected(diskFailure(path, count.error()));
        }
        if (*count == 0) {
            break;
        }
        length += *count;
    }
    text.resize(length);
    return text;
}

Expected<JournalFile, DiskFailure> RecoveryFolder::begin(std::string_view contents) {
    const SystemResult<std::vector<std::uint64_t>> old = journals();
    if (!old) {
        return unexpected(diskFailure(m_path, old.error()));
    }
    m_latest = std::max(m_latest, old->empty() ? 0 : old->front()) + 1;
    SystemResult<JournalFile> journal = write(contents);
    if (!journal) {
        return unexpected(diskFailure(m_path + "/" + journalName(m_latest), journal.error()));
    }
    // The oldest first: whatever stays behind must not be older than what was there.
    for (auto number = old->rbegin(); number != old->rend(); ++number) {
        (void)m_fileSystem->unlink(m_folder.number(), journalName(*number));
    }
    return std::move(*journal);
}

SystemResult<JournalFile> RecoveryFolder::write(std::string_view contents) {
    const std::string unfinished(unfinishedName);
    const SystemResult<void> removed = m_fileSystem->unlink(m_folder.number(), unfinished);
    if (!removed && removed.error() != ENOENT) {
        return unexpected(removed.error());
    }
    SystemResult<FileDescriptor> file =
        m_fileSystem->createFile(m_folder.number(), unfinished, privateFileMode);
    if (!file) {
        return unexpected(file.error());
    }
    SystemResult<void> written = writeAll(file->number(), contents);
    if (written) {
        written = publish();
    }
    if (!written) {
        (void)m_fileSystem->unlink(m_folder.number(), unfinished);
        return unexpected(written.error());
    }
    return JournalFile{m_latest, std::move(*file), contents.size()};
}

/// Gives the finished journal its name; both it and the way to it are safe on disk then.
SystemResult<void> RecoveryFolder::publish() {
    SystemResult<void> result = m_fileSystem->rename(m_folder.number(), std::string(unfinishedName),
                                                     journalName(m_latest), RenameRule::noReplace);
    if (result) {
        result = m_fileSystem->sync(m_folder.number());
    }
    return result ? m_fileSystem->sync(m_store.number()) : result;
}

SystemResult<void> RecoveryFolder::writeAll(int file, std::string_view text) {
    while (!text.empty()) {
        const SystemResult<std::size_t> count = m_fileSystem->write(file, text);
        if (!count) {
            return unexpected(count.error());
        }
        text.remove_prefix(*count);
    }
    return m_fileSystem->sync(file);
}

Expected<void, DiskFailure> RecoveryFolder::append(JournalFile& journal, std::string_view text) {
    const SystemResult<void> written = writeAll(journal.file.number(), text);
    if (!written) {
        return unexpected(diskFailure(m_path + "/" + journalName(journal.number), written.error()));
    }
    journal.size += text.size();
    return {};
}

bool RecoveryFolder::remove() {
    const SystemResult<std::vector<FolderEntry>> entries = m_fileSystem->list(m_folder.number());
    if (!entries) {
        return false;
    }
    std::vector<std::pair<std::uint64_t, std::string>> names; // the oldest first, as in `begin`
    for (const FolderEntry& entry : *entries) {
        const auto number = journalNumber(entry.name);
        if (entry.kind == NodeKind::folder || (!number && entry.name != unfinishedName)) {
            return false;
        }
        names.emplace_back(number.value_or(0), entry.name);
    }
    std::sort(names.begin(), names.end());
    for (const auto& [number, name] : names) {
        (void)m_fileSystem->unlink(m_folder.number(), name);
    }
    const SystemResult<void> removed = m_fileSystem->removeFolder(m_store.number(), m_name);
    (void)m_fileSystem->sync(m_store.number());
    return removed.has_value();
}

} // namespace quillon
