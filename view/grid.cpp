// Set-up of the list view: its columns, widths, rows and texts.
#include "view/grid.h"

#include <uxtheme.h>

#include <algorithm>
#include <utility>

#include "view/control.h"
#include "view/flag_scope.h"
#include "view/header_painter.h"
#include "view/paint_scope.h"

namespace rl {
namespace {

constexpr int kMostRows = 100'000'000;  // a list view takes no more items
constexpr size_t kMostMeasured = 4096;  // units: beyond this a line is wider than any screen
constexpr size_t kMostHeader = 1024;    // units of a header text

LRESULT Ask(HWND window, UINT id, int first = 0, LPARAM second = 0) {
    return SendMessageW(window, id, static_cast<WPARAM>(first), second);
}

int WidthOf(HDC dc, std::wstring_view text) {
    SIZE size{};
    GetTextExtentPoint32W(dc, text.data(), static_cast<int>(std::min(text.size(), kMostMeasured)),
                          &size);
    return size.cx;
}

}  // namespace

Grid::~Grid() = default;

bool Grid::Create(HWND parent, bool gridLines, IGridListener& listener) {
    constexpr DWORD kStyle = WS_TABSTOP | LVS_REPORT | LVS_SHOWSELALWAYS | LVS_OWNERDATA;
    listener_ = &listener;
    gridLines_ = gridLines;
    window_ = CreateControl(parent, WC_LISTVIEWW, L"Table", kStyle, kGridId);
    if (window_ == nullptr) {
        return false;
    }
    const DWORD extended =
        LVS_EX_DOUBLEBUFFER | LVS_EX_FULLROWSELECT | (gridLines ? DWORD{LVS_EX_GRIDLINES} : 0);
    Ask(window_, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, static_cast<LPARAM>(extended));
    header_ = reinterpret_cast<HWND>(Ask(window_, LVM_GETHEADER));
    SetWindowTheme(header_, L"", L"");
    return subclass_.Attach(
        window_, [this](HWND window, const Message& in) { return OnMessage(window, in); });
}

void Grid::SetFonts(HFONT normal, HFONT bold, int dpi) {
    normalFont_ = normal;
    boldFont_ = bold;
    dpi_ = dpi;
    SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(normal), TRUE);
    SendMessageW(header_, WM_SETFONT, reinterpret_cast<WPARAM>(bold), TRUE);
    if (Outline() != nullptr) {
        ApplyRowHeight();
    }
}

