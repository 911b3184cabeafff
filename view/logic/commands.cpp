#include "view/logic/commands.h"

#include <algorithm>
#include <array>

#include "host/config/themes.h"

namespace rl {
namespace {

constexpr CommandPredicate kAlways = [](const CommandState&) { return true; };
constexpr CommandPredicate kNever = [](const CommandState&) { return false; };

// When it may run.
constexpr CommandPredicate kTreeDocument = [](const CommandState& s) {
    return s.kind != DocumentKind::Csv;
};
constexpr CommandPredicate kEditableRow = [](const CommandState& s) {
    return s.kind == DocumentKind::Csv && s.editMode && s.currentRow >= 0;
};
constexpr CommandPredicate kEditableColumn = [](const CommandState& s) {
    return s.kind == DocumentKind::Csv && s.editMode && s.currentDataColumn >= 0 &&
           s.currentDataColumn < s.columnCount;
};
constexpr CommandPredicate kDeletableRows = [](const CommandState& s) {
    return s.editMode && s.kind != DocumentKind::Json;
};
constexpr CommandPredicate kExpandableNode = [](const CommandState& s) {
    return s.outlineInGrid && s.canExpandNode;
};

// When it is ticked.
constexpr CommandPredicate kFilterRow = [](const CommandState& s) { return s.filterRow; };
constexpr CommandPredicate kValuePane = [](const CommandState& s) { return s.valuePane; };
constexpr CommandPredicate kHeaderRow = [](const CommandState& s) { return s.headerRow; };
constexpr CommandPredicate kLineNumbers = [](const CommandState& s) { return s.lineNumbers; };
constexpr CommandPredicate kEditMode = [](const CommandState& s) { return s.editMode; };
constexpr CommandPredicate kOutline = [](const CommandState& s) { return s.outlineInGrid; };

template <int32_t Index>
constexpr CommandPredicate kTheme = [](const CommandState& s) { return s.themeIndex == Index; };
template <wchar_t Delimiter>
constexpr CommandPredicate kDelimiter =
    [](const CommandState& s) { return !s.delimiterIsAuto && s.delimiter == Delimiter; };
constexpr CommandPredicate kDelimiterAuto = [](const CommandState& s) { return s.delimiterIsAuto; };
template <CommentMode Mode>
constexpr CommandPredicate kComments = [](const CommandState& s) { return s.commentMode == Mode; };

constexpr wchar_t Lower(wchar_t unit) {
    return unit >= L'A' && unit <= L'Z' ? static_cast<wchar_t>(unit + (L'a' - L'A')) : unit;
}

// Encoding names are ASCII: the system's folding is not needed.
constexpr bool IsSameName(std::wstring_view left, std::wstring_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](wchar_t a, wchar_t b) { return Lower(a) == Lower(b); });
}

constexpr CommandPredicate kAnsi = [](const CommandState& s) {
    return IsSameName(s.encodingName, L"ANSI");
};
constexpr CommandPredicate kUtf8 = [](const CommandState& s) {
    return IsSameName(s.encodingName, L"UTF-8");
};
constexpr CommandPredicate kUtf16Le = [](const CommandState& s) {
    return IsSameName(s.encodingName, L"UTF-16LE");
};
constexpr CommandPredicate kUtf16Be = [](const CommandState& s) {
    return IsSameName(s.encodingName, L"UTF-16BE");
};

constexpr CommandInfo kCommands[] = {
    {Command::CopyCell, L"Copy cell", kAlways, kNever},
    {Command::CopyRows, L"Copy row(s)\tShift+C", kAlways, kNever},
    {Command::CopyColumn, L"Copy column\tCtrl+C", kAlways, kNever},
    {Command::CopyAsJson, L"JSON", kTreeDocument, kNever},
    {Command::CopyAsXml, L"XML", kTreeDocument, kNever},
    {Command::CopyPath, L"Path", kTreeDocument, kNever},
    {Command::InsertRow, L"Insert row below", kEditableRow, kNever},
    {Command::DeleteRows, L"Delete row(s)\tCtrl+X", kDeletableRows, kNever},
    {Command::DeleteColumn, L"Delete column", kEditableColumn, kNever},
    {Command::HideColumn, L"Hide column\tCtrl+Click", kAlways, kNever},
    {Command::ShowAllColumns, L"Show all columns\tCtrl+Space", kAlways, kNever},
    {Command::ToggleFilters, L"Filters", kAlways, kFilterRow},
    {Command::ToggleValuePane, L"Value pane\tCtrl+D", kAlways, kValuePane},
    {Command::ToggleHeaderRow, L"Header row", kAlways, kHeaderRow},
    {Command::ToggleEdit, L"Edit mode\tCtrl+E", kAlways, kEditMode},
    {Command::Save, L"Save\tCtrl+S", kAlways, kNever},
    {Command::ToggleOutline, L"Outline view", kAlways, kOutline},
    {Command::ExpandNode, L"Expand node\tShift+Num *", kExpandableNode, kNever},
    {Command::ExpandAll, L"Expand all\tNum *", kAlways, kNever},
    {Command::CollapseAll, L"Collapse all\tNum /", kAlways, kNever},
    {Command::LocateInSource, L"Locate in source\tCtrl+L", kAlways, kNever},
    {Command::ToggleLineNumbers, L"Show line numbers", kAlways, kLineNumbers},
    {Command::ChooseFont, L"Font...", kAlways, kNever},
    {Command::ChooseSourceFont, L"Source font...", kAlways, kNever},

    {Command::ThemeLight, L"Light", kAlways, kTheme<0>},
    {Command::ThemePaper, L"Paper", kAlways, kTheme<1>},
    {Command::ThemeDark, L"Dark", kAlways, kTheme<2>},
    {Command::ThemeMidnight, L"Midnight", kAlways, kTheme<3>},
    {Command::ThemeSolarizedDark, L"Solarized Dark", kAlways, kTheme<4>},

    {Command::EncodingAnsi, L"ANSI", kAlways, kAnsi},
    {Command::EncodingUtf8, L"UTF-8", kAlways, kUtf8},
    {Command::EncodingUtf16Le, L"UTF-16LE", kAlways, kUtf16Le},
    {Command::EncodingUtf16Be, L"UTF-16BE", kAlways, kUtf16Be},

    {Command::DelimiterAuto, L"Auto", kAlways, kDelimiterAuto},
    {Command::DelimiterComma, L",", kAlways, kDelimiter<L','>},
    {Command::DelimiterSemicolon, L";", kAlways, kDelimiter<L';'>},
    {Command::DelimiterBar, L"|", kAlways, kDelimiter<L'|'>},
    {Command::DelimiterTab, L"TAB", kAlways, kDelimiter<L'\t'>},
    {Command::DelimiterColon, L":", kAlways, kDelimiter<L':'>},

    {Command::CommentsAuto, L"Auto", kAlways, kComments<CommentMode::Auto>},
    {Command::CommentsParse, L"Parse normally", kAlways, kComments<CommentMode::Parse>},
    {Command::CommentsDoNotParse, L"Do not parse", kAlways, kComments<CommentMode::DoNotParse>},
    {Command::CommentsHide, L"Hide", kAlways, kComments<CommentMode::Hide>},
};

