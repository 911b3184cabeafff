// What the processor can do beyond the 64-bit baseline. Asked once, the same answer ever after.
#pragma once

namespace rl {

/// 256-bit integer vectors and both sets of bit-manipulation instructions, and a system that saves
/// their registers.
[[nodiscard]] bool HasAvx2() noexcept;

}  // namespace rl
