// The value pane below the grid, and the splitter above it.
#include <gtest/gtest.h>

#include "tests/ui/support/fakes.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/pump.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

constexpr const char* kTable = "a,b\none,\"two\nlines\"\nthree,four\n";

int Height(const Viewer& viewer, HWND control) {
    const RECT place = viewer.Place(control);
    return place.bottom - place.top;
}

/// Middle of the band above the pane.
POINT OnSplitter(const Viewer& viewer) {
    return {300, viewer.Place(viewer.Pane()).top - 3};
}

TEST(ValuePane, ShowsTheCurrentCellInFull) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    EXPECT_EQ(viewer.PaneText(), L"");

    Click(viewer.Grid(), viewer.CellCenter(0, 1));
    EXPECT_EQ(viewer.PaneText(), L"two\r\nlines");

    Click(viewer.Grid(), viewer.CellCenter(1, 0));
    EXPECT_EQ(viewer.PaneText(), L"three");
}

TEST(ValuePane, FollowsTheArrowKeys) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(0, 0));

    Key(VK_DOWN);
    EXPECT_EQ(viewer.PaneText(), L"three");
    Key(VK_RIGHT);
    EXPECT_EQ(viewer.PaneText(), L"four");
}

TEST(ValuePane, CannotBeTypedInto) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);

    EXPECT_NE(GetWindowLongW(viewer.Pane(), GWL_STYLE) & ES_READONLY, 0);
}

TEST(ValuePane, ShowsTheBeginningOfAVeryLongValueAtOnceAndTheRestAfterwards) {
    UiHost host;
    const std::string value(300'000, 'x');
    const Viewer viewer = host.OpenText("a,b\n" + value + ",2\n");

    Click(viewer.Grid(), viewer.CellCenter(0, 0));

    EXPECT_GE(viewer.PaneText().size(), 60'000u);
    EXPECT_TRUE(PumpUntil([&] { return viewer.PaneText().size() == value.size(); }));
}

TEST(ValuePane, IsSeventySixPixelsHighAtFirstAndStandsOnTheStatusBar) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);

    EXPECT_EQ(Height(viewer, viewer.Pane()), 76);
    EXPECT_EQ(viewer.Place(viewer.Pane()).bottom, viewer.Place(viewer.StatusBar()).top);
    EXPECT_EQ(viewer.Place(viewer.Pane()).top - viewer.Place(viewer.Grid()).bottom, 5);
}

TEST(ValuePane, TakesAtMostHalfOfALowWindow) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);

    host.Resize(700, 140);

    const int available = viewer.Place(viewer.StatusBar()).top - 26;
    EXPECT_EQ(Height(viewer, viewer.Pane()), available / 2);
}

TEST(ValuePane, IsAbsentWhenSwitchedOff) {
    UiHost host({.ini = "value-pane=0\n"});
    const Viewer viewer = host.OpenText(kTable);

    EXPECT_FALSE(IsWindowVisible(viewer.Pane()));
    EXPECT_EQ(viewer.Place(viewer.Grid()).bottom, viewer.Place(viewer.StatusBar()).top);
}

TEST(Splitter, MovesTheBorderToWhereItIsDragged) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    const POINT from = OnSplitter(viewer);
    const int bottom = viewer.Place(viewer.Pane()).bottom;

    Drag(viewer.Window(), from, {from.x, bottom - 200});

    EXPECT_EQ(Height(viewer, viewer.Pane()), 200);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(host.IniValue(L"value-pane"), L"?");
}

TEST(Splitter, SwitchesThePaneOffWhenReleasedBelowSixteenPixels) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    const POINT from = OnSplitter(viewer);
    const int bottom = viewer.Place(viewer.Pane()).bottom;

    Drag(viewer.Window(), from, {from.x, bottom - 15});

    EXPECT_FALSE(IsWindowVisible(viewer.Pane()));
    EXPECT_EQ(host.IniValue(L"value-pane"), L"0");
    EXPECT_EQ(viewer.Place(viewer.Grid()).bottom, viewer.Place(viewer.StatusBar()).top);
}

TEST(Splitter, KeepsAPaneOfSixteenPixels) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    const POINT from = OnSplitter(viewer);
    const int bottom = viewer.Place(viewer.Pane()).bottom;

    Drag(viewer.Window(), from, {from.x, bottom - 16});

    EXPECT_EQ(Height(viewer, viewer.Pane()), 16);
    EXPECT_EQ(host.IniValue(L"value-pane"), L"?");
}

TEST(Splitter, FollowsTheMouseBelowTheWindowWithoutJumpingBack) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    const POINT from = OnSplitter(viewer);

    Drag(viewer.Window(), from, {from.x, from.y + 300});

    EXPECT_FALSE(IsWindowVisible(viewer.Pane()));
    EXPECT_EQ(host.IniValue(L"value-pane"), L"0");
}

TEST(Splitter, ShowsTheSizingCursorOverItsBandOnly) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);

    MoveTo(viewer.Window(), OnSplitter(viewer));
    ASSERT_FALSE(TheFakes().cursors.empty());
    EXPECT_EQ(TheFakes().cursors.back(), LoadCursorW(nullptr, IDC_SIZENS));

    TheFakes().cursors.clear();
    MoveTo(viewer.Grid(), {300, 100});
    EXPECT_TRUE(TheFakes().cursors.empty());
}

}  // namespace

}  // namespace rl::test
