#pragma once

#include <string>
#include <string_view>

namespace quillon {

/// Why an article could not be read: where, what was expected there, and what stood there.
struct ReadFailure {
    std::string path; ///< "components[3].style.fill.width", or "line 12, column 5" of a text that is no JSON
    std::string expected;
    std::string found;

    /// "components[3].style.fill.width: expected a whole number, found text".
    std::string message() const;

    /// Puts the step that led to the failing value before the path: a member's key or a list's index.
    void prependKey(std::string_view key);
    void prependIndex(size_t index);
};

} // namespace quillon
