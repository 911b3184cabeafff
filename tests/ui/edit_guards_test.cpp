// What keeps the cell editor from opening where it has no place, from going while its text is not
// taken, and from text that no one typed.
#include <gtest/gtest.h>

#include "tests/ui/support/editing.h"
#include "tests/ui/support/fakes.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/menus.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

constexpr const char* kTable = "name,city\nann,rome\nbob,oslo\ncid,bern\n";
constexpr const char* kEditing = "start-mode=edit\n";
constexpr WPARAM kCtrlBackspace = 0x7F;  // as Windows types it
constexpr int kHideColumn = 5008;

TEST(EditGuard, OpensNoEditorInAHiddenColumn) {
    UiHost host({.ini = kEditing});
    const Viewer viewer = host.OpenText(kTable);
    ClickCell(viewer, 1, 1);
    Choose(viewer, kHideColumn);
    ASSERT_EQ(viewer.Width(1), 0);
    SetFocus(viewer.Grid());
    Key(VK_F2);
    EXPECT_EQ(Editor(viewer), nullptr);
    EXPECT_TRUE(TheFakes().beeps.empty());
    EXPECT_EQ(viewer.Cell(1, 1), L"oslo");
}

TEST(EditGuard, KeepsTheColumnOfATextThatIsNotTaken) {
    UiHost host({.ini = "start-mode=edit\ntree-outline=0\n"});
    const Viewer viewer = host.OpenText(R"([{"n":1,"s":"a"},{"n":2,"s":"b"}])", L"a.json");
    ASSERT_EQ(viewer.RowCount(), 2);
    OpenEditor(viewer, 1, 0);
    Fill(viewer, L"no number");
    Click(viewer.Header(), viewer.HeaderCenter(0), {VK_CONTROL});
    EXPECT_GT(viewer.Width(0), 0);
    ASSERT_NE(Editor(viewer), nullptr);
    EXPECT_EQ(TextOf(Editor(viewer)), L"no number");
    EXPECT_EQ(TheFakes().beeps.size(), 1u);
}

TEST(EditGuard, DeletesTheWordLeftOfTheCaretByCtrlAndBackspace) {
    UiHost host({.ini = kEditing});
    const Viewer viewer = host.OpenText(kTable);
    OpenEditor(viewer, 0, 0);
    Fill(viewer, L"one two  three");
    SendMessageW(Editor(viewer), EM_SETSEL, 9, 9);
    SendMessageW(Editor(viewer), WM_CHAR, kCtrlBackspace, 0);
    EXPECT_EQ(TextOf(Editor(viewer)), L"one three");
    SendMessageW(Editor(viewer), EM_SETSEL, 1, 3);
    SendMessageW(Editor(viewer), WM_CHAR, kCtrlBackspace, 0);
    EXPECT_EQ(TextOf(Editor(viewer)), L"o three");
    SendMessageW(Editor(viewer), EM_SETSEL, 0, 0);
    SendMessageW(Editor(viewer), WM_CHAR, kCtrlBackspace, 0);
    EXPECT_EQ(TextOf(Editor(viewer)), L"o three");
    Key(VK_RETURN);
    EXPECT_EQ(viewer.Cell(0, 0), L"o three");
}

TEST(EditGuard, LeavesNoEditorThatCannotBeHeard) {
    UiHost host({.ini = kEditing});
    const Viewer viewer = host.OpenText(kTable);
    ClickCell(viewer, 1, 1);
    TheFakes().failing = {"SetWindowSubclass"};
    Key(VK_F2);
    EXPECT_EQ(Editor(viewer), nullptr);
    TheFakes().failing.clear();
    Key(VK_F2);
    EXPECT_NE(Editor(viewer), nullptr);
}

}  // namespace

}  // namespace rl::test
