// Menus as the user would see them: labels, ticks and what is greyed, without showing any.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "tests/ui/support/ui_host.h"

namespace rl::test {

struct SeenItem {
    std::wstring label;  // empty for a separator
    UINT id = 0;         // 0 for separators and submenus
    bool enabled = true;
    bool checked = false;
    std::vector<SeenItem> submenu = {};
};

struct SeenMenu {
    std::vector<SeenItem> items;
    POINT at{};
    UINT flags = 0;  // of TrackPopupMenu
};

/// From now on the host's module shows its menus here, and gets `answer` as the command chosen.
void WatchMenus(const UiHost& host, int answer = 0);

/// The menus since WatchMenus.
[[nodiscard]] const std::vector<SeenMenu>& SeenMenus();

/// The item of that command in the menu shown last, submenus included; the test fails without one.
[[nodiscard]] SeenItem SeenCommand(UINT id);

/// Chooses a command as a menu would.
void Choose(const Viewer& viewer, int command);

/// The clipboard's Unicode text; "?" when there is none.
[[nodiscard]] std::wstring ClipboardText();

}  // namespace rl::test
