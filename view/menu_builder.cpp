// Menus from tables.
#include "view/menu_builder.h"

#include <string>

namespace rl {

namespace {

/// The parent destroys its submenus: it owns the child from now on.
bool AppendSubmenu(HMENU parent, UniqueMenu child, std::wstring_view title) {
    const auto id = reinterpret_cast<UINT_PTR>(child.Get());
    if (!child || !AppendMenuW(parent, MF_POPUP, id, std::wstring(title).c_str())) {
        return false;  // still ours: destroyed on return
    }
    (void)child.Release();
    return true;
}

bool AppendItem(HMENU parent, Command command) {
    const auto id = static_cast<UINT_PTR>(command);
    const CommandInfo* info = FindCommand(static_cast<uint32_t>(command));
    return info != nullptr &&
           AppendMenuW(parent, MF_STRING, id, std::wstring(info->label).c_str()) != FALSE;
}

bool AppendRow(HMENU parent, const MenuRow& row) {
    switch (row.kind) {
        case MenuRowKind::Item: return AppendItem(parent, row.command);
        case MenuRowKind::Separator: return AppendMenuW(parent, MF_SEPARATOR, 0, nullptr) != FALSE;
        case MenuRowKind::Submenu: return AppendSubmenu(parent, BuildMenu(row.submenu), row.title);
    }
    return false;
}

void RefreshItem(HMENU handle, UINT position, const CommandInfo& command,
                 const CommandState& state) {
    std::wstring label(CommandLabel(command, state));
    MENUITEMINFOW item{};
    item.cbSize = sizeof item;
    item.fMask = MIIM_STATE | MIIM_STRING;
    item.fState = (command.enabled(state) ? MFS_ENABLED : MFS_GRAYED) |
                  (command.checked(state) ? MFS_CHECKED : MFS_UNCHECKED);
    item.dwTypeData = label.data();
    SetMenuItemInfoW(handle, position, TRUE, &item);
}

}  // namespace

UniqueMenu BuildMenu(MenuId menu) {
    UniqueMenu handle(CreatePopupMenu());
    for (const MenuRow& row : MenuRows(menu)) {
        if (!handle || !AppendRow(handle.Get(), row)) {
            return {};
        }
    }
    return handle;
}

void RefreshMenu(HMENU handle, MenuId menu, const CommandState& state) {
    UINT position = 0;
    for (const MenuRow& row : MenuRows(menu)) {
        if (row.kind == MenuRowKind::Submenu) {
            const UINT enabled = IsMenuEnabled(row.submenu, state) ? MF_ENABLED : MF_GRAYED;
            EnableMenuItem(handle, position, MF_BYPOSITION | enabled);
            RefreshMenu(GetSubMenu(handle, static_cast<int>(position)), row.submenu, state);
        } else if (row.kind == MenuRowKind::Item) {
            if (const auto* info = FindCommand(static_cast<uint32_t>(row.command))) {
                RefreshItem(handle, position, *info, state);
            }
        }
        ++position;
    }
}

UINT TrackMenu(HMENU handle, POINT at, UINT flags, HWND owner) {
    if (handle == nullptr) {
        return 0;
    }
    constexpr UINT kAnswer = TPM_RIGHTBUTTON | TPM_NONOTIFY | TPM_RETURNCMD;
    return static_cast<UINT>(
        TrackPopupMenu(handle, kAnswer | flags, at.x, at.y, 0, owner, nullptr));
}

}  // namespace rl
