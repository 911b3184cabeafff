// The keys we use, by their virtual-key numbers: fixed by the system, written down here so that the
// tables of keys need no header of it.
#pragma once

#include <cstdint>

namespace rl {

using VirtualKey = uint32_t;

namespace key {

inline constexpr VirtualKey kTab = 0x09;
inline constexpr VirtualKey kEnter = 0x0D;
inline constexpr VirtualKey kEscape = 0x1B;
inline constexpr VirtualKey kSpace = 0x20;
inline constexpr VirtualKey kPageUp = 0x21;
inline constexpr VirtualKey kPageDown = 0x22;
inline constexpr VirtualKey kEnd = 0x23;
inline constexpr VirtualKey kHome = 0x24;
inline constexpr VirtualKey kLeft = 0x25;
inline constexpr VirtualKey kUp = 0x26;
inline constexpr VirtualKey kRight = 0x27;
inline constexpr VirtualKey kDown = 0x28;
inline constexpr VirtualKey kNumMultiply = 0x6A;
inline constexpr VirtualKey kNumAdd = 0x6B;
inline constexpr VirtualKey kNumSubtract = 0x6D;
inline constexpr VirtualKey kNumDivide = 0x6F;
inline constexpr VirtualKey kF1 = 0x70;
inline constexpr VirtualKey kF2 = 0x71;
inline constexpr VirtualKey kF3 = 0x72;
inline constexpr VirtualKey kPlus = 0xBB;   // the main "+" or "=" key
inline constexpr VirtualKey kMinus = 0xBD;  // the main "-" key

/// The key of a letter or digit: its number is that of the upper-case character.
[[nodiscard]] constexpr VirtualKey Of(char character) {
    return static_cast<VirtualKey>(static_cast<unsigned char>(character));
}

}  // namespace key
}  // namespace rl
