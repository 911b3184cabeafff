// Vector kernels for the way back: units to bytes.
//
// As with decoding, a kernel goes as far as text is ordinary; what it stops at is the caller's.
#pragma once

#include <cstddef>

#include "load/text/simd_utf8.h"

namespace rl::simd {

/// Writes the leading ASCII of the text as bytes and returns how much that was. `out` has room for
/// `size` bytes, and those behind the result may be overwritten with anything. May stop short of
/// the end, by less than 16 units.
size_t PackAsciiSse2(const TextUnit* units, size_t size, char* out);

/// How many bytes the text takes as UTF-8, up to the first surrogate: `read` is in units, `written`
/// in bytes. May stop short of a surrogate or of the end, by less than 16 units.
KernelProgress CountUtf8Sse2(const TextUnit* units, size_t size);

}  // namespace rl::simd
