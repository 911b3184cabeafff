// The tokens of JSON: string escapes and the grammar of numbers (RFC 8259, sections 6 and 7).
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace rl {

/// Appends the text of a string token, its quotes included. Escapes that mean nothing give the
/// escaped character itself; a "\u" without four digits before the quote is dropped.
void DecodeJsonString(std::wstring_view token, std::wstring& out);
/// Appends the literal for a text, with quotes.
void EscapeJsonString(std::wstring_view text, std::wstring& out);

/// The end of the number that begins at `at`; `at` itself when there is none.
[[nodiscard]] size_t NumberEnd(std::wstring_view text, size_t at);
/// The end of the string token that begins at `at`; `at` itself when it is none: it is not closed,
/// or a "\u" lacks one of its four digits.
[[nodiscard]] size_t StringEnd(std::wstring_view text, size_t at);

}  // namespace rl
