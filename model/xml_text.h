// The characters of XML text: what ends a name, entities resolved, and escapes.
//
// Only the five named references and character references are known; whatever a document type
// declares stays as it is written.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace rl {

namespace detail {

template <typename... Units>
consteval uint64_t UnitSet(Units... units) {
    return ((uint64_t{1} << units) | ...);
}

/// Sets of units, all below 64, one bit for each.
inline constexpr uint64_t kXmlBlanks = UnitSet(' ', '\t', '\n', '\r');
inline constexpr uint64_t kXmlNameEnds = kXmlBlanks | UnitSet('/', '=', '>');
inline constexpr uint64_t kXmlQuotes = UnitSet('"', '\'');

template <typename Unit>
[[nodiscard]] constexpr bool IsIn(uint64_t set, Unit unit) noexcept {
    const auto number = static_cast<uint32_t>(unit);
    return number < 64 && (set >> number & 1) != 0;
}

/// The first unit of [at, end) that is in the set; `end` without one.
template <typename Unit>
[[nodiscard]] constexpr const Unit* FindIn(uint64_t set, const Unit* at, const Unit* end) noexcept {
    while (at < end && !IsIn(set, *at)) {
        ++at;
    }
    return at;
}

/// The first unit of [at, end) that is not a blank; `end` without one.
template <typename Unit>
[[nodiscard]] constexpr const Unit* SkipXmlBlanks(const Unit* at, const Unit* end) noexcept {
    while (at < end && IsIn(kXmlBlanks, *at)) {
        ++at;
    }
    return at;
}

}  // namespace detail

/// The texts of DecodeEntities, EscapeText and EscapeAttribute added to `out`.
void AppendDecodedEntities(std::wstring_view text, std::wstring& out);
void AppendEscapedText(std::wstring_view text, std::wstring& out);
void AppendEscapedAttribute(std::wstring_view text, wchar_t quote, std::wstring& out);

}  // namespace rl
