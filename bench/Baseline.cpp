#include "Baseline.h"

#include <nlohmann/json.hpp>

namespace quillon::bench {

struct BaselineTree::Tree {
    nlohmann::json json;
};

BaselineTree::BaselineTree(std::unique_ptr<Tree> tree) : m_tree(std::move(tree)) {}
BaselineTree::BaselineTree(BaselineTree&&) noexcept = default;
BaselineTree::~BaselineTree() = default;

BaselineTree BaselineTree::parse(const std::string& json) {
    return BaselineTree(std::make_unique<Tree>(Tree{nlohmann::json::parse(json)}));
}

std::string BaselineTree::dump() const {
    return m_tree->json.dump(2);
}

} // namespace quillon::bench
