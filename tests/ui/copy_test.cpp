// What goes onto the clipboard, by key and by menu; and links that leave the viewer.
#include <gtest/gtest.h>
#include <windows.h>

// Needs the types of windows.h.
#include <commctrl.h>

#include "tests/ui/support/fakes.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/menus.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

constexpr const char* kTable = "name,age,city\nAnna,31,\"Bonn, Rhein\"\nBob,9,Ulm\nCarl,50,Bonn\n";

/// Some systems open the window's menu when Alt goes up, whatever happened in between.
LRESULT CALLBACK WithoutKeyMenu(HWND window, UINT id, WPARAM wparam, LPARAM lparam, UINT_PTR,
                                DWORD_PTR) {
    constexpr WPARAM kCommandMask = 0xFFF0;
    const bool opensMenu = id == WM_SYSCOMMAND && (wparam & kCommandMask) == SC_KEYMENU;
    return opensMenu ? 0 : DefSubclassProc(window, id, wparam, lparam);
}

void AltClick(const UiHost& host, const Viewer& viewer, POINT at) {
    SetWindowSubclass(host.Frame(), &WithoutKeyMenu, 1, 0);
    Click(viewer.Grid(), at, {VK_MENU});
    RemoveWindowSubclass(host.Frame(), &WithoutKeyMenu, 1);
}

void SelectNone(const Viewer& viewer) {
    LVITEMW state{};
    state.stateMask = LVIS_SELECTED;
    SendMessageW(viewer.Grid(), LVM_SETITEMSTATE, static_cast<WPARAM>(-1),
                 reinterpret_cast<LPARAM>(&state));
}

TEST(Copy, TakesWhatStandsBehindANul) {
    UiHost host;
    const Viewer viewer =
        host.OpenText("[{\"a\": \"x\\u0000y\", \"b\": 1}, {\"a\": \"z\", \"b\": 2}]", L"a.json");
    Key('T', {VK_CONTROL});
    Click(viewer.Grid(), viewer.CellCenter(0, 0));
    Key('C', {VK_CONTROL});
    EXPECT_EQ(ClipboardText(), L"x\x2400y\tz");
    Key('C', {VK_SHIFT});
    EXPECT_EQ(ClipboardText(), L"x\x2400y\t1");
}

TEST(Copy, TakesTheCurrentCellWithC) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(0, 2));

    Key('C');

    EXPECT_EQ(ClipboardText(), L"Bonn, Rhein");
}

TEST(Copy, TakesNothingWhenAltGrAndCTypeACharacter) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(0, 0));
    Key('C');
    ASSERT_EQ(ClipboardText(), L"Anna");
    Click(viewer.Grid(), viewer.CellCenter(1, 0));

    PressWithAltGr(viewer.Grid(), 'C');

    EXPECT_EQ(ClipboardText(), L"Anna");
}

TEST(Copy, TakesTheCurrentCellFromTheMenu) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(1, 0));

    Choose(viewer, 5000);

    EXPECT_EQ(ClipboardText(), L"Bob");
}

TEST(Copy, TakesAnEmptyTextWithoutACurrentCell) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);

    Choose(viewer, 5000);

    EXPECT_EQ(ClipboardText(), L"");
}

TEST(Copy, TakesAnEmptyTextWithCToo) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    ASSERT_EQ(viewer.Status(4), L"");

    Key('C');

    EXPECT_EQ(ClipboardText(), L"");
}

TEST(Copy, TakesTheCurrentRowWhenNoneIsSelected) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(1, 0));
    SelectNone(viewer);

    Key('C', {VK_SHIFT});

    EXPECT_EQ(ClipboardText(), L"Bob\t9\tUlm");
}

TEST(Copy, LeavesTheClipboardWithoutAnyRow) {
    UiHost host;
    const Viewer viewer = host.OpenText("name,age\nAnna,31\n");
    Click(viewer.Grid(), viewer.CellCenter(0, 0));
    Key('C');
    ASSERT_EQ(ClipboardText(), L"Anna");
    SetFocus(GetDlgItem(viewer.Window(), 2000));
    SendMessageW(GetDlgItem(viewer.Window(), 2000), WM_CHAR, L'x', 1);
    ASSERT_EQ(viewer.RowCount(), 0);

    Choose(viewer, 5001);

    EXPECT_EQ(ClipboardText(), L"Anna");
}