constexpr bool EveryIdOccursOnce(std::span<const CommandInfo> commands) {
    for (size_t i = 0; i < commands.size(); ++i) {
        for (size_t j = i + 1; j < commands.size(); ++j) {
            if (commands[i].id == commands[j].id) {
                return false;
            }
        }
    }
    return true;
}

static_assert(std::size(kCommands) == 43);
static_assert(EveryIdOccursOnce(kCommands), "two commands share an identifier");
static_assert(static_cast<size_t>(Command::ThemeSolarizedDark) -
                      static_cast<size_t>(Command::ThemeLight) + 1 ==
                  kThemeCount,
              "each theme has a command");

struct DelimiterRow {
    Command command;
    DelimiterChoice choice;
};

constexpr DelimiterRow kDelimiters[] = {
    {Command::DelimiterAuto, {0, L""}},          {Command::DelimiterComma, {L',', L","}},
    {Command::DelimiterSemicolon, {L';', L";"}}, {Command::DelimiterBar, {L'|', L"|"}},
    {Command::DelimiterTab, {L'\t', L"TAB"}},    {Command::DelimiterColon, {L':', L":"}},
};

struct CommentRow {
    Command command;
    CommentMode mode;
};

constexpr CommentRow kCommentModes[] = {
    {Command::CommentsAuto, CommentMode::Auto},
    {Command::CommentsParse, CommentMode::Parse},
    {Command::CommentsDoNotParse, CommentMode::DoNotParse},
    {Command::CommentsHide, CommentMode::Hide},
};

template <typename Row>
const Row* FindRow(std::span<const Row> rows, Command command) {
    const auto found = std::find_if(rows.begin(), rows.end(),
                                    [&](const Row& row) { return row.command == command; });
    return found == rows.end() ? nullptr : &*found;
}

}  // namespace

std::span<const CommandInfo> AllCommands() {
    return kCommands;
}

const CommandInfo* FindCommand(uint32_t id) {
    const auto* found =
        std::find_if(std::begin(kCommands), std::end(kCommands),
                     [&](const CommandInfo& row) { return static_cast<uint32_t>(row.id) == id; });
    return found == std::end(kCommands) ? nullptr : found;
}

std::wstring_view CommandLabel(const CommandInfo& command, const CommandState& state) {
    if (command.id == Command::CopyPath && state.kind == DocumentKind::Json) {
        return L"JSON path";
    }
    if (command.id == Command::CopyPath && state.kind == DocumentKind::Xml) {
        return L"XPath";
    }
    return command.label;
}

std::wstring_view EncodingOf(Command command) {
    const bool isEncoding = command >= Command::EncodingAnsi && command <= Command::EncodingUtf16Be;
    return isEncoding ? FindCommand(static_cast<uint32_t>(command))->label : std::wstring_view();
}

const DelimiterChoice* DelimiterOf(Command command) {
    const DelimiterRow* row = FindRow<DelimiterRow>(kDelimiters, command);
    return row != nullptr ? &row->choice : nullptr;
}

const CommentMode* CommentModeOf(Command command) {
    const CommentRow* row = FindRow<CommentRow>(kCommentModes, command);
    return row != nullptr ? &row->mode : nullptr;
}

int32_t ThemeIndexOf(Command command) {
    const bool isTheme = command >= Command::ThemeLight && command <= Command::ThemeSolarizedDark;
    return isTheme ? static_cast<int32_t>(command) - static_cast<int32_t>(Command::ThemeLight) : -1;
}

}  // namespace rl
