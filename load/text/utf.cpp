// Chooses the kernels once, for the processor it runs on; the rest is one unit at a time.
#include "load/text/utf.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

#include "load/text/cpu_features.h"
#include "load/text/utf_encode.h"
#include "load/text/utf_kernels.h"

namespace rl::utf {

namespace {

// Loops over these two are turned into vector code by the compilers.
uint16_t UnitAt(const char* bytes) noexcept {
    uint16_t unit = 0;
    std::memcpy(&unit, bytes, sizeof unit);
    return unit;
}

constexpr uint16_t Swapped(uint16_t unit) noexcept {
    return static_cast<uint16_t>(unit << 8 | unit >> 8);
}

/// Kernels write 16-bit units; where the text's are wider, as natively, there is only the loop.
template <typename Unit>
Progress ConvertUtf8(std::string_view bytes, std::span<Unit> out) {
    if constexpr (sizeof(Unit) == sizeof(simd::TextUnit)) {
        static const Utf8Kernel<Unit> kernel =
            HasAvx2() ? simd::Utf8ToUnitsAvx2<Unit> : simd::Utf8ToUnitsSse2<Unit>;
        return Utf8ToUnitsWith(kernel, bytes, out);
    } else {
        return Utf8ToUnitsScalar(bytes, out);
    }
}

}  // namespace

Progress Utf8ToUnits(std::string_view bytes, std::span<wchar_t> out) {
    return ConvertUtf8(bytes, out);
}

size_t CountUnits(std::string_view bytes) {
    static const auto count = HasAvx2() ? simd::CountUnitsAvx2 : simd::CountUnitsSse2;
    return count(bytes.data(), bytes.size());
}

size_t CountUtf8(std::wstring_view units) {
    return CountUtf8Of(units);
}

size_t UnitsToUtf8(std::wstring_view units, char* out) {
    return static_cast<size_t>(UnitsToUtf8At(units, out) - out);
}

std::wstring_view PrefixOfWholePairs(std::wstring_view text, size_t size) {
    if (size >= text.size() || size == 0) {
        return text.substr(0, size);
    }
    const bool parts = CharacterAt(text.substr(size - 1)).units == 2;
    return text.substr(0, parts ? size - 1 : size);
}

void BytesToUnits(std::string_view bytes, ByteOrder order, wchar_t* out) {
    const bool swaps = (order == ByteOrder::Little) != (std::endian::native == std::endian::little);
    const size_t count = bytes.size() / 2;
    for (size_t at = 0; at < count; ++at) {
        const uint16_t unit = UnitAt(bytes.data() + 2 * at);
        out[at] = static_cast<wchar_t>(swaps ? Swapped(unit) : unit);
    }
}

// In blocks of their own: units and bytes might overlap, for all a compiler knows.
void UnitsToBytes(std::wstring_view units, ByteOrder order, char* out) {
    constexpr size_t kBlock = 32;
    const bool swaps = (order == ByteOrder::Little) != (std::endian::native == std::endian::little);
    std::array<uint16_t, kBlock> block;
    for (size_t at = 0; at < units.size(); at += kBlock) {
        const size_t size = std::min(units.size() - at, kBlock);
        for (size_t i = 0; i < size; ++i) {
            const auto unit = static_cast<uint16_t>(units[at + i]);
            block[i] = swaps ? Swapped(unit) : unit;
        }
        std::memcpy(out + 2 * at, block.data(), 2 * size);
    }
}

}  // namespace rl::utf
