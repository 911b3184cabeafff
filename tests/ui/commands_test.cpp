// What each command of the context menu does, and when it is offered.
#include <gtest/gtest.h>

#include "tests/ui/support/fakes.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/menus.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

constexpr const char* kTable = "name,age,city\nAnna,31,Bonn\nBob,9,Ulm\nCarl,50,Bonn\n";

SeenMenu OpenContextMenu(const Viewer& viewer) {
    SendMessageW(viewer.Window(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(viewer.Window()), -1);
    return SeenMenus().empty() ? SeenMenu{} : SeenMenus().back();
}

TEST(ContextMenu, HasItsItemsInOrder) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    WatchMenus(host);

    const SeenMenu menu = OpenContextMenu(viewer);

    Texts labels;
    for (const SeenItem& item : menu.items) {
        labels.push_back(item.label);
    }
    EXPECT_EQ(labels, (Texts{L"Copy cell",
                             L"Copy row(s)\tShift+C",
                             L"Copy column\tCtrl+C",
                             L"Copy node as",
                             L"Insert row below",
                             L"Delete row(s)\tCtrl+X",
                             L"Delete column",
                             L"",
                             L"Hide column\tCtrl+Click",
                             L"Show all columns\tCtrl+Space",
                             L"",
                             L"Filters",
                             L"Value pane\tCtrl+D",
                             L"Header row",
                             L"Edit mode\tCtrl+E",
                             L"Save\tCtrl+S",
                             L"",
                             L"Outline view",
                             L"Expand node\tShift+Num *",
                             L"Expand all\tNum *",
                             L"Collapse all\tNum /",
                             L"",
                             L"Locate in source\tCtrl+L",
                             L"Show line numbers",
                             L"Theme",
                             L"Font...",
                             L"Source font..."}));
}

TEST(ContextMenu, OpensAtTheMouseAndAnswersWithTheCommand) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    MoveTo(viewer.Grid(), viewer.CellCenter(1, 1));
    WatchMenus(host);
    POINT mouse{};
    GetCursorPos(&mouse);

    const SeenMenu menu = OpenContextMenu(viewer);

    EXPECT_EQ(menu.at.x, mouse.x);
    EXPECT_EQ(menu.at.y, mouse.y);
    EXPECT_EQ(menu.flags, UINT{TPM_RIGHTBUTTON | TPM_NONOTIFY | TPM_RETURNCMD});
}

TEST(ContextMenu, OpensOnceForARightClickOnACellThatBecomesCurrent) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    WatchMenus(host);

    RightClick(viewer.Grid(), viewer.CellCenter(2, 1));

    EXPECT_EQ(SeenMenus().size(), 1u);
    EXPECT_EQ(viewer.Status(4), L" 3:2");
}

TEST(ContextMenu, OpensOnceForARightClickOnAHeader) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    WatchMenus(host, 5008);

    RightClick(viewer.Header(), viewer.HeaderCenter(1));

    EXPECT_EQ(SeenMenus().size(), 1u);
    EXPECT_EQ(viewer.Width(1), 0);
    EXPECT_GT(viewer.Width(0), 0);
}

TEST(ContextMenu, MayBeOpenWhenTheViewerGoes) {
    for (const bool fromHeader : {false, true}) {
        UiHost host;
        const Viewer viewer = host.OpenText(kTable);
        TheFakes().menuAnswer = 5004;
        TheFakes().whileMenuIsOpen = [&] { host.Close(viewer); };

        if (fromHeader) {
            RightClick(viewer.Header(), viewer.HeaderCenter(1));
        } else {
            RightClick(viewer.Grid(), viewer.CellCenter(1, 1));
        }

        EXPECT_EQ(TheFakes().menus.size(), 1u);
        EXPECT_FALSE(IsWindow(viewer.Window()));
    }
}

TEST(ContextMenu, OffersChangesOnlyInEditMode) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(0, 1));
    WatchMenus(host);
    (void)OpenContextMenu(viewer);
    EXPECT_FALSE(SeenCommand(5034).enabled);
    EXPECT_FALSE(SeenCommand(5007).enabled);
    EXPECT_FALSE(SeenCommand(5042).enabled);
    EXPECT_FALSE(SeenCommand(5040).checked);

    Choose(viewer, 5040);

    (void)OpenContextMenu(viewer);
    EXPECT_TRUE(SeenCommand(5034).enabled);
    EXPECT_TRUE(SeenCommand(5007).enabled);
    EXPECT_TRUE(SeenCommand(5042).enabled);
    EXPECT_TRUE(SeenCommand(5040).checked);
}

TEST(ContextMenu, IsNotThereBeforeTheFileIs) {
    UiHost host;
    TheFakes().readDelay = 300;
    const Viewer viewer = host.Start(host.Write(L"data.csv", kTable));
    WatchMenus(host);

    (void)OpenContextMenu(viewer);

    EXPECT_TRUE(SeenMenus().empty());
    EXPECT_TRUE(UiHost::WaitUntilLoaded(viewer));
}

