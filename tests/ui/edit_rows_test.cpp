// Rows and columns of delimited text, inserted and deleted in edit mode.
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

constexpr int kInsertRow = 5034;
constexpr int kDeleteRows = 5007;
constexpr int kDeleteColumn = 5042;

std::wstring EditState(const Viewer& viewer) {
    const std::wstring text = viewer.Status(4);
    const size_t blank = text.find(L' ', 1);
    return blank == text.npos ? L"" : text.substr(blank);
}

TEST(InsertRow, PutsAnEmptyRowBelowTheCurrentOne) {
    UiHost host({.ini = kEditing});
    const auto file = host.Write(L"a.csv", kTable);
    const Viewer viewer = host.Open(file);
    ClickCell(viewer, 1, 1);
    Choose(viewer, kInsertRow);
    EXPECT_EQ(viewer.RowCount(), 4);
    EXPECT_EQ(viewer.Row(2), (Texts{L"", L""}));
    EXPECT_EQ(viewer.Status(4), L" 3:2 EDIT *");
    EXPECT_EQ(viewer.SelectedRows(), std::vector<int>{2});
    EXPECT_TRUE(TheFakes().boxes.empty());
    Key(VK_RETURN);
    Type(L"new");
    Key(VK_RETURN);
    Key('S', {VK_CONTROL});
    EXPECT_EQ(BytesOf(file), "name,city\nann,rome\nbob,oslo\n,new\ncid,bern\n");
}

TEST(InsertRow, GoesToTheFirstDataColumnFromTheLineNumbers) {
    UiHost host({.ini = "start-mode=edit\nshow-line-numbers=1\n"});
    const Viewer viewer = host.OpenText(kTable);
    ClickCell(viewer, 0, 0);
    Choose(viewer, kInsertRow);
    EXPECT_EQ(viewer.Status(4), L" 2:2 EDIT *");
}

TEST(InsertRow, NeedsEditModeAndACurrentRow) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    ClickCell(viewer, 0, 0);
    Choose(viewer, kInsertRow);
    EXPECT_EQ(viewer.RowCount(), 3);
    UiHost second({.ini = kEditing});
    const Viewer fresh = second.OpenText(kTable);
    Choose(fresh, kInsertRow);
    EXPECT_EQ(fresh.RowCount(), 3);
}

TEST(InsertRow, ShowsTheNewRowUntilTheNextFilter) {
    UiHost host({.ini = kEditing});
    const Viewer viewer = host.OpenText(kTable);
    SetFocus(GetDlgItem(viewer.Window(), 2001));
    Type(L"o");
    ASSERT_EQ(viewer.RowCount(), 2);
    ClickCell(viewer, 0, 0);
    Choose(viewer, kInsertRow);
    ASSERT_EQ(viewer.RowCount(), 3);
    EXPECT_EQ(viewer.Row(1), (Texts{L"", L""}));
    EXPECT_EQ(viewer.Row(2), (Texts{L"bob", L"oslo"}));
    EXPECT_EQ(viewer.Status(4), L" 2:1 EDIT *");
    EXPECT_EQ(viewer.Status(3), L" Rows: 3/4");
    EXPECT_EQ(TextOf(GetDlgItem(viewer.Window(), 2001)), L"o");
    SetFocus(GetDlgItem(viewer.Window(), 2001));
    SendMessageW(GetDlgItem(viewer.Window(), 2001), EM_SETSEL, 1, 1);
    Type(L"s");
    ASSERT_EQ(viewer.RowCount(), 1);
    EXPECT_EQ(viewer.Cell(0, 0), L"bob");
}

TEST(InsertRow, PutsTheNewRowBelowTheCurrentOneOfASortedView) {
    UiHost host({.ini = kEditing});
    const auto file = host.Write(L"a.csv", kTable);
    const Viewer viewer = host.Open(file);
    Click(viewer.Header(), viewer.HeaderCenter(1));
    ASSERT_EQ(viewer.Cell(0, 0), L"cid");
    ClickCell(viewer, 0, 1);
    Choose(viewer, kInsertRow);
    ASSERT_EQ(viewer.RowCount(), 4);
    EXPECT_EQ(viewer.Row(0), (Texts{L"cid", L"bern"}));
    EXPECT_EQ(viewer.Row(1), (Texts{L"", L""}));
    EXPECT_EQ(viewer.Row(2), (Texts{L"bob", L"oslo"}));
    EXPECT_EQ(viewer.Row(3), (Texts{L"ann", L"rome"}));
    EXPECT_EQ(viewer.Status(4), L" 2:2 EDIT *");
    EditCell(viewer, 1, 1, L"zug");
    EXPECT_EQ(viewer.Cell(1, 1), L"zug") << "stays while it is filled";
    Key('S', {VK_CONTROL});
    EXPECT_EQ(BytesOf(file), "name,city\nann,rome\nbob,oslo\ncid,bern\n,zug");
}

