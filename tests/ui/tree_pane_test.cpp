// The tree layout: the way there and back, the tree's items, the table of a node, copied nodes.
#include <gtest/gtest.h>

#include "tests/ui/support/fakes.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/menus.h"
#include "tests/ui/support/pump.h"
#include "tests/ui/support/ui_host.h"

// Needs the types of windows.h.
#include <commctrl.h>

namespace rl::test {

namespace {

constexpr const char* kJson =
    R"({"meta": {"v": 1}, "rows": [{"a": 3, "b": "x"}, {"a": 1}, {"a": 2}], "end": null})";
constexpr const char* kXml =
    "<root><list><item id=\"1\"><name>one</name></item><item id=\"2\"><name>two</name></item>"
    "</list><!--c--><other/></root>";

HTREEITEM Next(HWND tree, UINT relation, HTREEITEM item) {
    return reinterpret_cast<HTREEITEM>(
        SendMessageW(tree, TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
}

struct Item {
    std::wstring label;
    LPARAM param = -1;
};

Item Read(HWND tree, HTREEITEM item) {
    wchar_t text[300] = {};
    TVITEMW record{};
    record.mask = TVIF_TEXT | TVIF_PARAM;
    record.hItem = item;
    record.pszText = text;
    record.cchTextMax = 300;
    SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&record));
    return {text, record.lParam};
}

/// The labels below an item, or of the top level, joined by blanks.
std::wstring Labels(HWND tree, HTREEITEM parent) {
    std::wstring all;
    for (HTREEITEM item = parent != nullptr ? Next(tree, TVGN_CHILD, parent)
                                            : Next(tree, TVGN_ROOT, nullptr);
         item != nullptr; item = Next(tree, TVGN_NEXT, item)) {
        all += (all.empty() ? L"" : L" ") + Read(tree, item).label;
    }
    return all;
}

HTREEITEM Root(HWND tree) {
    return Next(tree, TVGN_ROOT, nullptr);
}

std::wstring Selected(HWND tree) {
    const HTREEITEM item = Next(tree, TVGN_CARET, nullptr);
    return item != nullptr ? Read(tree, item).label : L"?";
}

void Select(HWND tree, HTREEITEM item) {
    SendMessageW(tree, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(item));
    PumpIdle();
}

TEST(TreeLayout, ReadsItsColumnsAsTheSettingsSay) {
    constexpr const char* kRecords = R"([{"a":1},{"b":2,"a":3}])";
    UiHost first({.ini = "tree-outline=0\nskip-attributes-scan=1\n"});
    const Viewer firstOnly = first.OpenText(kRecords, L"a.json");
    EXPECT_EQ(firstOnly.Headers(), (Texts{L"a"}));
    EXPECT_EQ(firstOnly.Row(1), (Texts{L"3"}));
    UiHost missing({.ini = "tree-outline=0\nmissing-attribute-value=none\n"});
    const Viewer named = missing.OpenText(kRecords, L"a.json");
    EXPECT_EQ(named.Headers(), (Texts{L"a", L"b"}));
    EXPECT_EQ(named.Row(0), (Texts{L"1", L"none"}));
}

TEST(TreeLayout, SwitchedToShowsTheTopOfJsonWithoutRecords) {
    UiHost host;
    const Viewer viewer = host.OpenText(R"({"a": 1, "b": [2]})", L"a.json");
    Key('T', {VK_CONTROL});
    EXPECT_EQ(Selected(viewer.Tree()), L"<<root>>");
    EXPECT_EQ(viewer.Headers(), (Texts{L"Attribute", L"Value"}));
    ASSERT_EQ(viewer.RowCount(), 2);
    EXPECT_EQ(viewer.Row(1), (Texts{L"b", L"[Array]"}));
}

TEST(TreeLayout, ShowsTheFirstElementOfXmlWithoutRecordsEitherWay) {
    for (const char* ini : {"", "tree-outline=0\n"}) {
        UiHost host({.ini = ini});
        const Viewer viewer =
            host.OpenText("<!--c--><f><name>n</name><size>1</size></f>", L"a.xml");
        if (!IsWindowVisible(viewer.Tree())) {
            Key('T', {VK_CONTROL});
        }
        EXPECT_EQ(Selected(viewer.Tree()), L"f");
        EXPECT_EQ(viewer.Headers(), (Texts{L"Key", L"Value"}));
        ASSERT_EQ(viewer.RowCount(), 2);
        EXPECT_EQ(viewer.Row(0), (Texts{L"name", L"n"}));
        EXPECT_EQ(viewer.Row(1), (Texts{L"size", L"1"}));
        EXPECT_EQ(viewer.Status(1), L" XML (key/value)");
    }
}

TEST(TreeLayout, IsReachedByCtrlTAndLeftByIt) {
    UiHost host;
    const Viewer viewer = host.OpenText(kJson, L"a.json");
    EXPECT_FALSE(IsWindowVisible(viewer.Tree()));
    Key('T', {VK_CONTROL});
    EXPECT_TRUE(IsWindowVisible(viewer.Tree()));
    EXPECT_EQ(host.IniValue(L"tree-outline"), L"0");
    EXPECT_EQ(viewer.Headers(), (Texts{L"a", L"b"}));
    Key('T', {VK_CONTROL});
    EXPECT_FALSE(IsWindowVisible(viewer.Tree()));
    EXPECT_EQ(host.IniValue(L"tree-outline"), L"1");
    EXPECT_EQ(viewer.Headers(), (Texts{L"Name", L"Value"}));
    EXPECT_EQ(viewer.Cell(0, 0), L"<<root>>");
}

TEST(TreeLayout, ShowsTheRecordsAndSelectsTheirItem) {
    UiHost host;
    const Viewer viewer = host.OpenText(kJson, L"a.json");
    Choose(viewer, 5050);
    EXPECT_EQ(Labels(viewer.Tree(), nullptr), L"<<root>>");
    EXPECT_EQ(Labels(viewer.Tree(), Root(viewer.Tree())), L"meta rows end");
    EXPECT_EQ(Selected(viewer.Tree()), L"rows");
    EXPECT_EQ(viewer.Row(0), (Texts{L"3", L"x"}));
    EXPECT_EQ(viewer.Row(1), (Texts{L"1", L"N/A"}));
    EXPECT_EQ(viewer.StatusTexts(), (Texts{L" UTF-8", L" JSON", L" ARRAY", L" Rows: 3/3", L""}));
}

TEST(TreeLayout, SelectsTheTopWhereThereAreNoRecords) {
    UiHost host({.ini = "tree-outline=0\n"});
    const Viewer viewer = host.OpenText("{\"a\": 1, \"b\": [2]}", L"a.json");
    EXPECT_EQ(Selected(viewer.Tree()), L"<<root>>");
    EXPECT_EQ(viewer.Headers(), (Texts{L"Attribute", L"Value"}));
    EXPECT_EQ(viewer.Row(1), (Texts{L"b", L"[Array]"}));
    EXPECT_EQ(host.IniValue(L"tree-outline"), L"0");
    EXPECT_EQ(viewer.Status(2), L" OBJECT");
}

TEST(TreeLayout, SelectsTheTopForARootOfRecords) {
    UiHost host({.ini = "tree-outline=0\n"});
    const Viewer viewer = host.OpenText("[{\"a\": 1}, {\"a\": 2}]", L"a.json");
    EXPECT_EQ(Selected(viewer.Tree()), L"<<root>>");
    EXPECT_EQ(viewer.RowCount(), 2);
}

/// Counts the paints of a window in the integer behind `data`.
LRESULT CALLBACK CountPaints(HWND window, UINT id, WPARAM wparam, LPARAM lparam, UINT_PTR,
                             DWORD_PTR data) {
    *reinterpret_cast<int*>(data) += id == WM_PAINT ? 1 : 0;
    return DefSubclassProc(window, id, wparam, lparam);
}

TEST(TreeLayout, OpensTheWayToDeepRecordsUnseen) {
    constexpr int kDepth = 100;
    std::string text = "[{\"a\": 1}, {\"a\": 2}]";
    for (int level = 0; level < kDepth; ++level) {
        text = "{\"k" + std::to_string(level) + "\": " + text + "}";
    }
    UiHost host;
    const Viewer viewer = host.OpenText(text, L"a.json");
    Key('T', {VK_CONTROL});
    Key('T', {VK_CONTROL});
    int paints = 0;
    SetWindowSubclass(viewer.Tree(), &CountPaints, 1, reinterpret_cast<DWORD_PTR>(&paints));
    Key('T', {VK_CONTROL});
    EXPECT_LT(paints, kDepth / 2);
    Choose(viewer, 5011);
    EXPECT_LT(paints, kDepth);
    RemoveWindowSubclass(viewer.Tree(), &CountPaints, 1);
    EXPECT_TRUE(IsWindowVisible(viewer.Tree()));
    EXPECT_EQ(Selected(viewer.Tree()), L"k0");
    EXPECT_EQ(viewer.RowCount(), 2);
}

TEST(TreeLayout, OfXmlListsElementsOnly) {
    UiHost host({.ini = "tree-outline=0\n"});
    const Viewer viewer = host.OpenText(kXml, L"a.xml");
    EXPECT_EQ(Labels(viewer.Tree(), nullptr), L"root");
    EXPECT_EQ(Labels(viewer.Tree(), Root(viewer.Tree())), L"list other");
    EXPECT_EQ(Selected(viewer.Tree()), L"list");
    EXPECT_EQ(viewer.Headers(), (Texts{L"@id", L"name"}));
    EXPECT_EQ(viewer.Row(1), (Texts{L"2", L"two"}));
    EXPECT_EQ(viewer.StatusTexts(), (Texts{L" UTF-8", L" XML", L" list", L" Rows: 2/2", L""}));
}

TEST(TreeLayout, MarksAMalformedDocument) {
    UiHost host({.ini = "tree-outline=0\n"});
    const Viewer viewer = host.OpenText("<a></b></a>", L"a.xml");
    EXPECT_NE(viewer.Status(1).find(L"(malformed)"), std::wstring::npos);
}

TEST(TreeItems, CarryTheirNodeAndMakeChildrenWhenOpened) {
    UiHost host({.ini = "tree-outline=0\n"});
    const Viewer viewer = host.OpenText(kJson, L"a.json");
    const HWND tree = viewer.Tree();
    EXPECT_EQ(Read(tree, Root(tree)).param, 1);
    const HTREEITEM meta = Next(tree, TVGN_CHILD, Root(tree));
    EXPECT_EQ(Labels(tree, meta), L"");
    EXPECT_EQ(Read(tree, Next(tree, TVGN_CHILD, meta)).param, 0);
    const HTREEITEM rows = Next(tree, TVGN_NEXT, meta);
    SendMessageW(tree, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(rows));
    EXPECT_EQ(Labels(tree, rows), L"[0] [1] [2]");
    SendMessageW(tree, TVM_EXPAND, TVE_COLLAPSE, reinterpret_cast<LPARAM>(rows));
    SendMessageW(tree, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(rows));
    EXPECT_EQ(Labels(tree, rows), L"[0] [1] [2]");
    EXPECT_EQ(Next(tree, TVGN_CHILD, Next(tree, TVGN_NEXT, rows)), nullptr);
}

TEST(TreeItems, ShowTheTableOfTheOneSelected) {
    UiHost host({.ini = "tree-outline=0\n"});
    const Viewer viewer = host.OpenText(kJson, L"a.json");
    const HWND tree = viewer.Tree();
    Select(tree, Next(tree, TVGN_CHILD, Root(tree)));
    EXPECT_EQ(viewer.Headers(), (Texts{L"Attribute", L"Value"}));
    EXPECT_EQ(viewer.Row(0), (Texts{L"v", L"1"}));
    EXPECT_EQ(viewer.Status(2), L" OBJECT");
    Select(tree, Root(tree));
    EXPECT_EQ(viewer.RowCount(), 3);
    EXPECT_EQ(viewer.Status(3), L" Rows: 3/3");
}

TEST(TreeItems, AreOpenedDownToDeepRecords) {
    UiHost host({.ini = "tree-outline=0\n"});
    const Viewer viewer =
        host.OpenText("{\"p\": {\"q\": {\"r\": [{\"k\": 1}, {\"k\": 2}]}}}", L"a.json");
    EXPECT_EQ(Selected(viewer.Tree()), L"r");
    EXPECT_EQ(viewer.Headers(), (Texts{L"k"}));
}

TEST(RecordTable, IsNotSortedByItsHeader) {
    UiHost host({.ini = "tree-outline=0\n"});
    const Viewer viewer = host.OpenText(kJson, L"a.json");
    Click(viewer.Header(), viewer.HeaderCenter(0));
    EXPECT_EQ(viewer.Cell(0, 0), L"3");
}

TEST(TreeItems, AreListedUpToAPointWithAWordOnTheRest) {
    UiHost host({.ini = "tree-outline=0\n"});
    std::string json = "[0";
    for (int i = 1; i < 20'003; ++i) {
        json += ",0";
    }
    const Viewer viewer = host.OpenText(json + "]", L"a.json");
    const HWND tree = viewer.Tree();
    EXPECT_EQ(SendMessageW(tree, TVM_GETCOUNT, 0, 0), 1 + 20'000 + 1);
    HTREEITEM last = Next(tree, TVGN_CHILD, Root(tree));
    while (const HTREEITEM next = Next(tree, TVGN_NEXT, last)) {
        last = next;
    }
    EXPECT_EQ(Read(tree, last).label, L"\x2026 3 more");
    Select(tree, last);
    EXPECT_EQ(viewer.Status(3), L" Rows: 20003/20003") << "no node of its own";
}

TEST(TreeItems, AreNotAllOpenedByTheControlsOwnKey) {
    UiHost host({.ini = "tree-outline=0\n"});
    const Viewer viewer = host.OpenText(kJson, L"a.json");
    const HWND tree = viewer.Tree();
    Select(tree, Root(tree));
    const LRESULT before = SendMessageW(tree, TVM_GETCOUNT, 0, 0);
    SetFocus(tree);
    Key(VK_MULTIPLY);
    PumpIdle();
    EXPECT_EQ(SendMessageW(tree, TVM_GETCOUNT, 0, 0), before);
}

TEST(RecordTable, IsFiltered) {
    UiHost host({.ini = "tree-outline=0\n"});
    const Viewer viewer = host.OpenText(kJson, L"a.json");
    SetWindowTextW(GetDlgItem(viewer.Window(), 2000), L">1");
    PumpIdle();
    EXPECT_EQ(viewer.Status(3), L" Rows: 2/3");
}

TEST(RecordTable, HasItsHeaderWhateverTheSettingForDelimitedText) {
    UiHost host({.ini = "tree-outline=0\nheader-row=0\n"});
    const Viewer viewer = host.OpenText(kJson, L"a.json");
    EXPECT_EQ(viewer.Headers(), (Texts{L"a", L"b"}));
    EXPECT_EQ(viewer.RowCount(), 3);
    Choose(viewer, 5004);
    EXPECT_EQ(viewer.RowCount(), 3);
}

TEST(RecordTable, HasGridLinesUnlessTheyAreOff) {
    for (const bool off : {false, true}) {
        UiHost host({.ini = off ? "disable-grid-lines=1\n" : ""});
        const Viewer viewer = host.OpenText(kJson, L"a.json");
        const auto lines = [&] {
            return (SendMessageW(viewer.Grid(), LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0) &
                    LVS_EX_GRIDLINES) != 0;
        };
        const RECT outline = viewer.CellRect(0, 0);
        EXPECT_FALSE(lines());
        Choose(viewer, 5050);
        EXPECT_EQ(lines(), !off);
        const RECT table = viewer.CellRect(0, 0);
        EXPECT_LT(table.bottom - table.top, outline.bottom - outline.top);
        Choose(viewer, 5050);
        EXPECT_FALSE(lines());
    }
}

TEST(RecordTable, KeepsItsNodeWhenReadInAnotherEncoding) {
    UiHost host({.ini = "tree-outline=0\n"});
    const Viewer viewer = host.OpenText(kJson, L"a.json");
    Select(viewer.Tree(), Next(viewer.Tree(), TVGN_CHILD, Root(viewer.Tree())));
    Choose(viewer, 5010);
    EXPECT_EQ(viewer.Status(0), L" ANSI");
    EXPECT_EQ(Selected(viewer.Tree()), L"meta");
    EXPECT_EQ(viewer.Row(0), (Texts{L"v", L"1"}));
}

TEST(StatusOfOutlines, NamesTheRowAndHintsAtRecords) {
    UiHost host;
    const Viewer viewer =
        host.OpenText("[{\"a\":1},{\"a\":2},{\"a\":3},{\"a\":4},{\"a\":5}]", L"a.json");
    EXPECT_EQ(viewer.Status(4), L"   5 records: Ctrl+T for table");
    Click(viewer.Grid(), viewer.CellCenter(0, 0));
    EXPECT_EQ(viewer.StatusTexts(),
              (Texts{L" UTF-8", L" JSON outline", L" <<root>>", L" Rows: 11/11",
                     L" 1:1   5 records: Ctrl+T for table"}));
    const Viewer lines = host.OpenText("{\"a\":1}\n{\"a\":2}\n", L"a.jsonl");
    EXPECT_EQ(lines.Status(1), L" JSONL outline");
    const Viewer broken = host.OpenText("<a></b></a>", L"a.xml");
    EXPECT_EQ(broken.Status(1), L" XML outline (malformed)");
}

TEST(CopyNode, WritesJsonXmlAndThePath) {
    UiHost host;
    const Viewer viewer = host.OpenText("{\"a\": {\"b\": [1, 2]}}", L"a.json");
    Click(viewer.Grid(), viewer.CellCenter(2, 1));
    Choose(viewer, 5062);
    EXPECT_EQ(ClipboardText(), L"$.a.b");
    Choose(viewer, 5060);
    EXPECT_EQ(ClipboardText(), L"{\r\n  \"b\": [\r\n    1,\r\n    2\r\n  ]\r\n}");
    Choose(viewer, 5061);
    EXPECT_NE(ClipboardText().find(L"<b>"), std::wstring::npos);
}

TEST(CopyNode, TakesAllSelectedRowsOfXml) {
    UiHost host;
    const Viewer viewer = host.OpenText(kXml, L"a.xml");
    for (int row = 0; row < viewer.RowCount(); ++row) {
        if (viewer.Cell(row, 0) == L"list" || viewer.Cell(row, 0) == L"other") {
            Click(viewer.Grid(), viewer.CellCenter(row, 1), {VK_CONTROL});
        }
    }
    Click(viewer.Grid(), viewer.CellCenter(1, 1), {VK_CONTROL});
    Choose(viewer, 5062);
    EXPECT_EQ(ClipboardText(), L"/root/list\r\n/root/other");
}

TEST(CopyNode, PutsAnEmptyTextWhereThereIsNothing) {
    UiHost host;
    const Viewer viewer = host.OpenText(kXml, L"a.xml");
    Click(viewer.Grid(), viewer.CellCenter(1, 1));
    Choose(viewer, 5062);
    EXPECT_NE(ClipboardText(), L"");
    Click(viewer.Grid(), viewer.CellCenter(0, 1));
    Choose(viewer, 5062);
    EXPECT_EQ(ClipboardText(), L"");
}

TEST(CopyNode, DoesNothingOutsideTheOutline) {
    UiHost host;
    const Viewer viewer = host.OpenText(kJson, L"a.json");
    Choose(viewer, 5062);
    EXPECT_EQ(ClipboardText(), L"$");
    Choose(viewer, 5050);
    Choose(viewer, 5060);
    EXPECT_EQ(ClipboardText(), L"$");
}

}  // namespace

}  // namespace rl::test
