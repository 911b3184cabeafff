// What a number is: the strict rule of filter and sort, and the looser one of decimal alignment.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace rl {

/// The number that the whole text is, blanks and tabs around it aside; nothing for any other text.
/// Digits with at most one "." and an exponent; "1e", "1,5", "0x10" and "inf" are none.
[[nodiscard]] std::optional<double> ParseNumber(std::wstring_view text);

enum class NumberShape { Text, Integer, Decimal };

/// How a cell stands in an aligned column. The views point into the text given.
struct NumberText {
    NumberShape shape = NumberShape::Text;
    std::wstring_view integer;   // with its sign; the whole trimmed text of an integer
    std::wstring_view fraction;  // separator first; empty for an integer
};

/// Classifies a cell for decimal alignment: one "." or "," with a digit on both sides, or digits.
[[nodiscard]] NumberText ClassifyNumber(std::wstring_view text);

}  // namespace rl
