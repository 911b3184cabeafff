#include "tests/ui/support/viewer.h"

#include <windows.h>

#include <commctrl.h>

namespace rl::test {

namespace {

constexpr int kLongestText = 4096;
constexpr int kStatusParts = 5;

RECT ScreenRect(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    return rect;
}

POINT CenterOf(const RECT& rect) {
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

LRESULT Ask(HWND window, UINT message, LRESULT wparam = 0, LPARAM lparam = 0) {
    return SendMessageW(window, message, static_cast<WPARAM>(wparam), lparam);
}

template <typename T>
LRESULT Ask(HWND window, UINT message, LRESULT wparam, T* record) {
    return Ask(window, message, wparam, reinterpret_cast<LPARAM>(record));
}

}  // namespace

std::wstring TextOf(HWND window) {
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)), L'\0');
    GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}

HWND Viewer::Header() const {
    return reinterpret_cast<HWND>(Ask(Grid(), LVM_GETHEADER));
}

bool Viewer::IsLoaded() const {
    return IsWindow(window_) && Placeholder() != nullptr && !IsWindowVisible(Placeholder()) &&
           IsWindowVisible(window_);
}

int Viewer::RowCount() const {
    return static_cast<int>(Ask(Grid(), LVM_GETITEMCOUNT));
}

int Viewer::ColumnCount() const {
    return static_cast<int>(Ask(Header(), HDM_GETITEMCOUNT));
}

std::wstring Viewer::Cell(int row, int column) const {
    std::wstring text(kLongestText, L'\0');
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text.data();
    item.cchTextMax = kLongestText;
    text.resize(static_cast<size_t>(Ask(Grid(), LVM_GETITEMTEXTW, row, &item)));
    return text;
}

Texts Viewer::Row(int row) const {
    Texts texts;
    for (int column = 0; column < ColumnCount(); ++column) {
        texts.push_back(Cell(row, column));
    }
    return texts;
}

Texts Viewer::Headers() const {
    Texts texts;
    for (int column = 0; column < ColumnCount(); ++column) {
        wchar_t text[512] = L"";
        HDITEMW item{};
        item.mask = HDI_TEXT;
        item.pszText = text;
        item.cchTextMax = ARRAYSIZE(text);
        Ask(Header(), HDM_GETITEMW, column, &item);
        texts.emplace_back(item.pszText);
    }
    return texts;
}

int Viewer::Width(int column) const {
    return static_cast<int>(Ask(Grid(), LVM_GETCOLUMNWIDTH, column));
}

std::vector<int> Viewer::SelectedRows() const {
    std::vector<int> rows;
    for (LRESULT row = Ask(Grid(), LVM_GETNEXTITEM, -1, LVNI_SELECTED); row >= 0;
         row = Ask(Grid(), LVM_GETNEXTITEM, row, LVNI_SELECTED)) {
        rows.push_back(static_cast<int>(row));
    }
    return rows;
}

int Viewer::FocusedRow() const {
    return static_cast<int>(Ask(Grid(), LVM_GETNEXTITEM, -1, LVNI_FOCUSED));
}

int Viewer::TopRow() const {
    return static_cast<int>(Ask(Grid(), LVM_GETTOPINDEX));
}

RECT Viewer::CellRect(int row, int column) const {
    RECT rect{};
    rect.top = column;
    rect.left = LVIR_BOUNDS;
    Ask(Grid(), LVM_GETSUBITEMRECT, row, &rect);
    if (column == 0) {
        rect.right = rect.left + Width(0);  // the bounds of column 0 are those of the whole row
    }
    return rect;
}

POINT Viewer::CellCenter(int row, int column) const {
    return CenterOf(CellRect(row, column));
}

POINT Viewer::HeaderCenter(int column) const {
    RECT rect{};
    Ask(Header(), HDM_GETITEMRECT, column, &rect);
    return CenterOf(rect);
}

std::wstring Viewer::Status(int part) const {
    std::wstring text(LOWORD(Ask(StatusBar(), SB_GETTEXTLENGTHW, part)), L'\0');
    Ask(StatusBar(), SB_GETTEXTW, part, text.data());
    return text;
}

Texts Viewer::StatusTexts() const {
    Texts texts;
    for (int part = 0; part < kStatusParts; ++part) {
        texts.push_back(Status(part));
    }
    return texts;
}

std::vector<int> Viewer::StatusEdges() const {
    std::vector<int> edges(kStatusParts);
    Ask(StatusBar(), SB_GETPARTS, kStatusParts, edges.data());
    return edges;
}

RECT Viewer::StatusPart(int part) const {
    RECT rect{};
    Ask(StatusBar(), SB_GETRECT, part, &rect);
    return rect;
}

Texts Viewer::TabTexts() const {
    Texts texts;
    for (LRESULT tab = 0; tab < Ask(Tabs(), TCM_GETITEMCOUNT); ++tab) {
        wchar_t text[64] = L"";
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = text;
        item.cchTextMax = ARRAYSIZE(text);
        Ask(Tabs(), TCM_GETITEMW, tab, &item);
        texts.emplace_back(text);
    }
    return texts;
}

int Viewer::CurrentTab() const {
    return static_cast<int>(Ask(Tabs(), TCM_GETCURSEL));
}

POINT Viewer::TabCenter(int tab) const {
    RECT rect{};
    Ask(Tabs(), TCM_GETITEMRECT, tab, &rect);
    return CenterOf(rect);
}

std::wstring Viewer::PaneText() const {
    return TextOf(Pane());
}

RECT Viewer::Place(HWND control) const {
    RECT rect = ScreenRect(control);
    MapWindowPoints(nullptr, window_, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

tools::Image Viewer::Picture(HWND control) {
    const HWND root = GetAncestor(control, GA_ROOT);
    const RECT frame = ScreenRect(root);
    POINT origin{};
    ClientToScreen(control, &origin);
    RECT area{};
    GetClientRect(control, &area);
    OffsetRect(&area, origin.x - frame.left, origin.y - frame.top);
    return tools::CaptureWindow(root).Part(area);
}

COLORREF Viewer::ColorAt(HWND control, POINT at) {
    return Picture(control).ColorAt(at.x, at.y);
}

int Viewer::CountColor(HWND control, const RECT& area, COLORREF color) {
    return Picture(control).Count(area, color);
}

}  // namespace rl::test
