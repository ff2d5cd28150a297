#pragma once

#include "base/Shared.h"

#include <map>
#include <string>
#include <variant>
#include <vector>

namespace quillon {

/// JSON of no known type, kept as it came: the keys that no record models, and the fields that stay untyped.
/// Every number is a 64-bit float; objects compare without regard to the order of keys.
struct JSONValue {
    using Array = Shared<std::vector<JSONValue>>;
    using Object = Shared<std::map<std::string, JSONValue>>;

    std::variant<std::nullptr_t, bool, double, std::string, Array, Object> form = nullptr;

    bool operator==(const JSONValue&) const = default;
};

/// The members of an object that its record does not model, by key; they come back on save.
using PreservedFields = Shared<std::map<std::string, JSONValue>>;

} // namespace quillon
