// Edit mode and the editor over a cell of delimited text, by keys, clicks and menus.
#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>

#include <algorithm>

#include "tests/ui/support/editing.h"
#include "tests/ui/support/fakes.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/menus.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

constexpr const char* kTable = "name,city\nann,rome\nbob,oslo\ncid,bern\n";
constexpr const char* kEditing = "start-mode=edit\n";

constexpr int kEditMode = 5040;

std::wstring EditState(const Viewer& viewer) {
    const std::wstring text = viewer.Status(4);
    const size_t blank = text.find(L' ', 1);
    return blank == text.npos ? L"" : text.substr(blank);
}

TEST(EditMode, IsOffUnlessTheStartModeSaysSo) {
    for (const auto& [mode, on] : {std::pair{"", false},
                                   {"start-mode=default\n", false},
                                   {"start-mode=Edit\n", false},
                                   {"start-mode=11\n", false},
                                   {"start-mode=1\n", true},
                                   {"start-mode=view,edit\n", true}}) {
        UiHost host({.ini = mode});
        const Viewer viewer = host.OpenText(kTable);
        EXPECT_EQ(viewer.Status(4) == L" EDIT", on) << mode;
    }
}

TEST(EditMode, GoesOnAndOffByKeysAndCommand) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Key('E', {VK_CONTROL});
    EXPECT_EQ(viewer.Status(4), L" EDIT");
    Key('R', {VK_CONTROL});
    EXPECT_EQ(viewer.Status(4), L"");
    Choose(viewer, kEditMode);
    EXPECT_EQ(viewer.Status(4), L" EDIT");
}

TEST(EditMode, OpensNoEditorWhileItIsOff) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    ClickCell(viewer, 0, 0);
    Key(VK_F2);
    Key(VK_RETURN);
    DoubleClick(viewer.Grid(), viewer.CellCenter(1, 1));
    EXPECT_EQ(Editor(viewer), nullptr);
    EXPECT_TRUE(TheFakes().beeps.empty());
}

TEST(EditCell, OpensByF2EnterAndDoubleClick) {
    UiHost host({.ini = kEditing});
    const Viewer viewer = host.OpenText(kTable);
    ClickCell(viewer, 0, 0);
    EXPECT_EQ(Editor(viewer), nullptr);
    Key(VK_F2);
    EXPECT_NE(Editor(viewer), nullptr);
    Key(VK_ESCAPE);
    EXPECT_EQ(Editor(viewer), nullptr);
    Key(VK_RETURN);
    EXPECT_NE(Editor(viewer), nullptr);
    Key(VK_ESCAPE);
    DoubleClick(viewer.Grid(), viewer.CellCenter(1, 1));
    ASSERT_NE(Editor(viewer), nullptr);
    EXPECT_EQ(TextOf(Editor(viewer)), L"oslo");
}

TEST(EditCell, LaysTheEditorOverTheCellWithItsWholeTextSelected) {
    UiHost host({.ini = kEditing});
    const Viewer viewer = host.OpenText(kTable);
    for (const int column : {0, 1}) {
        OpenEditor(viewer, 1, column);
        const HWND editor = Editor(viewer);
        RECT place{};
        GetWindowRect(editor, &place);
        MapWindowPoints(nullptr, viewer.Grid(), reinterpret_cast<POINT*>(&place), 2);
        const RECT cell = viewer.CellRect(1, column);
        EXPECT_EQ(place.left, cell.left);
        EXPECT_EQ(place.top, cell.top);
        EXPECT_EQ(place.right, cell.right);
        EXPECT_EQ(place.bottom, cell.bottom);
        EXPECT_EQ(GetFocus(), editor);
        DWORD from = 9;
        DWORD to = 0;
        SendMessageW(editor, EM_GETSEL, reinterpret_cast<WPARAM>(&from),
                     reinterpret_cast<LPARAM>(&to));
        EXPECT_EQ(from, 0u);
        EXPECT_EQ(to, TextOf(editor).size());
        const auto style = GetWindowLongPtrW(editor, GWL_STYLE);  // Wine keeps WS_BORDER to itself
        EXPECT_EQ(style & (WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL | ES_MULTILINE),
                  WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL);
        EXPECT_EQ(SendMessageW(editor, WM_GETFONT, 0, 0),
                  SendMessageW(viewer.Grid(), WM_GETFONT, 0, 0));
        Key(VK_ESCAPE);
    }
}