void Grid::SetColors(const ThemeColors& colors) {
    colors_ = colors;
    Ask(window_, LVM_SETTEXTCOLOR, 0, static_cast<LPARAM>(colors.text));
    Ask(window_, LVM_SETBKCOLOR, 0, static_cast<LPARAM>(colors.back));
    Ask(window_, LVM_SETTEXTBKCOLOR, 0, static_cast<LPARAM>(colors.back));
    RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
    RedrawWindow(header_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
}

void Grid::ShowTable(const RowView* view, const Style& style) {
    {
        const FlagScope own(movingFocus_);
        Ask(window_, LVM_SETITEMCOUNT, 0);  // nothing focused or selected, scrolled to the top
    }
    const bool wasOutline = Outline() != nullptr;
    view_ = view;
    style_ = style;
    hotRow_ = -1;
    if (wasOutline || Outline() != nullptr) {
        ApplyLines();
        ApplyRowHeight();
    }
    if (view != nullptr) {
        columns_.Reset(std::min(view->Model().ColumnCount(), kMaxShownColumns), style.lineNumbers);
    }
    current_ = {};
    typeAhead_.Clear();
    ForgetTexts();
    headerTexts_.clear();
    for (int gridColumn = 0; gridColumn < ColumnCount(); ++gridColumn) {
        headerTexts_.push_back(
            GridHeaderText(columns_, *view_, gridColumn, style_.outline != nullptr));
    }
    ApplyColumns(Measure());
    RowsChanged(false);
    FitValueColumn();
    listener_->OnCurrentCellChanged();
}

void Grid::RowsChanged(bool keepScroll) {
    ForgetTexts();
    const FlagScope own(movingFocus_);
    Ask(window_, LVM_SETITEMCOUNT, RowCount(), keepScroll ? LVSICF_NOSCROLL : 0);
    if (!keepScroll && RowCount() > 0) {
        Ask(window_, LVM_ENSUREVISIBLE, 0, FALSE);
    }
    if (hotRow_ >= 0) {
        FindHotRow();
    }
    InvalidateRect(window_, nullptr, TRUE);
}

void Grid::TextsChanged() {
    ForgetTexts();
    InvalidateRect(window_, nullptr, TRUE);
}

void Grid::RecomputeWidths() {
    if (view_ != nullptr) {
        ApplyColumns(Measure());
        FitValueColumn();
        InvalidateRect(window_, nullptr, TRUE);
    }
}

std::vector<int> Grid::Measure() {
    if (view_ == nullptr) {
        metrics_ = {};
        return {};
    }
    const WindowDc dc(window_);
    const SelectScope font(dc.Get(), normalFont_);
    const ColumnSizing sizing{.dpi = dpi_,
                              .maxColumnSamples = style_.maxColumnSamples,
                              .maxColumnWidth = style_.maxColumnWidth,
                              .decimalAlign = style_.decimalAlign};
    const OutlineSizing outline = SizeOfOutline();
    metrics_ = MeasureColumns(
        *view_, columns_, sizing, [&](std::wstring_view text) { return WidthOf(dc.Get(), text); },
        Outline() != nullptr ? &outline : nullptr);
    return metrics_.widths;
}

// Columns are added and taken away at the end, where nothing behind them has to move.
void Grid::ApplyColumns(const std::vector<int>& widths) {
    {
        const FlagScope own(settingWidths_);
        const int wanted = ColumnCount();
        int present = static_cast<int>(Ask(header_, HDM_GETITEMCOUNT));
        while (present > wanted) {
            Ask(window_, LVM_DELETECOLUMN, --present);
        }
        for (int gridColumn = 0; gridColumn < wanted; ++gridColumn) {
            const auto index = static_cast<size_t>(gridColumn);
            std::wstring text = headerTexts_[index].substr(0, kMostHeader);
            LVCOLUMNW column{};
            column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
            column.fmt = LVCFMT_LEFT;
            column.cx = widths[index];
            column.pszText = text.data();
            Ask(window_, gridColumn < present ? LVM_SETCOLUMNW : LVM_INSERTCOLUMNW, gridColumn,
                reinterpret_cast<LPARAM>(&column));
        }
    }
    TellColumnsMoved();
}

int Grid::RowCount() const {
    return view_ != nullptr ? std::min(view_->VisibleRowCount(), kMostRows) : 0;
}

int Grid::TopRow() const {
    return static_cast<int>(Ask(window_, LVM_GETTOPINDEX));
}

int Grid::ColumnCount() const {
    return view_ != nullptr ? columns_.GridCount() : 0;
}

int Grid::DataColumn(int gridColumn) const {
    return gridColumn < ColumnCount() ? columns_.DataColumn(gridColumn) : -1;
}

int Grid::GridColumnOf(int dataColumn) const {
    return view_ != nullptr ? columns_.GridColumn(dataColumn) : -1;
}

std::wstring Grid::CellText(int viewRow, int gridColumn) const {
    return view_ != nullptr ? GridCellText(columns_, *view_, viewRow, gridColumn) : std::wstring();
}

std::wstring Grid::HeaderText(int gridColumn) const {
    const auto index = static_cast<size_t>(gridColumn);
    return view_ != nullptr && index < headerTexts_.size() ? headerTexts_[index] : std::wstring();
}

const std::wstring& Grid::KeepText(GridCell cell) {
    KeptText& last = keptTexts_[0];
    if (last.cell == cell) {
        return last.text;
    }
    std::swap(keptTexts_[0], keptTexts_[1]);
    if (last.cell != cell) {
        last.cell = {};  // what is there while the text is fetched belongs to no cell
        last.text = CellText(cell.viewRow, cell.gridColumn);
        last.cell = cell;
    }
    return last.text;
}

void Grid::ForgetTexts() {
    keptTexts_ = {};
}

Answer Grid::OnCellText(NMLVDISPINFOW& note) {
    LVITEMW& item = note.item;
    if ((item.mask & LVIF_TEXT) == 0 || item.pszText == nullptr || item.cchTextMax < 1) {
        return 0;
    }
    const std::wstring& text = KeepText({item.iItem, item.iSubItem});
    size_t length = std::min(text.size(), static_cast<size_t>(item.cchTextMax) - 1);
    if (length > 0 && length < text.size() && IS_HIGH_SURROGATE(text[length - 1])) {
        --length;  // half a character is none
    }
    std::copy_n(text.data(), length, item.pszText);
    item.pszText[length] = L'\0';
    return 0;
}

int Grid::ColumnWidth(int gridColumn) const {
    return gridColumn >= 0 && gridColumn < ColumnCount()
               ? static_cast<int>(Ask(window_, LVM_GETCOLUMNWIDTH, gridColumn))
               : 0;
}

// By the scroll position, not by the header's own: a window cannot stand further left than 32,768
// pixels, and a thousand columns reach further than that.
Rect Grid::HeaderItemRect(int gridColumn) const {
    RECT item{};
    if (gridColumn < 0 ||
        Ask(header_, HDM_GETITEMRECT, gridColumn, reinterpret_cast<LPARAM>(&item)) == 0) {
        return {};
    }
    OffsetRect(&item, -GetScrollPos(window_, SB_HORZ), 0);
    return FromRECT(item);
}

std::vector<int> Grid::ColumnEdges() const {
    std::vector<int> edges;
    for (int gridColumn = 0; gridColumn < ColumnCount(); ++gridColumn) {
        const Rect item = HeaderItemRect(gridColumn);
        if (gridColumn == 0) {
            edges.push_back(item.left);
        }
        edges.push_back(item.Right());
    }
    return edges;
}

RECT Grid::CellBounds(GridCell cell) const {
    RECT row{};
    row.left = LVIR_BOUNDS;
    if (cell.viewRow < 0 ||
        Ask(window_, LVM_GETITEMRECT, cell.viewRow, reinterpret_cast<LPARAM>(&row)) == 0) {
        return {};
    }
    const Rect column = HeaderItemRect(cell.gridColumn);
    return {column.left, row.top, column.Right(), row.bottom};
}

void Grid::HideColumn(int gridColumn) {
    if (columns_.Hide(DataColumn(gridColumn))) {
        Ask(window_, LVM_SETCOLUMNWIDTH, gridColumn, 0);
    }
}

void Grid::ShowAllColumns() {
    columns_.ShowAll();
    RecomputeWidths();
}

bool Grid::IsHidden(int dataColumn) const {
    return columns_.IsHidden(dataColumn);
}

void Grid::RestoreColumns(GridColumns columns) noexcept {
    columns_ = std::move(columns);
}

void Grid::SetSortMark(int gridColumn, int direction) {
    SetHeaderSortMark(header_, gridColumn, direction);
}

void Grid::ClearTypeAhead() {
    typeAhead_.Clear();
}

}  // namespace rl
