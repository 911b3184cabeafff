// Chooses the kernels once, for the processor it runs on; the rest is one unit at a time.
#include "load/text/utf.h"

#include <cstdint>

#include "load/text/cpu_features.h"
#include "load/text/utf_kernels.h"

namespace rl::utf {

namespace {

constexpr bool IsHigh(uint32_t unit) noexcept {
    return (unit & 0xFC00) == 0xD800;
}
constexpr bool IsLow(uint32_t unit) noexcept {
    return (unit & 0xFC00) == 0xDC00;
}

/// Whether the units at `at` are a surrogate pair.
bool IsPairAt(std::wstring_view units, size_t at) noexcept {
    return IsHigh(static_cast<uint32_t>(units[at])) && at + 1 < units.size() &&
           IsLow(static_cast<uint32_t>(units[at + 1]));
}

char Tail(uint32_t point, int shift) noexcept {
    return static_cast<char>(0x80 | (point >> shift & 0x3F));
}

char* PutUtf8(uint32_t point, char* out) noexcept {
    if (point < 0x80) {
        *out++ = static_cast<char>(point);
    } else if (point < 0x800) {
        *out++ = static_cast<char>(0xC0 | point >> 6);
        *out++ = Tail(point, 0);
    } else if (point < 0x10000) {
        *out++ = static_cast<char>(0xE0 | point >> 12);
        *out++ = Tail(point, 6);
        *out++ = Tail(point, 0);
    } else {
        *out++ = static_cast<char>(0xF0 | point >> 18);
        *out++ = Tail(point, 12);
        *out++ = Tail(point, 6);
        *out++ = Tail(point, 0);
    }
    return out;
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
    size_t count = 0;
    for (size_t at = 0; at < units.size(); ++at) {
        const auto unit = static_cast<uint32_t>(units[at]);
        if (IsPairAt(units, at)) {
            count += 4;
            ++at;
        } else {
            count += unit < 0x80 ? 1 : unit < 0x800 ? 2 : 3;
        }
    }
    return count;
}

void UnitsToUtf8(std::wstring_view units, char* out) {
    for (size_t at = 0; at < units.size(); ++at) {
        uint32_t point = static_cast<uint32_t>(units[at]);
        if (IsPairAt(units, at)) {
            ++at;
            point = 0x10000 + ((point & 0x3FF) << 10) + (static_cast<uint32_t>(units[at]) & 0x3FF);
        } else if (IsHigh(point) || IsLow(point)) {
            point = 0xFFFD;
        }
        out = PutUtf8(point, out);
    }
}

void BytesToUnits(std::string_view bytes, ByteOrder order, wchar_t* out) {
    const size_t low = order == ByteOrder::Little ? 0 : 1;
    for (size_t at = 0; at + 1 < bytes.size(); at += 2) {
        const auto lowByte = static_cast<uint8_t>(bytes[at + low]);
        const auto highByte = static_cast<uint8_t>(bytes[at + 1 - low]);
        *out++ = static_cast<wchar_t>(highByte << 8 | lowByte);
    }
}

void UnitsToBytes(std::wstring_view units, ByteOrder order, char* out) {
    const int first = order == ByteOrder::Little ? 0 : 8;
    for (const wchar_t unit : units) {
        *out++ = static_cast<char>(static_cast<uint32_t>(unit) >> first & 0xFF);
        *out++ = static_cast<char>(static_cast<uint32_t>(unit) >> (8 - first) & 0xFF);
    }
}

}  // namespace rl::utf
