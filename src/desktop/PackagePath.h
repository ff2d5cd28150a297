#pragma once

#include <string>
#include <string_view>

/// Paths of packages. They are bytes as the system has them, UTF-8 or not.
namespace quillon {

/// `path` without final slashes, seen from the current folder where it does not begin at the root.
std::string absolutePath(std::string_view path);

/// The folder that is meant by `path`: itself, or for a regular file called article.json the one it is in.
/// Looks at the disk.
std::string packageFolder(const std::string& path);

/// The one path of what stands at `path`, symbolic links followed; where nothing stands, of its place in the
/// folder above. The path itself where that is missing, too. Looks at the disk.
std::string resolvedPath(const std::string& path);

/// The last piece of a path: the folder's name.
std::string folderName(const std::string& path);

/// Everything before the last piece; "/" at the root.
std::string parentFolder(const std::string& path);

/// A name for the folder of an article called `title`, without characters that some file system refuses:
/// "Untitled" where nothing is left.
std::string proposedFolderName(std::string_view title);

} // namespace quillon