TEST(EditCell, StoresWhatWasTypedOnEnter) {
    UiHost host({.ini = kEditing});
    const Viewer viewer = host.OpenText(kTable);
    OpenEditor(viewer, 1, 1);
    Type(L"paris");
    EXPECT_EQ(viewer.Cell(1, 1), L"oslo");
    Key(VK_RETURN);
    EXPECT_EQ(viewer.Cell(1, 1), L"paris");
    EXPECT_EQ(viewer.PaneText(), L"paris");
    EXPECT_EQ(Editor(viewer), nullptr);
    EXPECT_EQ(GetFocus(), viewer.Grid());
    EXPECT_EQ(viewer.Status(4), L" 2:2 EDIT *");
    EXPECT_TRUE(TheFakes().beeps.empty());
}

TEST(EditCell, ForgetsWhatWasTypedOnEscape) {
    UiHost host({.ini = kEditing});
    const Viewer viewer = host.OpenText(kTable);
    UiHost::PassKeyGuard();
    OpenEditor(viewer, 1, 1);
    (void)UiHost::TakeKeys();
    Type(L"paris");
    Key(VK_ESCAPE);
    EXPECT_EQ(viewer.Cell(1, 1), L"oslo");
    EXPECT_EQ(GetFocus(), viewer.Grid());
    EXPECT_EQ(EditState(viewer), L" EDIT");
    EXPECT_TRUE(UiHost::TakeKeys().empty()) << "keys of the editor are its own";
}

TEST(EditCell, LeavesAnUntouchedDocumentUnmodified) {
    UiHost host({.ini = kEditing});
    const Viewer viewer = host.OpenText(kTable);
    OpenEditor(viewer, 1, 1);
    Key(VK_RETURN);
    EditCell(viewer, 0, 0, L"ann");
    OpenEditor(viewer, 2, 0);
    ClickCell(viewer, 0, 0);
    EXPECT_EQ(EditState(viewer), L" EDIT");
}

TEST(EditCell, StoresWhenTheFocusGoes) {
    UiHost host({.ini = kEditing});
    const Viewer viewer = host.OpenText(kTable);
    OpenEditor(viewer, 1, 1);
    Fill(viewer, L"paris");
    SetFocus(GetDlgItem(viewer.Window(), 2000));
    EXPECT_EQ(viewer.Cell(1, 1), L"paris");
    EXPECT_EQ(Editor(viewer), nullptr);
    EXPECT_EQ(GetFocus(), GetDlgItem(viewer.Window(), 2000)) << "the focus stays where it went";
}

TEST(EditCell, StoresWhenAnotherCellIsClicked) {
    UiHost host({.ini = kEditing});
    const Viewer viewer = host.OpenText(kTable);
    OpenEditor(viewer, 1, 1);
    Fill(viewer, L"paris");
    ClickCell(viewer, 2, 0);
    EXPECT_EQ(viewer.Cell(1, 1), L"paris");
    EXPECT_EQ(viewer.Status(4), L" 3:1 EDIT *");
    OpenEditor(viewer, 1, 1);
    Fill(viewer, L"wien");
    DoubleClick(viewer.Grid(), viewer.CellCenter(0, 0));
    EXPECT_EQ(viewer.Cell(1, 1), L"wien");
    ASSERT_NE(Editor(viewer), nullptr);
    EXPECT_EQ(TextOf(Editor(viewer)), L"ann");
}

