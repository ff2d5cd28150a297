#include "cli/Input.h"

#include "package/PackageFile.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillon::cli {

namespace {

namespace fs = std::filesystem;

/// All that can be read from an open file.
Result<std::string> readAll(int file, const std::string& name) {
    constexpr size_t smallestRead = 64 * 1024;
    std::string text;
    size_t size = 0;
    struct ::stat status {};
    if (::fstat(file, &status) == 0 && status.st_size > 0) {
        text.reserve(static_cast<size_t>(status.st_size) + 64);
    }
    while (true) {
        text.resize(std::max(text.capacity(), size + smallestRead));
        const ssize_t count = ::read(file, text.data() + size, text.size() - size);
        if (count < 0 && errno != EINTR) {
            return failed(name + ": " + systemErrorText(errno));
        }
        if (count == 0) {
            text.resize(size);
            return text;
        }
        size += count < 0 ? 0 : static_cast<size_t>(count);
    }
}

Result<ArticleDocument> readLoneArticle(const std::string& path) {
    const bool isStandardInput = path == "-";
    const std::string name = isStandardInput ? "standard input" : path;
    const int file = isStandardInput ? STDIN_FILENO : ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) {
        return failed(name + ": " + systemErrorText(errno));
    }
    auto text = readAll(file, name);
    if (!isStandardInput) {
        ::close(file);
    }
    if (!text) {
        return unexpected(text.error());
    }
    auto article = sharedArticleDecoder.decode(std::move(*text));
    if (!article) {
        return failed(name + ": " + article.error().message());
    }
    return std::move(*article);
}

} // namespace

std::string packageFolder(const std::string& package) {
    std::error_code ignored;
    if (package == "-" || !fs::is_regular_file(package, ignored)) {
        return package == "-" ? std::string() : package;
    }
    const fs::path path(package);
    if (path.filename() != articleFileName) {
        return {};
    }
    return path.has_parent_path() ? path.parent_path().string() : ".";
}

Result<ArticleDocument> readArticle(const std::string& package) {
    const std::string folder = packageFolder(package);
    if (folder.empty()) {
        return readLoneArticle(package);
    }
    auto article = openPackageArticle(folder);
    if (!article) {
        return failed(article.error().message(folder));
    }
    return std::move(*article);
}

Result<ArticleFileDocument> readDocument(const std::string& package) {
    const std::string folder = packageFolder(package);
    if (folder.empty()) {
        auto article = readLoneArticle(package);
        if (!article) {
            return unexpected(article.error());
        }
        return ArticleFileDocument{std::move(*article), {}, {}};
    }
    auto document = openPackage(folder);
    if (!document) {
        return failed(document.error().message(folder));
    }
    return std::move(*document);
}

} // namespace quillon::cli
