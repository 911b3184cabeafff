// The grid as an outline: the name cells, the boxes under the mouse, the height of the rows and
// the width of the value column.
#include <algorithm>
#include <utility>

#include "model/outline_model.h"
#include "view/edit_line.h"
#include "view/flag_scope.h"
#include "view/gdi_handles.h"
#include "view/grid.h"
#include "view/logic/outline_plan.h"
#include "view/outline_painter.h"
#include "view/paint_scope.h"

namespace rl {
namespace {

POINT PointOf(LPARAM position) {
    return {static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position))};
}

}  // namespace

void Grid::SetOutlineColors(const SourceColors& colors) {
    outlineColors_ = colors;
    if (Outline() != nullptr) {
        InvalidateRect(window_, nullptr, TRUE);
    }
}

const OutlineRow& Grid::RowOfOutline(int viewRow) const {
    return Outline()->Row(view_->ModelRow(viewRow));
}

OutlineSizing Grid::SizeOfOutline() const {
    return {.clientWidth = ClientRect(window_).width, .nameOf = [this](int32_t viewRow) {
                return OutlineName{.depth = RowOfOutline(viewRow).depth,
                                   .summary = Outline()->SummaryText(view_->ModelRow(viewRow))};
            }};
}

// Guide lines stand alone.
void Grid::ApplyLines() {
    const bool lines = gridLines_ && Outline() == nullptr;
    SendMessageW(window_, LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_GRIDLINES,
                 lines ? LVS_EX_GRIDLINES : 0);
}

// A list view makes its rows as high as its small images, whether it shows any or not. It owns the
// images that it has and hands them back for others.
void Grid::ApplyRowHeight() {
    UniqueImageList images;
    if (Outline() != nullptr) {
        const int height = OutlineRowHeight(LineHeight(window_, normalFont_), dpi_);
        images.Reset(ImageList_Create(1, height, ILC_COLOR, 0, 1));
    }
    const bool restores = !images;
    const UniqueImageList previous(reinterpret_cast<HIMAGELIST>(SendMessageW(
        window_, LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(images.Release()))));
    if (restores) {  // without images the height is measured anew only for a font
        SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(normalFont_), TRUE);
        SendMessageW(header_, WM_SETFONT, reinterpret_cast<WPARAM>(boldFont_), TRUE);
    }
}

// A width may show or hide the scroll bar, which changes what there is to share: hence twice.
void Grid::FitValueColumn() {
    if (Outline() == nullptr || fitting_ || ColumnCount() < 2) {
        return;
    }
    bool changed = false;
    {
        const FlagScope own(fitting_);
        const FlagScope quiet(settingWidths_);
        for (int time = 0; time < 2; ++time) {
            changed = FitNameColumnOnce() || changed;
            changed = FitValueColumnOnce() || changed;
        }
    }
    if (changed) {
        TellColumnsMoved();
    }
}

// Widths are measured when a table comes, often before the window has the size to share.
bool Grid::FitNameColumnOnce() {
    const int gridColumn = GridColumnOf(0);
    const auto index = static_cast<size_t>(gridColumn);
    const bool isMeasured =
        index < metrics_.widths.size() && ColumnWidth(gridColumn) == metrics_.widths[index];
    if (!isMeasured || columns_.IsHidden(0)) {
        return false;
    }
    const int cap = OutlineNameCap(ClientRect(window_).width, dpi_);
    metrics_.widths[index] = cap >= 1 ? std::min(metrics_.outlineName, cap) : metrics_.outlineName;
    return SetWidth(gridColumn, metrics_.widths[index]);
}

bool Grid::FitValueColumnOnce() {
    const int gridColumn = GridColumnOf(1);
    if (columns_.IsHidden(1)) {
        return false;
    }
    std::vector<int> widths;
    widths.reserve(static_cast<size_t>(ColumnCount()));
    for (int column = 0; column < ColumnCount(); ++column) {
        widths.push_back(ColumnWidth(column));
    }
    return SetWidth(gridColumn,
                    OutlineValueWidth(ClientRect(window_).width, widths, gridColumn, dpi_));
}

/// Whether the column had another width.
bool Grid::SetWidth(int gridColumn, int width) {
    if (ColumnWidth(gridColumn) == width) {
        return false;
    }
    SendMessageW(window_, LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(gridColumn), width);
    return true;
}

LRESULT Grid::OnOutlineNameDraw(HDC dc, GridCell cell, const Rect& rect) {
    const OutlineRow& row = RowOfOutline(cell.viewRow);
    const std::wstring summary = Outline()->SummaryText(view_->ModelRow(cell.viewRow));
    const OutlineCell look{.rect = rect,
                           .viewRow = cell.viewRow,
                           .depth = row.depth,
                           .rowType = row.rowType,
                           .hasChildren = row.hasChildren,
                           .expanded = row.expanded,
                           .selected = drawnRowIsSelected_,
                           .hot = cell.viewRow == hotRow_,
                           .dpi = dpi_};
    PaintOutlineCell(dc, normalFont_, colors_, outlineColors_, look,
                     {.name = KeepText(cell), .summary = summary});
    return CDRF_SKIPDEFAULT;
}

/// The view row whose box is at a point of the client area, or -1.
int Grid::BoxAt(POINT client) const {
    const GridCell cell = HitTest(client);
    if (cell.viewRow < 0 || cell.viewRow >= RowCount() || !IsOutlineName(cell.gridColumn)) {
        return -1;
    }
    const OutlineRow& row = RowOfOutline(cell.viewRow);
    const Rect bounds = FromRECT(CellBounds(cell));
    return row.hasChildren && HitsOutlineBox(bounds, row.depth, dpi_, client.x, client.y)
               ? cell.viewRow
               : -1;
}

bool Grid::OnOutlineClick(GridClick click, POINT client) {
    const int viewRow = Outline() != nullptr && click != GridClick::Right ? BoxAt(client) : -1;
    if (viewRow >= 0) {
        listener_->OnExpanderClicked(viewRow);
    }
    return viewRow >= 0;
}

Answer Grid::OnOutlineMessage(const Message& in) {
    if (Outline() == nullptr) {
        return std::nullopt;
    }
    switch (in.id) {
        case WM_CHAR:
            // Keys that open and close rows: the list view would look for a row of that name.
            if (in.wparam == L'*' || in.wparam == L'+' || in.wparam == L'-' || in.wparam == L'/') {
                return 0;
            }
            break;
        case WM_MOUSEMOVE: SetHotRow(BoxAt(PointOf(in.lparam))); break;
        case WM_MOUSELEAVE:
        case WM_MOUSEWHEEL:  // another row comes under the mouse
        case WM_MOUSEHWHEEL:
        case WM_HSCROLL:
        case WM_VSCROLL: SetHotRow(-1); break;
        default: break;
    }
    return std::nullopt;
}

/// Other rows stand where the mouse is.
void Grid::FindHotRow() {
    POINT mouse{};
    GetCursorPos(&mouse);
    ScreenToClient(window_, &mouse);
    SetHotRow(Outline() != nullptr ? BoxAt(mouse) : -1);
}

void Grid::SetHotRow(int viewRow) {
    if (viewRow == hotRow_) {
        return;
    }
    const int before = std::exchange(hotRow_, viewRow);
    RedrawRow(before);
    RedrawRow(viewRow);
    if (viewRow >= 0) {
        TRACKMOUSEEVENT leave{sizeof(TRACKMOUSEEVENT), TME_LEAVE, window_, 0};
        TrackMouseEvent(&leave);
    }
}

}  // namespace rl
