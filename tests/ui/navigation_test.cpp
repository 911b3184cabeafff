// The arrow keys in the grid.
#include <gtest/gtest.h>

#include "tests/support/test_paths.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

constexpr const char* kTable = "a,b,c\na1,b1,c1\na2,b2,c2\na3,b3,c3\n";

void Hide(const Viewer& viewer, int column) {
    Click(viewer.Header(), viewer.HeaderCenter(column), {VK_CONTROL});
}

/// Where the viewer says the current cell is.
std::wstring Current(const Viewer& viewer) {
    return viewer.Status(4);
}

TEST(Arrows, MoveTheCurrentCellByOne) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(0, 0));

    Key(VK_DOWN);
    EXPECT_EQ(Current(viewer), L" 2:1");
    Key(VK_RIGHT);
    EXPECT_EQ(Current(viewer), L" 2:2");
    Key(VK_UP);
    EXPECT_EQ(Current(viewer), L" 1:2");
    Key(VK_LEFT);
    EXPECT_EQ(Current(viewer), L" 1:1");
}

TEST(Arrows, StopAtTheEdges) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(0, 0));

    Key(VK_UP);
    Key(VK_LEFT);
    EXPECT_EQ(Current(viewer), L" 1:1");

    Click(viewer.Grid(), viewer.CellCenter(2, 2));
    Key(VK_DOWN);
    Key(VK_RIGHT);
    EXPECT_EQ(Current(viewer), L" 3:3");
}

TEST(Arrows, JumpToTheEdgesWithCtrl) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(1, 1));

    Key(VK_DOWN, {VK_CONTROL});
    EXPECT_EQ(Current(viewer), L" 3:2");
    Key(VK_RIGHT, {VK_CONTROL});
    EXPECT_EQ(Current(viewer), L" 3:3");
    Key(VK_UP, {VK_CONTROL});
    EXPECT_EQ(Current(viewer), L" 1:3");
    Key(VK_LEFT, {VK_CONTROL});
    EXPECT_EQ(Current(viewer), L" 1:1");
}

TEST(Arrows, SelectTheirRowAlone) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(0, 0));

    Key(VK_DOWN);
    Key(VK_DOWN);

    EXPECT_EQ(viewer.SelectedRows(), (std::vector<int>{2}));
    EXPECT_EQ(viewer.FocusedRow(), 2);
}

TEST(Arrows, SkipHiddenColumns) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Hide(viewer, 1);
    Click(viewer.Grid(), viewer.CellCenter(0, 0));

    Key(VK_RIGHT);
    EXPECT_EQ(Current(viewer), L" 1:3");
    Key(VK_LEFT);
    EXPECT_EQ(Current(viewer), L" 1:1");
}

TEST(Arrows, StayOnTheFirstColumnWhenAllOthersAreHidden) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Hide(viewer, 2);
    Hide(viewer, 1);
    Click(viewer.Grid(), viewer.CellCenter(0, 0));

    Key(VK_RIGHT, {VK_CONTROL});

    EXPECT_EQ(Current(viewer), L" 1:1");
}

TEST(Arrows, ScrollAFarColumnIntoView) {
    UiHost host;
    const Viewer viewer = host.Open(SourceRoot() / "samples" / "wide.csv");
    Click(viewer.Grid(), viewer.CellCenter(0, 0));
    RECT area{};
    GetClientRect(viewer.Grid(), &area);

    Key(VK_RIGHT, {VK_CONTROL});
    EXPECT_EQ(Current(viewer), L" 1:60");
    EXPECT_LE(viewer.CellRect(0, 59).right, area.right);

    Key(VK_LEFT, {VK_CONTROL});
    EXPECT_GE(viewer.CellRect(0, 0).left, 0);
}

TEST(Arrows, ScrollAFarRowIntoView) {
    std::string rows = "a,b\n";
    for (int i = 0; i < 500; ++i) {
        rows += std::to_string(i) + ",x\n";
    }
    UiHost host;
    const Viewer viewer = host.OpenText(rows);
    Click(viewer.Grid(), viewer.CellCenter(0, 0));

    Key(VK_DOWN, {VK_CONTROL});

    EXPECT_EQ(Current(viewer), L" 500:1");
    EXPECT_GT(viewer.TopRow(), 400);
}

TEST(Arrows, CountTheLineNumberColumn) {
    UiHost host({.ini = "show-line-numbers=1\n"});
    const Viewer viewer = host.OpenText(kTable);

    Click(viewer.Grid(), viewer.CellCenter(0, 2));

    EXPECT_EQ(Current(viewer), L" 1:3");
}

TEST(Arrows, FollowTheListWhenItMovesItsOwnFocus) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(0, 1));

    Key(VK_END);
    EXPECT_EQ(Current(viewer), L" 3:2");
    EXPECT_EQ(viewer.PaneText(), L"b3");
    Key(VK_HOME);
    EXPECT_EQ(Current(viewer), L" 1:2");
    Key(VK_DOWN, {VK_SHIFT});
    EXPECT_EQ(Current(viewer), L" 2:2");
}

TEST(Arrows, ExtendTheSelectionByOneRowWithShift) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(0, 1));

    Key(VK_DOWN, {VK_SHIFT});

    EXPECT_EQ(viewer.SelectedRows(), (std::vector<int>{0, 1}));
}

TEST(Arrows, ExtendTheSelectionInsteadWithShift) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(0, 1));

    Key(VK_DOWN, {VK_SHIFT});
    EXPECT_EQ(viewer.SelectedRows(), (std::vector<int>{0, 1}));
    Key(VK_END, {VK_SHIFT});
    EXPECT_EQ(viewer.SelectedRows(), (std::vector<int>{0, 1, 2}));
}

}  // namespace

}  // namespace rl::test
