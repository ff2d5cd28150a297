#pragma once

#include "base/Expected.h"

#include <string>

namespace quillon::cli {

/// Why a command did not do its work. Wrong usage ends the program with status 2, any other failure with 1.
struct Failure {
    std::string message;
    bool isUsage = false;
};

template <typename Value>
using Result = Expected<Value, Failure>;

inline auto failed(std::string message) {
    return unexpected(Failure{std::move(message)});
}
inline auto misused(std::string message) {
    return unexpected(Failure{std::move(message), true});
}

} // namespace quillon::cli
