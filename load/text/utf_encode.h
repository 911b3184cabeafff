// UTF-16 to UTF-8, one character at a time and with the kernels in front of that.
//
// Templates over the unit, for the same reason as in utf_scalar.h.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "load/text/simd_encode.h"

namespace rl::utf {

/// The character at the start of a text, an unpaired surrogate read as U+FFFD.
struct Character {
    uint32_t point = 0;
    size_t units = 1;
};

template <typename Unit>
[[nodiscard]] constexpr Character CharacterAt(std::basic_string_view<Unit> text) noexcept {
    constexpr uint32_t kReplacement = 0xFFFD;
    const auto first = static_cast<uint32_t>(text[0]);
    if ((first & 0xF800) != 0xD800) {
        return {first, 1};
    }
    const auto second = text.size() > 1 ? static_cast<uint32_t>(text[1]) : 0;
    if ((first & 0xFC00) != 0xD800 || (second & 0xFC00) != 0xDC00) {
        return {kReplacement, 1};
    }
    return {0x10000 + ((first & 0x3FF) << 10) + (second & 0x3FF), 2};
}

[[nodiscard]] constexpr size_t Utf8Length(uint32_t point) noexcept {
    return point < 0x80 ? 1 : point < 0x800 ? 2 : point < 0x10000 ? 3 : 4;
}

/// Writes one character and returns the position behind it.
constexpr char* PutUtf8(uint32_t point, char* out) noexcept {
    const auto tail = [point](int shift) {
        return static_cast<char>(0x80 | (point >> shift & 0x3F));
    };
    switch (Utf8Length(point)) {
        case 1: *out++ = static_cast<char>(point); break;
        case 2:
            *out++ = static_cast<char>(0xC0 | point >> 6);
            *out++ = tail(0);
            break;
        case 3:
            *out++ = static_cast<char>(0xE0 | point >> 12);
            *out++ = tail(6);
            *out++ = tail(0);
            break;
        default:
            *out++ = static_cast<char>(0xF0 | point >> 18);
            *out++ = tail(12);
            *out++ = tail(6);
            *out++ = tail(0);
            break;
    }
    return out;
}

/// Kernels know 16-bit units only.
template <typename Unit>
inline constexpr bool kHasKernels = sizeof(Unit) == sizeof(simd::TextUnit);

template <typename Unit>
[[nodiscard]] size_t CountUtf8Of(std::basic_string_view<Unit> text) {
    constexpr size_t kStretch = 16;  // characters between two tries of the kernel
    size_t bytes = 0;
    while (!text.empty()) {
        if constexpr (kHasKernels<Unit>) {
            const simd::KernelProgress fast = simd::CountUtf8Sse2(text.data(), text.size());
            bytes += fast.written;
            text.remove_prefix(fast.read);
        }
        for (size_t left = kStretch; left > 0 && !text.empty(); --left) {
            const Character next = CharacterAt(text);
            bytes += Utf8Length(next.point);
            text.remove_prefix(next.units);
        }
    }
    return bytes;
}

/// Writes `CountUtf8Of` bytes and returns the position behind them.
template <typename Unit>
char* UnitsToUtf8At(std::basic_string_view<Unit> text, char* out) {
    while (!text.empty()) {
        if constexpr (kHasKernels<Unit>) {
            const size_t ascii = simd::PackAsciiSse2(text.data(), text.size(), out);
            out += ascii;
            text.remove_prefix(ascii);
        }
        // On to where ASCII begins again, or to the end.
        bool beyond = true;
        while (beyond && !text.empty()) {
            const Character next = CharacterAt(text);
            out = PutUtf8(next.point, out);
            text.remove_prefix(next.units);
            beyond = next.point >= 0x80 || text.size() < 16;
        }
    }
    return out;
}

}  // namespace rl::utf
