// A grid on a real window, with a small table of its own: what the tests of the grid stand on.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/config/themes.h"
#include "model/table_model.h"
#include "view/fonts.h"
#include "view/grid.h"
#include "view/paint_scope.h"

namespace rl::test {

/// A table from literals that counts how it is asked.
class CountingTable final : public ITableModel {
public:
    using Rows = std::vector<std::vector<std::wstring>>;
    explicit CountingTable(Rows rows) : rows_(std::move(rows)) {}

    [[nodiscard]] int32_t RowCount() const override { return static_cast<int32_t>(rows_.size()); }
    [[nodiscard]] int32_t ColumnCount() const override {
        size_t widest = 0;
        for (const auto& row : rows_) {
            widest = std::max(widest, row.size());
        }
        return static_cast<int32_t>(widest);
    }
    [[nodiscard]] std::wstring CellText(int32_t row, int32_t column) const override {
        ++asked;
        rowsEntered += row != lastRow ? 1 : 0;
        lastRow = row;
        const bool inside = row >= 0 && row < RowCount() && column >= 0 &&
                            static_cast<size_t>(column) < rows_[static_cast<size_t>(row)].size();
        return inside ? rows_[static_cast<size_t>(row)][static_cast<size_t>(column)] : L"";
    }
    [[nodiscard]] bool IsCommentRow(int32_t) const override { return false; }
    [[nodiscard]] bool IsCellEditable(int32_t, int32_t) const override { return true; }

    mutable int asked = 0;
    mutable int rowsEntered = 0;  // how often another row than before was asked for
    mutable int32_t lastRow = -1;

private:
    Rows rows_;
};

struct GridWindowOptions {
    Grid::Style style = {};
    bool headerRow = true;
    bool gridLines = true;
    int dpi = 96;
    int width = 800;
    int height = 300;
    ThemeColors colors = LoadThemeColors([](std::wstring_view, int32_t value) { return value; },
                                         SelectTheme(L"Light", false));
};

class GridWindow final : public IGridListener {
public:
    explicit GridWindow(CountingTable::Rows rows, GridWindowOptions options = {})
        : table(std::move(rows)), view(table, options.headerRow) {
        const INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_LISTVIEW_CLASSES};
        InitCommonControlsEx(&classes);
        WNDCLASSW record{};
        record.lpfnWndProc = &Procedure;
        record.lpszClassName = L"RowlarkGridTest";
        RegisterClassW(&record);  // refused from the second time on
        frame = CreateWindowExW(0, record.lpszClassName, L"", WS_POPUP | WS_CLIPCHILDREN, 20, 20,
                                options.width, options.height, nullptr, nullptr, nullptr, nullptr);
        SetWindowLongPtrW(frame, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        created = grid.Create(frame, options.gridLines, *this);
        fonts = MakeViewerFonts({.points = 11}, options.dpi);
        grid.SetFonts(fonts.normal.Get(), fonts.bold.Get(), options.dpi);
        grid.SetColors(options.colors);
        MoveWindow(grid.Window(), 0, 0, options.width, options.height, FALSE);
        grid.ShowTable(&view, options.style);
        ShowWindow(grid.Window(), SW_SHOW);
        // Not activated: without a window manager Wine would wait two seconds for the window's end.
        ShowWindow(frame, SW_SHOWNOACTIVATE);
        Paint();
        Reset();
    }
    GridWindow(const GridWindow&) = delete;
    GridWindow& operator=(const GridWindow&) = delete;
    ~GridWindow() {
        SetWindowLongPtrW(frame, GWLP_USERDATA, 0);
        SetWindowPos(frame, nullptr, 0, 0, 0, 0,
                     SWP_HIDEWINDOW | SWP_NOACTIVATE | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER);
        DestroyWindow(frame);
    }

    void OnCurrentCellChanged() override { ++cellChanges; }
    void OnColumnsMoved() override { ++columnMoves; }
    void OnFontStep(int direction) override { fontSteps += direction; }
    Answer OnGridMessage(const Message& in) override {
        return onMessage ? onMessage(in) : std::nullopt;
    }
    bool OnCellPressed(GridClick, GridCell cell) override {
        pressed = cell;
        return usePress;
    }
    void OnCellClicked(GridClick click, GridCell cell) override {
        lastClick = click;
        clicked = cell;
    }
    void OnHeaderClick(int gridColumn) override { headerClicked = gridColumn; }
    void OnHeaderMenu() override { ++headerMenus; }
    void OnExpanderClicked(int viewRow) override { expanders.push_back(viewRow); }

