// The limit for decoding in memory: every byte made a unit, nothing looked at.
#pragma once

#include <cstddef>

#include "load/text/simd_utf8.h"

namespace rl::bench {

/// Widens `size` bytes to as many units, with 256-bit vectors.
void WidenAvx2(const char* bytes, size_t size, simd::TextUnit* out);

}  // namespace rl::bench
