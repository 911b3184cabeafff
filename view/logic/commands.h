// Every command of the menus: its identifier, its label, when it may run and when it is ticked.
//
// The identifiers are fixed numbers and written only here. What a command does is not told here.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "view/logic/command_state.h"

namespace rl {

enum class Command : uint16_t {
    CopyCell = 5000,
    CopyRows = 5001,
    CopyColumn = 5002,
    ToggleFilters = 5003,
    ToggleHeaderRow = 5004,
    ToggleLineNumbers = 5006,
    DeleteRows = 5007,
    HideColumn = 5008,
    ShowAllColumns = 5009,

    EncodingAnsi = 5010,
    EncodingUtf8 = 5011,
    EncodingUtf16Le = 5012,
    EncodingUtf16Be = 5013,

    DelimiterComma = 5020,
    DelimiterSemicolon = 5021,
    DelimiterBar = 5022,
    DelimiterTab = 5023,
    DelimiterColon = 5024,
    DelimiterAuto = 5025,

    CommentsParse = 5030,
    CommentsDoNotParse = 5031,
    CommentsHide = 5032,
    CommentsAuto = 5033,

    InsertRow = 5034,
    ToggleEdit = 5040,
    Save = 5041,
    DeleteColumn = 5042,
    LocateInSource = 5043,

    ToggleOutline = 5050,
    ExpandAll = 5051,
    CollapseAll = 5052,
    ExpandNode = 5053,

    CopyAsJson = 5060,
    CopyAsXml = 5061,
    CopyPath = 5062,

    ToggleValuePane = 5070,
    ChooseFont = 5071,
    ChooseSourceFont = 5072,

    ThemeLight = 5100,  // 5100 + index of the theme
    ThemePaper = 5101,
    ThemeDark = 5102,
    ThemeMidnight = 5103,
    ThemeSolarizedDark = 5104,
};

using CommandPredicate = bool (*)(const CommandState&);

struct CommandInfo {
    Command id;
    std::wstring_view label;  // a tab separates the shortcut shown at the right
    CommandPredicate enabled;
    CommandPredicate checked;
};

[[nodiscard]] std::span<const CommandInfo> AllCommands();

/// The row of a command; null for a number that is none.
[[nodiscard]] const CommandInfo* FindCommand(uint32_t id);

/// The label as it must read now: "Path" is named for the kind of document.
[[nodiscard]] std::wstring_view CommandLabel(const CommandInfo& command, const CommandState& state);

/// The encoding that a command chooses, as the documents name it; empty for any other command.
[[nodiscard]] std::wstring_view EncodingOf(Command command);

struct DelimiterChoice {
    wchar_t delimiter;              // 0: find it
    std::wstring_view settingText;  // what `default-column-delimiter` becomes once it has worked
};

/// The delimiter that a command chooses; null for any other command.
[[nodiscard]] const DelimiterChoice* DelimiterOf(Command command);

/// The comment handling that a command chooses; null for any other command.
[[nodiscard]] const CommentMode* CommentModeOf(Command command);

/// The index of the theme that a command chooses; -1 for any other command.
[[nodiscard]] int32_t ThemeIndexOf(Command command);

}  // namespace rl
