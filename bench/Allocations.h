#pragma once

#include <cstddef>

namespace quillon::bench {

/// The bytes that this program has asked of operator new so far.
size_t bytesAllocated();

} // namespace quillon::bench