    void Reset() {
        cellChanges = columnMoves = fontSteps = 0;
        table.asked = table.rowsEntered = 0;
        table.lastRow = -1;
    }

    /// Handles all that waits, then paints everything anew.
    void Paint() {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            DispatchMessageW(&message);
        }
        RedrawWindow(frame, nullptr, nullptr,
                     RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    }

    LRESULT Send(UINT id, WPARAM wparam = 0, LPARAM lparam = 0) {
        return SendMessageW(grid.Window(), id, wparam, lparam);
    }
    void Key(WPARAM key) {
        Send(WM_KEYDOWN, key, 1);
        Send(WM_KEYUP, key, 1);
    }
    void Click(GridCell cell, UINT down = WM_LBUTTONDOWN, UINT up = WM_LBUTTONUP) {
        const RECT box = grid.CellBounds(cell);
        const LPARAM at = MAKELPARAM((box.left + box.right) / 2, (box.top + box.bottom) / 2);
        PostMessageW(grid.Window(), up, 0, at);
        Send(down, 0, at);
        Paint();
    }

    /// The text as any program sees it from outside.
    [[nodiscard]] std::wstring ItemText(int row, int column, int room = 260) {
        std::vector<wchar_t> buffer(static_cast<size_t>(room) + 1, L'?');
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = buffer.data();
        item.cchTextMax = room;
        Send(LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
        return buffer.data();
    }
    [[nodiscard]] std::wstring HeaderItemText(int column) {
        wchar_t buffer[260] = L"";
        HDITEMW item{};
        item.mask = HDI_TEXT;
        item.pszText = buffer;
        item.cchTextMax = 260;
        SendMessageW(grid.Header(), HDM_GETITEMW, static_cast<WPARAM>(column),
                     reinterpret_cast<LPARAM>(&item));
        return buffer;
    }
    [[nodiscard]] bool IsSelected(int row) {
        return Send(LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED) != 0;
    }
    [[nodiscard]] int FocusedRow() {
        return static_cast<int>(Send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
    }
    [[nodiscard]] int TopRow() { return static_cast<int>(Send(LVM_GETTOPINDEX)); }

    /// How many pixels of a rectangle of the window's client area have a colour.
    [[nodiscard]] static int CountPixels(HWND window, const RECT& area, COLORREF color) {
        const WindowDc dc(window);
        int count = 0;
        for (LONG y = area.top; y < area.bottom; ++y) {
            for (LONG x = area.left; x < area.right; ++x) {
                count += GetPixel(dc.Get(), x, y) == color ? 1 : 0;
            }
        }
        return count;
    }
    /// The colour of most pixels of a cell.
    [[nodiscard]] COLORREF BackOf(GridCell cell) {
        RECT box = grid.CellBounds(cell);
        InflateRect(&box, -2, -2);
        return MainColor(grid.Window(), box);
    }
    [[nodiscard]] static COLORREF MainColor(HWND window, const RECT& area) {
        const WindowDc dc(window);
        std::vector<COLORREF> seen;
        for (LONG y = area.top; y < area.bottom; y += 2) {
            for (LONG x = area.left; x < area.right; x += 2) {
                seen.push_back(GetPixel(dc.Get(), x, y));
            }
        }
        std::sort(seen.begin(), seen.end());
        COLORREF best = CLR_INVALID;
        size_t most = 0;
        for (size_t i = 0, run = 0; i < seen.size(); ++i) {
            run = i > 0 && seen[i] == seen[i - 1] ? run + 1 : 1;
            if (run > most) {
                most = run;
                best = seen[i];
            }
        }
        return best;
    }

    CountingTable table;
    RowView view;
    Grid grid;
    ViewerFonts fonts;
    HWND frame = nullptr;
    bool created = false;

    int cellChanges = 0;
    int columnMoves = 0;
    int fontSteps = 0;
    int headerMenus = 0;
    int headerClicked = -1;
    bool usePress = false;
    std::vector<int> expanders;
    GridCell pressed, clicked;
    GridClick lastClick = GridClick::Single;
    std::function<Answer(const Message&)> onMessage;
    std::function<bool(WPARAM, LPARAM)> onCommand;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT id, WPARAM wparam, LPARAM lparam) {
        auto* self = reinterpret_cast<GridWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (self != nullptr && id == WM_NOTIFY) {
            if (const Answer answer = self->grid.OnNotify(*reinterpret_cast<NMHDR*>(lparam))) {
                return *answer;
            }
        }
        if (self != nullptr && id == WM_COMMAND && self->onCommand &&
            self->onCommand(wparam, lparam)) {
            return 0;
        }
        return DefWindowProcW(window, id, wparam, lparam);
    }
};

}  // namespace rl::test
