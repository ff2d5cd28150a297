#pragma once

#include "base/Bytes.h"
#include "base/FileTree.h"
#include "model/ArticleDocument.h"
#include "package/PackageFailure.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace quillon {

/// The assets of a package: the bytes of every file but the article, by its path within the package
/// ("images/a.jpg").
using Assets = std::map<std::string, Bytes, std::less<>>;

/// The name of the article's file at the top of a package.
inline constexpr std::string_view articleFileName = "article.json";

/// What the program holds of an open package: the article and all assets. A value; edits replace `article`,
/// while `assets` and their fingerprint stay as they were read. Copies share all of it.
struct ArticleFileDocument {
    ArticleDocument article;
    Shared<Assets> assets;
    Shared<std::string> assetsFingerprint; ///< assetsFingerprintText of `assets`

    bool operator==(const ArticleFileDocument&) const = default;
};

/// The article of a package's folder, without a look at any asset.
Expected<ArticleDocument, PackageFailure> readPackageArticle(const FileWrapper& root);

/// The document in a package's folder. A broken article is found before any asset is read.
Expected<ArticleFileDocument, PackageFailure> readPackage(const FileWrapper& root);

/// The folder of a document, built anew with all it holds.
Expected<FileWrapper, PackageFailure> writePackage(const ArticleFileDocument& document);

/// The assets in `folder` and below it, their keys beginning with `prefix`. At the top (an empty prefix) the
/// article is passed over; what is no regular file is passed over everywhere.
Expected<Assets, DiskFailure> collectAssets(const FileWrapper& folder, std::string_view prefix);

/// Puts a file at the path `key` below `root`, with the folders that it needs. Empty pieces of the path add
/// no level.
void addAsset(FileWrapper& root, std::string_view key, const Bytes& bytes);

/// A cheap mark of change: key and size of every asset, "a.png:1200,b/c.jpg:300". It does not look at
/// contents.
std::string assetsFingerprintText(const Assets& assets);

/// "assets=2 bytes=1500".
std::string assetsDetailText(const Assets& assets);

} // namespace quillon
