// Font sizes and dots per inch.
#include <gtest/gtest.h>
#include <windows.h>

#include <commctrl.h>

#include "tests/ui/support/fakes.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/pump.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

constexpr const char* kTable = "name,b\nquite a long cell text,2\n3,4\n";

int Height(const Viewer& viewer, HWND control) {
    const RECT place = viewer.Place(control);
    return place.bottom - place.top;
}

int RowHeight(const Viewer& viewer) {
    const RECT cell = viewer.CellRect(0, 1);
    return cell.bottom - cell.top;
}

/// Tells the viewer that its dots per inch may have changed, as the system does.
void ChangeDpi(const Viewer& viewer, UINT dpi, UINT message = WM_DPICHANGED_AFTERPARENT) {
    TheFakes().dpi = dpi;
    SendMessageW(viewer.Window(), message, 0, 0);
    PumpIdle();
}

TEST(FontSize, GrowsWithCtrlAndTheWheelOverTheGrid) {
    UiHost host({.ini = "font-size=16\n"});
    const Viewer viewer = host.OpenText(kTable);
    const int before = viewer.Width(0);

    Wheel(viewer.Grid(), {100, 100}, 1, {VK_CONTROL});

    EXPECT_EQ(host.IniValue(L"font-size"), L"17");
    EXPECT_GT(viewer.Width(0), before);
}

TEST(FontSize, ShrinksWithCtrlAndTheWheel) {
    UiHost host({.ini = "font-size=16\n"});
    const Viewer viewer = host.OpenText(kTable);
    const int before = viewer.Width(0);

    Wheel(viewer.Grid(), {100, 100}, -1, {VK_CONTROL});

    EXPECT_EQ(host.IniValue(L"font-size"), L"15");
    EXPECT_LT(viewer.Width(0), before);
}

TEST(FontSize, StaysWithoutCtrl) {
    UiHost host({.ini = "font-size=16\n"});
    const Viewer viewer = host.OpenText(kTable);

    Wheel(viewer.Grid(), {100, 100}, 1);

    EXPECT_EQ(host.IniValue(L"font-size"), L"16");
}

TEST(FontSize, ChangesWithTheWheelOverTheSourceToo) {
    UiHost host({.ini = "font-size=16\n"});
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Tabs(), viewer.TabCenter(1));

    Wheel(viewer.Source(), {100, 100}, 1, {VK_CONTROL});

    EXPECT_EQ(host.IniValue(L"font-size"), L"17");
}

TEST(FontSize, GoesUpToFortyEightAndNoFurther) {
    UiHost host({.ini = "font-size=47\n"});
    const Viewer viewer = host.OpenText(kTable);

    Wheel(viewer.Grid(), {100, 200}, 1, {VK_CONTROL});
    EXPECT_EQ(host.IniValue(L"font-size"), L"48");

    Wheel(viewer.Grid(), {100, 200}, 1, {VK_CONTROL});
    EXPECT_EQ(host.IniValue(L"font-size"), L"48");
}

TEST(FontSize, GoesDownToTenAndNoFurther) {
    UiHost host({.ini = "font-size=11\n"});
    const Viewer viewer = host.OpenText(kTable);

    Wheel(viewer.Grid(), {100, 100}, -1, {VK_CONTROL});
    EXPECT_EQ(host.IniValue(L"font-size"), L"10");

    Wheel(viewer.Grid(), {100, 100}, -1, {VK_CONTROL});
    EXPECT_EQ(host.IniValue(L"font-size"), L"10");
}

TEST(FontSize, IsInPoints) {
    UiHost small({.ini = "font-size=10\n"});
    const int smallHeight = RowHeight(small.OpenText(kTable));
    UiHost large({.ini = "font-size=30\n"});
    const int largeHeight = RowHeight(large.OpenText(kTable));

    EXPECT_GE(smallHeight, 13);  // 10 points are 13 pixels
    EXPECT_GE(largeHeight, 40);  // 30 points are 40 pixels
}

TEST(Dpi, ScalesEveryPartWhenTheViewerOpens) {
    UiHost host;
    TheFakes().dpi = 144;

    const Viewer viewer = host.OpenText(kTable);

    EXPECT_EQ(Height(viewer, viewer.Tabs()), 39);
    EXPECT_EQ(Height(viewer, viewer.Pane()), 114);
    EXPECT_EQ(viewer.Place(viewer.Pane()).top - viewer.Place(viewer.Grid()).bottom, 5);
    std::vector<int> edges = viewer.StatusEdges();
    edges.pop_back();  // the last part takes what is left
    EXPECT_EQ(edges, (std::vector<int>{165, 420, 720, 945}));
}

TEST(Dpi, TakesAnAnswerOfZeroForNinetySix) {
    UiHost host;

    const Viewer viewer = host.OpenText(kTable);

    EXPECT_EQ(Height(viewer, viewer.Tabs()), 26);
    std::vector<int> edges = viewer.StatusEdges();
    edges.pop_back();
    EXPECT_EQ(edges, (std::vector<int>{110, 280, 480, 630}));
}

TEST(Dpi, LaysEverythingOutAnewWhenItChanges) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    const int width = viewer.Width(0);
    const int row = RowHeight(viewer);

    ChangeDpi(viewer, 144);

    EXPECT_EQ(Height(viewer, viewer.Tabs()), 39);
    EXPECT_GT(viewer.Width(0), width);
    EXPECT_GT(RowHeight(viewer), row);

    ChangeDpi(viewer, 96);

    EXPECT_EQ(Height(viewer, viewer.Tabs()), 26);
    EXPECT_EQ(viewer.Width(0), width);
    EXPECT_EQ(RowHeight(viewer), row);
}

TEST(Dpi, LooksAgainOnBothMessages) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);

    ChangeDpi(viewer, 144, WM_DPICHANGED);

    EXPECT_EQ(Height(viewer, viewer.Tabs()), 39);
}

TEST(Dpi, ChangesNothingWhenItIsTheSame) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    SendMessageW(viewer.Grid(), LVM_SETCOLUMNWIDTH, 0, 77);

    ChangeDpi(viewer, 96);

    EXPECT_EQ(viewer.Width(0), 77);
}

}  // namespace

}  // namespace rl::test
