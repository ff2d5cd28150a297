#include "package/PackageFile.h"

#include <cerrno>

namespace quillon {

namespace {

/// Reads the folder at `path` and gives it to `read`.
template <typename Read>
auto withFolder(const std::string& path, Read read) -> decltype(read(FileWrapper::other())) {
    auto root = readFolder(path);
    if (!root) {
        if (root.error().errorNumber == ENOTDIR) {
            return unexpected(PackageFailure{PackageFailure::Code::fileReadCorruptFile});
        }
        return unexpected(PackageFailure{std::move(root.error())});
    }
    return read(*root);
}

} // namespace

Expected<ArticleFileDocument, PackageFailure> openPackage(const std::string& path) {
    return withFolder(path, readPackage);
}

Expected<ArticleDocument, PackageFailure> openPackageArticle(const std::string& path) {
    return withFolder(path, readPackageArticle);
}

Expected<SaveReport, PackageFailure> savePackage(const ArticleFileDocument& document, const std::string& path,
                                                 Existing existing) {
    const auto root = writePackage(document);
    if (!root) {
        return unexpected(root.error());
    }
    auto report = writeFolder(*root, path, systemFileSystem(), existing);
    if (!report) {
        return unexpected(PackageFailure{std::move(report.error())});
    }
    return std::move(*report);
}

bool isPackage(const std::string& path) {
    const auto root = readFolder(path);
    const FileWrapper* article = root ? root->child(articleFileName) : nullptr;
    return article && article->isRegularFile();
}

} // namespace quillon
