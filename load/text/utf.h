// The conversions between UTF-8, UTF-16 bytes and UTF-16 units.
//
// Exact and strict: what is not plainly valid is reported by position, never guessed at. Buffers
// belong to the caller. Safe on any thread.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace rl::utf {

/// How far a conversion came.
struct Progress {
    size_t read = 0;     // input, always whole sequences
    size_t written = 0;  // output

    bool operator==(const Progress&) const = default;
};

/// Converts UTF-8 up to the first sequence that is not well formed (overlong, surrogate, beyond
/// U+10FFFF, cut, stray), or that `out` has no room for, or to the end. Units of `out` beyond
/// `written` are undefined.
[[nodiscard]] Progress Utf8ToUnits(std::string_view bytes, std::span<wchar_t> out);

/// The units that well-formed UTF-8 converts to.
[[nodiscard]] size_t CountUnits(std::string_view bytes);

/// The bytes that `UnitsToUtf8` writes.
[[nodiscard]] size_t CountUtf8(std::wstring_view units);

/// Converts to UTF-8; an unpaired surrogate becomes U+FFFD. Writes `CountUtf8` bytes, for which
/// `out` has room, and returns how many those are.
size_t UnitsToUtf8(std::wstring_view units, char* out);

/// The beginning of `text` of at most `size` units, one less where that would part a pair; never
/// empty when `text` is not and `size` is at least 2.
[[nodiscard]] std::wstring_view PrefixOfWholePairs(std::wstring_view text, size_t size);

enum class ByteOrder { Little, Big };

/// One unit for each byte pair, an odd last byte dropped; surrogates are not looked at. `out` has
/// room for half as many units as there are bytes.
void BytesToUnits(std::string_view bytes, ByteOrder order, wchar_t* out);

/// Two bytes for each unit. `out` has room for them.
void UnitsToBytes(std::wstring_view units, ByteOrder order, char* out);

}  // namespace rl::utf
