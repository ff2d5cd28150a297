#pragma once

#include "base/Bytes.h"
#include "base/DiskFailure.h"
#include "base/Expected.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace quillon {

/// One node of a tree of files in memory: a folder, a regular file, or something else that has no contents (a
/// symbolic link, a socket, a pipe, a device). A wrapper is a handle: its copies stand for the same node. A
/// tree belongs to one thread at a time, and a folder is never added below itself.
class FileWrapper {
public:
    using Children = std::map<std::string, FileWrapper, std::less<>>;
    using Load = std::function<Expected<Bytes, DiskFailure>()>;

    /// A new folder without children.
    static FileWrapper directory();
    static FileWrapper regularFile(Bytes contents);
    /// A file whose contents `load` fetches when they are asked for; after its first success it is let go.
    static FileWrapper regularFile(Load load);
    static FileWrapper other();

    bool isDirectory() const;
    bool isRegularFile() const;

    /// The children of a folder by file name; null for anything else.
    const Children* fileWrappers() const;

    /// The child of that name; null where there is none or this is no folder.
    const FileWrapper* child(std::string_view name) const;

    /// The bytes of a regular file, absent for anything else. Fails where they have yet to be read from disk
    /// and cannot be.
    Expected<std::optional<Bytes>, DiskFailure> regularFileContents() const;

    /// The name under which `addFileWrapper` puts this node into a folder.
    void setPreferredFilename(std::string name);
    const std::string& preferredFilename() const;

    /// Adds a child under its preferred file name, in place of the child that had the name before. On
    /// anything but a folder it has no effect.
    void addFileWrapper(const FileWrapper& child);

private:
    struct Node;
    explicit FileWrapper(std::shared_ptr<Node> node);

    std::shared_ptr<Node> node_;
};

/// Whether `piece` can be the name of one file or folder: not empty, not "." or "..", no "/" and no NUL, at
/// most 255 bytes.
bool isSafePathPiece(std::string_view piece);

} // namespace quillon
