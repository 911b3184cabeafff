// The grid on a real window: driven by its own messages, read back by texts, states and pixels.
#include "view/grid.h"

#include <gtest/gtest.h>

#include "tests/win32/grid_window.h"

namespace rl::test {
namespace {

CountingTable::Rows Towns() {
    return {{L"Town", L"Temp", L""},
            {L"Oslo", L"1.5", L"x"},
            {L"Rome", L"-22.25", L"y"},
            {L"Bonn", L"3", L"z"},
            {L"Bern", L"n/a", L"1.000,5"}};
}

CountingTable::Rows ManyRows(int count, int columns) {
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
        rows.push_back(
            {L"Row " + std::to_wstring(i), std::to_wstring(i * i) + L".25",
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

TEST(Grid, ShowsTheFirstColumnsOfATableThatHasTooMany) {
    GridWindow window(ManyRows(2, kMaxShownColumns + 1));
    ASSERT_TRUE(window.created);
    EXPECT_EQ(window.grid.ColumnCount(), kMaxShownColumns);
    EXPECT_EQ(window.grid.DataColumn(kMaxShownColumns - 1), kMaxShownColumns - 1);
    EXPECT_EQ(window.grid.DataColumn(kMaxShownColumns), -1);
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

TEST(Grid, AlignsTheSeparatorsOfANumberColumn) {
    const ThemeColors colors{.text = 0x000000, .back = 0xFFFFFF, .back2 = 0xFFFFFF};
    // A bar of "|" would have no room of its own: digits are all of one width in most faces.
    GridWindow window({{L"n"}, {L"8.8"}, {L"888.8"}, {L"888"}, {L"8,88"}},
                      {.gridLines = false, .colors = colors});
    const auto lastInk = [&](int row, int from, int to) {
        const RECT box = window.grid.CellBounds({row, 0});
        for (int x = to; x > from; --x) {
            if (GridWindow::CountPixels(window.grid.Window(),
                                        {x, box.top + 1, x + 1, box.bottom - 1},
                                        0xFFFFFF) < box.bottom - box.top - 2) {
                return x;
            }
        }
        return -1;
    };
    const RECT box = window.grid.CellBounds({0, 0});
    const WindowDc dc(window.grid.Window());
    const SelectScope font(dc.Get(), window.fonts.normal.Get());
    SIZE widest{};
    GetTextExtentPoint32W(dc.Get(), L"888", 3, &widest);
    const int separator = box.left + 6 + widest.cx;

    const int wholeEnd = lastInk(2, box.left + 2, box.right - 2);
    EXPECT_GT(wholeEnd, separator - 4);  // a whole number ends where the separators stand
    EXPECT_LE(wholeEnd, separator);
    for (const int row : {0, 1, 3}) {
        SCOPED_TRACE(row);
        const int integerEnd = lastInk(row, box.left + 2, separator - 1);
        EXPECT_GT(integerEnd, separator - 5);
        EXPECT_GT(lastInk(row, box.left + 2, box.right - 2), separator);
    }
}

TEST(Grid, LeavesTextInANumberColumnAtTheLeft) {
    const ThemeColors colors{.text = 0x000000, .back = 0xFFFFFF, .back2 = 0xFFFFFF};
    GridWindow window({{L"n"}, {L"88888888.5"}, {L"x"}}, {.gridLines = false, .colors = colors});
    const RECT box = window.grid.CellBounds({1, 0});
    const RECT left{box.left + 1, box.top + 1, box.left + 20, box.bottom - 1};

    EXPECT_LT(GridWindow::CountPixels(window.grid.Window(), left, 0xFFFFFF),
              (left.right - left.left) * (left.bottom - left.top));
}

TEST(Grid, StripesRowsAndMarksSelectionAndCurrentCell) {
    const ThemeColors colors{.text = 0x010203,
                             .back = 0x102030,
                             .back2 = 0x405060,
                             .currentCellBack = 0x708090,
                             .selectionText = 0xFFFFFF,
                             .selectionBack = 0x0000A0,
                             .lineNumberBack = 0x00B000};
    for (const bool decimalAlign : {true, false}) {
        SCOPED_TRACE(decimalAlign);
        GridWindow window(Towns(), {.style = {.lineNumbers = true, .decimalAlign = decimalAlign},
                                    .colors = colors});
        window.grid.GoTo({2, 1});
        window.Paint();

        EXPECT_EQ(window.BackOf({0, 1}), 0x102030u);
        EXPECT_EQ(window.BackOf({1, 1}), 0x405060u);
        EXPECT_EQ(window.BackOf({1, 2}), 0x405060u);  // painted by us, as a number
        EXPECT_EQ(window.BackOf({2, 1}), 0x708090u);
        EXPECT_EQ(window.BackOf({2, 2}), 0x0000A0u);
        EXPECT_EQ(window.BackOf({2, 3}), 0x0000A0u);
        EXPECT_EQ(window.BackOf({2, 0}), 0x00B000u);
    }
}

TEST(Grid, ShowsTheCurrentCellAlsoWithoutLineNumbersAndAlignment) {
    const ThemeColors colors{.currentCellBack = 0x708090, .selectionBack = 0x0000A0};
    GridWindow window(Towns(), {.style = {.decimalAlign = false}, .colors = colors});
    window.grid.GoTo({1, 2});
    window.Paint();

    EXPECT_EQ(window.BackOf({1, 1}), 0x0000A0u);
    EXPECT_EQ(window.BackOf({1, 2}), 0x708090u);
}

TEST(Grid, GivesANumberTheCurrentCellsColour) {
    const ThemeColors colors{.currentCellBack = 0x708090, .selectionBack = 0x0000A0};
    GridWindow window(Towns(), {.colors = colors});
    window.grid.GoTo({1, 1});
    window.Paint();

    EXPECT_EQ(window.BackOf({1, 1}), 0x708090u);
    EXPECT_EQ(window.BackOf({1, 0}), 0x0000A0u);
}

TEST(Grid, DrawsGridLinesInCellsItPaints) {
    const ThemeColors colors{.back = 0xFFFFFF, .back2 = 0xFFFFFF};
    const COLORREF line = GetSysColor(COLOR_BTNFACE);
    GridWindow with(Towns(), {.colors = colors});
    GridWindow without(Towns(), {.gridLines = false, .colors = colors});
    const RECT box = with.grid.CellBounds({0, 1});
    const RECT right{box.right - 1, box.top, box.right, box.bottom};
    const RECT bottom{box.left, box.bottom - 1, box.right, box.bottom};
    const RECT bare = without.grid.CellBounds({0, 1});

    EXPECT_EQ(GridWindow::CountPixels(with.grid.Window(), right, line), box.bottom - box.top);
    EXPECT_EQ(GridWindow::CountPixels(with.grid.Window(), bottom, line), box.right - box.left);
    EXPECT_EQ(GridWindow::CountPixels(without.grid.Window(), bare, line), 0);
}

TEST(Grid, PaintsTheHeaderInItsColoursToTheVeryEnd) {
    const ThemeColors colors{.headerText = 0x123456, .headerBack = 0x654321};
    GridWindow window(Towns(), {.colors = colors});
    RECT first{};
    SendMessageW(window.grid.Header(), HDM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&first));
    const Rect all = ClientRect(window.grid.Header());

    EXPECT_EQ(GridWindow::MainColor(window.grid.Header(), first), 0x654321u);
    EXPECT_EQ(GridWindow::MainColor(window.grid.Header(),
                                    {all.Right() - 50, 0, all.Right(), all.Bottom()}),
              0x654321u);
    EXPECT_GT(GridWindow::CountPixels(window.grid.Header(), first, 0x123456), 20);
}

TEST(Grid, MarksTheSortColumn) {
    const ThemeColors colors{.headerText = 0x123456, .headerBack = 0x654321};
    GridWindow window(Towns(), {.colors = colors});
    RECT item{};
    SendMessageW(window.grid.Header(), HDM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&item));
    const RECT corner{item.right - 15, item.top, item.right - 2, item.bottom};
    const auto mark = [&](int column, int direction) {
        window.grid.SetSortMark(column, direction);
        window.Paint();
        return GridWindow::CountPixels(window.grid.Header(), corner, 0x123456);
    };
    const auto format = [&](int column) {
        HDITEMW data{};
        data.mask = HDI_FORMAT;
        SendMessageW(window.grid.Header(), HDM_GETITEMW, static_cast<WPARAM>(column),
                     reinterpret_cast<LPARAM>(&data));
        return data.fmt & (HDF_SORTUP | HDF_SORTDOWN);
    };

    EXPECT_GT(mark(0, 1), 10);
    EXPECT_EQ(format(0), HDF_SORTUP);
    EXPECT_GT(mark(0, -1), 10);
    EXPECT_EQ(format(0), HDF_SORTDOWN);
    EXPECT_EQ(mark(1, 1), 0);  // the other column's mark is gone
    EXPECT_EQ(format(0), 0);
    EXPECT_EQ(format(1), HDF_SORTUP);
    mark(-1, 0);
    EXPECT_EQ(format(1), 0);
}

TEST(Grid, AsksForEachVisibleCellOnce) {
    for (const bool numbers : {false, true}) {
        SCOPED_TRACE(numbers);
        CountingTable::Rows rows = ManyRows(2000, 5);
        if (numbers) {
            for (size_t i = 0; i < rows.size(); ++i) {
                rows[i][2] = std::to_wstring(i) + L".5";
            }
        }
        GridWindow window(rows, {.headerRow = false});
        window.Reset();
        window.Paint();
        const int visibleRows = static_cast<int>(window.Send(LVM_GETCOUNTPERPAGE)) + 1;

        EXPECT_GT(window.table.asked, 0);
        EXPECT_LE(window.table.asked, visibleRows * 5);
        EXPECT_LE(window.table.rowsEntered, visibleRows);
    }
}

TEST(Grid, MeasuresOnlyTheFirstAndTheLastRowForTwoSamples) {
    CountingTable::Rows rows = ManyRows(100, 1);
    rows[50][0] = std::wstring(200, L'W');
    rows[99][0] = L"the last row is a long one";
    const auto width = [&](int samples) {
        GridWindow window(rows, {.style = {.maxColumnWidth = 0, .maxColumnSamples = samples},
                                 .headerRow = false});
        return window.grid.ColumnWidth(0);
    };

    EXPECT_LT(width(2), 400);
    EXPECT_GT(width(1000), 1000);
    EXPECT_LT(width(1), width(2));
}

TEST(Grid, AsksForEachSampledCellOnceToMeasure) {
    GridWindow window(ManyRows(5000, 4), {.headerRow = false});
    window.Reset();
    window.grid.RecomputeWidths();

    EXPECT_EQ(window.table.asked, 1000 * 4);
    EXPECT_EQ(window.table.rowsEntered, 1000);
}

TEST(Grid, CentresRowsAndHeaderForTheFontsOfTheDpi) {
    GridWindow small(Towns());
    GridWindow large(Towns(), {.dpi = 192});
    const RECT row = small.grid.CellBounds({0, 0});
    const RECT tall = large.grid.CellBounds({0, 0});

    EXPECT_GT(tall.bottom - tall.top, (row.bottom - row.top) * 3 / 2);
    EXPECT_GT(ClientRect(large.grid.Header()).height,
              ClientRect(small.grid.Header()).height * 3 / 2);
}

TEST(Grid, NeverCapsALoneColumn) {
    const std::wstring longText(2000, L'm');
    GridWindow lone({{L"h"}, {longText}});
    GridWindow pair({{L"h", L"i"}, {longText, L"x"}});
    GridWindow numbered({{L"h"}, {longText}}, {.style = {.lineNumbers = true}});

    EXPECT_GT(lone.grid.ColumnWidth(0), 2000);
    EXPECT_EQ(pair.grid.ColumnWidth(0), 300);
    EXPECT_EQ(numbered.grid.ColumnWidth(1), 300);
}

TEST(Grid, ScalesWithTheDpi) {
    const std::wstring longText(2000, L'm');
    GridWindow pair({{L"h", L"i"}, {longText, L"x"}}, {.dpi = 144});

    EXPECT_EQ(pair.grid.ColumnWidth(0), 450);
}

}  // namespace
}  // namespace rl::test
