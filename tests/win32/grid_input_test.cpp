// What keys, clicks and the wheel do to the grid on a real window.
#include <gtest/gtest.h>

#include "tests/win32/grid_window.h"

namespace rl::test {
namespace {

CountingTable::Rows Table(int rows, int columns) {
    CountingTable::Rows table;
    for (int row = 0; row < rows; ++row) {
        std::vector<std::wstring> cells;
        for (int column = 0; column < columns; ++column) {
            cells.push_back(L"cell " + std::to_wstring(row) + L" of " + std::to_wstring(column));
        }
        table.push_back(std::move(cells));
    }
    return table;
}

CountingTable::Rows Words(const std::vector<std::wstring>& words) {
    CountingTable::Rows table;
    for (const std::wstring& word : words) {
        table.push_back({L"-", word});
    }
    return table;
}

LRESULT ClickHeader(GridWindow& window, int column) {
    NMLISTVIEW note{};
    note.hdr = {window.grid.Window(), static_cast<UINT_PTR>(kGridId), LVN_COLUMNCLICK};
    note.iItem = -1;
    note.iSubItem = column;
    return SendMessageW(window.frame, WM_NOTIFY, kGridId, reinterpret_cast<LPARAM>(&note));
}

/// Holds a modifier for GetKeyState, as a message posted while it is down would see it.
class HeldKey {
public:
    explicit HeldKey(BYTE key) : key_(key) { Set(0x80); }
    HeldKey(const HeldKey&) = delete;
    HeldKey& operator=(const HeldKey&) = delete;
    ~HeldKey() { Set(0); }

private:
    void Set(BYTE state) {
        BYTE keys[256];
        GetKeyboardState(keys);
        keys[key_] = state;
        SetKeyboardState(keys);
    }
    BYTE key_;
};

TEST(GridNavigation, MovesTheCurrentCellAndSelectsItsRowAlone) {
    GridWindow window(Table(5, 3), {.headerRow = false});
    window.grid.GoTo({1, 1});

    EXPECT_TRUE(window.grid.Navigate(VK_DOWN, false));
    EXPECT_EQ(window.grid.Current(), (GridCell{2, 1}));
    EXPECT_EQ(window.grid.SelectedRows(), std::vector<int>{2});
    EXPECT_EQ(window.FocusedRow(), 2);
    EXPECT_TRUE(window.grid.Navigate(VK_RIGHT, true));
    EXPECT_EQ(window.grid.Current(), (GridCell{2, 2}));
    EXPECT_FALSE(window.grid.Navigate(VK_F2, false));
}

TEST(GridNavigation, StepsOverHiddenColumns) {
    GridWindow window(Table(5, 4), {.headerRow = false});
    window.grid.HideColumn(1);
    window.grid.HideColumn(3);
    window.grid.GoTo({0, 0});

    window.grid.Navigate(VK_RIGHT, false);
    EXPECT_EQ(window.grid.Current(), (GridCell{0, 2}));
    window.grid.Navigate(VK_RIGHT, true);
    EXPECT_EQ(window.grid.Current(), (GridCell{0, 2}));
}

TEST(GridNavigation, StartsFromTheFocusedRowWithoutACurrentCell) {
    GridWindow window(Table(5, 3), {.headerRow = false});
    window.grid.SelectOnly(2);
    window.grid.SetCurrent({});

    EXPECT_TRUE(window.grid.Navigate(VK_DOWN, false));
    EXPECT_EQ(window.grid.Current(), (GridCell{3, 0}));
}

TEST(GridNavigation, IsNotHandledWithoutAnyRowToStartFrom) {
    GridWindow window(Table(5, 3), {.headerRow = false});

    EXPECT_FALSE(window.grid.Navigate(VK_DOWN, false));
    EXPECT_EQ(window.grid.Current(), GridCell{});
}

TEST(GridNavigation, ScrollsJustFarEnough) {
    GridWindow window(Table(50, 12), {.headerRow = false, .width = 400, .height = 200});
    window.grid.GoTo({0, 0});
    window.grid.Navigate(VK_RIGHT, true);
    const RECT last = window.grid.CellBounds({0, 11});
    EXPECT_EQ(last.right, ClientRect(window.grid.Window()).width);

    window.grid.Navigate(VK_LEFT, true);
    EXPECT_EQ(window.grid.CellBounds({0, 0}).left, 0);

    window.grid.Navigate(VK_DOWN, true);
    EXPECT_EQ(window.grid.Current().viewRow, 49);
    EXPECT_LE(window.grid.CellBounds({49, 0}).bottom, ClientRect(window.grid.Window()).height);
}

TEST(GridNavigation, ShowsTheStartOfACellWiderThanTheWindow) {
    GridWindow window({{L"h"}, {std::wstring(500, L'm')}, {L"b"}}, {.width = 300});
    window.grid.GoTo({0, 0});
    EXPECT_EQ(window.grid.CellBounds({0, 0}).left, 0);
    window.grid.Navigate(VK_DOWN, false);
    EXPECT_EQ(window.grid.CellBounds({0, 0}).left, 0);
}

TEST(GridFocus, CarriesTheCurrentRowAlongAndKeepsTheColumn) {
    GridWindow window(Table(200, 3), {.headerRow = false});
    window.grid.GoTo({0, 2});
    window.Reset();

    window.Key(VK_NEXT);
    EXPECT_GT(window.grid.Current().viewRow, 3);
    EXPECT_EQ(window.grid.Current().gridColumn, 2);
    EXPECT_EQ(window.cellChanges, 1);
    window.Key(VK_END);
    EXPECT_EQ(window.grid.Current(), (GridCell{199, 2}));
    window.Key(VK_HOME);
    EXPECT_EQ(window.grid.Current(), (GridCell{0, 2}));
}

TEST(GridFocus, TakesNoCellWhenTheKeyboardArrives) {
    GridWindow window(Table(5, 3), {.headerRow = false});
    SetFocus(window.grid.Window());
    window.Paint();

    EXPECT_EQ(window.grid.Current(), GridCell{});
}

TEST(GridFocus, KeepsTheCurrentCellWhenRowsGo) {
    GridWindow window(Table(50, 3), {.headerRow = false});
    window.grid.GoTo({40, 1});
    window.view.SetFilter(0, L"cell 4");
    window.Reset();
    window.grid.RowsChanged(true);

    EXPECT_EQ(window.Send(LVM_GETITEMCOUNT), 11);
    EXPECT_EQ(window.grid.Current(), (GridCell{40, 1}));  // the owner knows where it went
    EXPECT_EQ(window.cellChanges, 0);
}

TEST(GridClicks, MakeTheClickedCellCurrent) {
    GridWindow window(Table(5, 3), {.headerRow = false});
    window.Click({2, 1});

    EXPECT_EQ(window.grid.Current(), (GridCell{2, 1}));
    EXPECT_EQ(window.clicked, (GridCell{2, 1}));
    EXPECT_EQ(window.lastClick, GridClick::Single);
    EXPECT_EQ(window.grid.SelectedRows(), std::vector<int>{2});
}

TEST(GridClicks, CanBeUsedUpByTheOwner) {
    GridWindow window(Table(5, 3), {.headerRow = false});
    window.grid.GoTo({0, 0});
    window.usePress = true;
    NMITEMACTIVATE note{};
    note.hdr = {window.grid.Window(), static_cast<UINT_PTR>(kGridId), NM_CLICK};
    note.iItem = 3;
    note.iSubItem = 1;
    SendMessageW(window.frame, WM_NOTIFY, kGridId, reinterpret_cast<LPARAM>(&note));

    EXPECT_EQ(window.pressed, (GridCell{3, 1}));
    EXPECT_EQ(window.clicked, GridCell{});
    EXPECT_EQ(window.grid.Current(), (GridCell{0, 0}));
}

TEST(GridClicks, OnNothingLeaveNoCellCurrent) {
    GridWindow window(Table(2, 2), {.headerRow = false});
    window.grid.GoTo({0, 0});
    NMITEMACTIVATE note{};
    note.hdr = {window.grid.Window(), static_cast<UINT_PTR>(kGridId), NM_CLICK};
    note.iItem = -1;
    note.iSubItem = 0;
    SendMessageW(window.frame, WM_NOTIFY, kGridId, reinterpret_cast<LPARAM>(&note));

    EXPECT_EQ(window.grid.Current(), GridCell{});
}

TEST(GridClicks, HitTestFindsTheCellUnderAPoint) {
    GridWindow window(Table(5, 3), {.headerRow = false});
    const RECT box = window.grid.CellBounds({3, 2});

    EXPECT_EQ(window.grid.HitTest({box.left + 5, box.top + 3}), (GridCell{3, 2}));
    EXPECT_EQ(window.grid.HitTest({box.left + 5, box.bottom + 500}), GridCell{});
}

TEST(GridHeader, TellsItsClicks) {
    GridWindow window(Table(5, 3), {.headerRow = false});
    ClickHeader(window, 2);

    EXPECT_EQ(window.headerClicked, 2);
    EXPECT_FALSE(window.grid.IsHidden(2));
}

TEST(GridHeader, HidesAColumnOnACtrlClick) {
    GridWindow window(Table(5, 3), {.style = {.lineNumbers = true}, .headerRow = false});
    window.grid.GoTo({0, 1});
    window.Reset();
    const HeldKey ctrl(VK_CONTROL);
    ClickHeader(window, 2);
    ClickHeader(window, 0);  // the line numbers stay

    EXPECT_EQ(window.headerClicked, -1);
    EXPECT_TRUE(window.grid.IsHidden(1));
    EXPECT_EQ(window.grid.ColumnWidth(2), 0);
    EXPECT_GT(window.grid.ColumnWidth(0), 0);
    EXPECT_GT(window.columnMoves, 0);
}

TEST(GridHeader, ShowsAllColumnsAgain) {
    GridWindow window(Table(5, 3), {.headerRow = false});
    const int width = window.grid.ColumnWidth(1);
    window.grid.HideColumn(1);
    window.grid.RecomputeWidths();
    EXPECT_EQ(window.grid.ColumnWidth(1), 0);  // measuring does not bring it back

    window.grid.ShowAllColumns();
    EXPECT_EQ(window.grid.ColumnWidth(1), width);
    EXPECT_FALSE(window.grid.IsHidden(1));
}

TEST(GridHeader, KeepsWhatIsHiddenForTheNextTable) {
    GridWindow window(Table(5, 3), {.headerRow = false});
    window.grid.HideColumn(1);
    window.grid.ShowTable(nullptr, {});
    EXPECT_EQ(window.grid.ColumnCount(), 0);
    EXPECT_EQ(window.Send(LVM_GETITEMCOUNT), 0);
    EXPECT_EQ(SendMessageW(window.grid.Header(), HDM_GETITEMCOUNT, 0, 0), 0);

    window.grid.ShowTable(&window.view, {});
    EXPECT_EQ(window.grid.ColumnWidth(1), 0);
    EXPECT_GT(window.grid.ColumnWidth(2), 0);
}

TEST(GridHeader, BringsAColumnBackThatTheUserDrawsOpen) {
    GridWindow window(Table(5, 3), {.headerRow = false});
    window.grid.HideColumn(1);
    HDITEMW item{};
    item.mask = HDI_WIDTH;
    item.cxy = 80;
    SendMessageW(window.grid.Header(), HDM_SETITEMW, 1, reinterpret_cast<LPARAM>(&item));

    EXPECT_FALSE(window.grid.IsHidden(1));
}

TEST(GridHeader, MakesAColumnCurrentWithoutARowOnARightClick) {
    GridWindow window(Table(5, 3), {.headerRow = false});
    window.grid.GoTo({2, 0});
    RECT item{};
    SendMessageW(window.grid.Header(), HDM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&item));
    POINT point{(item.left + item.right) / 2, (item.top + item.bottom) / 2};
    ClientToScreen(window.grid.Header(), &point);
    SetCursorPos(point.x, point.y);
    NMHDR note{window.grid.Header(), 0, static_cast<UINT>(NM_RCLICK)};
    SendMessageW(window.grid.Window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&note));

