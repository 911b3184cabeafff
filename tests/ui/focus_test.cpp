// Who may take the keyboard, and who must leave it alone.
#include <gtest/gtest.h>

#include "tests/ui/support/pump.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

constexpr const char* kTable = "a,b\n1,2\n";

TEST(Focus, GoesToTheGridInATopLevelHost) {
    UiHost host;

    const Viewer viewer = host.OpenText(kTable);

    EXPECT_EQ(GetFocus(), viewer.Grid());
}

TEST(Focus, StaysWhereItIsInTheQuickViewPanel) {
    UiHost host({.quickView = true});
    SetFocus(host.Frame());

    const Viewer viewer = host.OpenText(kTable);

    EXPECT_TRUE(viewer.IsLoaded());
    EXPECT_EQ(GetFocus(), host.Frame());
}

TEST(Focus, StaysWhereItIsInTheQuickViewPanelWithOtherShowFlags) {
    UiHost host({.quickView = true});
    SetFocus(host.Frame());

    const Viewer viewer = host.OpenText(kTable, L"data.csv", 1 | 2 | 4 | 8 | 32);

    EXPECT_TRUE(viewer.IsLoaded());
    EXPECT_EQ(GetFocus(), host.Frame());
}

TEST(Focus, GoesToTheGridInAPanelWhenTheHostForcesThePlugin) {
    UiHost host({.quickView = true});
    SetFocus(host.Frame());

    const Viewer viewer = host.OpenText(kTable, L"data.csv", 16);

    EXPECT_EQ(GetFocus(), viewer.Grid());
}

TEST(Focus, GoesToTheGridInAPopup) {
    UiHost host({.popup = true});

    const Viewer viewer = host.OpenText(kTable);

    EXPECT_EQ(GetFocus(), viewer.Grid());
}

TEST(Focus, GoesToTheSourceWhenItsTabIsTheDefault) {
    UiHost host({.ini = "default-tab=source\n"});

    const Viewer viewer = host.OpenText(kTable);

    EXPECT_EQ(GetFocus(), viewer.Source());
}

TEST(Focus, ComesBackFromAViewerThatCloses) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    SetFocus(host.Frame());

    host.Close(viewer);

    EXPECT_EQ(GetFocus(), host.Frame());
}

}  // namespace

}  // namespace rl::test
