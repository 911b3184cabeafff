// Paints the items of the grid's header: flat, in the theme's colours, with the sort mark.
//
// Belongs to the thread of the header's window.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string_view>

#include "host/config/themes.h"
#include "view/logic/geometry.h"

namespace rl {

struct HeaderLook {
    const ThemeColors& colors;
    HFONT bold;
    int dpi;
};

/// One header item. `direction` is 1 or -1 for the column that sorts, else 0.
void PaintHeaderItem(HDC dc, const Rect& item, std::wstring_view text, int direction,
                     const HeaderLook& look);

/// What no item covers, right of the last one.
void PaintHeaderRest(HWND header, HDC dc, const HeaderLook& look);

/// The mark an item carries: 1 up, -1 down, 0 none.
[[nodiscard]] int HeaderSortMark(HWND header, int item);
/// Gives one item its mark and takes the others' away; no item has one for direction 0.
void SetHeaderSortMark(HWND header, int item, int direction);

}  // namespace rl
