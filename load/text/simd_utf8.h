// Vector kernels that convert UTF-8 to 16-bit units, one for each instruction set.
//
// A kernel works as far as its vectors are good for and stops there, before anything unusual and
// before the ends of its buffers; the caller takes the next sequences one at a time and may call
// again. So kernels hold no rare cases, and text that is not well formed is never theirs to judge.
//
// Each lives in a file that is compiled for its instruction set. Nothing here is inline, or code
// for a newer processor could end up in everybody's copy of it.
#pragma once

#include <cstddef>
#include <type_traits>

namespace rl::simd {

/// The 16-bit unit that kernels are instantiated for: the module's own; natively, where that is
/// wider, the one that tests and benchmarks use in its place.
using TextUnit = std::conditional_t<sizeof(wchar_t) == 2, wchar_t, char16_t>;

struct KernelProgress {
    size_t read;     // bytes, always whole well-formed sequences
    size_t written;  // units
};

/// Converts from `bytes[from]` on. `from` is the start of a sequence and everything before it is
/// well formed. Writes to `out`, which has room for `room` units; units beyond `written` may be
/// overwritten with anything. Instantiated for `TextUnit`.
template <typename Unit>
KernelProgress Utf8ToUnitsSse2(const char* bytes, size_t size, size_t from, Unit* out, size_t room);
template <typename Unit>
KernelProgress Utf8ToUnitsAvx2(const char* bytes, size_t size, size_t from, Unit* out, size_t room);

/// Bytes that do not continue a sequence, plus those that lead one of four: the units of
/// well-formed UTF-8.
size_t CountUnitsSse2(const char* bytes, size_t size);
size_t CountUnitsAvx2(const char* bytes, size_t size);

}  // namespace rl::simd
