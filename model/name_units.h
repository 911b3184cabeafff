// Which units names are made of: letters and digits for keys, name characters for XML.
//
// Decided by tables of our own, so that every build answers alike; the letters and digits are those
// of the Windows C library. Units of surrogate pairs are neither.
#pragma once

#include <cstdint>
#include <string_view>

namespace rl {

[[nodiscard]] bool IsAlphabetic(wchar_t unit);
[[nodiscard]] bool IsAlphanumeric(wchar_t unit);

/// Whether a unit may begin an XML name, and whether it may stand in one. Halves of surrogate pairs
/// need each other and are refused.
[[nodiscard]] bool IsXmlNameStart(wchar_t unit);
[[nodiscard]] bool IsXmlNameUnit(wchar_t unit);
/// Whether the whole text is a name of XML 1.0.
[[nodiscard]] bool IsXmlName(std::wstring_view text);

}  // namespace rl
