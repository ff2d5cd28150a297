#include "Allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<size_t> allocated = 0;

} // namespace

void* operator new(size_t size) {
    allocated.fetch_add(size, std::memory_order_relaxed);
    if (void* block = std::malloc(size)) {
        return block;
    }
    throw std::bad_alloc();
}
void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete(void* block, size_t) noexcept {
    std::free(block);
}

namespace quillon::bench {

size_t bytesAllocated() {
    return allocated.load(std::memory_order_relaxed);
}

} // namespace quillon::bench
