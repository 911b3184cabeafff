// See the header; the scalar loops live in utf_scalar.h.
#include "load/text/utf.h"

#include <cstdint>

#include "load/text/utf_scalar.h"

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

}  // namespace

Progress Utf8ToUnits(std::string_view bytes, std::span<wchar_t> out) {
    return Utf8ToUnitsScalar(bytes, out);
}

size_t CountUnits(std::string_view bytes) {
    size_t count = 0;
    for (const char byte : bytes) {
        const auto value = static_cast<uint8_t>(byte);
        count += (value & 0xC0) != 0x80 ? 1 : 0;
        count += value >= 0xF0 ? 1 : 0;
    }
    return count;
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
