#include "cli/Input.h"

#include "package/PackageFile.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

namespace quillon::cli {

namespace {

namespace fs = std::filesystem;

Result<std::string> readStream(std::istream& stream, const std::string& name) {
    std::string text{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    if (stream.bad()) {
        return failed(name + ": " + systemErrorText(errno));
    }
    return text;
}

Result<ArticleDocument> readLoneArticle(const std::string& path) {
    const bool isStandardInput = path == "-";
    const std::string name = isStandardInput ? "standard input" : path;
    Result<std::string> text;
    if (isStandardInput) {
        text = readStream(std::cin, name);
    } else {
        std::ifstream file(path, std::ios::binary);
        if (!file) {
            return failed(name + ": " + systemErrorText(errno));
        }
        text = readStream(file, name);
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
