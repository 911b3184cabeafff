// Clicks on headers: the order of the rows, the mark, and the row that was current.
#include <windows.h>
// Needs the types above.
#include <commctrl.h>

#include <gtest/gtest.h>

#include "tests/ui/support/input.h"
#include "tests/ui/support/pump.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

constexpr const char* kTable = "name,number\na10,3\nA2,20\na1,3\n";
constexpr int kBetweenClicks = 600;  // or two clicks at one place are a double click

/// Clicks a header, never as the second half of a double click.
void ClickHeader(const Viewer& viewer, int column) {
    PumpFor(kBetweenClicks);
    Click(viewer.Header(), viewer.HeaderCenter(column));
}

Texts Names(const Viewer& viewer, int column = 0) {
    Texts texts;
    for (int row = 0; row < viewer.RowCount(); ++row) {
        texts.push_back(viewer.Cell(row, column));
    }
    return texts;
}

int Mark(const Viewer& viewer, int column) {
    HDITEMW item{};
    item.mask = HDI_FORMAT;
    SendMessageW(viewer.Header(), HDM_GETITEMW, static_cast<WPARAM>(column),
                 reinterpret_cast<LPARAM>(&item));
    return item.fmt & (HDF_SORTUP | HDF_SORTDOWN);
}

TEST(HeaderSort, GoesUpDownAndBackToTheFile) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    ClickHeader(viewer, 0);
    EXPECT_EQ(Names(viewer), (Texts{L"a1", L"A2", L"a10"}));
    EXPECT_EQ(Mark(viewer, 0), HDF_SORTUP);

    ClickHeader(viewer, 0);
    EXPECT_EQ(Names(viewer), (Texts{L"a10", L"A2", L"a1"}));
    EXPECT_EQ(Mark(viewer, 0), HDF_SORTDOWN);

    ClickHeader(viewer, 0);
    EXPECT_EQ(Names(viewer), (Texts{L"a10", L"A2", L"a1"}));
    EXPECT_EQ(Mark(viewer, 0), 0);
}

TEST(HeaderSort, KeepsEqualRowsInTheOrderOfTheFileBothWays) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    ClickHeader(viewer, 1);
    EXPECT_EQ(Names(viewer), (Texts{L"a10", L"a1", L"A2"}));
    ClickHeader(viewer, 1);
    EXPECT_EQ(Names(viewer), (Texts{L"A2", L"a10", L"a1"}));
}

TEST(HeaderSort, MovesItsMarkToTheOtherColumn) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    ClickHeader(viewer, 0);
    ClickHeader(viewer, 1);

    EXPECT_EQ(Mark(viewer, 0), 0);
    EXPECT_EQ(Mark(viewer, 1), HDF_SORTUP);
}

TEST(HeaderSort, FollowsTheCurrentRow) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(0, 1));  // a10
    ClickHeader(viewer, 0);

    EXPECT_EQ(viewer.Status(4), L" 3:2");
    EXPECT_EQ(viewer.SelectedRows(), std::vector<int>{2});
    EXPECT_EQ(viewer.FocusedRow(), 2);
    EXPECT_EQ(viewer.PaneText(), L"3");
}

TEST(HeaderSort, BringsTheCurrentRowIntoView) {
    std::string rows = "a,b\n";
    for (int i = 0; i < 500; ++i) {
        rows += std::to_string(i) + ",x\n";
    }
    UiHost host;
    const Viewer viewer = host.OpenText(rows);
    Click(viewer.Grid(), viewer.CellCenter(0, 0));
    ClickHeader(viewer, 0);
    ClickHeader(viewer, 0);

    EXPECT_EQ(viewer.Status(4), L" 500:1");
    EXPECT_GT(viewer.TopRow(), 400);
}

TEST(HeaderSort, MakesTheClickedColumnCurrentWhenNoneWas) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    ClickHeader(viewer, 1);
    EXPECT_EQ(viewer.SelectedRows(), std::vector<int>{});

    Key(VK_DOWN);
    EXPECT_EQ(viewer.Status(4).substr(viewer.Status(4).find(L':')), L":2");
}

TEST(HeaderSort, LeavesTheLineNumbersAlone) {
    UiHost host({.ini = "show-line-numbers=1\n"});
    const Viewer viewer = host.OpenText(kTable);
    ClickHeader(viewer, 0);
    EXPECT_EQ(Names(viewer, 1), (Texts{L"a10", L"A2", L"a1"}));
    EXPECT_EQ(Mark(viewer, 0), 0);

    ClickHeader(viewer, 1);
    EXPECT_EQ(Names(viewer, 1), (Texts{L"a1", L"A2", L"a10"}));
    EXPECT_EQ(Names(viewer, 0), (Texts{L"1", L"2", L"3"}));
}

TEST(HeaderSort, SortsWhatTheFiltersLeave) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    SetFocus(GetDlgItem(viewer.Window(), 2001));
    SendMessageW(GetDlgItem(viewer.Window(), 2001), WM_CHAR, L'3', 1);
    ClickHeader(viewer, 0);

    EXPECT_EQ(Names(viewer), (Texts{L"a1", L"a10"}));
}

TEST(HeaderSort, DoesNothingToTheOrderWhenCtrlHidesTheColumn) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Header(), viewer.HeaderCenter(1), {VK_CONTROL});

    EXPECT_EQ(Names(viewer), (Texts{L"a10", L"A2", L"a1"}));
    EXPECT_EQ(viewer.Width(1), 0);
}

}  // namespace

}  // namespace rl::test
