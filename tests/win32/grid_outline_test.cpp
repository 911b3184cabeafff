// An outline in the grid on a real window: pixels of its name cells, its columns and rows, and what
// is put back for the next table.
#include <gtest/gtest.h>

#include "tests/win32/outline_window.h"

namespace rl::test {
namespace {

TEST(GridOutline, NamesItsColumns) {
    OutlineWindow shown;
    EXPECT_EQ(shown.window.HeaderItemText(0), L"Name");
    EXPECT_EQ(shown.window.HeaderItemText(1), L"Value");

    OutlineWindow numbered({.window = {.style = {.lineNumbers = true}, .colors = kThemeColors}});
    EXPECT_EQ(numbered.window.HeaderItemText(0), L"#");
    EXPECT_EQ(numbered.window.HeaderItemText(1), L"Name");
    EXPECT_EQ(numbered.window.HeaderItemText(2), L"Value");
}

TEST(GridOutline, DrawsAMinusInAnOpenRowsBoxAndAPlusInAClosedOnes) {
    OutlineWindow shown;
    ASSERT_TRUE(shown.outline->Row(0).expanded);
    RECT box = shown.Box(0);
    const COLORREF line = MixColors(kThemeColors.back, kThemeColors.text, 130);

    EXPECT_EQ(shown.Pixel(box.left, box.top), line);
    EXPECT_EQ(shown.Pixel(box.right - 1, box.bottom - 1), line);
    EXPECT_EQ(shown.Count(box, line), 4 * 9);
    EXPECT_EQ(shown.Count(box, kThemeColors.text), 6);

    shown.Toggle(0);
    shown.window.Paint();
    box = shown.Box(0);
    EXPECT_EQ(shown.Count(box, kThemeColors.text), 11);
    EXPECT_EQ(shown.window.Send(LVM_GETITEMCOUNT), 1);
}

TEST(GridOutline, MarksContainersWithSquaresAndLeavesWithDiscs) {
    OutlineWindow shown;
    const RECT square = shown.Mark(0);
    EXPECT_EQ(shown.Pixel(square.left, square.top), MixColors(kSyntax.tag, kThemeColors.text, 60));
    EXPECT_EQ(shown.Pixel(square.left + 3, square.top + 3), kSyntax.tag);

    const RECT disc = shown.Mark(1);  // "name", a string
    EXPECT_EQ(shown.Pixel(disc.left, disc.top), kThemeColors.back2);
    EXPECT_EQ(shown.Pixel(disc.left + 3, disc.top + 3), kSyntax.string);
    EXPECT_EQ(shown.Pixel(disc.left + 3, disc.top),
              MixColors(kSyntax.string, kThemeColors.text, 60));
    EXPECT_EQ(shown.Count(shown.Box(1), MixColors(kThemeColors.back2, kThemeColors.text, 130)), 0);
}

TEST(GridOutline, DrawsOneGuideForEachAncestor) {
    OutlineWindow shown;
    constexpr int kDeepRow = 6;  // the 1 in "deep"
    ASSERT_EQ(shown.outline->Row(kDeepRow).depth, 4);
    const RECT cell = shown.Name(kDeepRow);
    const COLORREF guide = MixColors(kThemeColors.back, kThemeColors.text, 56);

    for (int level = 0; level < 4; ++level) {
        const LONG x = cell.left + 9 + 16 * level;
        EXPECT_EQ(shown.Count({x, cell.top, x + 1, cell.bottom}, guide), cell.bottom - cell.top);
    }
    EXPECT_EQ(shown.Count({cell.left, cell.top, cell.left + 66, cell.bottom}, guide),
              4 * (cell.bottom - cell.top));
}

TEST(GridOutline, WritesNameAndSummaryBesideTheMark) {
    OutlineWindow shown;
    constexpr int kObjectRow = 3;  // says how many it holds
    ASSERT_EQ(shown.outline->SummaryText(kObjectRow), L"2 items");
    const RECT mark = shown.Mark(kObjectRow);
    const RECT cell = shown.Name(kObjectRow);
    const RECT texts{mark.right + 5, cell.top, cell.right, cell.bottom};

    EXPECT_GT(shown.Count(texts, kSyntax.tag), 0);
    EXPECT_GT(shown.Count(texts, MixColors(kThemeColors.back2, kThemeColors.text, 150)), 0);
    EXPECT_EQ(shown.Count({mark.right, cell.top, mark.right + 5, cell.bottom}, kThemeColors.back2),
              5 * (cell.bottom - cell.top));
}

TEST(GridOutline, PaintsASelectedRowInTheSelectionsColours) {
    OutlineWindow shown;
    shown.TheGrid().GoTo({3, 0});
    shown.window.Paint();
    const RECT cell = shown.Name(3);

    EXPECT_EQ(shown.window.BackOf({3, 0}), kThemeColors.selectionBack);
    const RECT texts{shown.Mark(3).right + 5, cell.top, cell.right, cell.bottom};
    EXPECT_GT(shown.Count(texts, kThemeColors.selectionText), 0);
    EXPECT_EQ(shown.Count(texts, kSyntax.tag), 0);
    EXPECT_EQ(shown.window.BackOf({2, 0}), kThemeColors.back);
    EXPECT_EQ(shown.window.BackOf({1, 0}), kThemeColors.back2);

    shown.TheGrid().GoTo({3, 1});
    shown.window.Paint();
    EXPECT_EQ(shown.window.BackOf({3, 0}), kThemeColors.selectionBack);
    EXPECT_EQ(shown.window.BackOf({3, 1}), kThemeColors.currentCellBack);
}

TEST(GridOutline, PaintsTheRestOfARowOfUnboundedDepth) {
    std::wstring deep(300, L'[');
    deep += std::wstring(300, L']');
    OutlineWindow shown({.json = deep});
    const int last = static_cast<int>(shown.window.Send(LVM_GETITEMCOUNT)) - 1;
    ASSERT_GE(last, 299);
    shown.TheGrid().BringIntoView({last, 0});
    shown.window.Paint();

    EXPECT_EQ(shown.window.BackOf({last, 0}), kThemeColors.back2);
    const RECT cell = shown.Name(last);
    const RECT line{cell.left, cell.top, cell.right, cell.top + 1};
    EXPECT_EQ(shown.Count(line, MixColors(kThemeColors.back2, kThemeColors.text, 56)),
              (cell.right - cell.left - 9 + 15) / 16);
}

TEST(GridOutline, GivesTheValueColumnTheRestOfTheWindow) {
    OutlineWindow shown;
    Grid& grid = shown.TheGrid();
    const auto rest = [&] { return ClientRect(grid.Window()).width - 4 - grid.ColumnWidth(0); };
    EXPECT_EQ(grid.ColumnWidth(1), rest());

    MoveWindow(grid.Window(), 0, 0, 600, 300, TRUE);
    EXPECT_EQ(grid.ColumnWidth(1), rest());
    EXPECT_GT(shown.window.columnMoves, 0);

    MoveWindow(grid.Window(), 0, 0, 100, 300, TRUE);
    EXPECT_EQ(grid.ColumnWidth(1), 120);
    MoveWindow(grid.Window(), 0, 0, 700, 300, TRUE);
    grid.RecomputeWidths();
    EXPECT_EQ(grid.ColumnWidth(1), rest());
}

TEST(GridOutline, GivesLongNamesTheirShareOfTheWindow) {
    OutlineWindow shown({.json = L"{\"" + std::wstring(300, L'n') + L"\": 1}"});
    Grid& grid = shown.TheGrid();
    const auto share = [&] { return ClientRect(grid.Window()).width * 45 / 100; };
    EXPECT_EQ(grid.ColumnWidth(0), share());

    MoveWindow(grid.Window(), 0, 0, 0, 0, TRUE);  // as a grid is before its first layout
    grid.ShowTable(&*shown.view, shown.style);
    MoveWindow(grid.Window(), 0, 0, 600, 300, TRUE);
    EXPECT_EQ(grid.ColumnWidth(0), share());
    EXPECT_EQ(grid.ColumnWidth(1), ClientRect(grid.Window()).width - 4 - share());
}

TEST(GridOutline, KeepsTheWidthThatTheUserGaveTheNames) {
    OutlineWindow shown;
    Grid& grid = shown.TheGrid();
    shown.window.Send(LVM_SETCOLUMNWIDTH, 0, 500);
    MoveWindow(grid.Window(), 0, 0, 700, 300, TRUE);
    EXPECT_EQ(grid.ColumnWidth(0), 500);
    EXPECT_EQ(grid.ColumnWidth(1), 700 - 4 - 500);
}

TEST(GridOutline, MakesRoomForTheScrollBar) {
    std::wstring json = L"[";
    for (int i = 0; i < 100; ++i) {
        json += L"1,";
    }
    OutlineWindow shown({.json = json + L"1]"});
    Grid& grid = shown.TheGrid();

    EXPECT_NE(GetWindowLongPtrW(grid.Window(), GWL_STYLE) & WS_VSCROLL, 0);
    EXPECT_EQ(GetWindowLongPtrW(grid.Window(), GWL_STYLE) & WS_HSCROLL, 0);
    EXPECT_EQ(grid.ColumnWidth(1), ClientRect(grid.Window()).width - 4 - grid.ColumnWidth(0));

    shown.Toggle(0);
    grid.RecomputeWidths();
    EXPECT_EQ(GetWindowLongPtrW(grid.Window(), GWL_STYLE) & WS_VSCROLL, 0);
    EXPECT_EQ(grid.ColumnWidth(1), ClientRect(grid.Window()).width - 4 - grid.ColumnWidth(0));
}

TEST(GridOutline, LeavesAHiddenValueColumnHidden) {
    OutlineWindow shown;
    shown.TheGrid().HideColumn(1);
    shown.TheGrid().FitValueColumn();
    EXPECT_EQ(shown.TheGrid().ColumnWidth(1), 0);
    MoveWindow(shown.TheGrid().Window(), 0, 0, 600, 300, TRUE);
    EXPECT_EQ(shown.TheGrid().ColumnWidth(1), 0);
}

TEST(GridOutline, TurnsGridLinesOffAndOnAgainForTables) {
    for (const bool wanted : {true, false}) {
        OutlineWindow shown({.window = {.gridLines = wanted, .colors = kThemeColors}});
        const auto lines = [&] {
            return (shown.window.Send(LVM_GETEXTENDEDLISTVIEWSTYLE) & LVS_EX_GRIDLINES) != 0;
        };
        EXPECT_FALSE(lines());
        shown.TheGrid().ShowTable(&shown.window.view, {});
        EXPECT_EQ(lines(), wanted);
        shown.TheGrid().ShowTable(&*shown.view, shown.style);
        EXPECT_FALSE(lines());
        shown.TheGrid().ShowTable(nullptr, {});
        EXPECT_EQ(lines(), wanted);
    }
}

TEST(GridOutline, MakesRowsHigherAndPutsTheOldHeightBack) {
    GridWindow table({{L"a"}, {L"b"}}, {.colors = kThemeColors});
    const RECT before = table.grid.CellBounds({0, 0});
    OutlineWindow shown;
    TEXTMETRICW metrics{};
    {
        const WindowDc dc(shown.TheGrid().Window());
        const SelectScope font(dc.Get(), shown.window.fonts.normal.Get());
        GetTextMetricsW(dc.Get(), &metrics);
    }
    EXPECT_GE(shown.Height(0), metrics.tmHeight + 4);
    EXPECT_LE(shown.Height(0), metrics.tmHeight + 6);  // list views add a pixel or two

    shown.TheGrid().ShowTable(&table.view, {});
    const RECT after = shown.TheGrid().CellBounds({0, 0});
    EXPECT_EQ(after.bottom - after.top, before.bottom - before.top);
}

TEST(GridOutline, MakesRowsHigherWithTheFont) {
    OutlineWindow shown;
    const int before = shown.Height(0);
    shown.window.fonts = MakeViewerFonts({.points = 22}, 96);
    shown.TheGrid().SetFonts(shown.window.fonts.normal.Get(), shown.window.fonts.bold.Get(), 96);
    shown.TheGrid().RecomputeWidths();
    EXPECT_GT(shown.Height(0), before * 3 / 2);

    shown.window.fonts = MakeViewerFonts({.points = 11}, 96);
    shown.TheGrid().SetFonts(shown.window.fonts.normal.Get(), shown.window.fonts.bold.Get(), 96);
    EXPECT_EQ(shown.Height(0), before);
}

TEST(GridOutline, DrawsNoNumberByItsSeparator) {
    OutlineWindow shown({.json = L"[1.5, 22222222.25]"});
    const RECT cell = shown.TheGrid().CellBounds({1, 1});  // 1.5
    const RECT start{cell.left + 1, cell.top + 1, cell.left + 20, cell.bottom - 1};
    EXPECT_LT(shown.Count(start, kThemeColors.back2),
              (start.right - start.left) * (start.bottom - start.top));
}

}  // namespace
}  // namespace rl::test
