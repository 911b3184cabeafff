// Several INI texts, one answer: which section speaks first, and what counts as a number.
//
// Pure; the store beside the files decides when to read them anew.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/config/ini_text.h"

namespace rl {

class SettingsMap {
public:
    void Clear() { sections_.clear(); }
    /// Adds the keys of a text that ranks below all texts added before it.
    void Add(std::wstring_view iniText) { AddIniText(iniText, sections_); }

    /// The value of a key, in any letter case; null when no section that counts has it. Valid until
    /// the next change.
    [[nodiscard]] const std::wstring* Find(std::wstring_view key) const;
    /// Sets a key in our own section, over any value it had.
    void Set(std::wstring_view key, std::wstring_view value);

private:
    IniSections sections_;
};

/// The section that is ours, and is written to.
inline constexpr std::wstring_view kOwnSection = L"rowlark";

/// A value as a number clamped to 32 bits; `fallback` when it is not a whole decimal number.
[[nodiscard]] int32_t IntFromSetting(std::wstring_view value, int32_t fallback);

/// The delimiter that `default-column-delimiter` names; 0 for an empty value: find it.
[[nodiscard]] wchar_t DelimiterFromSetting(std::wstring_view value);

/// The quote that `quote-char` names: its first character, else the double quote.
[[nodiscard]] wchar_t QuoteFromSetting(std::wstring_view value);

/// The text between copied cells that `column-delimiter` names; TAB when it is empty.
[[nodiscard]] std::wstring CopySeparatorFromSetting(std::wstring_view value);

}  // namespace rl