TEST(EditCell, StoresBeforeTheTabChangesAndEditModeEnds) {
    UiHost host({.ini = kEditing});
    const Viewer viewer = host.OpenText(kTable);
    OpenEditor(viewer, 0, 0);
    Fill(viewer, L"x");
    Click(viewer.Tabs(), viewer.TabCenter(1));
    EXPECT_EQ(viewer.CurrentTab(), 1);
    EXPECT_EQ(Editor(viewer), nullptr);
    Click(viewer.Tabs(), viewer.TabCenter(0));
    EXPECT_EQ(viewer.Cell(0, 0), L"x");
    OpenEditor(viewer, 1, 0);
    Fill(viewer, L"y");
    Key('E', {VK_CONTROL});
    EXPECT_EQ(viewer.Cell(1, 0), L"y");
    EXPECT_EQ(EditState(viewer), L" MODIFIED *");
}

TEST(EditCell, StoresBeforeSortingAndScrolling) {
    UiHost host({.ini = kEditing, .height = 400});
    std::string rows = "n,m\n";
    for (int i = 0; i < 50; ++i) {
        rows += std::to_string(i) + ",x\n";
    }
    const Viewer viewer = host.OpenText(rows);
    OpenEditor(viewer, 1, 0);
    Fill(viewer, L"99");
    Wheel(viewer.Grid(), viewer.CellCenter(0, 1), -1);
    EXPECT_EQ(Editor(viewer), nullptr);
    EXPECT_EQ(viewer.Cell(1, 0), L"99");
    Key(VK_UP, {VK_CONTROL});
    OpenEditor(viewer, 0, 0);
    Fill(viewer, L"77");
    Click(viewer.Header(), viewer.HeaderCenter(0));
    EXPECT_EQ(Editor(viewer), nullptr);
    EXPECT_EQ(viewer.Cell(49, 0), L"99");
    EXPECT_EQ(viewer.Cell(48, 0), L"77");
}

TEST(EditCell, IsSilentlyRefusedOnLineNumbersAndComments) {
    UiHost host({.ini = "start-mode=edit\nshow-line-numbers=1\nheader-row=0\n"});
    const Viewer viewer = host.OpenText("# remark\na,b\n");
    ClickCell(viewer, 1, 0);
    Key(VK_F2);
    Key(VK_RETURN);
    EXPECT_EQ(Editor(viewer), nullptr);
    ClickCell(viewer, 0, 1);
    Key(VK_F2);
    EXPECT_EQ(Editor(viewer), nullptr);
    EXPECT_TRUE(TheFakes().beeps.empty());
    OpenEditor(viewer, 1, 1);
}

TEST(EditCell, GoesToTheRowThatTheViewShows) {
    UiHost host({.ini = kEditing});
    const auto file = host.Write(L"a.csv", kTable);
    const Viewer viewer = host.Open(file);
    Click(viewer.Header(), viewer.HeaderCenter(0));
    Click(viewer.Header(), viewer.HeaderCenter(0));
    ASSERT_EQ(viewer.Cell(0, 0), L"cid");
    EditCell(viewer, 0, 0, L"aaa");
    EXPECT_EQ(viewer.Cell(0, 0), L"aaa") << "not sorted before the next sort";
    Key('S', {VK_CONTROL});
    EXPECT_EQ(BytesOf(file), "name,city\nann,rome\nbob,oslo\naaa,bern\n");
}

TEST(EditCell, KeepsARowThatItsFilterNoLongerFits) {
    UiHost host({.ini = kEditing});
    const Viewer viewer = host.OpenText(kTable);
    SetFocus(GetDlgItem(viewer.Window(), 2001));
    Type(L"o");
    ASSERT_EQ(viewer.RowCount(), 2);
    EditCell(viewer, 1, 1, L"x");
    EXPECT_EQ(viewer.RowCount(), 2);
    EXPECT_EQ(viewer.Cell(1, 1), L"x");
}

