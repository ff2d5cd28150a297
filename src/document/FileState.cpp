#include "document/FileState.h"

namespace quillon {

std::optional<std::string> pathOf(const FileState& state) {
    return std::visit(
        [](const auto& each) -> std::optional<std::string> {
            if constexpr (requires { each.path; }) {
                return each.path;
            } else {
                return std::nullopt;
            }
        },
        state);
}

} // namespace quillon
