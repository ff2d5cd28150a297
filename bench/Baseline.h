#pragma once

#include <memory>
#include <string>

namespace quillon::bench {

/// What ours is measured against: a widespread library's untyped tree of the same JSON.
class BaselineTree {
public:
    static BaselineTree parse(const std::string& json);
    BaselineTree(BaselineTree&&) noexcept;
    ~BaselineTree();

    /// Its JSON with an indent of two.
    std::string dump() const;

private:
    struct Tree;
    explicit BaselineTree(std::unique_ptr<Tree> tree);
    std::unique_ptr<Tree> m_tree;
};

} // namespace quillon::bench