TEST(DeleteRows, TakesAllSelectedRowsWithoutAsking) {
    UiHost host({.ini = kEditing});
    const auto file = host.Write(L"a.csv", kTable);
    const Viewer viewer = host.Open(file);
    ClickCell(viewer, 0, 1);
    Click(viewer.Grid(), viewer.CellCenter(2, 1), {VK_CONTROL});
    ASSERT_EQ(viewer.SelectedRows(), (std::vector<int>{0, 2}));
    Key('X', {VK_CONTROL});
    EXPECT_TRUE(TheFakes().boxes.empty());
    EXPECT_EQ(viewer.RowCount(), 1);
    EXPECT_EQ(viewer.Cell(0, 0), L"bob");
    EXPECT_EQ(viewer.SelectedRows(), std::vector<int>{0});
    EXPECT_EQ(viewer.Status(3), L" Rows: 1/1");
    Key('S', {VK_CONTROL});
    EXPECT_EQ(BytesOf(file), "name,city\nbob,oslo\n");
}

TEST(DeleteRows, TakesTheRowsThatASortedViewShows) {
    UiHost host({.ini = kEditing});
    const auto file = host.Write(L"a.csv", kTable);
    const Viewer viewer = host.Open(file);
    Click(viewer.Header(), viewer.HeaderCenter(0));
    Click(viewer.Header(), viewer.HeaderCenter(0));
    ASSERT_EQ(viewer.Cell(0, 0), L"cid");
    ClickCell(viewer, 0, 1);
    Click(viewer.Grid(), viewer.CellCenter(1, 1), {VK_CONTROL});
    Key('X', {VK_CONTROL});
    Key('S', {VK_CONTROL});
    EXPECT_EQ(BytesOf(file), "name,city\nann,rome\n");
}

TEST(DeleteRows, StaysAtThePlaceOfTheFirst) {
    UiHost host({.ini = kEditing});
    const Viewer viewer = host.OpenText("n\n1\n2\n3\n4\n5\n");
    ClickCell(viewer, 1, 0);
    Choose(viewer, kDeleteRows);
    EXPECT_EQ(viewer.Cell(1, 0), L"3");
    EXPECT_EQ(viewer.Status(4), L" 2:1 EDIT *");
    ClickCell(viewer, 3, 0);
    Choose(viewer, kDeleteRows);
    EXPECT_EQ(viewer.Status(4), L" 3:1 EDIT *");
    EXPECT_EQ(viewer.PaneText(), L"4");
}

TEST(DeleteRows, KeepsFilterAndSort) {
    UiHost host({.ini = kEditing});
    const Viewer viewer = host.OpenText("n,m\n3,a\n1,a\n2,b\n4,a\n");
    Click(viewer.Header(), viewer.HeaderCenter(0));
    SetFocus(GetDlgItem(viewer.Window(), 2001));
    Type(L"a");
    ASSERT_EQ(viewer.RowCount(), 3);
    ClickCell(viewer, 0, 0);
    Key('X', {VK_CONTROL});
    ASSERT_EQ(viewer.RowCount(), 2);
    EXPECT_EQ(viewer.Cell(0, 0), L"3");
    EXPECT_EQ(viewer.Cell(1, 0), L"4");
    EXPECT_EQ(TextOf(GetDlgItem(viewer.Window(), 2001)), L"a");
}

TEST(DeleteRows, MayLeaveNone) {
    UiHost host({.ini = kEditing});
    const auto file = host.Write(L"a.csv", "n\n1\n2\n");
    const Viewer viewer = host.Open(file);
    ClickCell(viewer, 0, 0);
    Click(viewer.Grid(), viewer.CellCenter(1, 0), {VK_SHIFT});
    Key('X', {VK_CONTROL});
    EXPECT_EQ(viewer.RowCount(), 0);
    Key('X', {VK_CONTROL});
    Key(VK_F2);
    Choose(viewer, kInsertRow);
    EXPECT_EQ(viewer.RowCount(), 0);
    Key('S', {VK_CONTROL});
    EXPECT_EQ(BytesOf(file), "n\n");
}

TEST(DeleteRows, NeedsEditMode) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    ClickCell(viewer, 0, 0);
    Key('X', {VK_CONTROL});
    Choose(viewer, kDeleteRows);
    EXPECT_EQ(viewer.RowCount(), 3);
}

TEST(DeleteColumn, AsksWithNoAsTheDefault) {
    UiHost host({.ini = kEditing});
    const Viewer viewer = host.OpenText(kTable);
    ClickCell(viewer, 0, 1);
    TheFakes().boxAnswer = IDNO;
    Choose(viewer, kDeleteColumn);
    ASSERT_EQ(TheFakes().boxes.size(), 1u);
    const ShownBox& box = TheFakes().boxes.front();
    EXPECT_EQ(box.text, L"Delete column \"city\"?");
    EXPECT_EQ(box.caption, L"rowlark");
    EXPECT_EQ(box.owner, viewer.Window());
    EXPECT_EQ(box.type, static_cast<UINT>(MB_YESNO | MB_DEFBUTTON2 | MB_ICONWARNING));
    EXPECT_EQ(viewer.Headers(), (Texts{L"name", L"city"}));
    EXPECT_EQ(EditState(viewer), L" EDIT");
}

