// The names that files use for their encodings, and the Windows code pages they mean.
//
// Pure data and look-ups; safe on any thread.
#pragma once

#include <cstdint>
#include <string_view>

namespace rl {

/// The code page for a charset name, letter case aside; 0 for a name that is not in the table.
[[nodiscard]] uint32_t CodePageForCharset(std::wstring_view name);

/// The code page that an XML declaration means: its name in the table or, failing that, the first
/// decimal number in it ("windows-874" is 874) when it lies in 37 to 65001; else 0. The number may
/// name a page that no system has ("iso-8859-3" is 8859).
[[nodiscard]] uint32_t CodePageForDeclaration(std::wstring_view name);

}  // namespace rl
