// What the pure code needs from the operating system: code pages, case folding and collation.
//
// Declared here, defined twice: for Windows in platform_win32.cpp, which ships, and for native
// builds in tests/support/platform_portable.cpp. The linker chooses; the logic has no #ifdef.
//
// Text holds UTF-16 units on both sides. Where wchar_t is wider, a unit has room to spare.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace rl::platform {

/// Decodes bytes of a Windows code page (MultiByteToWideChar, no flags; 0 is the system's ANSI code
/// page, 65001 is UTF-8 with replacement characters); nothing when the system lacks the page.
[[nodiscard]] std::optional<std::wstring> DecodeCodePage(std::string_view bytes, uint32_t codePage);

/// Encodes text for a Windows code page (WideCharToMultiByte without best-fit mappings; 0 is the
/// system's ANSI code page); nothing when a character has no place in it or the page is missing.
/// Pages that can neither forbid best fits nor report them (the ISO-2022 family and UTF-8 among
/// them) are converted without that check.
[[nodiscard]] std::optional<std::string> EncodeCodePage(std::wstring_view text, uint32_t codePage);

/// Lowers every unit in place, without changing the length (CharLowerBuffW).
void FoldCase(std::span<wchar_t> text);

/// Orders two texts as the user's language does, ignoring case and width, digits as numbers
/// (CompareStringEx): negative, zero or positive. Ordinal when the system cannot compare.
[[nodiscard]] int Collate(std::wstring_view left, std::wstring_view right);

/// A key for the same order: keys compared byte by byte order their texts as `Collate` does.
[[nodiscard]] std::string CollationKey(std::wstring_view text);

}  // namespace rl::platform
