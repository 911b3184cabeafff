// The Source tab: what it shows, its keys and the mouse, and how a row is found in it.
#include <gtest/gtest.h>

#include <string>

#include "tests/ui/support/input.h"
#include "tests/ui/support/menus.h"
#include "tests/ui/support/source_tab.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

constexpr const char* kTable = "name,age\nAnn,31\n\"Bob\r\nB.\",9\nCem,50\n";

std::string ManyRows(int rows) {
    std::string text = "number\n";
    for (int row = 0; row < rows; ++row) {
        text += std::to_string(row) + "\n";
    }
    return text;
}

TEST(SourceTab, ShowsTheTextAsItWasLoaded) {
    UiHost host;
    const Viewer viewer = host.OpenText("\xEF\xBB\xBFn\xC3\xA4me,b\r\n1,2\n\"x\"\"y\"\r,\n");

    ShowSource(viewer);

    EXPECT_EQ(TextOf(viewer.Source()), L"n\x00E4me,b\r\n1,2\n\"x\"\"y\"\r,\n");
}

TEST(SourceTab, IsNotFilledBeforeItIsShown) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);

    EXPECT_EQ(TextOf(viewer.Source()), L"");
}

TEST(SourceTab, ShowsJsonAndXmlAsTheyWereLoaded) {
    UiHost host;
    const std::string json = "{ \"a\":1,\t\"b\" : [ ] } // end\n";
    const std::string xml = "<?xml version='1.0'?>\n<a  b = '1' >x&amp;y</a >\n";

    const Viewer first = host.OpenText(json, L"data.json");
    ShowSource(first);
    EXPECT_EQ(TextOf(first.Source()), std::wstring(json.begin(), json.end()));
    host.Close(first);

    const Viewer second = host.OpenText(xml, L"data.xml");
    ShowSource(second);
    EXPECT_EQ(TextOf(second.Source()), std::wstring(xml.begin(), xml.end()));
}

TEST(SourceTab, ComesFirstWhenTheSettingSaysSo) {
    UiHost host({.ini = "default-tab=SOURCE\n"});

    const Viewer viewer = host.OpenText("a,b\n1,2\n");

    EXPECT_EQ(viewer.CurrentTab(), 1);
    EXPECT_EQ(TextOf(viewer.Source()), L"a,b\n1,2\n");
    EXPECT_EQ(GetFocus(), viewer.Source());
}

TEST(SourceTab, KeepsCaretAndSelectionWhileTheDataTabIsShown) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    ShowSource(viewer);
    SendMessageW(viewer.Source(), EM_SETSEL, 2, 7);

    Key(VK_TAB, {VK_CONTROL});
    Key(VK_TAB, {VK_CONTROL});

    EXPECT_EQ(Selection(viewer), (Ends{2, 7}));
}

TEST(SourceTab, ShowsAnotherReadingOfTheFile) {
    UiHost host;
    const Viewer viewer = host.OpenText("a\xC3\xA4,b\n1,2\n");
    ShowSource(viewer);
    EXPECT_EQ(TextOf(viewer.Source()), L"a\x00E4,b\n1,2\n");

    Choose(viewer, 5010);

    EXPECT_EQ(TextOf(viewer.Source()), L"a\x00C3\x00A4,b\n1,2\n");

    Key(VK_TAB, {VK_CONTROL});
    Choose(viewer, 5011);
    Key(VK_TAB, {VK_CONTROL});

    EXPECT_EQ(TextOf(viewer.Source()), L"a\x00E4,b\n1,2\n");
}

TEST(SourceTab, GivesBackAllItTook) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    ShowSource(viewer);
    Key(VK_TAB, {VK_CONTROL});
    ShowSource(viewer);
    const DWORD before = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);

    for (int i = 0; i < 20; ++i) {
        RedrawWindow(viewer.Source(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    }

    EXPECT_EQ(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), before);
}

// Limits

constexpr const wchar_t* kTruncated = L"\r\n[--- source view truncated; see source-view-limit ---]";

std::wstring ShownWith(const std::string& ini, const std::string& bytes) {
    UiHost host({.ini = ini});
    const Viewer viewer = host.OpenText(bytes);
    ShowSource(viewer);
    return TextOf(viewer.Source());
}

TEST(SourceLimit, CutsLongTextsAndSaysSo) {
    EXPECT_EQ(ShownWith("source-view-limit=5\n", "a,b\n1,2\n"),
              L"a,b\n1" + std::wstring(kTruncated));
}

TEST(SourceLimit, LeavesTextsOfJustThatLengthWhole) {
    EXPECT_EQ(ShownWith("source-view-limit=8\n", "a,b\n1,2\n"), L"a,b\n1,2\n");
}