TEST(EditCell, HoldsLongValuesWhole) {
    UiHost host({.ini = kEditing});
    const std::string longText(100'000, 'x');
    const auto file = host.Write(L"a.csv", "a,b\n" + longText + ",1\n");
    const Viewer viewer = host.Open(file);
    OpenEditor(viewer, 0, 0);
    EXPECT_EQ(TextOf(Editor(viewer)).size(), longText.size());
    SendMessageW(Editor(viewer), EM_SETSEL, 0, 0);
    Type(L"y");
    Key(VK_RETURN);
    Key('S', {VK_CONTROL});
    EXPECT_EQ(BytesOf(file), "a,b\ny" + longText + ",1\n");
}

TEST(EditCell, LeavesLineBreaksAloneThatAreNotTouched) {
    UiHost host({.ini = kEditing});
    const std::string bytes = "a,b\n\"one\r\ntwo\",1\n\"x\ny\",2\n";
    const auto file = host.Write(L"a.csv", bytes);
    const Viewer viewer = host.Open(file);
    for (const int row : {0, 1}) {
        OpenEditor(viewer, row, 0);
        Key(VK_RETURN);
        EXPECT_EQ(Editor(viewer), nullptr);
    }
    EXPECT_EQ(EditState(viewer), L" EDIT");
    EditCell(viewer, 0, 1, L"9");
    Key('S', {VK_CONTROL});
    EXPECT_EQ(BytesOf(file), "a,b\n\"one\r\ntwo\",9\n\"x\ny\",2\n");
}

TEST(EditCell, NeverJoinsLinesUnasked) {
    UiHost host({.ini = kEditing});
    const auto file = host.Write(L"a.csv", "a,b\n\"one\r\ntwo\",1\n");
    const Viewer viewer = host.Open(file);
    OpenEditor(viewer, 0, 0);
    const bool holdsBreaks = TextOf(Editor(viewer)) == L"one\r\ntwo";
    const Balloons balloons(viewer);
    SendMessageW(Editor(viewer), EM_SETSEL, 0, 0);
    Type(L"x");
    Key(VK_RETURN);
    if (holdsBreaks) {
        EXPECT_EQ(viewer.PaneText(), L"xone\r\ntwo");
    } else {
        EXPECT_NE(Editor(viewer), nullptr);
        EXPECT_EQ(balloons.Texts(), std::vector<std::wstring>{L"MULTI-LINE VALUE"});
        EXPECT_EQ(TheFakes().beeps, std::vector<UINT>{MB_ICONEXCLAMATION});
        Key(VK_ESCAPE);
    }
}

TEST(EditCell, FollowsItsCellWhenColumnsAndFontsChange) {
    UiHost host({.ini = kEditing});
    const Viewer viewer = host.OpenText(kTable);
    OpenEditor(viewer, 1, 1);
    const auto expectOverCell = [&] {
        RECT place{};
        GetWindowRect(Editor(viewer), &place);
        MapWindowPoints(nullptr, viewer.Grid(), reinterpret_cast<POINT*>(&place), 2);
        const RECT cell = viewer.CellRect(1, 1);
        EXPECT_TRUE(EqualRect(&place, &cell));
        EXPECT_EQ(SendMessageW(Editor(viewer), WM_GETFONT, 0, 0),
                  SendMessageW(viewer.Grid(), WM_GETFONT, 0, 0));
    };
    SendMessageW(viewer.Grid(), LVM_SETCOLUMNWIDTH, 0, 300);
    expectOverCell();
    TheFakes().dpi = 192;
    SendMessageW(viewer.Window(), WM_DPICHANGED_AFTERPARENT, 0, 0);
    expectOverCell();
}

TEST(EditCell, StoresWhenItsColumnIsHidden) {
    UiHost host({.ini = kEditing});
    const Viewer viewer = host.OpenText(kTable);
    OpenEditor(viewer, 1, 1);
    Fill(viewer, L"x");
    Click(viewer.Header(), viewer.HeaderCenter(1), {VK_CONTROL});
    EXPECT_EQ(Editor(viewer), nullptr);
    EXPECT_EQ(viewer.Cell(1, 1), L"x");
}

TEST(EditCell, IsGivenUpWithTheViewer) {
    UiHost host({.ini = kEditing});
    const Viewer viewer = host.OpenText(kTable);
    OpenEditor(viewer, 0, 0);
    Fill(viewer, L"x");
    DestroyWindow(viewer.Window());
    EXPECT_TRUE(TheFakes().beeps.empty());
    EXPECT_TRUE(TheFakes().boxes.empty());
}

}  // namespace

}  // namespace rl::test