TEST(DeleteColumn, ShowsTheTableAnewUnsortedAndUnfiltered) {
    UiHost host({.ini = kEditing});
    const auto file = host.Write(L"a.csv", "a,b,c\n3,x,1\n1,y,2\n2,x,3\n");
    const Viewer viewer = host.Open(file);
    Click(viewer.Header(), viewer.HeaderCenter(0));
    SetFocus(GetDlgItem(viewer.Window(), 2001));
    Type(L"x");
    ASSERT_EQ(viewer.RowCount(), 2);
    ClickCell(viewer, 0, 1);
    TheFakes().boxAnswer = IDYES;
    Choose(viewer, kDeleteColumn);
    EXPECT_EQ(viewer.Headers(), (Texts{L"a", L"c"}));
    EXPECT_EQ(viewer.RowCount(), 3);
    EXPECT_EQ(viewer.Cell(0, 0), L"3");
    EXPECT_EQ(TextOf(GetDlgItem(viewer.Window(), 2001)), L"");
    EXPECT_EQ(GetDlgItem(viewer.Window(), 2002), nullptr);
    Key('S', {VK_CONTROL});
    EXPECT_EQ(BytesOf(file), "a,c\n3,1\n1,2\n2,3\n");
}

TEST(DeleteColumn, LeavesTheSameColumnsHidden) {
    UiHost host({.ini = kEditing});
    const Viewer viewer = host.OpenText("a,b,c,d\n1,2,3,4\n");
    Click(viewer.Header(), viewer.HeaderCenter(2), {VK_CONTROL});
    ASSERT_EQ(viewer.Width(2), 0);
    ClickCell(viewer, 0, 0);
    TheFakes().boxAnswer = IDYES;
    Choose(viewer, kDeleteColumn);
    ASSERT_EQ(viewer.Headers(), (Texts{L"b", L"c", L"d"}));
    EXPECT_GT(viewer.Width(0), 0);
    EXPECT_EQ(viewer.Width(1), 0);
    EXPECT_GT(viewer.Width(2), 0);
}

TEST(DeleteColumn, NeverShowsWhatIsNoMoreWhenMemoryRunsOut) {
    UiHost host({.ini = kEditing});
    const auto file = host.Write(L"a.csv", kTable);
    const Viewer viewer = host.Open(file);
    ClickCell(viewer, 0, 0);
    TheFakes().boxAnswer = IDYES;
    TheFakes().memoryFailsAfterMeasuring = true;
    Choose(viewer, kDeleteColumn);
    ASSERT_TRUE(IsWindow(viewer.Window()));
    EXPECT_TRUE(viewer.ColumnCount() == 0 || viewer.Headers() == Texts{L"city"});
    Key('S', {VK_CONTROL});
    EXPECT_EQ(BytesOf(file), "city\nrome\noslo\nbern\n");
}

TEST(DeleteColumn, NamesAColumnWithoutAHeader) {
    UiHost host({.ini = "start-mode=edit\nheader-row=0\n"});
    const Viewer viewer = host.OpenText(kTable);
    ClickCell(viewer, 0, 0);
    TheFakes().boxAnswer = IDYES;
    Choose(viewer, kDeleteColumn);
    Choose(viewer, kDeleteColumn);
    ASSERT_EQ(TheFakes().boxes.size(), 2u);
    EXPECT_EQ(TheFakes().boxes[0].text, L"Delete column \"Column 1\"?");
    EXPECT_EQ(viewer.ColumnCount(), 0);
    Choose(viewer, kDeleteColumn);
    Key(VK_F2);
    EXPECT_EQ(TheFakes().boxes.size(), 2u);
}

TEST(DeleteColumn, NeedsEditModeAndADataColumn) {
    UiHost host({.ini = "show-line-numbers=1\n"});
    const Viewer viewer = host.OpenText(kTable);
    TheFakes().boxAnswer = IDYES;
    ClickCell(viewer, 0, 1);
    Choose(viewer, kDeleteColumn);
    Key('E', {VK_CONTROL});
    ClickCell(viewer, 0, 0);
    Choose(viewer, kDeleteColumn);
    EXPECT_TRUE(TheFakes().boxes.empty());
    EXPECT_EQ(viewer.ColumnCount(), 3);
}

TEST(DeleteColumn, SurvivesAHostThatClosesTheViewerMeanwhile) {
    UiHost host({.ini = kEditing});
    const Viewer viewer = host.OpenText(kTable);
    ClickCell(viewer, 0, 0);
    TheFakes().boxAnswer = IDYES;
    TheFakes().whileBoxIsOpen = [&] { DestroyWindow(viewer.Window()); };
    Choose(viewer, kDeleteColumn);
    TheFakes().whileBoxIsOpen = nullptr;
    EXPECT_FALSE(IsWindow(viewer.Window()));
}

}  // namespace

}  // namespace rl::test
