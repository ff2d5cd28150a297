#include "package/RecentArticles.h"

#include "base/FileSystem.h"
#include "model/ArticleDocument.h"
#include "package/ArticleFileDocument.h"

#include <algorithm>
#include <filesystem>
#include <new>
#include <stdexcept>

namespace quillon {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view bundleScheme = "bundle://";

/// What can be found out about the article's file of a package.
struct ArticleFile {
    std::optional<double> modified; ///< seconds since 1970
    std::optional<std::string> json;
};

std::optional<std::string> readWhole(FileSystem& fileSystem, int folder, const std::string& name) try {
    const auto file = fileSystem.openFile(folder, name);
    const auto status = file ? fileSystem.status(file->number()) : unexpected(file.error());
    if (!status || status->kind != NodeKind::regularFile) {
        return std::nullopt;
    }
    std::string text(status->identity.size, '\0');
    std::size_t length = 0;
    while (length < text.size()) {
        const auto count = fileSystem.read(file->number(), text.data() + length, text.size() - length);
        if (!count || *count == 0) {
            return std::nullopt;
        }
        length += *count;
    }
    return text;
} catch (const std::bad_alloc&) {
    return std::nullopt;
} catch (const std::length_error&) {
    return std::nullopt;
}

ArticleFile readArticleFile(const std::string& package) {
    FileSystem& fileSystem = systemFileSystem();
    const std::string name(articleFileName);
    const auto folder = fileSystem.openRoot(package);
    if (!folder) {
        return {};
    }
    constexpr double nanosecond = 1e-9;
    ArticleFile file;
    if (const auto status = fileSystem.statusAt(folder->number(), name)) {
        file.modified = static_cast<double>(status->identity.modified) * nanosecond;
    }
    file.json = readWhole(fileSystem, folder->number(), name);
    return file;
}

bool showsImage(const ComponentRole& role) {
    switch (role.kind()) {
    case ComponentRole::photo:
    case ComponentRole::image:
    case ComponentRole::figure:
    case ComponentRole::portrait:
    case ComponentRole::logo:
    case ComponentRole::articleThumbnail:
        return true;
    default:
        return false;
    }
}

/// The first address of an image, depth first. A remote one counts, too.
std::optional<std::string> firstImage(const List<Component>& components) {
    for (const Component& component : components) {
        if (component.URL && showsImage(component.role)) {
            return *component.URL;
        }
        if (component.components) {
            if (auto found = firstImage(*component.components)) {
                return found;
            }
        }
    }
    return std::nullopt;
}

/// The addresses that could be the article's thumbnail, the best first.
std::vector<std::string> thumbnailCandidates(const ArticleDocument& article) {
    std::vector<std::string> candidates;
    if (article.metadata) {
        const Metadata& metadata = *article.metadata;
        if (metadata.thumbnailURL) {
            candidates.push_back(*metadata.thumbnailURL);
        }
        if (metadata.coverArt && !metadata.coverArt->empty() && metadata.coverArt->front().URL) {
            candidates.push_back(*metadata.coverArt->front().URL);
        }
    }
    if (auto image = firstImage(article.components)) {
        candidates.push_back(std::move(*image));
    }
    return candidates;
}

std::optional<std::string> thumbnail(const ArticleDocument& article, const fs::path& package) {
    for (const std::string& candidate : thumbnailCandidates(article)) {
        if (candidate.starts_with(bundleScheme) && candidate.size() > bundleScheme.size()) {
            const std::size_t start = candidate.find_first_not_of('/', bundleScheme.size());
            return package / candidate.substr(std::min(start, candidate.size()));
        }
    }
    return std::nullopt;
}

/// `path` without the "/" at its end that marks a folder.
fs::path withoutEndSlash(const std::string& path) {
    const std::size_t last = path.find_last_not_of('/');
    return last == std::string::npos ? path.substr(0, 1) : path.substr(0, last + 1);
}

bool counts(const std::string& url) {
    std::error_code ignored;
    return url.ends_with('/') || fs::exists(url, ignored);
}

/// Fills in what the article says of itself. Where it cannot be read, or not in this much memory, the summary
/// stays as it is.
void readInto(RecentArticleSummary& summary, std::string json, const fs::path& package) try {
    const auto article = sharedArticleDecoder.decode(std::move(json));
    if (!article) {
        return;
    }
    RecentArticleSummary read = summary;
    const bool hasExcerpt = article->metadata && article->metadata->excerpt;
    read.title = article->title;
    read.subtitle = hasExcerpt ? *article->metadata->excerpt : package.filename().string();
    read.thumbnailURL = thumbnail(*article, package);
    read.isReadable = true;
    summary = std::move(read);
} catch (const std::bad_alloc&) {
} catch (const std::length_error&) {
}

} // namespace

std::vector<RecentArticleSummary> loadRecentArticles(const std::vector<std::string>& urls,
                                                     std::size_t limit) {
    std::vector<RecentArticleSummary> summaries;
    for (const std::string& url : urls) {
        if (summaries.size() == limit) {
            break;
        }
        if (counts(url)) {
            if (auto summary = makeRecentArticleSummary(url)) {
                summaries.push_back(std::move(*summary));
            }
        }
    }
    return summaries;
}

std::optional<RecentArticleSummary> makeRecentArticleSummary(const std::string& url) {
    const fs::path package = withoutEndSlash(url);
    if (package.empty()) {
        return std::nullopt;
    }
    ArticleFile file = readArticleFile(url);
    RecentArticleSummary summary{
        .id = url,
        .url = url,
        .title = package.stem().string(),
        .subtitle = "Missing or unreadable article.json",
        .modifiedDate = file.modified,
        .thumbnailURL = std::nullopt,
        .isReadable = false,
    };
    if (file.json) {
        readInto(summary, std::move(*file.json), package);
    }
    return summary;
}

} // namespace quillon
