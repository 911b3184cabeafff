// Widths, hidden columns and the alignment of numbers.
#include <gtest/gtest.h>

#include "tests/ui/support/input.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

constexpr const char* kTable = "one,two,three\n1,2,3\n4,5,6\n";

/// Columns of pixels, counted from the cell's left edge, that hold the text's colour.
std::vector<int> InkedColumns(const Viewer& viewer, int row, int column, COLORREF ink) {
    const RECT cell = viewer.CellRect(row, column);
    const tools::Image picture = Viewer::Picture(viewer.Grid());
    std::vector<int> inked;
    for (int x = cell.left + 1; x < cell.right - 1; ++x) {
        if (picture.Count({x, cell.top + 1, x + 1, cell.bottom - 1}, ink) > 0) {
            inked.push_back(x - cell.left);
        }
    }
    return inked;
}

TEST(Columns, AreHiddenByCtrlAndAClickOnTheHeader) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    const int first = viewer.Width(0);
    const int third = viewer.Width(2);

    Click(viewer.Header(), viewer.HeaderCenter(1), {VK_CONTROL});

    EXPECT_EQ(viewer.Width(0), first);
    EXPECT_EQ(viewer.Width(1), 0);
    EXPECT_EQ(viewer.Width(2), third);
}

TEST(Columns, StayWhenTheHeaderIsClickedWithoutCtrl) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);

    Click(viewer.Header(), viewer.HeaderCenter(1));

    EXPECT_GT(viewer.Width(1), 0);
}

TEST(Columns, KeepTheLineNumbers) {
    UiHost host({.ini = "show-line-numbers=1\n"});
    const Viewer viewer = host.OpenText(kTable);

    Click(viewer.Header(), viewer.HeaderCenter(0), {VK_CONTROL});

    EXPECT_GT(viewer.Width(0), 0);
}

TEST(Columns, StayHiddenWhenTheFontGrows) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Header(), viewer.HeaderCenter(1), {VK_CONTROL});

    Wheel(viewer.Grid(), {100, 200}, 1, {VK_CONTROL});

    EXPECT_EQ(viewer.Width(1), 0);
}

TEST(Columns, AreAsWideAsTheirLongestText) {
    UiHost host;
    const Viewer viewer = host.OpenText("a,b\nx,wwwwwwwwwwwwwwww\nx,y\n");

    EXPECT_GT(viewer.Width(1), viewer.Width(0) + 80);
}

TEST(Columns, AreAsWideAsTheirHeader) {
    UiHost host;
    const Viewer viewer = host.OpenText("a,wwwwwwwwwwwwwwww\nx,y\n");

    EXPECT_GT(viewer.Width(1), viewer.Width(0) + 80);
}

TEST(Columns, AreCappedAtThreeHundredPixels) {
    UiHost host;
    const Viewer viewer = host.OpenText("a,b\n" + std::string(2000, 'x') + ",y\n");

    EXPECT_EQ(viewer.Width(0), 300);
}

TEST(Columns, AreCappedWhereTheSettingSays) {
    UiHost host({.ini = "max-column-width=120\n"});
    const Viewer viewer = host.OpenText("a,b\n" + std::string(2000, 'x') + ",y\n");

    EXPECT_EQ(viewer.Width(0), 120);
}

TEST(Columns, AreNotCappedWhenThereIsOnlyOne) {
    UiHost host;
    const Viewer viewer = host.OpenText("a\n" + std::string(200, 'x') + "\n");

    EXPECT_GT(viewer.Width(0), 1000);
}

TEST(Columns, AreMeasuredOnTheFirstAndTheLastRowWhenTwoAreSampled) {
    UiHost host({.ini = "max-column-samples=2\n"});
    const std::string wide(20, 'w');

    const Viewer viewer =
        host.OpenText("a,b,c\n1," + wide + ",1\n" + wide + ",1,1\n1,1," + wide + "\n");

    EXPECT_LT(viewer.Width(0), 100);
    EXPECT_GT(viewer.Width(1), 200);
    EXPECT_GT(viewer.Width(2), 200);
}

TEST(Numbers, EndWhereTheSeparatorsStand) {
    UiHost host({.ini = "text-color=0\nback-color=16777215\nback-color2=16777215\n"});
    const Viewer viewer = host.OpenText("value,b\n-22222.1,x\n333,x\n4.1,x\n");

    const std::vector<int> whole = InkedColumns(viewer, 1, 0, 0);
    const std::vector<int> small = InkedColumns(viewer, 2, 0, 0);

    ASSERT_FALSE(whole.empty());
    ASSERT_FALSE(small.empty());
    EXPECT_GT(whole.front(), 20);             // pushed to the right by the long first number
    EXPECT_GT(small.front(), whole.front());  // one digit where the other has three
    EXPECT_GT(small.back(), whole.back());    // only its fraction stands right of the separator
}

TEST(Numbers, StayAtTheLeftWhenTheyAreNotAligned) {
    UiHost host({.ini = "decimal-align=0\ntext-color=0\nback-color=16777215\n"
                        "back-color2=16777215\n"});
    const Viewer viewer = host.OpenText("value,b\n-22222.1,x\n333,x\n4.1,x\n");

    const std::vector<int> whole = InkedColumns(viewer, 1, 0, 0);

    ASSERT_FALSE(whole.empty());
    EXPECT_LT(whole.front(), 15);
}

/// Pixels of the system's line colour along the right edge of a cell.
int LineAtRightEdge(const Viewer& viewer, int row, int column) {
    const RECT cell = viewer.CellRect(row, column);
    return Viewer::CountColor(viewer.Grid(),
                              {cell.right - 1, cell.top + 2, cell.right, cell.bottom - 2},
                              GetSysColor(COLOR_BTNFACE));
}

TEST(GridLines, AreDrawnInCellsThatTheGridPaintsItself) {
    UiHost host({.ini = "theme=Dark\n"});
    const Viewer viewer = host.OpenText("value,b\n1.5,x\n2.25,x\n");

    EXPECT_GT(LineAtRightEdge(viewer, 0, 0), 10);
}

TEST(GridLines, AreAbsentWhenSwitchedOff) {
    UiHost host({.ini = "theme=Dark\ndisable-grid-lines=1\n"});
    const Viewer viewer = host.OpenText("value,b\n1.5,x\n2.25,x\n");

    EXPECT_EQ(LineAtRightEdge(viewer, 0, 0), 0);
}

}  // namespace

}  // namespace rl::test
