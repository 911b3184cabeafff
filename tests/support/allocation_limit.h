// Lets memory run out where a test wants it to.
//
// A program that links this has an operator new of its own. While a limit stands, it hands out so
// many bytes more, on all threads together, and then throws std::bad_alloc. Memory given back does
// not count again.
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
