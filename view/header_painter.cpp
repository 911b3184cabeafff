// Painting of header items. The mark is kept in the item's format, where screen readers and the
// system itself look for it.
#include "view/header_painter.h"

#include <algorithm>
#include <array>

#include "view/paint_scope.h"

namespace rl {
namespace {

constexpr int kPadding = 6;  // at 96 dpi, pixels, as all of these
constexpr int kMarkWidth = 8;
constexpr int kDividerStrength = 48;  // of 255

/// A triangle of which only whole rows are drawn: the same shape at every size.
void PaintMark(HDC dc, const Rect& box, int direction, COLORREF color) {
    const int rows = std::max(1, box.width / 2);
    const int top = box.top + (box.height - rows) / 2;
    for (int row = 0; row < rows; ++row) {
        const int inset = direction > 0 ? rows - 1 - row : row;
        FillSolid(dc, {box.left + inset, top + row, box.width - 2 * inset, 1}, color);
    }
}

}  // namespace

void PaintHeaderItem(HDC dc, const Rect& item, std::wstring_view text, int direction,
                     const HeaderLook& look) {
    if (item.IsEmpty()) {
        return;
    }
    const int padding = Scale(kPadding, look.dpi);
    const int markWidth = Scale(kMarkWidth, look.dpi);
    const int room = direction != 0 ? markWidth + padding : 0;
    const ClipScope clip(dc, item);
    FillSolid(dc, item, look.colors.headerBack);
    FillSolid(dc, {item.Right() - 1, item.top, 1, item.height},
              MixColors(look.colors.headerBack, look.colors.headerText, kDividerStrength));
    if (direction != 0) {
        const int markLeft = std::max(item.left, item.Right() - padding - markWidth);
        PaintMark(dc, {markLeft, item.top, markWidth, item.height}, direction,
                  look.colors.headerText);
    }
    const SelectScope font(dc, look.bold);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, look.colors.headerText);
    const Rect box{item.left + padding, item.top, item.width - 2 * padding - room, item.height};
    if (!box.IsEmpty()) {
        DrawIn(dc, box, text, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
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