TEST(SourceLimit, IsNoneWhenItIsZeroOrNegative) {
    EXPECT_EQ(ShownWith("source-view-limit=0\n", "a,b\n1,2\n"), L"a,b\n1,2\n");
    EXPECT_EQ(ShownWith("source-view-limit=-5\n", "a,b\n1,2\n"), L"a,b\n1,2\n");
}

TEST(SourceLimit, IsSixteenMillionCharactersOtherwise) {
    UiHost host;
    std::string bytes = "number\n";
    bytes.append(19'999'993, 'x');
    const Viewer viewer = host.OpenText(bytes);

    ShowSource(viewer);

    const std::wstring text = TextOf(viewer.Source());
    EXPECT_EQ(text.size(), 16'000'000 + std::wstring_view(kTruncated).size());
    EXPECT_TRUE(text.ends_with(kTruncated));
}

TEST(SourceTabWidth, IsFourOrWhatTheSettingSays) {
    const auto widest = [](const std::string& ini) {
        UiHost host({.ini = ini});
        const Viewer viewer = host.OpenText("\tx\n1\t2\n");
        ShowSource(viewer);
        return ScrollRange(viewer, SB_HORZ) / CellSize(viewer).cx - 4;  // 3 of the gutter, 1 more
    };
    EXPECT_EQ(widest(""), 5);
    EXPECT_EQ(widest("source-tab-width=8\n"), 9);
    EXPECT_EQ(widest("source-tab-width=0\n"), 3);
    EXPECT_EQ(widest("source-tab-width=100\n"), 33);
}

// Keys, mouse, wheel

TEST(SourceTabKeys, MoveSelectAndCopy) {
    UiHost host;
    const Viewer viewer = host.OpenText("ab\ncd\nef\n");
    ShowSource(viewer);

    Key(VK_RIGHT);
    Key(VK_DOWN, {VK_SHIFT});
    Key('C', {VK_CONTROL});

    EXPECT_EQ(Selection(viewer), (Ends{1, 4}));
    EXPECT_EQ(ClipboardText(), L"b\r\nc");
}

TEST(SourceTabKeys, SelectAll) {
    UiHost host;
    const Viewer viewer = host.OpenText("ab\ncd\r\n");
    ShowSource(viewer);

    Key('A', {VK_CONTROL});
    Key('C', {VK_CONTROL});

    EXPECT_EQ(Selection(viewer), (Ends{0, 7}));
    EXPECT_EQ(ClipboardText(), L"ab\r\ncd\r\n");
}

TEST(SourceTabKeys, OfTheViewerStillWork) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    ShowSource(viewer);

    Key(VK_F1);
    const HWND help = FindWindowW(L"RowlarkHelpDialog", nullptr);
    EXPECT_NE(help, nullptr);
    Key(VK_ESCAPE);
    EXPECT_EQ(GetFocus(), viewer.Source());

    const int before = CellSize(viewer).cy;
    Key(VK_ADD, {VK_CONTROL});
    EXPECT_GT(CellSize(viewer).cy, before);
    Key(VK_SUBTRACT, {VK_CONTROL});
    EXPECT_EQ(CellSize(viewer).cy, before);

    Key(VK_TAB, {VK_CONTROL});
    EXPECT_EQ(viewer.CurrentTab(), 0);
    EXPECT_EQ(GetFocus(), viewer.Grid());
}

TEST(SourceTabKeys, OfTheHostGoToTheHost) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    ShowSource(viewer);
    UiHost::PassKeyGuard();
    (void)UiHost::TakeKeys();

    Key('1');
    Key(VK_F3);
    Key(VK_RIGHT);
    Key(VK_ESCAPE);

    EXPECT_EQ(UiHost::TakeKeys(), (std::vector<WPARAM>{'1', VK_F3, VK_ESCAPE}));
    EXPECT_EQ(Selection(viewer), (Ends{1, 1}));
}

TEST(SourceTabMouse, SelectsByDraggingAndByDoubleClicks) {
    UiHost host;
    const Viewer viewer = host.OpenText("name,age\nAnn,31\n");
    ShowSource(viewer);

    Drag(viewer.Source(), PointAt(viewer, 0, 2), PointAt(viewer, 1, 3));
    EXPECT_EQ(Selection(viewer), (Ends{2, 12}));

    DoubleClick(viewer.Source(), PointAt(viewer, 0, 6));
    EXPECT_EQ(SelectedText(viewer), L"age");

    Click(viewer.Source(), PointAt(viewer, 1, 1));
    EXPECT_EQ(Selection(viewer), (Ends{10, 10}));
    Click(viewer.Source(), PointAt(viewer, 1, 6), {VK_SHIFT});
    EXPECT_EQ(Selection(viewer), (Ends{10, 15}));
}

