// The filter row: typing, waiting, Escape, and boxes that stay above their columns.
#include <gtest/gtest.h>

#include "tests/ui/support/fakes.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/pump.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

constexpr const char* kTable = "town,number\nOslo,9\nRome,10\nBonn,11\nBern,abc\nOsaka,\n";
constexpr const char* kRemembered =
    "filter-text-color=255\nfilter-back-color=65280\nback-color=16777215\n";

HWND Box(const Viewer& viewer, int column) {
    return GetDlgItem(viewer.Window(), 2000 + column);
}

/// Clicks into a box and types.
void TypeInto(const Viewer& viewer, int column, std::wstring_view text) {
    SetFocus(Box(viewer, column));
    PumpIdle();
    for (const wchar_t unit : text) {
        SendMessageW(Box(viewer, column), WM_CHAR, unit, 1);
    }
    PumpIdle();
}

Texts FirstColumn(const Viewer& viewer, int column = 0) {
    Texts texts;
    for (int row = 0; row < viewer.RowCount(); ++row) {
        texts.push_back(viewer.Cell(row, column));
    }
    return texts;
}

std::string ManyRows(int count) {
    std::string rows = "a,b\n";
    for (int i = 0; i < count; ++i) {
        rows += std::to_string(i) + ",x\n";
    }
    return rows;
}

TEST(FilterBoxes, StandAboveTheGridAndTheirColumns) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    const RECT grid = viewer.Place(viewer.Grid());
    const RECT first = viewer.Place(Box(viewer, 0));
    const RECT second = viewer.Place(Box(viewer, 1));

    EXPECT_EQ(first.bottom, grid.top);
    EXPECT_EQ(first.bottom - first.top, 24);
    EXPECT_EQ(first.left, grid.left);
    EXPECT_EQ(first.right - first.left, viewer.Width(0));
    EXPECT_EQ(second.left, first.right);
    EXPECT_EQ(second.right - second.left, viewer.Width(1));
}

TEST(FilterBoxes, AreNotThereWhenTheSettingIsOff) {
    UiHost host({.ini = "filter-row=0\n"});
    const Viewer viewer = host.OpenText(kTable);

    EXPECT_FALSE(IsWindowVisible(Box(viewer, 0)));
    EXPECT_EQ(viewer.Place(viewer.Grid()).top, viewer.Place(viewer.Tabs()).bottom);
}

TEST(FilterBoxes, GiveTheFocusToTheGridWhenTheirColumnIsHidden) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    TypeInto(viewer, 1, L"1");
    ASSERT_EQ(GetFocus(), Box(viewer, 1));

    Click(viewer.Header(), viewer.HeaderCenter(1), {VK_CONTROL});

    EXPECT_EQ(viewer.Width(1), 0);
    EXPECT_EQ(GetFocus(), viewer.Grid());
}

TEST(FilterBoxes, HideOnTheSourceTab) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Tabs(), viewer.TabCenter(1));
    EXPECT_FALSE(IsWindowVisible(Box(viewer, 0)));

    Click(viewer.Tabs(), viewer.TabCenter(0));
    EXPECT_TRUE(IsWindowVisible(Box(viewer, 0)));
}

TEST(FilterBoxes, FilterWithEachKeystroke) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    TypeInto(viewer, 0, L"o");
    EXPECT_EQ(viewer.RowCount(), 4);
    TypeInto(viewer, 0, L"s");

    EXPECT_EQ(FirstColumn(viewer), (Texts{L"Oslo", L"Osaka"}));
    EXPECT_EQ(viewer.Status(3), L" Rows: 2/5");
    TypeInto(viewer, 0, L"\b\b");
    EXPECT_EQ(viewer.RowCount(), 5);
}

TEST(FilterBoxes, CompareNumbers) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    TypeInto(viewer, 1, L">10");

    EXPECT_EQ(FirstColumn(viewer), (Texts{L"Bonn", L"Bern"}));
}

TEST(FilterBoxes, CombineWithAnd) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    TypeInto(viewer, 0, L"o");
    TypeInto(viewer, 1, L"1");

    EXPECT_EQ(FirstColumn(viewer), (Texts{L"Rome", L"Bonn"}));
}

