// Menu handles made from the menu tables, and brought up to date before they are shown.
#pragma once

#include "view/gdi_handles.h"
#include "view/logic/menus.h"

namespace rl {

/// The menu with its submenus, as popup; empty when the system refuses.
[[nodiscard]] UniqueMenu BuildMenu(MenuId menu);

/// Labels, check marks and enabled states of a menu made by BuildMenu, submenus included.
void RefreshMenu(HMENU handle, MenuId menu, const CommandState& state);

/// Shows a menu at a point of the screen until a command is chosen: its identifier, or 0. Pumps
/// messages meanwhile.
[[nodiscard]] UINT TrackMenu(HMENU handle, POINT at, UINT flags, HWND owner);

}  // namespace rl
