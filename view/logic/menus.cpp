#include "view/logic/menus.h"

#include <algorithm>
#include <iterator>

namespace rl {
namespace {

constexpr MenuRow Item(Command command) {
    return {.kind = MenuRowKind::Item, .command = command};
}

constexpr MenuRow Submenu(MenuId menu, std::wstring_view title) {
    return {.kind = MenuRowKind::Submenu, .submenu = menu, .title = title};
}

constexpr MenuRow kSeparator = {};

constexpr MenuRow kContext[] = {
    Item(Command::CopyCell),
    Item(Command::CopyRows),
    Item(Command::CopyColumn),
    Submenu(MenuId::CopyNode, L"Copy node as"),
    Item(Command::InsertRow),
    Item(Command::DeleteRows),
    Item(Command::DeleteColumn),
    kSeparator,
    Item(Command::HideColumn),
    Item(Command::ShowAllColumns),
    kSeparator,
    Item(Command::ToggleFilters),
    Item(Command::ToggleValuePane),
    Item(Command::ToggleHeaderRow),
    Item(Command::ToggleEdit),
    Item(Command::Save),
    kSeparator,
    Item(Command::ToggleOutline),
    Item(Command::ExpandNode),
    Item(Command::ExpandAll),
    Item(Command::CollapseAll),
    kSeparator,
    Item(Command::LocateInSource),
    Item(Command::ToggleLineNumbers),
    Submenu(MenuId::Theme, L"Theme"),
    Item(Command::ChooseFont),
    Item(Command::ChooseSourceFont),
};

constexpr MenuRow kCopyNode[] = {
    Item(Command::CopyAsJson),
    Item(Command::CopyAsXml),
    kSeparator,
    Item(Command::CopyPath),
};

constexpr MenuRow kTheme[] = {
    Item(Command::ThemeLight),    Item(Command::ThemePaper),         Item(Command::ThemeDark),
    Item(Command::ThemeMidnight), Item(Command::ThemeSolarizedDark),
};

constexpr MenuRow kEncoding[] = {
    Item(Command::EncodingAnsi),
    Item(Command::EncodingUtf8),
    Item(Command::EncodingUtf16Le),
    Item(Command::EncodingUtf16Be),
};

constexpr MenuRow kDelimiter[] = {
    Item(Command::DelimiterAuto), Item(Command::DelimiterComma), Item(Command::DelimiterSemicolon),
    Item(Command::DelimiterBar),  Item(Command::DelimiterTab),   Item(Command::DelimiterColon),
};

constexpr MenuRow kComments[] = {
    Item(Command::CommentsAuto),
    Item(Command::CommentsParse),
    Item(Command::CommentsDoNotParse),
    Item(Command::CommentsHide),
};

constexpr auto CountOf(std::span<const MenuRow> rows, MenuRowKind kind) {
    return std::count_if(rows.begin(), rows.end(),
                         [&](const MenuRow& row) { return row.kind == kind; });
}

static_assert(std::size(kContext) == 27);
static_assert(CountOf(kContext, MenuRowKind::Item) == 21);
static_assert(CountOf(kContext, MenuRowKind::Submenu) == 2);
static_assert(CountOf(kContext, MenuRowKind::Separator) == 4);

}  // namespace

std::span<const MenuRow> MenuRows(MenuId menu) {
    switch (menu) {
        case MenuId::Context: return kContext;
        case MenuId::CopyNode: return kCopyNode;
        case MenuId::Theme: return kTheme;
        case MenuId::Encoding: return kEncoding;
        case MenuId::Delimiter: return kDelimiter;
        case MenuId::Comments: return kComments;
    }
    return {};
}

bool IsMenuEnabled(MenuId menu, const CommandState& state) {
    return menu != MenuId::CopyNode || state.kind != DocumentKind::Csv;
}

const MenuId* StatusPopup(int part, DocumentKind kind) {
    static constexpr MenuId kPopups[] = {MenuId::Encoding, MenuId::Delimiter, MenuId::Comments};
    const int count = kind == DocumentKind::Csv ? 3 : 1;
    return part >= 0 && part < count ? &kPopups[part] : nullptr;
}

}  // namespace rl
