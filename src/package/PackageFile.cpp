#include "package/PackageFile.h"

#include <cerrno>
#include <optional>
#include <utility>

namespace quillon {

namespace {

template <typename Read>
using ReadResult = decltype(std::declval<Read>()(FileWrapper::other()));

/// The folder that stands at a path, held open so that no other can get its number meanwhile; nothing where
/// none stands.
struct HeldFolder {
    FileDescriptor descriptor;
    std::optional<FileIdentity> identity;
};

HeldFolder holdFolder(const std::string& path, FileSystem& fileSystem) {
    HeldFolder held;
    if (auto opened = fileSystem.openRoot(path)) {
        held.descriptor = std::move(*opened);
        if (const auto status = fileSystem.status(held.descriptor.number())) {
            held.identity = status->identity;
        }
    }
    return held;
}

bool isSameFolder(const HeldFolder& one, const HeldFolder& other) {
    return one.identity.has_value() == other.identity.has_value() &&
           (!one.identity ||
            (one.identity->device == other.identity->device && one.identity->inode == other.identity->inode));
}

template <typename Read>
ReadResult<Read> readOnce(const std::string& path, FileSystem& fileSystem, Read read) {
    auto root = readFolder(path, fileSystem);
    if (!root) {
        if (root.error().errorNumber == ENOTDIR) {
            return unexpected(PackageFailure{PackageFailure::Code::fileReadCorruptFile});
        }
        return unexpected(PackageFailure{std::move(root.error())});
    }
    return read(*root);
}

/// Reads the folder at `path` and gives it to `read`. A save that replaces the package meanwhile empties the
/// folder that is being read, so what was read counts only when the same folder still stands there.
template <typename Read>
ReadResult<Read> withFolder(const std::string& path, FileSystem& fileSystem, Read read) {
    constexpr int mostAttempts = 5;
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        const HeldFolder before = holdFolder(path, fileSystem);
        auto result = readOnce(path, fileSystem, read);
        if (!before.identity || isSameFolder(before, holdFolder(path, fileSystem))) {
            return result;
        }
    }
    return unexpected(PackageFailure{diskFailure(path, EBUSY)});
}

} // namespace

Expected<ArticleFileDocument, PackageFailure> openPackage(const std::string& path, FileSystem& fileSystem) {
    return withFolder(path, fileSystem, readPackage);
}

Expected<ArticleDocument, PackageFailure> openPackageArticle(const std::string& path,
                                                             FileSystem& fileSystem) {
    return withFolder(path, fileSystem, readPackageArticle);
}

Expected<SaveReport, PackageFailure> savePackage(const ArticleFileDocument& document, const std::string& path,
                                                 Existing existing, const PackageStamp* known) {
    const auto root = writePackage(document);
    if (!root) {
        return unexpected(root.error());
    }
    auto report = writeFolder(*root, path, systemFileSystem(), existing, known);
    if (!report) {
        return unexpected(PackageFailure{std::move(report.error())});
    }
    return std::move(*report);
}

bool isPackage(const std::string& path) {
    const auto hasArticle = withFolder(path, systemFileSystem(), [](const FileWrapper& root) {
        const FileWrapper* article = root.child(articleFileName);
        return Expected<bool, PackageFailure>(article && article->isRegularFile());
    });
    return hasArticle.value_or(false);
}

} // namespace quillon