TEST(FilterBoxes, MindTheCaseWhenTheSettingSaysSo) {
    UiHost host({.ini = "filter-case-sensitive=1\n"});
    const Viewer viewer = host.OpenText(kTable);
    TypeInto(viewer, 0, L"O");

    EXPECT_EQ(FirstColumn(viewer), (Texts{L"Oslo", L"Osaka"}));
}

TEST(FilterBoxes, TakeTheCurrentCellAway) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(1, 0));
    ASSERT_EQ(viewer.PaneText(), L"Rome");
    TypeInto(viewer, 0, L"o");

    EXPECT_EQ(viewer.PaneText(), L"");
    EXPECT_EQ(viewer.Status(4), L"");
    EXPECT_EQ(viewer.SelectedRows(), std::vector<int>{});
}

TEST(FilterBoxes, WorkInTheLastColumnBesideLineNumbers) {
    UiHost host({.ini = "show-line-numbers=1\n"});
    const Viewer viewer = host.OpenText(kTable);
    EXPECT_EQ(Box(viewer, 0), nullptr);
    TypeInto(viewer, 2, L"=9");

    EXPECT_EQ(viewer.Row(0), (Texts{L"1", L"Oslo", L"9"}));
    EXPECT_EQ(viewer.RowCount(), 1);
}

TEST(FilterBoxes, StayInForceWhileTheirColumnIsHidden) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    TypeInto(viewer, 0, L"os");
    Click(viewer.Header(), viewer.HeaderCenter(0), {VK_CONTROL});

    EXPECT_FALSE(IsWindowVisible(Box(viewer, 0)));
    EXPECT_EQ(viewer.RowCount(), 2);
}

TEST(FilterBoxes, FollowAColumnThatIsDrawnWider) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    const LONG edge = viewer.Width(0);
    Drag(viewer.Header(), {edge, 8}, {edge + 40, 8});

    const RECT first = viewer.Place(Box(viewer, 0));
    EXPECT_GT(viewer.Width(0), edge + 20);
    EXPECT_EQ(first.right - first.left, viewer.Width(0));
    EXPECT_EQ(viewer.Place(Box(viewer, 1)).left, first.right);
}

TEST(FilterBoxes, FollowTheGridWhenItScrolls) {
    std::string header, row;
    for (int i = 0; i < 40; ++i) {
        header += "column" + std::to_string(i) + ",";
        row += "x,";
    }
    UiHost host;
    const Viewer viewer = host.OpenText(header + "\n" + row + "\n");
    ASSERT_FALSE(IsWindowVisible(Box(viewer, 39)));
    Click(viewer.Grid(), viewer.CellCenter(0, 0));
    Key(VK_RIGHT, {VK_CONTROL});

    EXPECT_FALSE(IsWindowVisible(Box(viewer, 0)));
    EXPECT_TRUE(IsWindowVisible(Box(viewer, 39)));
    const RECT box = viewer.Place(Box(viewer, 39));
    const RECT cell = viewer.CellRect(0, 39);
    EXPECT_EQ(box.left, viewer.Place(viewer.Grid()).left + cell.left);
}

TEST(FilterBoxes, FollowTheFontSize) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Wheel(viewer.Grid(), {100, 100}, 1, {VK_CONTROL});

    const RECT box = viewer.Place(Box(viewer, 1));
    EXPECT_EQ(box.left, viewer.Width(0));
    EXPECT_EQ(box.right - box.left, viewer.Width(1));
}

TEST(FilterBoxes, HaveTheirColours) {
    UiHost host({.ini = kRemembered});
    const Viewer viewer = host.OpenText(kTable);
    RECT area{};
    GetClientRect(Box(viewer, 0), &area);

    EXPECT_GT(Viewer::CountColor(Box(viewer, 0), area, 65280), 100);
}