TEST(Commands, SwitchTheFilterRowAndRememberIt) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    const long before = viewer.Place(viewer.Grid()).top;

    Choose(viewer, 5003);
    EXPECT_EQ(viewer.Place(viewer.Grid()).top, before - 24);
    EXPECT_EQ(host.IniValue(L"filter-row"), L"0");

    Choose(viewer, 5003);
    EXPECT_EQ(viewer.Place(viewer.Grid()).top, before);
    EXPECT_EQ(host.IniValue(L"filter-row"), L"1");
}

TEST(Commands, SwitchTheValuePaneAndRememberIt) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(0, 0));

    Choose(viewer, 5070);
    EXPECT_FALSE(IsWindowVisible(viewer.Pane()));
    EXPECT_EQ(host.IniValue(L"value-pane"), L"0");

    Choose(viewer, 5070);
    EXPECT_TRUE(IsWindowVisible(viewer.Pane()));
    EXPECT_EQ(viewer.PaneText(), L"Anna");
    EXPECT_EQ(host.IniValue(L"value-pane"), L"1");
}

TEST(Commands, TakeTheHeaderRowForDataAndKeepTheUsersPlace) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(1, 2));

    Choose(viewer, 5004);
    EXPECT_EQ(viewer.Headers(), (Texts{L"Column 1", L"Column 2", L"Column 3"}));
    EXPECT_EQ(viewer.Row(0), (Texts{L"name", L"age", L"city"}));
    EXPECT_EQ(viewer.Status(3), L" Rows: 4/4");
    EXPECT_EQ(viewer.Status(4), L" 3:3");
    EXPECT_EQ(viewer.PaneText(), L"Ulm");
    EXPECT_EQ(host.IniValue(L"header-row"), L"0");

    Choose(viewer, 5004);
    EXPECT_EQ(viewer.Headers(), (Texts{L"name", L"age", L"city"}));
    EXPECT_EQ(viewer.Status(4), L" 2:3");
}

TEST(Commands, NumberTheLinesAndKeepTheUsersPlace) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(1, 2));

    Choose(viewer, 5006);

    EXPECT_EQ(viewer.Headers(), (Texts{L"#", L"name", L"age", L"city"}));
    EXPECT_EQ(viewer.Row(1), (Texts{L"2", L"Bob", L"9", L"Ulm"}));
    EXPECT_EQ(viewer.Status(4), L" 2:4");
    EXPECT_EQ(host.IniValue(L"show-line-numbers"), L"1");
}

TEST(Commands, ApplyAWaitingFilterBeforeTheLinesAreNumbered) {
    std::string rows = "a,b\n";
    for (int i = 0; i < 250'000; ++i) {
        rows += std::to_string(i) + ",x\n";
    }
    UiHost host;
    const Viewer viewer = host.OpenText(rows);
    TheFakes().timersStandStill = true;
    for (const wchar_t unit : std::wstring_view(L"=777")) {
        SendMessageW(GetDlgItem(viewer.Window(), 2000), WM_CHAR, unit, 1);
    }
    ASSERT_EQ(viewer.RowCount(), 250'000);

    Choose(viewer, 5006);

    EXPECT_EQ(viewer.RowCount(), 1);
    EXPECT_EQ(viewer.Row(0), (Texts{L"1", L"777", L"x"}));
    EXPECT_EQ(TextOf(GetDlgItem(viewer.Window(), 2001)), L"=777");
}

TEST(Commands, HideTheCurrentColumnAndShowAllAgain) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(0, 1));

    Choose(viewer, 5008);
    EXPECT_EQ(viewer.Width(1), 0);

    Choose(viewer, 5009);
    EXPECT_GT(viewer.Width(1), 0);
}

TEST(Commands, TakeAThemeAtOnceAndRememberIt) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);

    Choose(viewer, 5102);

    EXPECT_EQ(host.IniValue(L"theme"), L"Dark");
    WatchMenus(host);
    (void)OpenContextMenu(viewer);
    EXPECT_TRUE(SeenCommand(5102).checked);
    EXPECT_FALSE(SeenCommand(5100).checked);
    const RECT pane = viewer.Place(viewer.Pane());
    const RECT inside{2, 2, pane.right - pane.left - 40, pane.bottom - pane.top - 2};
    EXPECT_GT(Viewer::CountColor(viewer.Pane(), inside, 2499877), 1000);
}

TEST(Commands, ShowEditModeInTheStatusBar) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);

    Key('E', {VK_CONTROL});
    EXPECT_EQ(viewer.Status(4), L" EDIT");

    Key('R', {VK_CONTROL});
    EXPECT_EQ(viewer.Status(4), L"");
}

TEST(Commands, IgnoreNumbersThatAreNone) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);

    Choose(viewer, 5005);
    Choose(viewer, 5999);

    EXPECT_TRUE(viewer.IsLoaded());
}

}  // namespace

}  // namespace rl::test
