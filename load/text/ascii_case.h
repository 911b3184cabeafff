// Letter case of plain ASCII names: labels, charset names, keys of formats.
//
// Knows nothing of languages; what users type goes through platform::FoldCase instead.
#pragma once

#include <algorithm>
#include <string_view>

namespace rl {

/// A to Z lowered, everything else as it is.
[[nodiscard]] constexpr wchar_t LowerAscii(wchar_t unit) noexcept {
    return unit >= L'A' && unit <= L'Z' ? static_cast<wchar_t>(unit + (L'a' - L'A')) : unit;
}

/// Whether two texts differ at most in the case of ASCII letters.
[[nodiscard]] constexpr bool EqualAsciiCase(std::wstring_view left,
                                            std::wstring_view right) noexcept {
    return std::ranges::equal(left, right, {}, LowerAscii, LowerAscii);
}

}  // namespace rl
