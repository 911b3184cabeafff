#include "tests/support/allocation_limit.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace {

constexpr size_t kUnlimited = SIZE_MAX;

std::atomic<size_t> remaining = kUnlimited;

/// Takes `size` bytes off what remains; false, and nothing taken, when that is too little.
bool TakeFromLimit(size_t size) noexcept {
    size_t before = remaining;
    do {
        if (before == kUnlimited) {
            return true;
        }
        if (size > before) {
            return false;
        }
    } while (!remaining.compare_exchange_weak(before, before - size));
    return true;
}

}  // namespace

void* operator new(size_t size) {
    void* memory = TakeFromLimit(size) ? std::malloc(size == 0 ? 1 : size) : nullptr;
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

void* operator new(size_t size, const std::nothrow_t&) noexcept {
    return TakeFromLimit(size) ? std::malloc(size == 0 ? 1 : size) : nullptr;
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, size_t) noexcept {
    std::free(memory);
}

void operator delete(void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}

namespace rl::test {

AllocationLimit::AllocationLimit(size_t bytes) {
    remaining = bytes;
}
AllocationLimit::~AllocationLimit() {
    remaining = kUnlimited;
}

}  // namespace rl::test
