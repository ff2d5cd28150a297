#pragma once

#include "package/ArticleFileDocument.h"
#include "package/PackageFolder.h"

#include <string>

/// Packages on disk.
namespace quillon {

/// The document of the package at `path`, a folder.
Expected<ArticleFileDocument, PackageFailure> openPackage(const std::string& path,
                                                          FileSystem& fileSystem = systemFileSystem());
/// Its article alone; no asset is read.
Expected<ArticleDocument, PackageFailure> openPackageArticle(const std::string& path,
                                                             FileSystem& fileSystem = systemFileSystem());

/// Saves `document` at `path`, in place of the folder that stands there unless that is refused: all or
/// nothing. A folder that is not as `known` is left alone, as writeFolder does.
Expected<SaveReport, PackageFailure> savePackage(const ArticleFileDocument& document, const std::string& path,
                                                 Existing existing = Existing::replace,
                                                 const PackageStamp* known = nullptr);

/// Whether a folder with an article stands at `path`.
bool isPackage(const std::string& path);

} // namespace quillon
