// The grid's custom draw: which cells the list view paints, with which colours, and which we do.
#include <algorithm>

#include "view/grid.h"
#include "view/grid_painter.h"
#include "view/header_painter.h"
#include "view/logic/cell_plan.h"
#include "view/paint_scope.h"

namespace rl {
namespace {

/// Hands the colours to the list view. With the selected state left on it would use the system's.
void UseColors(NMLVCUSTOMDRAW& draw, const CellColors& colors) {
    draw.nmcd.uItemState &= ~static_cast<UINT>(CDIS_SELECTED | CDIS_FOCUS | CDIS_HOT);
    draw.clrText = colors.text;
    draw.clrTextBk = colors.back;
}

}  // namespace

Answer Grid::OnCellDraw(NMLVCUSTOMDRAW& draw) {
    switch (draw.nmcd.dwDrawStage) {
        case CDDS_PREPAINT: return CDRF_NOTIFYITEMDRAW;
        case CDDS_ITEMPREPAINT: return OnRowDraw(draw);
        case CDDS_ITEMPREPAINT | CDDS_SUBITEM: return OnSubitemDraw(draw);
        default: return CDRF_DODEFAULT;
    }
}

// Some list views leave a gap of two pixels between header and rows and paint nothing there, not
// even from their own buffer: what stood there before would stay, a scroll bar's arrow for one.
void Grid::FillAboveRows() const {
    RECT row{};
    row.left = LVIR_BOUNDS;
    const LRESULT top = SendMessageW(window_, LVM_GETTOPINDEX, 0, 0);
    const int headerBottom = ClientRect(header_).height;
    if (SendMessageW(window_, LVM_GETITEMRECT, static_cast<WPARAM>(top),
                     reinterpret_cast<LPARAM>(&row)) != 0 &&
        row.top > headerBottom) {
        const WindowDc dc(window_);
        FillSolid(dc.Get(), {0, headerBottom, ClientRect(window_).width, row.top - headerBottom},
                  colors_.headerBack);
    }
}

Rect Grid::MarginOfRow(int viewRow) const {
    constexpr int kMargin = 2;  // pixels, at every dpi
    RECT row{};
    row.left = LVIR_BOUNDS;
    if (viewRow < 0 || SendMessageW(window_, LVM_GETITEMRECT, static_cast<WPARAM>(viewRow),
                                    reinterpret_cast<LPARAM>(&row)) == 0) {
        return {};
    }
    return {HeaderItemRect(0).left, row.top, kMargin, row.bottom - row.top};
}

LRESULT Grid::OnRowDraw(NMLVCUSTOMDRAW& draw) {
    const auto viewRow = static_cast<int>(draw.nmcd.dwItemSpec);
    drawnRowIsSelected_ =
        (SendMessageW(window_, LVM_GETITEMSTATE, static_cast<WPARAM>(viewRow), LVIS_SELECTED) &
         LVIS_SELECTED) != 0;
    const CellColors colors =
        ColorsFor(colors_, {.viewRow = viewRow, .selected = drawnRowIsSelected_});
    UseColors(draw, colors);
    FillSolid(draw.nmcd.hdc, MarginOfRow(viewRow), colors.back);
    const bool numbers = std::ranges::find(metrics_.isNumeric, true) != metrics_.isNumeric.end();
    const bool subitems = NeedsSubitemPainting(HasLineNumbers(), style_.decimalAlign && numbers,
                                               Outline() != nullptr, viewRow == current_.viewRow);
    return subitems ? CDRF_NOTIFYSUBITEMDRAW : CDRF_DODEFAULT;
}

LRESULT Grid::OnSubitemDraw(NMLVCUSTOMDRAW& draw) {
    const GridCell cell{static_cast<int>(draw.nmcd.dwItemSpec), draw.iSubItem};
    const Rect rect = FromRECT(CellBounds(cell));
    const auto column = static_cast<size_t>(cell.gridColumn);
    if (rect.width <= 0 || column >= metrics_.isNumeric.size()) {
        return CDRF_SKIPDEFAULT;
    }
    if (IsOutlineName(cell.gridColumn)) {
        return OnOutlineNameDraw(draw.nmcd.hdc, cell, rect);
    }
    CellInput input{.rect = rect,
                    .text = {},
                    .state = {.viewRow = cell.viewRow,
                              .selected = drawnRowIsSelected_,
                              .current = cell == current_},
                    .dpi = dpi_,
                    .lineNumber = columns_.IsLineNumber(cell.gridColumn),
                    .decimalAlign = style_.decimalAlign,
                    .numericColumn = metrics_.isNumeric[column],
                    .integerWidth = metrics_.integerWidths[column],
                    .gridLines = HasGridLines()};
    if (input.lineNumber || (input.decimalAlign && input.numericColumn)) {
        input.text = KeepText(cell);
    }
    const CellPlan plan = PlanCell(colors_, input);
    if (!plan.custom) {
        UseColors(draw, plan.colors);
        return CDRF_DODEFAULT;
    }
    PaintCell(draw.nmcd.hdc, plan, normalFont_);
    return CDRF_SKIPDEFAULT;
}

bool Grid::HasGridLines() const {
    return (SendMessageW(window_, LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0) & LVS_EX_GRIDLINES) != 0;
}

Answer Grid::OnHeaderDraw(NMCUSTOMDRAW& draw) {
    const HeaderLook look{colors_, boldFont_, dpi_};
    switch (draw.dwDrawStage) {
        case CDDS_PREPAINT: return CDRF_NOTIFYITEMDRAW | CDRF_NOTIFYPOSTPAINT;
        case CDDS_POSTPAINT: PaintHeaderRest(header_, draw.hdc, look); return CDRF_DODEFAULT;
        case CDDS_ITEMPREPAINT: {
            const auto item = static_cast<int>(draw.dwItemSpec);
            PaintHeaderItem(draw.hdc, FromRECT(draw.rc), HeaderText(item),
                            HeaderSortMark(header_, item), look);
            return CDRF_SKIPDEFAULT;
        }
        default: return CDRF_DODEFAULT;
    }
}

}  // namespace rl
