// Entities and escapes of XML text.
#pragma once

#include <string>
#include <string_view>

namespace rl {

/// Appends the text with the five named references and character references resolved; a reference
/// that is unknown, or whose end is more than 32 units away, stays as it is written.
void DecodeXmlText(std::wstring_view text, std::wstring& out);
/// Appends the text as it may stand between tags.
void EscapeXmlText(std::wstring_view text, std::wstring& out);
/// Appends the text as it may stand between two `quote` characters.
void EscapeXmlAttribute(std::wstring_view text, wchar_t quote, std::wstring& out);

}  // namespace rl
