#include "view/logic/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <limits>
#include <string>

namespace rl {
namespace {

constexpr bool IsBlank(wchar_t unit) {
    return unit == L' ' || unit == L'\t';
}
constexpr bool IsDigit(wchar_t unit) {
    return unit >= L'0' && unit <= L'9';
}
constexpr bool IsSign(wchar_t unit) {
    return unit == L'+' || unit == L'-';
}

std::wstring_view Trim(std::wstring_view text) {
    while (!text.empty() && IsBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && IsBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

/// What a number's text says, before it is a double.
struct NumberParts {
    bool negative = false;
    uint64_t mantissa = 0;    // the digits, while they fit
    int64_t significant = 0;  // digits from the first that is not 0
    int64_t fractionDigits = 0;
    int64_t exponent = 0;  // as written; saturated
};

/// Reads "E", an optional sign and digits from `text`, which begins with the marker.
bool ReadExponent(std::wstring_view text, int64_t& exponent) {
    text.remove_prefix(1);
    bool negative = false;
    if (!text.empty() && IsSign(text.front())) {
        negative = text.front() == L'-';
        text.remove_prefix(1);
    }
    if (text.empty()) {
        return false;
    }
    constexpr int64_t kFarAway = 1'000'000'000'000;  // beyond any text's count of digits
    int64_t value = 0;
    for (const wchar_t unit : text) {
        if (!IsDigit(unit)) {
            return false;
        }
        value = std::min(kFarAway, value * 10 + (unit - L'0'));
    }
    exponent = negative ? -value : value;
    return true;
}

/// Reads digits with at most one point, then the exponent. `text` has no sign in front.
bool ReadNumber(std::wstring_view text, NumberParts& parts) {
    bool point = false;
    bool digits = false;
    for (size_t i = 0; i < text.size(); ++i) {
        const wchar_t unit = text[i];
        if (IsDigit(unit)) {
            digits = true;
            parts.fractionDigits += point ? 1 : 0;
            parts.significant += parts.significant > 0 || unit != L'0' ? 1 : 0;
            if (parts.significant <= 19) {
                parts.mantissa = parts.mantissa * 10 + static_cast<uint64_t>(unit - L'0');
            }
        } else if (unit == L'.' && !point) {
            point = true;
        } else {
            return digits && (unit == L'e' || unit == L'E') &&
                   ReadExponent(text.substr(i), parts.exponent);
        }
    }
    return digits;
}

/// The value where one correctly rounded multiplication or division gives it: both factors are
/// exact then. This is nearly every number in a table.
std::optional<double> SmallValue(const NumberParts& parts) {
    constexpr std::array<double, 23> kPowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                     1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                     1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    constexpr int64_t kLargest = kPowersOfTen.size() - 1;
    const int64_t power = parts.exponent - parts.fractionDigits;
    if (parts.significant > 15 || power > kLargest || power < -kLargest) {
        return std::nullopt;
    }
    const auto mantissa = static_cast<double>(parts.mantissa);
    const double factor = kPowersOfTen[static_cast<size_t>(power < 0 ? -power : power)];
    const double value = power < 0 ? mantissa / factor : mantissa * factor;
    return parts.negative ? -value : value;
}

/// The value of any number, independent of the C library's locale. `text` has no sign in front.
double LargeValue(std::wstring_view text, const NumberParts& parts) {
    std::string narrow(text.size(), '\0');
    std::transform(text.begin(), text.end(), narrow.begin(),
                   [](wchar_t unit) { return static_cast<char>(unit); });
    double value = 0;
    const auto result = std::from_chars(narrow.data(), narrow.data() + narrow.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        // Beyond what a double holds: too large is infinite, too small is zero.
        const bool large = parts.significant + parts.exponent - parts.fractionDigits > 0;
        value = large && parts.significant > 0 ? std::numeric_limits<double>::infinity() : 0.0;
    }
    return parts.negative ? -value : value;
}

}  // namespace

std::optional<double> ParseNumber(std::wstring_view text) {
    text = Trim(text);
    NumberParts parts;
    if (!text.empty() && IsSign(text.front())) {
        parts.negative = text.front() == L'-';
        text.remove_prefix(1);
    }
    if (!ReadNumber(text, parts)) {
        return std::nullopt;
    }
    const std::optional<double> small = SmallValue(parts);
    return small ? small : LargeValue(text, parts);
}

NumberText ClassifyNumber(std::wstring_view text) {
    text = Trim(text);
    const size_t sign = !text.empty() && IsSign(text.front()) ? 1 : 0;
    size_t separator = std::wstring_view::npos;
    for (size_t i = sign; i < text.size(); ++i) {
        if (IsDigit(text[i])) {
            continue;
        }
        const bool isSeparator = text[i] == L'.' || text[i] == L',';
        if (!isSeparator || separator != std::wstring_view::npos) {
            return {};
        }
        separator = i;
    }
    if (separator == std::wstring_view::npos) {
        return text.size() > sign ? NumberText{NumberShape::Integer, text, {}} : NumberText{};
    }
    if (separator == sign || separator + 1 == text.size()) {
        return {};
    }
    return {NumberShape::Decimal, text.substr(0, separator), text.substr(separator)};
}

}  // namespace rl
