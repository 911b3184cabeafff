#include "view/grid_painter.h"

#include <algorithm>

#include "view/paint_scope.h"

namespace rl {
namespace {

constexpr size_t kMostDrawn = 4096;  // units: what lies further out cannot be seen on one line

/// Of a text that ends at the right edge, the end is what shows.
std::wstring_view ShownPart(const TextPiece& piece) {
    const size_t length = std::min(piece.text.size(), kMostDrawn);
    return piece.align == TextAlign::Right ? piece.text.substr(piece.text.size() - length)
                                           : piece.text.substr(0, length);
}

void PaintPiece(HDC dc, const TextPiece& piece) {
    const UINT align = piece.align == TextAlign::Right ? DT_RIGHT : DT_LEFT;
    const UINT ellipsis = piece.ellipsis ? DT_END_ELLIPSIS : 0;
    DrawIn(dc, piece.rect, ShownPart(piece),
           DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | align | ellipsis);
}

}  // namespace

void PaintCell(HDC dc, const CellPlan& plan, HFONT font) {
    FillSolid(dc, plan.fill, plan.colors.back);
    {
        const ClipScope clip(dc, plan.clip);
        const SelectScope selected(dc, font);
        SetBkMode(dc, TRANSPARENT);
        SetTextColor(dc, plan.colors.text);
        for (int i = 0; i < plan.pieceCount; ++i) {
            PaintPiece(dc, plan.pieces[static_cast<size_t>(i)]);
        }
    }
    for (const Rect& line : plan.lines) {
        if (!line.IsEmpty()) {
            FillSolid(dc, line, GetSysColor(COLOR_BTNFACE));
        }
    }
}

}  // namespace rl
