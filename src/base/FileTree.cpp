#include "base/FileTree.h"

#include "base/FileSystem.h"

#include <utility>
#include <vector>

namespace quillon {

struct FileWrapper::Node {
    explicit Node(NodeKind nodeKind) : kind(nodeKind) {}
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;
    ~Node();

    NodeKind kind;
    std::string preferredFilename;
    Children children;
    std::optional<Bytes> contents;
    Load load;
};

// Takes the tree down level by level: one call inside another for each level would exhaust the stack on a
// very deep tree.
FileWrapper::Node::~Node() {
    std::vector<Children> levels;
    levels.push_back(std::move(children));
    while (!levels.empty()) {
        Children level = std::move(levels.back());
        levels.pop_back();
        for (auto& [name, wrapper] : level) {
            if (wrapper.node_.use_count() == 1 && !wrapper.node_->children.empty())
                levels.push_back(std::move(wrapper.node_->children));
        }
    }
}

FileWrapper::FileWrapper(std::shared_ptr<Node> node) : node_(std::move(node)) {}

FileWrapper FileWrapper::directory() {
    return FileWrapper(std::make_shared<Node>(NodeKind::folder));
}

FileWrapper FileWrapper::regularFile(Bytes contents) {
    FileWrapper file(std::make_shared<Node>(NodeKind::regularFile));
    file.node_->contents = std::move(contents);
    return file;
}

FileWrapper FileWrapper::regularFile(Load load) {
    FileWrapper file(std::make_shared<Node>(NodeKind::regularFile));
    file.node_->load = std::move(load);
    return file;
}

FileWrapper FileWrapper::other() {
    return FileWrapper(std::make_shared<Node>(NodeKind::other));
}

bool FileWrapper::isDirectory() const {
    return node_->kind == NodeKind::folder;
}

bool FileWrapper::isRegularFile() const {
    return node_->kind == NodeKind::regularFile;
}

const FileWrapper::Children* FileWrapper::fileWrappers() const {
    return isDirectory() ? &node_->children : nullptr;
}

const FileWrapper* FileWrapper::child(std::string_view name) const {
    const auto found = node_->children.find(name);
    return found == node_->children.end() ? nullptr : &found->second;
}

Expected<std::optional<Bytes>, DiskFailure> FileWrapper::regularFileContents() const {
    if (!isRegularFile() || node_->contents)
        return node_->contents;
    Expected<Bytes, DiskFailure> loaded = node_->load();
    if (!loaded)
        return unexpected(std::move(loaded.error()));
    node_->contents = std::move(*loaded);
    node_->load = nullptr;
    return node_->contents;
}

void FileWrapper::setPreferredFilename(std::string name) {
    node_->preferredFilename = std::move(name);
}

const std::string& FileWrapper::preferredFilename() const {
    return node_->preferredFilename;
}

void FileWrapper::addFileWrapper(const FileWrapper& child) {
    if (isDirectory())
        node_->children.insert_or_assign(child.preferredFilename(), child);
}

bool isSafePathPiece(std::string_view piece) {
    constexpr std::size_t longestName = 255;
    return !piece.empty() && piece.size() <= longestName && piece != "." && piece != ".." &&
           piece.find_first_of(std::string_view("/\0", 2)) == std::string_view::npos;
}

} // namespace quillon
