#pragma once

#include "base/Shared.h"
#include "model/Record.h"

#include <string>
#include <vector>

namespace quillon {

/// What must hold of the reader's environment for a variant to apply. All fields present must hold; texts are
/// not validated.
struct Condition {
    Optional<std::string> preferredColorScheme;
    Optional<std::string> platform;
    Optional<std::string> subscriptionStatus;
    Optional<std::string> horizontalSizeClass;
    Optional<std::string> verticalSizeClass;
    Optional<int64_t> minViewportWidth; ///< points
    Optional<int64_t> maxViewportWidth; ///< points
    Optional<std::string> minSpecVersion;
    Optional<std::string> maxSpecVersion;

    bool operator==(const Condition&) const = default;
};

/// The `conditions` of a variant.
using Conditions = Optional<std::vector<Condition>>;

template <>
struct RecordTable<Condition> {
    static const RecordInfo& info();
};

} // namespace quillon