TEST(FilterBoxes, ShowTheirHintInTheMixtureOfTheirColours) {
    UiHost host({.ini = "filter-text-color=16777215\nfilter-back-color=0\n"});
    const Viewer viewer = host.OpenText("a rather long header,b\nx,y\n");
    RECT area{};
    GetClientRect(Box(viewer, 0), &area);

    EXPECT_GT(Viewer::CountColor(Box(viewer, 0), area, 0x7F7F7F), 5);
}

TEST(FilterBoxes, WaitInALargeTableUntilTheTypingPauses) {
    UiHost host;
    const Viewer viewer = host.OpenText(ManyRows(250'000));
    SetFocus(Box(viewer, 0));
    for (const wchar_t unit : std::wstring_view(L"777")) {
        SendMessageW(Box(viewer, 0), WM_CHAR, unit, 1);
    }
    EXPECT_EQ(viewer.RowCount(), 250'000);

    EXPECT_TRUE(PumpUntil([&] { return viewer.RowCount() < 250'000; }));
    EXPECT_EQ(viewer.Cell(0, 0), L"777");
}

TEST(FilterBoxes, DoNotMakeAWaitingFilterWaitForAnotherBox) {
    UiHost host;
    const Viewer viewer = host.OpenText(ManyRows(250'000));
    SendMessageW(Box(viewer, 0), WM_CHAR, L'7', 1);
    EXPECT_EQ(viewer.RowCount(), 250'000);
    SendMessageW(Box(viewer, 1), WM_CHAR, L'y', 1);

    const int filteredByTheFirst = viewer.RowCount();
    EXPECT_LT(filteredByTheFirst, 250'000);
    EXPECT_GT(filteredByTheFirst, 0);
    EXPECT_TRUE(PumpUntil([&] { return viewer.RowCount() == 0; }));
}

TEST(FilterBoxes, GiveTheFocusBackOnEscapeAndTheKeyToTheHost) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    UiHost::PassKeyGuard();
    SetFocus(Box(viewer, 0));
    (void)UiHost::TakeKeys();
    Key(VK_ESCAPE);

    EXPECT_EQ(GetFocus(), viewer.Grid());
    EXPECT_EQ(UiHost::TakeKeys(), std::vector<WPARAM>{VK_ESCAPE});
}

TEST(FilterBoxes, KeepTheKeysThatAreTyped) {
    UiHost host;
    const Viewer viewer = host.OpenText("a,b\n1n,x\n2p,y\n");
    UiHost::PassKeyGuard();
    SetFocus(Box(viewer, 0));
    (void)UiHost::TakeKeys();
    Type(L"1n");

    EXPECT_EQ(UiHost::TakeKeys(), std::vector<WPARAM>{});
    EXPECT_EQ(TextOf(Box(viewer, 0)), L"1n");
    EXPECT_EQ(viewer.RowCount(), 1);
}

TEST(FilterBoxes, AreReachedWithTab) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(0, 0));

    Key(VK_TAB);
    EXPECT_EQ(GetFocus(), Box(viewer, 0));
    Key(VK_TAB);
    EXPECT_EQ(GetFocus(), Box(viewer, 1));
    Key(VK_TAB);
    EXPECT_EQ(GetFocus(), viewer.Pane());
    Key(VK_TAB);
    EXPECT_EQ(GetFocus(), viewer.Grid());
    Key(VK_TAB, {VK_SHIFT});
    EXPECT_EQ(GetFocus(), viewer.Pane());
    EXPECT_EQ(TextOf(Box(viewer, 0)), L"");
}

TEST(FilterBoxes, ChangeTheFontSizeWithCtrlAndTheWheel) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    const int before = viewer.Width(0);
    SetFocus(Box(viewer, 0));
    Wheel(Box(viewer, 0), {10, 10}, 3, {VK_CONTROL});

    EXPECT_GT(viewer.Width(0), before);
}

TEST(FilterBoxes, MayGoWhileAKeyOfTheirsIsHandled) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    UiHost::PassKeyGuard();
    SetFocus(Box(viewer, 0));
    Key(VK_ESCAPE);
    host.Close(viewer);

    EXPECT_TRUE(UiHost::WaitUntilGone(viewer));
}

}  // namespace

}  // namespace rl::test
