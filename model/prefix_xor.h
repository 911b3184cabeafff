// Sums of bits without carry, by which a mask of quotes becomes one of what stands between them.
#pragma once

#include <cstdint>

namespace rl::detail {

/// Bit i of the answer is set when an odd number of the bits 0 .. i is. Static: each instruction
/// set's file has a copy of its own, so that none is linked into the path of another.
static inline uint64_t PrefixXor(uint64_t bits) {
    bits ^= bits << 1;
    bits ^= bits << 2;
    bits ^= bits << 4;
    bits ^= bits << 8;
    bits ^= bits << 16;
    bits ^= bits << 32;
    return bits;
}

}  // namespace rl::detail
