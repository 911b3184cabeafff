// The Data and Source tabs.
#include <gtest/gtest.h>

#include "tests/ui/support/input.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

constexpr const char* kTable = "a,b\n1,2\n";

TEST(Tabs, AreDataAndSourceWithDataInFront) {
    UiHost host;

    const Viewer viewer = host.OpenText(kTable);

    EXPECT_EQ(viewer.TabTexts(), (Texts{L"Data", L"Source"}));
    EXPECT_EQ(viewer.CurrentTab(), 0);
    EXPECT_EQ(viewer.Place(viewer.Tabs()).bottom - viewer.Place(viewer.Tabs()).top, 26);
}

TEST(Tabs, SwitchByAClickAndTakeTheFocusAlong) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);

    Click(viewer.Tabs(), viewer.TabCenter(1));

    EXPECT_EQ(viewer.CurrentTab(), 1);
    EXPECT_TRUE(IsWindowVisible(viewer.Source()));
    EXPECT_FALSE(IsWindowVisible(viewer.Grid()));
    EXPECT_FALSE(IsWindowVisible(viewer.Pane()));
    EXPECT_EQ(GetFocus(), viewer.Source());

    Click(viewer.Tabs(), viewer.TabCenter(0));

    EXPECT_EQ(viewer.CurrentTab(), 0);
    EXPECT_FALSE(IsWindowVisible(viewer.Source()));
    EXPECT_TRUE(IsWindowVisible(viewer.Grid()));
    EXPECT_EQ(GetFocus(), viewer.Grid());
}

TEST(Tabs, SwitchWithCtrlTabInBothDirections) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);

    Key(VK_TAB, {VK_CONTROL});
    EXPECT_EQ(viewer.CurrentTab(), 1);
    EXPECT_EQ(GetFocus(), viewer.Source());

    Key(VK_TAB, {VK_CONTROL});
    EXPECT_EQ(viewer.CurrentTab(), 0);
    EXPECT_EQ(GetFocus(), viewer.Grid());
}

TEST(Tabs, LeaveTheFocusWhereItIsWhenTheCurrentOneIsClicked) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    SetFocus(host.Frame());

    Click(viewer.Tabs(), viewer.TabCenter(0));

    EXPECT_EQ(viewer.CurrentTab(), 0);
    EXPECT_EQ(GetFocus(), host.Frame());
}

TEST(Tabs, GiveTheSourceTheWholeSpaceBelowThem) {
    UiHost host({.width = 900, .height = 600});
    const Viewer viewer = host.OpenText(kTable);

    Click(viewer.Tabs(), viewer.TabCenter(1));

    const RECT source = viewer.Place(viewer.Source());
    EXPECT_EQ(source.top, 26);
    EXPECT_EQ(source.right, 900);
    EXPECT_EQ(source.bottom, viewer.Place(viewer.StatusBar()).top);
}

}  // namespace

}  // namespace rl::test
