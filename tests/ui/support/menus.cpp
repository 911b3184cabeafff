#include "tests/ui/support/menus.h"

#include <gtest/gtest.h>

#include "tests/ui/support/pump.h"
#include "tools/common/import_patch.h"

namespace rl::test {

namespace {

std::vector<SeenMenu> seen;
int nextAnswer = 0;

std::vector<SeenItem> ItemsOf(HMENU menu) {
    std::vector<SeenItem> items;
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        wchar_t label[256] = L"";
        const auto position = static_cast<UINT>(i);
        GetMenuStringW(menu, position, label, ARRAYSIZE(label), MF_BYPOSITION);
        const UINT state = GetMenuState(menu, position, MF_BYPOSITION);
        const HMENU submenu = GetSubMenu(menu, i);
        items.push_back(
            {.label = label,
             .id = submenu != nullptr ? 0 : GetMenuItemID(menu, i),
             .enabled = (state & (MF_GRAYED | MF_DISABLED)) == 0,
             .checked = (state & MF_CHECKED) != 0,
             .submenu = submenu != nullptr ? ItemsOf(submenu) : std::vector<SeenItem>{}});
    }
    return items;
}

BOOL WINAPI SeeMenu(HMENU menu, UINT flags, int x, int y, int, HWND, const RECT*) {
    seen.push_back({.items = ItemsOf(menu), .at = {x, y}, .flags = flags});
    return nextAnswer;
}

const SeenItem* FindItem(const std::vector<SeenItem>& items, UINT id) {
    for (const SeenItem& item : items) {
        if (item.id == id) {
            return &item;
        }
        if (const SeenItem* inside = FindItem(item.submenu, id)) {
            return inside;
        }
    }
    return nullptr;
}

}  // namespace

void WatchMenus(const UiHost& host, int answer) {
    seen.clear();
    nextAnswer = answer;
    tools::PatchImport(host.Module().Handle(), "TrackPopupMenu", &SeeMenu);
}

const std::vector<SeenMenu>& SeenMenus() {
    return seen;
}

SeenItem SeenCommand(UINT id) {
    const SeenItem* item = seen.empty() ? nullptr : FindItem(seen.back().items, id);
    EXPECT_NE(item, nullptr) << "no item " << id;
    return item != nullptr ? *item : SeenItem{};
}

void Choose(const Viewer& viewer, int command) {
    SendMessageW(viewer.Window(), WM_COMMAND, static_cast<WPARAM>(command), 0);
    PumpIdle();
}

std::wstring ClipboardText() {
    std::wstring text = L"?";
    if (!OpenClipboard(nullptr)) {
        return text;
    }
    if (const HANDLE data = GetClipboardData(CF_UNICODETEXT)) {
        if (const auto* units = static_cast<const wchar_t*>(GlobalLock(data))) {
            text = units;
            GlobalUnlock(data);
        }
    }
    CloseClipboard();
    return text;
}

}  // namespace rl::test
