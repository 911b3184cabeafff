// Whole decimal numbers as people write them into settings.
//
// Our own, because the C library's answers depend on the locale and on the width of `long`.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

namespace rl {

/// The number a text consists of: blanks, a sign, digits 0 to 9, and nothing behind them. Nothing
/// when the text is anything else. Numbers too large for 64 bits become the nearest that fits.
[[nodiscard]] constexpr std::optional<int64_t> ParseWholeNumber(std::wstring_view text) {
    constexpr std::wstring_view kBlanks = L" \t\n\v\f\r";
    const size_t start = text.find_first_not_of(kBlanks);
    if (start == std::wstring_view::npos) {
        return std::nullopt;
    }
    text.remove_prefix(start);
    const bool negative = text.front() == L'-';
    if (negative || text.front() == L'+') {
        text.remove_prefix(1);
    }
    if (text.empty()) {
        return std::nullopt;
    }
    // Counted downwards: the smallest number has no positive twin.
    constexpr int64_t kLowest = std::numeric_limits<int64_t>::min();
    int64_t value = 0;
    for (const wchar_t unit : text) {
        if (unit < L'0' || unit > L'9') {
            return std::nullopt;
        }
        const int64_t digit = unit - L'0';
        value = value < (kLowest + digit) / 10 ? kLowest : value * 10 - digit;
    }
    if (negative) {
        return value;
    }
    return value == kLowest ? std::numeric_limits<int64_t>::max() : -value;
}

}  // namespace rl