TEST(SourceTabWheel, ScrollsTheText) {
    UiHost host;
    const Viewer viewer = host.OpenText(ManyRows(500));
    ShowSource(viewer);

    Wheel(viewer.Source(), {100, 100}, -2);
    EXPECT_GT(GetScrollPos(viewer.Source(), SB_VERT), 0);
    Wheel(viewer.Source(), {100, 100}, 5);
    EXPECT_EQ(GetScrollPos(viewer.Source(), SB_VERT), 0);
}

TEST(SourceTabWheel, ChangesTheFontSizeWithCtrl) {
    UiHost host;
    const Viewer viewer = host.OpenText(ManyRows(500));
    ShowSource(viewer);
    const int before = CellSize(viewer).cy;

    Wheel(viewer.Source(), {100, 100}, 1, {VK_CONTROL});

    EXPECT_GT(CellSize(viewer).cy, before);
    EXPECT_EQ(GetScrollPos(viewer.Source(), SB_VERT), 0);
    EXPECT_EQ(host.IniValue(L"font-size"), L"17");
}

// Finding a row

TEST(LocateInSource, SelectsTheRecordOfTheFocusedRow) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(1, 0));

    Key('L', {VK_CONTROL});

    EXPECT_EQ(viewer.CurrentTab(), 1);
    EXPECT_EQ(GetFocus(), viewer.Source());
    EXPECT_EQ(SelectedText(viewer), L"\"Bob\r\nB.\",9");
}

TEST(LocateInSource, WorksFromTheMenuToo) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(0, 1));

    Choose(viewer, 5043);

    EXPECT_EQ(SelectedText(viewer), L"Ann,31");
}

TEST(LocateInSource, FollowsSortedRows) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Header(), viewer.HeaderCenter(1));
    ASSERT_EQ(viewer.Cell(0, 1), L"9");
    Click(viewer.Grid(), viewer.CellCenter(0, 1));

    Key('L', {VK_CONTROL});

    EXPECT_EQ(SelectedText(viewer), L"\"Bob\r\nB.\",9");
}

TEST(LocateInSource, FindsTheFirstRecordWithoutAHeaderRow) {
    UiHost host({.ini = "header-row=0\n"});
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(0, 0));

    Key('L', {VK_CONTROL});

    EXPECT_EQ(SelectedText(viewer), L"name,age");
}

TEST(LocateInSource, GoesBackToTheRowFromTheSourceTab) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(2, 0));
    Key('L', {VK_CONTROL});
    Key(VK_HOME, {VK_CONTROL});
    EXPECT_EQ(SelectedText(viewer), L"");

    Key('L', {VK_CONTROL});

    EXPECT_EQ(SelectedText(viewer), L"Cem,50");
}

TEST(LocateInSource, ScrollsToTheRow) {
    UiHost host;
    const Viewer viewer = host.OpenText(ManyRows(5000));
    Click(viewer.Grid(), viewer.CellCenter(0, 0));
    Key(VK_DOWN, {VK_CONTROL});

    Key('L', {VK_CONTROL});

    EXPECT_EQ(SelectedText(viewer), L"4999");
    EXPECT_GT(GetScrollPos(viewer.Source(), SB_VERT), 4900);
}

/// Makes the value of the first row with this name the current cell; false when there is none.
bool ClickValueOf(const Viewer& viewer, std::wstring_view name) {
    for (int row = 0; row < viewer.RowCount(); ++row) {
        if (viewer.Cell(row, 0) == name) {
            Click(viewer.Grid(), viewer.CellCenter(row, 1));
            return true;
        }
    }
    return false;
}

TEST(LocateInSource, SelectsTheValueBehindARowOfAJsonOutline) {
    UiHost host;
    const Viewer viewer = host.OpenText("{\"a\": 1, \"b\": [10, {\"c\": \"x\"}]}", L"data.json");
    ASSERT_TRUE(ClickValueOf(viewer, L"b"));

    Key('L', {VK_CONTROL});

    EXPECT_EQ(SelectedText(viewer), L"[10, {\"c\": \"x\"}]");
}

TEST(LocateInSource, SelectsTheElementBehindARowOfAnXmlOutline) {
    UiHost host;
    const Viewer viewer = host.OpenText("<r>\n<a/>\n<b>one</b>\n</r>\n", L"data.xml");
    ASSERT_TRUE(ClickValueOf(viewer, L"b"));

    Key('L', {VK_CONTROL});

    EXPECT_EQ(SelectedText(viewer), L"<b>one</b>");
}

TEST(LocateInSource, StaysInsideACutText) {
    UiHost host({.ini = "source-view-limit=12\n"});
    const Viewer viewer = host.OpenText(kTable);
    Click(viewer.Grid(), viewer.CellCenter(2, 0));

    Key('L', {VK_CONTROL});

    EXPECT_EQ(viewer.CurrentTab(), 1);
    EXPECT_LE(Selection(viewer).second, TextOf(viewer.Source()).size());
}

}  // namespace

}  // namespace rl::test