    EXPECT_EQ(window.grid.Current(), (GridCell{-1, 1}));
    EXPECT_EQ(window.headerMenus, 1);
}

TEST(GridColumns, TellWhenTheyMove) {
    GridWindow window(Table(50, 12), {.headerRow = false, .width = 400});
    window.Send(WM_HSCROLL, SB_LINERIGHT);
    EXPECT_EQ(window.columnMoves, 1);
    window.Send(LVM_SCROLL, 10, 0);
    EXPECT_GE(window.columnMoves, 2);
    window.Reset();
    window.Send(LVM_SETCOLUMNWIDTH, 0, 77);
    EXPECT_GE(window.columnMoves, 1);
}

TEST(GridColumns, TellOnceWhenAllAreMeasured) {
    GridWindow window(Table(50, 12), {.headerRow = false});
    window.grid.RecomputeWidths();

    EXPECT_EQ(window.columnMoves, 1);
}

TEST(GridColumns, MayBeThousands) {
    GridWindow window(Table(2, 5000), {.headerRow = false});

    EXPECT_EQ(SendMessageW(window.grid.Header(), HDM_GETITEMCOUNT, 0, 0), 5000);
    EXPECT_EQ(window.ItemText(1, 4999), L"cell 1 of 4999");
    window.grid.GoTo({1, 4999});
    EXPECT_EQ(window.grid.CellBounds({1, 4999}).right, ClientRect(window.grid.Window()).width);
}

