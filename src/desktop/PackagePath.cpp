#include "desktop/PackagePath.h"

#include "base/FileSystem.h"
#include "base/UnicodeText.h"
#include "package/ArticleFileDocument.h"

#include <algorithm>
#include <filesystem>

namespace quillon {

namespace {

namespace fs = std::filesystem;

std::string withoutFinalSlashes(const std::string& path) {
    const std::size_t last = path.find_last_not_of('/');
    return last == std::string::npos ? path.substr(0, 1) : path.substr(0, last + 1);
}

bool isUnsafe(char character) {
    constexpr std::string_view unsafe = "/\\:*?\"<>|";
    return unsafe.find(character) != std::string_view::npos;
}

bool isControl(char character) {
    return static_cast<unsigned char>(character) < ' ' || character == '\x7F';
}

} // namespace

std::string absolutePath(std::string_view path) {
    std::error_code error;
    const fs::path absolute = fs::absolute(fs::path(path), error);
    // Pieces like ".." stay: behind a symbolic link they lead elsewhere than they seem to.
    return withoutFinalSlashes(error ? std::string(path) : absolute.native());
}

std::string packageFolder(const std::string& path) {
    std::error_code error;
    const bool isArticle = folderName(path) == articleFileName && fs::is_regular_file(path, error);
    return isArticle ? parentFolder(path) : path;
}

std::string resolvedPath(const std::string& path) {
    if (const SystemResult<std::string> whole = systemFileSystem().resolve(path)) {
        return *whole;
    }
    const SystemResult<std::string> parent = systemFileSystem().resolve(parentFolder(path));
    if (!parent) {
        return path;
    }
    return (*parent == "/" ? "" : *parent) + "/" + folderName(path);
}

std::string folderName(const std::string& path) {
    return path.substr(path.find_last_of('/') + 1);
}

std::string parentFolder(const std::string& path) {
    const std::size_t slash = path.find_last_of('/');
    return slash == std::string::npos || slash == 0 ? "/" : path.substr(0, slash);
}

std::string proposedFolderName(std::string_view title) {
    constexpr std::size_t mostBytes = 120; // leaves room for what a save puts before and after the name
    std::string name;
    CharacterCursor characters(title);
    while (const auto character = characters.next()) {
        if (name.size() + character->size() > mostBytes) {
            break;
        }
        for (const char byte : *character) {
            name += isUnsafe(byte) ? '-' : isControl(byte) ? ' ' : byte;
        }
    }
    // A leading dot would hide the folder, and some systems drop a final one.
    const auto isEdge = [](char byte) {
        return byte == '.' || byte == ' ';
    };
    name.erase(name.begin(), std::find_if_not(name.begin(), name.end(), isEdge));
    name.erase(std::find_if_not(name.rbegin(), name.rend(), isEdge).base(), name.end());
    name = std::string(trimmed(name));
    return name.empty() || !isValidUtf8(name) ? "Untitled" : name;
}

} // namespace quillon