TEST(Copy, LeavesTheClipboardForTheColumnOfTheLineNumbers) {
    UiHost host({.ini = "show-line-numbers=1\n"});
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(0, 1));
    Key('C');
    ASSERT_EQ(ClipboardText(), L"Anna");
    Click(viewer.Grid(), viewer.CellCenter(0, 0));

    Key('C', {VK_CONTROL});

    EXPECT_EQ(ClipboardText(), L"Anna");
}

TEST(Copy, TakesTheColumnFromTheMenu) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(0, 0));

    Choose(viewer, 5002);

    EXPECT_EQ(ClipboardText(), L"Anna\tBob\tCarl");
}

TEST(Copy, TakesTheSelectedRowsWithShiftC) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(0, 0));
    Click(viewer.Grid(), viewer.CellCenter(1, 0), {VK_SHIFT});

    Key('C', {VK_SHIFT});

    EXPECT_EQ(ClipboardText(), L"Anna\t31\tBonn, Rhein\r\nBob\t9\tUlm");
}

TEST(Copy, LeavesHiddenColumnsAndLineNumbersOut) {
    UiHost host({.ini = "show-line-numbers=1\n"});
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Header(), viewer.HeaderCenter(2), {VK_CONTROL});
    Click(viewer.Grid(), viewer.CellCenter(1, 1));

    Choose(viewer, 5001);

    EXPECT_EQ(ClipboardText(), L"Bob\tUlm");
}

TEST(Copy, TakesTheColumnWithCtrlCAndTheConfiguredSeparator) {
    UiHost host({.ini = "column-delimiter=;\n"});
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(1, 1));

    Key('C', {VK_CONTROL});

    EXPECT_EQ(ClipboardText(), L"31;9;50");
}

TEST(Copy, TakesRowsWithPlainCWhenSeveralAreSelectedAndTheSettingSaysSo) {
    UiHost host({.ini = "copy-column=1\n"});
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(1, 0));
    Key('C');
    EXPECT_EQ(ClipboardText(), L"Bob");
    Click(viewer.Grid(), viewer.CellCenter(2, 0), {VK_SHIFT});

    Key('C');

    EXPECT_EQ(ClipboardText(), L"Bob\t9\tUlm\r\nCarl\t50\tBonn");
}

TEST(Copy, GivesTheValuePaneWholeWithoutTheBreaksOfItsLines) {
    UiHost host;
    const std::string value(3'000, 'x');
    const Viewer viewer = host.OpenText("a,b\n" + value + ",2\n");
    Click(viewer.Grid(), viewer.CellCenter(0, 0));

    SendMessageW(viewer.Pane(), EM_SETSEL, 0, -1);
    SendMessageW(viewer.Pane(), WM_COPY, 0, 0);

    EXPECT_EQ(ClipboardText(), std::wstring(value.begin(), value.end()));
    EXPECT_EQ(viewer.PaneText(), std::wstring(value.begin(), value.end()));
}

TEST(Links, OpenWithAltAndAClick) {
    UiHost host;
    const Viewer viewer = host.OpenText("a,b\nsee www.example.com/x). ok,no link\n");

    AltClick(host, viewer, viewer.CellCenter(0, 0));

    EXPECT_EQ(TheFakes().links, (Texts{L"http://www.example.com/x"}));
}

TEST(Links, StayClosedWithoutAltAndWhereThereIsNone) {
    UiHost host;
    const Viewer viewer = host.OpenText("a,b\nhttps://example.com,mailto:x@example.com\n");

    Click(viewer.Grid(), viewer.CellCenter(0, 0));
    AltClick(host, viewer, viewer.CellCenter(0, 1));

    EXPECT_TRUE(TheFakes().links.empty());
}

}  // namespace

}  // namespace rl::test
