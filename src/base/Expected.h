#pragma once

#include <tl/expected.hpp>

namespace quillon {

/// A value or the reason why there is none; no failure of the core travels as an exception.
template <typename Value, typename Failure>
using Expected = tl::expected<Value, Failure>;

using tl::unexpected;

} // namespace quillon
