#include "package/ArticleFileDocument.h"

#include "base/Log.h"

#include <algorithm>
#include <vector>

namespace quillon {

namespace {

PackageFailure failureOf(PackageFailure::Code code) {
    return {code};
}

Expected<ArticleFileDocument, PackageFailure> readWholePackage(const FileWrapper& root) {
    auto article = readPackageArticle(root);
    if (!article) {
        return unexpected(std::move(article.error()));
    }
    auto assets = collectAssets(root, "");
    if (!assets) {
        return unexpected(PackageFailure{std::move(assets.error())});
    }
    ArticleFileDocument document{std::move(*article), std::move(*assets), {}};
    document.assetsFingerprint = assetsFingerprintText(*document.assets);
    logEvent("document.open.assets", assetsDetailText(*document.assets));
    return document;
}

Expected<FileWrapper, PackageFailure> wholePackage(const ArticleFileDocument& document) {
    auto json = sharedArticleEncoder.encode(document.article);
    if (!json) {
        return unexpected(PackageFailure{std::move(json.error())});
    }
    FileWrapper root = FileWrapper::directory();
    addAsset(root, articleFileName, Bytes(std::move(*json)));
    for (const auto& [key, bytes] : *document.assets) {
        addAsset(root, key, bytes);
    }
    return root;
}

} // namespace

Expected<ArticleDocument, PackageFailure> readPackageArticle(const FileWrapper& root) {
    if (!root.fileWrappers()) {
        return unexpected(failureOf(PackageFailure::Code::fileReadCorruptFile));
    }
    const FileWrapper* file = root.child(articleFileName);
    if (!file || !file->isRegularFile()) {
        return unexpected(failureOf(PackageFailure::Code::fileReadNoSuchFile));
    }
    const auto contents = file->regularFileContents();
    if (!contents) {
        return unexpected(PackageFailure{contents.error()});
    }
    auto article = sharedArticleDecoder.decode(JsonText::roomyCopy((*contents)->view()));
    if (!article) {
        return unexpected(PackageFailure{std::move(article.error())});
    }
    return std::move(*article);
}

Expected<ArticleFileDocument, PackageFailure> readPackage(const FileWrapper& root) {
    const double start = logClock();
    auto document = readWholePackage(root);
    logDuration("document.open", start);
    return document;
}

Expected<FileWrapper, PackageFailure> writePackage(const ArticleFileDocument& document) {
    const double start = logClock();
    const std::string detail = assetsDetailText(*document.assets);
    auto root = wholePackage(document);
    logDuration("document.save", start, detail);
    return root;
}

Expected<Assets, DiskFailure> collectAssets(const FileWrapper& folder, std::string_view prefix) {
    struct Pending {
        FileWrapper folder;
        std::string path;
    };
    Assets assets;
    // Not one call inside another: folders may be nested very deep.
    std::vector<Pending> pending = {{folder, std::string(prefix)}};
    while (!pending.empty()) {
        const Pending here = std::move(pending.back());
        pending.pop_back();
        const FileWrapper::Children* children = here.folder.fileWrappers();
        if (!children) {
            continue;
        }
        for (const auto& [name, child] : *children) {
            if (here.path.empty() && name == articleFileName) {
                continue;
            }
            std::string path = here.path.empty() ? name : here.path + "/" + name;
            if (child.isDirectory()) {
                pending.push_back({child, std::move(path)});
                continue;
            }
            auto contents = child.regularFileContents();
            if (!contents) {
                return unexpected(std::move(contents.error()));
            }
            if (*contents) {
                assets.emplace(std::move(path), std::move(**contents));
            }
        }
    }
    return assets;
}

void addAsset(FileWrapper& root, std::string_view key, const Bytes& bytes) {
    std::vector<std::string> pieces;
    for (size_t start = 0; start <= key.size();) {
        const size_t end = std::min(key.find('/', start), key.size());
        if (end > start) {
            pieces.emplace_back(key.substr(start, end - start));
        }
        start = end + 1;
    }
    if (pieces.empty()) {
        return;
    }
    FileWrapper folder = root;
    for (size_t level = 0; level + 1 < pieces.size(); ++level) {
        const FileWrapper* child = folder.child(pieces[level]);
        if (child && child->isDirectory()) {
            folder = FileWrapper(*child);
            continue;
        }
        FileWrapper made = FileWrapper::directory();
        made.setPreferredFilename(pieces[level]);
        folder.addFileWrapper(made);
        folder = made;
    }
    FileWrapper file = FileWrapper::regularFile(bytes);
    file.setPreferredFilename(pieces.back());
    folder.addFileWrapper(file);
}

std::string assetsFingerprintText(const Assets& assets) {
    std::vector<std::string> entries;
    entries.reserve(assets.size());
    for (const auto& [key, bytes] : assets) {
        entries.push_back(key + ":" + std::to_string(bytes.size()));
    }
    // The size takes part in the order: "a-b:5" stands before "a:5".
    std::sort(entries.begin(), entries.end());
    std::string text;
    for (const std::string& entry : entries) {
        text += (text.empty() ? "" : ",") + entry;
    }
    return text;
}

std::string assetsDetailText(const Assets& assets) {
    size_t bytes = 0;
    for (const auto& [key, contents] : assets) {
        bytes += contents.size();
    }
    return "assets=" + std::to_string(assets.size()) + " bytes=" + std::to_string(bytes);
}

} // namespace quillon