TEST(GridWheel, WithCtrlChangesTheFont) {
    GridWindow window(Table(50, 3), {.headerRow = false});
    window.Send(WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, 120), 0);
    EXPECT_EQ(window.fontSteps, 1);
    window.Send(WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, static_cast<WORD>(-120)), 0);
    EXPECT_EQ(window.fontSteps, 0);
    EXPECT_EQ(window.TopRow(), 0);
}

TEST(GridKeys, GoToTheOwnerFirst) {
    GridWindow window(Table(200, 3), {.headerRow = false});
    window.grid.GoTo({0, 0});
    window.onMessage = [](const Message& in) {
        return in.id == WM_KEYDOWN ? Answer(0) : std::nullopt;
    };
    window.Key(VK_END);
    EXPECT_EQ(window.grid.Current(), (GridCell{0, 0}));
}

TEST(GridTypeAhead, LooksInTheCurrentColumnBehindTheCurrentRow) {
    GridWindow window(Words({L"beta", L"Alpha", L"Bravo", L"apple"}), {.headerRow = false});
    window.grid.GoTo({0, 1});
    window.Send(WM_CHAR, 'b', 1);
    EXPECT_EQ(window.grid.Current(), (GridCell{2, 1}));
    EXPECT_EQ(window.grid.SelectedRows(), std::vector<int>{2});

    window.grid.ClearTypeAhead();
    window.Send(WM_CHAR, 'a', 1);
    EXPECT_EQ(window.grid.Current(), (GridCell{3, 1}));
    window.Send(WM_CHAR, 'l', 1);  // "al", around the end
    EXPECT_EQ(window.grid.Current(), (GridCell{1, 1}));
}

TEST(GridTypeAhead, StaysWhereItIsWithoutAHit) {
    GridWindow window(Words({L"beta", L"Alpha"}), {.headerRow = false});
    window.grid.GoTo({0, 1});
    window.Send(WM_CHAR, 'z', 1);

    EXPECT_EQ(window.grid.Current(), (GridCell{0, 1}));
}

TEST(GridRows, OfTenMegabytesDoNotHoldUpPainting) {
    CountingTable::Rows rows = Table(3, 2);
    rows[1][0] = std::wstring(5'000'000, L'7') + L".5";
    rows[1][1] = std::wstring(5'000'000, L'x');
    GridWindow window(rows, {.headerRow = false});
    window.Reset();
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(window.ItemText(1, 1).size(), 259u);
    }
    EXPECT_EQ(window.table.asked, 1);  // the last text asked for is kept
}

}  // namespace
}  // namespace rl::test
