// Lets memory run out where a test wants it to.
//
// A program that links this has an operator new of its own. While a limit stands, any single
// allocation above it throws std::bad_alloc, on every thread.
#pragma once

#include <cstddef>

namespace rl::test {

class AllocationLimit {
public:
    explicit AllocationLimit(size_t bytes);
    AllocationLimit(const AllocationLimit&) = delete;
    AllocationLimit& operator=(const AllocationLimit&) = delete;
    ~AllocationLimit();
};

}  // namespace rl::test
