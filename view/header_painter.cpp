// Painting of header items. The mark is kept in the item's format, where screen readers and the
// system itself look for it.
#include "view/header_painter.h"

#include <algorithm>

#include "view/logic/cell_plan.h"
#include "view/paint_scope.h"

namespace rl {
namespace {

constexpr int kDividerStrength = 48;  // of 255

/// A triangle row by row: the same shape at every size, without edges that a pen would blur.
void PaintMark(HDC dc, const Rect& mark, int direction, COLORREF color) {
    for (int row = 0; row < mark.height; ++row) {
        const int fromTip = direction > 0 ? row : mark.height - 1 - row;
        const int half = (mark.width - 1) * fromTip / (2 * std::max(1, mark.height - 1));
        const int middle = mark.left + mark.width / 2;
        FillSolid(dc, {middle - half, mark.top + row, 2 * half + 1, 1}, color);
    }
}

}  // namespace

void PaintHeaderItem(HDC dc, const Rect& item, std::wstring_view text, int direction,
                     const HeaderLook& look) {
    if (item.IsEmpty()) {
        return;
    }
    const HeaderPlan plan = PlanHeader(item, direction != 0, look.dpi);
    const ClipScope clip(dc, item);
    FillSolid(dc, item, look.colors.headerBack);
    FillSolid(dc, {item.Right() - 1, item.top, 1, item.height},
              MixColors(look.colors.headerBack, look.colors.headerText, kDividerStrength));
    if (!plan.mark.IsEmpty()) {
        PaintMark(dc, plan.mark, direction, look.colors.headerText);
    }
    if (!plan.text.IsEmpty()) {
        const SelectScope font(dc, look.bold);
        SetBkMode(dc, TRANSPARENT);
        SetTextColor(dc, look.colors.headerText);
        DrawIn(dc, plan.text, text, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    }
}

void PaintHeaderRest(HWND header, HDC dc, const HeaderLook& look) {
    const int count = static_cast<int>(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
    RECT last{};
    if (count > 0) {
        SendMessageW(header, HDM_GETITEMRECT, static_cast<WPARAM>(count - 1),
                     reinterpret_cast<LPARAM>(&last));
    }
    const Rect client = ClientRect(header);
    const int left = std::max(0L, last.right);
    if (left < client.width) {
        FillSolid(dc, {left, 0, client.width - left, client.height}, look.colors.headerBack);
    }
}

int HeaderSortMark(HWND header, int item) {
    HDITEMW data{};
    data.mask = HDI_FORMAT;
    SendMessageW(header, HDM_GETITEMW, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&data));
    return (data.fmt & HDF_SORTUP) != 0 ? 1 : (data.fmt & HDF_SORTDOWN) != 0 ? -1 : 0;
}

void SetHeaderSortMark(HWND header, int item, int direction) {
    const int count = static_cast<int>(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
    for (int i = 0; i < count; ++i) {
        const int wanted = i == item ? direction : 0;
        if (HeaderSortMark(header, i) == wanted) {
            continue;
        }
        HDITEMW data{};
        data.mask = HDI_FORMAT;
        const auto index = static_cast<WPARAM>(i);
        SendMessageW(header, HDM_GETITEMW, index, reinterpret_cast<LPARAM>(&data));
        data.fmt &= ~(HDF_SORTUP | HDF_SORTDOWN);
        data.fmt |= wanted > 0 ? HDF_SORTUP : wanted < 0 ? HDF_SORTDOWN : 0;
        SendMessageW(header, HDM_SETITEMW, index, reinterpret_cast<LPARAM>(&data));
    }
}

}  // namespace rl
