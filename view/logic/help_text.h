// The keyboard help: a table of its own, because its words differ from the menus'.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace rl {

struct HelpEntry {
    std::wstring_view section;  // repeated in each row of the section
    std::wstring_view keys;
    std::wstring_view action;
};

inline constexpr std::wstring_view kHelpTitle = L"rowlark 1.1.0 - Keyboard Shortcuts";

[[nodiscard]] std::span<const HelpEntry> HelpEntries();

/// The text of the help window: fixed columns, lines ended by CR LF.
[[nodiscard]] std::wstring HelpText();

}  // namespace rl
