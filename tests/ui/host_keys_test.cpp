// Keys that the viewer hands back to the host.
#include <gtest/gtest.h>

#include "tests/ui/support/fakes.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

using Keys = std::vector<WPARAM>;

constexpr const char* kTable = "a,b\n1,2\n3,4\n";

/// Opens a table and lets the time pass in which no key is handed back.
Viewer OpenPastGuard(UiHost& host) {
    const Viewer viewer = host.OpenText(kTable);
    UiHost::PassKeyGuard();
    EXPECT_EQ(GetFocus(), viewer.Grid());
    return viewer;
}

/// The keys that the host gets when these are pressed in the grid.
Keys Handed(const std::string& ini, std::initializer_list<WORD> pressed) {
    UiHost host({.ini = ini});
    OpenPastGuard(host);
    for (const WORD key : pressed) {
        Key(key);
    }
    return UiHost::TakeKeys();
}

TEST(HostKeys, AreEscapeAndF3) {
    EXPECT_EQ(Handed("", {VK_ESCAPE, VK_F3}), (Keys{VK_ESCAPE, VK_F3}));
}

TEST(HostKeys, IncludeFOnlyWithCtrl) {
    UiHost host;
    OpenPastGuard(host);

    Key('F');
    EXPECT_EQ(UiHost::TakeKeys(), Keys{});

    Key('F', {VK_CONTROL});
    EXPECT_EQ(UiHost::TakeKeys(), (Keys{'F'}));
}

TEST(HostKeys, AreTheDigitsOneToEightButNeverNine) {
    EXPECT_EQ(Handed("", {'0', '1', '8', '9'}), (Keys{'1', '8'}));
}

TEST(HostKeys, LeaveDigitsOutWhenTheSettingSaysSo) {
    EXPECT_EQ(Handed("disable-num-keys=1\n", {'1', '8', 'N'}), (Keys{'N'}));
}

TEST(HostKeys, LeaveDigitsWithCtrlOut) {
    UiHost host;
    OpenPastGuard(host);

    Key('1', {VK_CONTROL});

    EXPECT_EQ(UiHost::TakeKeys(), Keys{});
}

TEST(HostKeys, LeaveWhatAltGrTypesAlone) {
    UiHost host;
    const Viewer viewer = OpenPastGuard(host);

    PressWithAltGr(viewer.Grid(), '7');
    PressWithAltGr(viewer.Grid(), 'F');

    EXPECT_EQ(UiHost::TakeKeys(), Keys{});
}

TEST(HostKeys, AreNAndP) {
    EXPECT_EQ(Handed("", {'N', 'P'}), (Keys{'N', 'P'}));
}

TEST(HostKeys, LeaveNAndPOutWhenTheSettingSaysSo) {
    EXPECT_EQ(Handed("disable-np-keys=1\n", {'N', 'P', '1'}), (Keys{'1'}));
}

TEST(HostKeys, IncludeQOnlyWhenTheSettingSaysSo) {
    EXPECT_EQ(Handed("", {'Q'}), Keys{});
    EXPECT_EQ(Handed("exit-by-q=1\n", {'Q'}), (Keys{'Q'}));
}

TEST(HostKeys, ReadTheSettingsAtEachKey) {
    UiHost host;
    OpenPastGuard(host);
    WritePrivateProfileStringW(L"rowlark", L"exit-by-q", L"1", host.IniFile().c_str());

    Key('Q');

    EXPECT_EQ(UiHost::TakeKeys(), (Keys{'Q'}));
}

TEST(HostKeys, AreKeptForTheFirstHalfSecond) {
    UiHost host;
    TheFakes().clockStopped = true;
    const Viewer viewer = host.OpenText(kTable);
    ASSERT_EQ(GetFocus(), viewer.Grid());

    TheFakes().clockOffset = 499;
    Key(VK_ESCAPE);
    Key('1');
    EXPECT_EQ(UiHost::TakeKeys(), Keys{});

    TheFakes().clockOffset = 500;
    Key(VK_ESCAPE);
    EXPECT_EQ(UiHost::TakeKeys(), (Keys{VK_ESCAPE}));
}

TEST(HostKeys, CarryTheScanCodeAndARepeatCountOfOne) {
    UiHost host;
    OpenPastGuard(host);

    Key(VK_F3);

    const LPARAM scanCode = static_cast<LPARAM>(MapVirtualKeyW(VK_F3, MAPVK_VK_TO_VSC));
    EXPECT_EQ(UiHost::LastKeyData(), (scanCode << 16) | 1);
}

TEST(HostKeys, ComeFromTheSourceToo) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Tabs(), viewer.TabCenter(1));
    UiHost::PassKeyGuard();

    Key(VK_ESCAPE);
    Key(VK_F3);

    EXPECT_EQ(UiHost::TakeKeys(), (Keys{VK_ESCAPE, VK_F3}));
}

TEST(HostKeys, GoToThePanelInQuickView) {
    UiHost host({.quickView = true});
    const Viewer viewer = host.OpenText(kTable);
    UiHost::PassKeyGuard();
    Click(viewer.Grid(), viewer.CellCenter(0, 0));

    Key(VK_ESCAPE);

    EXPECT_EQ(UiHost::TakeKeys(), (Keys{VK_ESCAPE}));
}

}  // namespace

}  // namespace rl::test
