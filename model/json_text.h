// JSON's string literals and numbers: from the file's spelling to plain text and back.
//
// `EscapeString` and `IsValidJsonNumber`, declared with the document, are defined here as well.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace rl {

/// The unit that four hexadecimal digits name; nothing for anything but exactly four.
[[nodiscard]] std::optional<wchar_t> FourHexDigits(std::wstring_view digits);

/// Appends the text of a string token, which includes its quotes.
void AppendDecoded(std::wstring_view token, std::wstring& out);
/// Appends the literal for a text, quotes included.
void AppendEscaped(std::wstring_view text, std::wstring& out);

/// Rewrites each half of a surrogate pair that stands alone in JSON text as an escape, which means
/// the same: as a character hardly an encoding would carry it.
void EscapeLoneSurrogates(std::wstring& json);

/// Whether a string token is already spelled as `AppendEscaped` would spell its text.
[[nodiscard]] bool IsCanonicalToken(std::wstring_view token);

}  // namespace rl
