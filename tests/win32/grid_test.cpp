// The grid on a real window: driven by its own messages, read back by texts, states and pixels.
#include "view/grid.h"

#include <gtest/gtest.h>

#include "tests/win32/grid_window.h"

namespace rl::test {
namespace {

CountingTable::Rows Towns() {
    return {{L"Town", L"Temp", L""}, {L"Oslo", L"1.5", L"x"},      {L"Rome", L"-22.25", L"y"},
            {L"Bonn", L"3", L"z"},   {L"Bern", L"n/a", L"1.000,5"}};
}

[[maybe_unused]] CountingTable::Rows ManyRows(int count, int columns) {
    CountingTable::Rows rows;
    for (int row = 0; row < count; ++row) {
        std::vector<std::wstring> cells;
        for (int column = 0; column < columns; ++column) {
            cells.push_back(L"cell " + std::to_wstring(row) + L" of " + std::to_wstring(column));
        }
        rows.push_back(std::move(cells));
    }
    return rows;
}

TEST(Grid, DISABLED_StandsOnTheScreenForALook) {
    GridWindowOptions options;
    options.style.lineNumbers = true;
    options.dpi = std::getenv("GRID_DPI") ? std::atoi(std::getenv("GRID_DPI")) : 96;
    if (std::getenv("GRID_DARK")) {
        options.colors = LoadThemeColors([](std::wstring_view, int32_t value) { return value; },
                                         SelectTheme(L"Dark", true));
    }
    auto rows = Towns();
    for (int i = 0; i < 40; ++i) {
        rows.push_back({L"Row " + std::to_wstring(i), std::to_wstring(i * i) + L".25",
                        L"some longer text that goes on and on until it no longer fits the column"});
    }
    GridWindow window(rows, options);
    window.grid.GoTo({2, 1});
    window.grid.SetSortMark(1, 1);
    SetFocus(window.grid.Window());
    const ULONGLONG end = GetTickCount64() + 5000;
    while (GetTickCount64() < end) {
        window.Paint();
        Sleep(100);
    }
}

TEST(Grid, IsAVirtualReportListWithAName) {
    GridWindow window(Towns());
    ASSERT_TRUE(window.created);
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(window.grid.Window(), GWL_STYLE));

    EXPECT_EQ(GetDlgCtrlID(window.grid.Window()), 1001);
    EXPECT_EQ(style & (LVS_TYPEMASK | LVS_OWNERDATA | LVS_SHOWSELALWAYS | WS_TABSTOP),
              static_cast<DWORD>(LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS | WS_TABSTOP));
    EXPECT_EQ(window.Send(LVM_GETEXTENDEDLISTVIEWSTYLE),
              LVS_EX_DOUBLEBUFFER | LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
    wchar_t name[20] = L"";
    GetWindowTextW(window.grid.Window(), name, 20);
    EXPECT_STREQ(name, L"Table");
}

TEST(Grid, ShowsHeaderAndCells) {
    GridWindow window(Towns());

    EXPECT_EQ(window.Send(LVM_GETITEMCOUNT), 4);
    EXPECT_EQ(window.HeaderItemText(0), L"Town");
    EXPECT_EQ(window.HeaderItemText(2), L"Column 3");
    EXPECT_EQ(window.ItemText(0, 0), L"Oslo");
    EXPECT_EQ(window.ItemText(3, 2), L"1.000,5");
}

TEST(Grid, NumbersTheRowsOfTheView) {
    GridWindow window(Towns(), {.style = {.lineNumbers = true}});
    window.view.SetSort(0, 1);
    window.grid.RowsChanged(true);

    EXPECT_EQ(window.HeaderItemText(0), L"#");
    EXPECT_EQ(window.ItemText(0, 0), L"1");
    EXPECT_EQ(window.ItemText(0, 1), L"Bern");
    EXPECT_EQ(window.ItemText(3, 0), L"4");
}

TEST(Grid, CutsTextToTheCallersRoom) {
    GridWindow window({{L"h"}, {L"abcdef"}, {std::wstring(2000, L'x')}, {L"ab\xD83D\xDE00"}});

    EXPECT_EQ(window.ItemText(0, 0, 4), L"abc");
    EXPECT_EQ(window.ItemText(1, 0, 260).size(), 259u);
    EXPECT_EQ(window.ItemText(2, 0, 4), L"ab");  // never half a surrogate pair
    EXPECT_EQ(window.ItemText(2, 0, 5), L"ab\xD83D\xDE00");
}

}  // namespace
}  // namespace rl::test
