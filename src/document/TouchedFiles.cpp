#include "document/TouchedFiles.h"

#include "document/ArticleChange.h"
#include "package/PackageFolder.h"

#include <algorithm>
#include <string_view>

namespace quillon {

namespace {

Expected<bool, PackageFailure> holdsArticle(const FileWrapper& root, const ArticleDocument& saved) {
    const auto article = readPackageArticle(root);
    if (!article && std::holds_alternative<ReadFailure>(article.error().cause)) {
        return false;
    }
    if (!article) {
        return unexpected(article.error());
    }
    return changeBetween(saved, *article).empty();
}

Expected<bool, PackageFailure> holdsAsset(const FileWrapper& root, const std::string& key,
                                          const Assets& saved) {
    const FileWrapper* node = &root;
    for (std::size_t start = 0; node && start <= key.size();) {
        const std::size_t end = std::min(key.find('/', start), key.size());
        node = node->child(std::string_view(key).substr(start, end - start));
        start = end + 1;
    }
    const auto asset = saved.find(key);
    if (!node || !node->isRegularFile() || asset == saved.end()) {
        return false;
    }
    const auto contents = node->regularFileContents();
    if (!contents) {
        return unexpected(PackageFailure{contents.error()});
    }
    return **contents == asset->second;
}

} // namespace

Expected<bool, PackageFailure> holdsStill(const std::string& path, const PackageStamp& known,
                                          const PackageStamp& found, const ArticleFileDocument& saved) {
    const auto root = readFolder(path);
    if (!root) {
        return unexpected(PackageFailure{root.error()});
    }
    for (const auto& [key, changed] : found.changeTimes) {
        const auto before = known.changeTimes.find(key);
        if (before != known.changeTimes.end() && before->second == changed) {
            continue;
        }
        auto holds = key == articleFileName ? holdsArticle(*root, saved.article)
                                            : holdsAsset(*root, key, *saved.assets);
        if (!holds || !*holds) {
            return holds;
        }
    }
    return true;
}

} // namespace quillon
