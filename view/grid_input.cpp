// What the user does to the grid: clicks, keys the list view answers itself, typing to find a row,
// the wheel; and where the current cell goes in consequence.
#include <algorithm>
#include <exception>
#include <utility>

#include "view/flag_scope.h"
#include "view/grid.h"
#include "view/logic/grid_navigation.h"
#include "view/paint_scope.h"

namespace rl {
namespace {

bool CtrlIsDown() {
    return GetKeyState(VK_CONTROL) < 0;
}

/// Messages of the list view after which columns may stand elsewhere.
bool MovesColumns(UINT id) {
    switch (id) {
        case WM_HSCROLL:
        case WM_MOUSEHWHEEL:
        case WM_SIZE:
        case LVM_SCROLL:
        case LVM_ENSUREVISIBLE:
        case LVM_SETCOLUMNWIDTH: return true;
        default: return false;
    }
}

}  // namespace

Answer Grid::OnMessage(HWND window, const Message& in) {
    switch (in.id) {
        case WM_MOUSEWHEEL:
            if ((GET_KEYSTATE_WPARAM(in.wparam) & MK_CONTROL) != 0) {
                listener_->OnFontStep(GET_WHEEL_DELTA_WPARAM(in.wparam) > 0 ? 1 : -1);
                return 0;
            }
            break;
        case WM_NOTIFY: return OnHeaderMessage(window, in);
        case WM_SETFOCUS: {
            // Without a focused row the list view takes the first one: that is no one's choice.
            const FlagScope own(movingFocus_);
            return DefSubclassProc(window, in.id, in.wparam, in.lparam);
        }
        case WM_PAINT: {
            const LRESULT result = DefSubclassProc(window, in.id, in.wparam, in.lparam);
            FillAboveRows();
            return result;
        }
        default: break;
    }
    if (const Answer used = listener_->OnGridMessage(in)) {
        return used;
    }
    if (const Answer used = OnOutlineMessage(in)) {
        return used;
    }
    if (!MovesColumns(in.id)) {
        return std::nullopt;
    }
    const LRESULT result = DefSubclassProc(window, in.id, in.wparam, in.lparam);
    if (IsWindow(window)) {
        if (in.id == WM_SIZE) {
            FitValueColumn();
        }
        TellColumnsMoved();
    }
    return result;
}

Answer Grid::OnHeaderMessage(HWND window, const Message& in) {
    const auto& note = *reinterpret_cast<const NMHDR*>(in.lparam);
    if (note.hwndFrom != header_) {
        return std::nullopt;
    }
    if (note.code == NM_CUSTOMDRAW || note.code == NM_RCLICK) {
        return SendMessageW(GetParent(window), WM_NOTIFY, in.wparam, in.lparam);
    }
    if (note.code == HDN_DIVIDERDBLCLICKW || note.code == HDN_DIVIDERDBLCLICKA) {
        FitColumn(reinterpret_cast<const NMHEADERW&>(note).iItem);
        return 0;
    }
    if (note.code == HDN_ITEMCHANGEDW || note.code == HDN_ITEMCHANGEDA) {
        OnHeaderItemChanged(*reinterpret_cast<const NMHEADERW*>(in.lparam));
    }
    const LRESULT result = DefSubclassProc(window, in.id, in.wparam, in.lparam);
    if (IsWindow(window)) {  // a click on a header reaches the owner from within
        TellColumnsMoved();
    }
    return result;
}

// A hidden column that the user draws open by its divider is hidden no more.
void Grid::OnHeaderItemChanged(const NMHEADERW& note) {
    const int dataColumn = DataColumn(note.iItem);
    const bool widened =
        note.pitem != nullptr && (note.pitem->mask & HDI_WIDTH) != 0 && note.pitem->cxy > 0;
    if (!settingWidths_ && widened) {
        columns_.Show(dataColumn);
    }
}

// A double click on a divider: the width that the sampled rows ask for. The list view would measure
// every row of the file.
void Grid::FitColumn(int gridColumn) {
    const auto index = static_cast<size_t>(gridColumn);
    if (gridColumn >= 0 && index < metrics_.widths.size() && !IsHidden(DataColumn(gridColumn))) {
        SendMessageW(window_, LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(gridColumn),
                     metrics_.widths[index]);
    }
}

// The list view has handled its message by now: an exception must not have it handled again.
void Grid::TellColumnsMoved() {
    if (settingWidths_) {
        return;
    }
    try {
        listener_->OnColumnsMoved();
    } catch (const std::exception&) {
        MessageBeep(MB_ICONWARNING);
    }
}

Answer Grid::OnNotify(NMHDR& note) {
    if (window_ == nullptr) {
        return std::nullopt;
    }
    if (note.hwndFrom == header_) {
        switch (note.code) {
            case NM_CUSTOMDRAW: return OnHeaderDraw(reinterpret_cast<NMCUSTOMDRAW&>(note));
            case NM_RCLICK: return OnHeaderRightClick();
            default: return std::nullopt;
        }
    }
    if (note.hwndFrom != window_) {
        return std::nullopt;
    }
    switch (note.code) {
        case NM_CUSTOMDRAW: return OnCellDraw(reinterpret_cast<NMLVCUSTOMDRAW&>(note));
        case LVN_GETDISPINFOW: return OnCellText(reinterpret_cast<NMLVDISPINFOW&>(note));
        case LVN_ODFINDITEMW: return OnFindItem(reinterpret_cast<NMLVFINDITEMW&>(note));
        case LVN_ITEMCHANGED: return OnItemChanged(reinterpret_cast<NMLISTVIEW&>(note));
        case LVN_ODSTATECHANGED: RedrawMargin(-1); return 0;
        case LVN_COLUMNCLICK: return OnColumnClick(reinterpret_cast<NMLISTVIEW&>(note));
        case NM_CLICK: return OnClick(GridClick::Single, reinterpret_cast<NMITEMACTIVATE&>(note));
        case NM_DBLCLK: return OnClick(GridClick::Double, reinterpret_cast<NMITEMACTIVATE&>(note));
        case NM_RCLICK: return OnClick(GridClick::Right, reinterpret_cast<NMITEMACTIVATE&>(note));
        default: return std::nullopt;
    }
}

// The list view moved its focus by itself: the current row follows, the column stays.
Answer Grid::OnItemChanged(const NMLISTVIEW& note) {
    const bool focused = (note.uChanged & LVIF_STATE) != 0 &&
                         (note.uNewState & LVIS_FOCUSED) != 0 &&
                         (note.uOldState & LVIS_FOCUSED) == 0;
    if (focused && note.iItem >= 0 && !movingFocus_) {
        SetCurrent({note.iItem, current_.gridColumn});
    }
    RedrawMargin(note.iItem);
    return 0;
}

Answer Grid::OnColumnClick(const NMLISTVIEW& note) {
    if (CtrlIsDown()) {
        // First, as for a click on a cell: a text that waits to be corrected keeps its column.
        if (!listener_->OnCellPressed(GridClick::Single, {-1, note.iSubItem})) {
            HideColumn(note.iSubItem);
        }
    } else {
        listener_->OnHeaderClick(note.iSubItem);
    }
    return 0;
}

Answer Grid::OnClick(GridClick click, const NMITEMACTIVATE& note) {
    if (OnOutlineClick(click, note.ptAction)) {
        return 0;
    }
    GridCell cell;
    if (note.iItem >= 0 && note.iItem < RowCount()) {
        cell = {note.iItem, note.iSubItem < ColumnCount() ? note.iSubItem : -1};
    }
    if (!listener_->OnCellPressed(click, cell)) {
        SetCurrent(cell);
        listener_->OnCellClicked(click, cell);
    }
    return 0;
}

Answer Grid::OnHeaderRightClick() {
    POINT point{};
    GetCursorPos(&point);
    ScreenToClient(header_, &point);
    const int gridColumn = HitTestHeader(point);
    if (gridColumn >= 0 && !listener_->OnCellPressed(GridClick::Right, {-1, gridColumn})) {
        SetCurrent({-1, gridColumn});
        listener_->OnHeaderMenu();
    }
    return 1;  // no WM_CONTEXTMENU of the system's own
}

void Grid::SetCurrent(GridCell cell) {
    if (cell == current_) {
        return;
    }
    const int before = std::exchange(current_, cell).viewRow;
    RedrawRow(before);
    RedrawRow(cell.viewRow);
    listener_->OnCurrentCellChanged();
}

void Grid::RedrawRow(int viewRow) {
    if (viewRow >= 0) {
        SendMessageW(window_, LVM_REDRAWITEMS, static_cast<WPARAM>(viewRow), viewRow);
        RedrawMargin(viewRow);
    }
}

/// Together with its row; of every row with -1. The list view does not know that it is ours.
void Grid::RedrawMargin(int viewRow) {
    Rect margin = MarginOfRow(viewRow < 0 ? TopRow() : viewRow);
    if (viewRow < 0) {
        margin.height = ClientRect(window_).height;
    }
    if (!margin.IsEmpty()) {
        const RECT area = ToRECT(margin);
        InvalidateRect(window_, &area, FALSE);
    }
}

// One selected row, the usual case, is found where the focus or the current cell is: deselecting
// every row by number is a walk over all of them on some systems.
void Grid::DeselectAll() {
    LVITEMW state{};
    state.stateMask = LVIS_SELECTED;
    int row = -1;
    if (const LRESULT selected = SendMessageW(window_, LVM_GETSELECTEDCOUNT, 0, 0); selected == 0) {
        return;
    } else if (selected == 1) {
        for (const int candidate : {current_.viewRow, NextItem(-1, LVNI_FOCUSED)}) {
            if (candidate >= 0 &&
                SendMessageW(window_, LVM_GETITEMSTATE, static_cast<WPARAM>(candidate),
                             LVIS_SELECTED) != 0) {
                row = candidate;
            }
        }
    }
    SendMessageW(window_, LVM_SETITEMSTATE, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(&state));
}

void Grid::SelectOnly(int viewRow) {
    const FlagScope own(movingFocus_);
    DeselectAll();
    LVITEMW state{};
    if (viewRow < 0 || viewRow >= RowCount()) {
        return;
    }
    state.state = state.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    SendMessageW(window_, LVM_SETITEMSTATE, static_cast<WPARAM>(viewRow),
                 reinterpret_cast<LPARAM>(&state));
    // Shift and an arrow extend from here.
    SendMessageW(window_, LVM_SETSELECTIONMARK, 0, viewRow);
}

void Grid::BringIntoView(GridCell cell) {
    if (cell.viewRow >= 0 && cell.viewRow < RowCount()) {
        SendMessageW(window_, LVM_ENSUREVISIBLE, static_cast<WPARAM>(cell.viewRow), FALSE);
    }
    if (cell.gridColumn < 0 || cell.gridColumn >= ColumnCount()) {
        return;
    }
    const Rect column = HeaderItemRect(cell.gridColumn);
    int step = ScrollToShow(column.left, column.Right(), ClientRect(window_).width);
    step =
        std::min(step, std::max(0, column.left));  // a cell wider than the window shows its start
    if (step != 0) {
        SendMessageW(window_, LVM_SCROLL, static_cast<WPARAM>(step), 0);
    }
}

void Grid::GoTo(GridCell cell) {
    SelectOnly(cell.viewRow);  // first: the row to deselect is mostly that of the current cell
    SetCurrent(cell);
    BringIntoView(cell);
}

int Grid::HitTestHeader(POINT client) const {
    HDHITTESTINFO hit{};
    hit.pt = client;
    SendMessageW(header_, HDM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    return (hit.flags & (HHT_ONHEADER | HHT_ONDIVIDER)) != 0 ? hit.iItem : -1;
}

GridCell Grid::HitTest(POINT client) const {
    LVHITTESTINFO hit{};
    hit.pt = client;
    SendMessageW(window_, LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    if (hit.iItem < 0) {
        return {};
    }
    const Rect column = HeaderItemRect(hit.iSubItem);
    const bool inside = client.x >= column.left && client.x < column.Right();
    return {hit.iItem, inside ? hit.iSubItem : -1};
}

bool Grid::Navigate(WPARAM key, bool ctrl) {
    if (key < VK_LEFT || key > VK_DOWN) {
        return false;
    }
    std::vector<int> widths;
    widths.reserve(static_cast<size_t>(std::max(0, ColumnCount())));
    for (int gridColumn = 0; gridColumn < ColumnCount(); ++gridColumn) {
        widths.push_back(ColumnWidth(gridColumn));
    }
    const auto isInView = [&](int row) { return row >= 0 && row < RowCount(); };
    const int focused = NextItem(-1, LVNI_FOCUSED);
    // Looking for a selected row walks over all rows: only where nothing else says where we are.
    const bool known = isInView(current_.viewRow) || isInView(focused);
    const NavigationState state{.current = {current_.viewRow, current_.gridColumn},
                                .focusedRow = focused,
                                .firstSelectedRow = known ? -1 : NextItem(-1, LVNI_SELECTED),
                                .visibleRows = RowCount(),
                                .columnWidths = widths};
    const auto target = rl::Navigate(state, static_cast<VirtualKey>(key), ctrl);
    if (target) {
        GoTo({target->row, target->column});
    }
    return target.has_value();
}

int Grid::NextItem(int after, UINT flags) const {
    return static_cast<int>(
        SendMessageW(window_, LVM_GETNEXTITEM, static_cast<WPARAM>(after), flags));
}

// The text that comes with the notification is the list view's own and follows other rules about
// time: only its last character, the one just typed, counts.
Answer Grid::OnFindItem(const NMLVFINDITEMW& note) {
    const std::wstring_view typed = note.lvfi.psz != nullptr ? note.lvfi.psz : L"";
    if ((note.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0 || typed.empty()) {
        return -1;
    }
    const int column = SearchedColumn();
    const auto row = typeAhead_.Type(typed.back(), GetTickCount64(), current_.viewRow, RowCount(),
                                     [&](int32_t viewRow) { return CellText(viewRow, column); });
    return row ? *row : -1;
}

int Grid::SearchedColumn() const {
    if (Outline() != nullptr) {
        return GridColumnOf(0);  // a letter leads to the next node of that name
    }
    if (current_.gridColumn >= 0 && current_.gridColumn < ColumnCount()) {
        return current_.gridColumn;
    }
    int column = HasLineNumbers() ? 1 : 0;
    while (column + 1 < ColumnCount() && IsHidden(DataColumn(column))) {
        ++column;
    }
    return column;
}

std::vector<int> Grid::SelectedRows() const {
    std::vector<int> rows;
    for (int row = NextItem(-1, LVNI_SELECTED); row >= 0; row = NextItem(row, LVNI_SELECTED)) {
        rows.push_back(row);
    }
    return rows;
}

}  // namespace rl
