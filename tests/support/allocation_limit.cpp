#include "tests/support/allocation_limit.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace {

std::atomic<size_t> largest = SIZE_MAX;

}  // namespace

void* operator new(size_t size) {
    void* memory = size > largest ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, size_t) noexcept {
    std::free(memory);
}

namespace rl::test {

AllocationLimit::AllocationLimit(size_t bytes) {
    largest = bytes;
}
AllocationLimit::~AllocationLimit() {
    largest = SIZE_MAX;
}

}  // namespace rl::test
