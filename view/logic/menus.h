// Every menu: which commands, in what order, with separators and submenus.
//
// Tables only; menu handles are made from them elsewhere.
#pragma once

#include <span>
#include <string_view>

#include "view/logic/commands.h"

namespace rl {

enum class MenuId { Context, CopyNode, Theme, Encoding, Delimiter, Comments };

enum class MenuRowKind { Item, Separator, Submenu };

struct MenuRow {
    MenuRowKind kind = MenuRowKind::Separator;
    Command command = {};          // of an item
    MenuId submenu = {};           // of a submenu
    std::wstring_view title = {};  // of a submenu
};

[[nodiscard]] std::span<const MenuRow> MenuRows(MenuId menu);

/// Whether a submenu opens; every other menu does.
[[nodiscard]] bool IsMenuEnabled(MenuId menu, const CommandState& state);

/// The popup of a part of the status bar, counted from 0; null where a click does nothing.
[[nodiscard]] const MenuId* StatusPopup(int part, DocumentKind kind);

}  // namespace rl
