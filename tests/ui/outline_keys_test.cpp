// The keys and the mouse of an outline, as the user presses them.
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
    R"({"a": {"b": {"c": {"d": 1}}}, "list": [10, 20], "text": "one\r\ntwo"})";
constexpr const char* kXml =
    "<?xml version=\"1.0\"?><!--top--><root id=\"7\"><item name=\"x\"><sub><deep/></sub></item>"
    "<!--note--></root>";

/// A file open with only its first two levels.
struct Outline {
    explicit Outline(const std::string& bytes = kJson, const std::wstring& name = L"a.json",
                     const std::string& ini = {})
        : host({.ini = "outline-expand-max=1\n" + ini}), viewer(host.OpenText(bytes, name)) {}

    void Press(WORD key, Modifiers held = {}) const { Key(key, held); }
    /// The names of all rows, joined by blanks.
    [[nodiscard]] std::wstring Names() const {
        std::wstring all;
        for (int row = 0; row < viewer.RowCount(); ++row) {
            all += (row > 0 ? L" " : L"") + viewer.Cell(row, 0);
        }
        return all;
    }
    [[nodiscard]] std::wstring Current() const {
        const std::vector<int> rows = viewer.SelectedRows();
        return rows.size() == 1 ? viewer.Cell(rows.front(), 0) : L"?";
    }
    void GoTo(const std::wstring& name) const {
        for (int row = 0; row < viewer.RowCount(); ++row) {
            if (viewer.Cell(row, 0) == name) {
                POINT at = viewer.CellCenter(row, 0);
                at.x = viewer.CellRect(row, 0).right - 4;
                Click(viewer.Grid(), at);
                return;
            }
        }
        ADD_FAILURE() << "no such row";
    }
    /// The middle of a row's open/close box.
    [[nodiscard]] POINT Box(int row, int depth) const {
        const RECT cell = viewer.CellRect(row, 0);
        return {cell.left + 10 + 16 * depth, (cell.top + cell.bottom) / 2};
    }

    UiHost host;
    Viewer viewer;
};

TEST(OutlineOpens, WithNamesAndValuesAndTheFirstTwoLevels) {
    const Outline it;
    EXPECT_EQ(it.viewer.Headers(), (Texts{L"Name", L"Value"}));
    EXPECT_EQ(it.Names(), L"<<root>> a b list [0] [1] text");
    EXPECT_EQ(it.viewer.Cell(4, 1), L"10");
    EXPECT_EQ(it.viewer.Cell(6, 1), L"one two");
}

TEST(OutlineOpens, AsFarAsTheSettingLetsIt) {
    std::string zeros = "0";
    for (int i = 1; i < 600; ++i) {
        zeros += ",0";
    }
    const std::string deep = "[[[" + zeros + "]]]";
    UiHost usual;
    EXPECT_EQ(usual.OpenText(deep, L"a.json").RowCount(), 3);  // 600 are far more than 120
    UiHost unlimited({.ini = "outline-expand-max=0\n"});
    EXPECT_EQ(unlimited.OpenText(deep, L"a.json").RowCount(), 603);
}

TEST(OutlineOpens, WithTheFirstRowSelectedOrTheRootElement) {
    EXPECT_EQ(Outline().Current(), L"<<root>>");
    const Outline xml(kXml, L"a.xml");
    EXPECT_EQ(xml.Current(), L"root");
}

TEST(OutlineOpens, WithItsGridLinesOffAndHigherRows) {
    const Outline it;
    const auto style = SendMessageW(it.viewer.Grid(), LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0);
    EXPECT_EQ(style & LVS_EX_GRIDLINES, 0);
    UiHost host;
    const Viewer table = host.OpenText("a\n1\n2\n");
    const RECT plain = table.CellRect(0, 0);
    const RECT high = it.viewer.CellRect(0, 0);
    EXPECT_GT(high.bottom - high.top, plain.bottom - plain.top);
    EXPECT_NE(SendMessageW(table.Grid(), LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0) & LVS_EX_GRIDLINES, 0);
}

TEST(OutlineOpens, WithAValueColumnThatFillsTheGrid) {
    Outline it;
    const auto client = [&] {
        RECT area{};
        GetClientRect(it.viewer.Grid(), &area);
        return area.right;
    };
    EXPECT_EQ(it.viewer.Width(0) + it.viewer.Width(1), client() - 4);
    it.host.Resize(1200, 500);
    PumpIdle();
    EXPECT_EQ(it.viewer.Width(0) + it.viewer.Width(1), client() - 4);
}

TEST(OutlineKeys, LeftClosesThenGoesToTheParentAndStaysAtTheRoot) {
    const Outline it;
    it.GoTo(L"[1]");
    it.Press(VK_LEFT);
    EXPECT_EQ(it.Current(), L"list");
    it.Press(VK_LEFT);
    EXPECT_EQ(it.Names(), L"<<root>> a b list text");
    EXPECT_EQ(it.Current(), L"list");
    it.Press(VK_LEFT);
    EXPECT_EQ(it.Current(), L"<<root>>");
    it.Press(VK_LEFT);
    EXPECT_EQ(it.Names(), L"<<root>>");
    it.Press(VK_LEFT);
    EXPECT_EQ(it.Current(), L"<<root>>");
}

TEST(OutlineKeys, LeftAtTheRootIsUsedUpInAnyColumn) {
    const Outline it;
    Click(it.viewer.Grid(), it.viewer.CellCenter(0, 1));
    ASSERT_EQ(it.viewer.Status(4).substr(0, 4), L" 1:2");
    it.Press(VK_LEFT);
    EXPECT_EQ(it.Names(), L"<<root>>");
    it.Press(VK_LEFT);
    EXPECT_EQ(it.Current(), L"<<root>>");
    EXPECT_EQ(it.viewer.Status(4).substr(0, 4), L" 1:2");
}

TEST(OutlineKeys, RightOnAnOpenRowThatIsTheLastOneIsUsedUp) {
    const Outline it;
    SetWindowTextW(GetDlgItem(it.viewer.Window(), 2000), L"list");
    PumpIdle();
    ASSERT_EQ(it.Names(), L"<<root>> list");
    it.GoTo(L"list");
    ASSERT_EQ(it.viewer.Status(4).substr(0, 4), L" 2:1");
    it.Press(VK_RIGHT);
    EXPECT_EQ(it.Names(), L"<<root>> list");
    EXPECT_EQ(it.Current(), L"list");
    EXPECT_EQ(it.viewer.Status(4).substr(0, 4), L" 2:1");
}

TEST(OutlineKeys, RightOpensThenGoesIn) {
    const Outline it;
    it.GoTo(L"b");
    it.Press(VK_RIGHT);
    EXPECT_EQ(it.Names(), L"<<root>> a b c list [0] [1] text");
    EXPECT_EQ(it.Current(), L"b");
    it.Press(VK_RIGHT);
    EXPECT_EQ(it.Current(), L"c");
}

TEST(OutlineKeys, RightOnALeafMovesAlongTheRow) {
    const Outline it;
    it.GoTo(L"text");
    EXPECT_EQ(it.viewer.Status(4).substr(0, 4), L" 7:1");
    it.Press(VK_RIGHT);
    EXPECT_EQ(it.viewer.Status(4).substr(0, 4), L" 7:2");
}

TEST(OutlineKeys, PlusOpensAndMinusClosesOnBothPads) {
    for (const auto& [plus, minus] :
         {std::pair<WORD, WORD>{VK_ADD, VK_SUBTRACT}, {VK_OEM_PLUS, VK_OEM_MINUS}}) {
        const Outline it;
        const std::wstring before = it.Names();
        it.GoTo(L"b");
        it.Press(minus);
        EXPECT_EQ(it.Names(), before);
        it.Press(plus);
        EXPECT_EQ(it.Names(), L"<<root>> a b c list [0] [1] text");
        it.Press(plus);
        EXPECT_EQ(it.Names(), L"<<root>> a b c list [0] [1] text");
        EXPECT_EQ(it.Current(), L"b");
        it.Press(minus);
        EXPECT_EQ(it.Names(), before);
    }
}

TEST(OutlineKeys, MinusOnALeafIsUsedUpAndChangesNothing) {
    const Outline it;
    const std::wstring before = it.Names();
    it.GoTo(L"text");
    it.Press(VK_SUBTRACT);
    it.Press(VK_ADD);
    EXPECT_EQ(it.Names(), before);
    EXPECT_EQ(it.Current(), L"text");
}

TEST(OutlineKeys, StarOpensEverything) {
    const Outline it;
    it.GoTo(L"list");
    it.Press(VK_MULTIPLY);
    EXPECT_EQ(it.Names(), L"<<root>> a b c d list [0] [1] text");
    EXPECT_EQ(it.Current(), L"list");
}

TEST(OutlineKeys, ShiftAndStarOpenTheSubtreeAlone) {
    const Outline it;
    it.GoTo(L"list");
    it.Press(VK_LEFT);
    it.GoTo(L"b");
    it.Press(VK_MULTIPLY, {VK_SHIFT});
    EXPECT_EQ(it.Names(), L"<<root>> a b c d list text");
    EXPECT_EQ(it.Current(), L"b");
}

TEST(OutlineKeys, SlashClosesEverythingButTheRoot) {
    const Outline it;
    it.GoTo(L"list");
    it.Press(VK_DIVIDE);
    EXPECT_EQ(it.Names(), L"<<root>> a list text");
    EXPECT_EQ(it.Current(), L"list");
    it.Press(VK_MULTIPLY);
    it.GoTo(L"d");
    it.Press(VK_DIVIDE);
    EXPECT_EQ(it.Current(), L"<<root>>");
}

TEST(OutlineKeys, CtrlKeepsPlusAndMinusForTheFont) {
    const Outline it;
    const std::wstring before = it.Names();
    it.GoTo(L"b");
    it.Press(VK_ADD, {VK_CONTROL});
    EXPECT_EQ(it.Names(), before);
    EXPECT_EQ(it.host.IniValue(L"font-size"), L"17");
}

TEST(OutlineKeys, KeepTheColumn) {
    const Outline it("{\"a\": {\"x\": {\"y\": 1}}, \"b\": 2}", L"a.json", "show-line-numbers=1\n");
    Click(it.viewer.Grid(), it.viewer.CellCenter(2, 2));
    EXPECT_EQ(it.viewer.Status(4).substr(0, 4), L" 3:3");
    it.Press(VK_ADD);
    EXPECT_EQ(it.viewer.RowCount(), 5);
    EXPECT_EQ(it.viewer.Status(4).substr(0, 4), L" 3:3");
}

TEST(OutlineKeys, FindARowByTheBeginningOfItsName) {
    const Outline it;
    Click(it.viewer.Grid(), it.viewer.CellCenter(0, 1));
    Key('T');
    EXPECT_EQ(it.Current(), L"text");
}

TEST(OutlineMouse, AClickOnTheBoxOpensAndCloses) {
    const Outline it;
    Click(it.viewer.Grid(), it.Box(2, 2));
    EXPECT_EQ(it.Names(), L"<<root>> a b c list [0] [1] text");
    EXPECT_EQ(it.Current(), L"b");
    PumpFor(600);  // no double click
    Click(it.viewer.Grid(), it.Box(2, 2));
    EXPECT_EQ(it.Names(), L"<<root>> a b list [0] [1] text");
}

TEST(OutlineMouse, AClickBesideTheBoxCountsUpToTwoPixels) {
    const Outline it;
    POINT at = it.Box(2, 2);
    at.x -= 5 + 3;
    Click(it.viewer.Grid(), at);
    EXPECT_EQ(it.viewer.RowCount(), 7);
    PumpFor(600);
    at.x += 1;
    Click(it.viewer.Grid(), at);
    EXPECT_EQ(it.viewer.RowCount(), 8);
}

TEST(OutlineMouse, TheBoxMovesWithTheLineNumbers) {
    const Outline it(kJson, L"a.json", "show-line-numbers=1\n");
    POINT at = it.Box(2, 2);
    at.x += it.viewer.Width(0);
    Click(it.viewer.Grid(), at);
    EXPECT_EQ(it.viewer.RowCount(), 8);
}

TEST(OutlineMouse, ADoubleClickOpensAndClosesARow) {
    const Outline it;
    POINT at = it.viewer.CellCenter(2, 1);
    DoubleClick(it.viewer.Grid(), at);
    EXPECT_EQ(it.viewer.RowCount(), 8);
}

TEST(OutlineMouse, ADoubleClickInEditModeEditsAValueThatCanBe) {
    const Outline it(kJson, L"a.json", "start-mode=edit\n");
    DoubleClick(it.viewer.Grid(), it.viewer.CellCenter(4, 1));
    EXPECT_NE(FindWindowExW(it.viewer.Grid(), nullptr, L"Edit", nullptr), nullptr);
    Key(VK_ESCAPE);
    PumpFor(600);
    DoubleClick(it.viewer.Grid(), it.viewer.CellCenter(2, 1));
    EXPECT_EQ(it.viewer.RowCount(), 8);
}

TEST(OutlineMouse, TheBoxUnderTheMouseIsFilled) {
    const Outline it;
    const POINT box = it.Box(2, 2);
    const RECT area{box.x - 4, box.y - 4, box.x + 5, box.y + 5};
    MoveTo(it.viewer.Grid(), {400, box.y});
    const COLORREF corner = Viewer::ColorAt(it.viewer.Grid(), {area.left, area.top});
    MoveTo(it.viewer.Grid(), box);
    EXPECT_NE(Viewer::ColorAt(it.viewer.Grid(), {area.left, area.top}), corner);
    MoveTo(it.viewer.Grid(), {400, box.y});
    EXPECT_EQ(Viewer::ColorAt(it.viewer.Grid(), {area.left, area.top}), corner);
}

TEST(OutlineCommands, DoWhatTheKeysDo) {
    const Outline it;
    Choose(it.viewer, 5051);
    EXPECT_EQ(it.Names(), L"<<root>> a b c d list [0] [1] text");
    Choose(it.viewer, 5052);
    EXPECT_EQ(it.Names(), L"<<root>> a list text");
    it.GoTo(L"a");
    Choose(it.viewer, 5053);
    EXPECT_EQ(it.Names(), L"<<root>> a b c d list text");
    EXPECT_EQ(it.Current(), L"a");
}

TEST(OutlineCommands, AreTickedAndGreyedByTheRow) {
    const Outline it(kXml, L"a.xml");
    WatchMenus(it.host);
    const auto menu = [&](const wchar_t* name) {
        it.GoTo(name);
        SendMessageW(it.viewer.Window(), WM_CONTEXTMENU, 0, 0);
    };
    menu(L"item");
    EXPECT_TRUE(SeenCommand(5050).checked);
    EXPECT_TRUE(SeenCommand(5053).enabled);
    EXPECT_EQ(SeenCommand(5062).label, L"XPath");
    menu(L"id");
    EXPECT_FALSE(SeenCommand(5053).enabled);
}

TEST(OutlineFilter, ListsMatchesWithTheirAncestorsAndGivesTheOldOpeningBack) {
    const Outline it;
    const std::wstring before = it.Names();
    const HWND box = GetDlgItem(it.viewer.Window(), 2000);
    SetFocus(box);
    Type(L"d");
    EXPECT_EQ(it.Names(), L"<<root>> a b c d");
    Key(VK_BACK);
    EXPECT_EQ(it.Names(), before);
}

TEST(OutlineFilter, TakesBothColumnsTogether) {
    const Outline it;
    SetWindowTextW(GetDlgItem(it.viewer.Window(), 2001), L"=20");
    PumpIdle();
    EXPECT_EQ(it.Names(), L"<<root>> list [1]");
    SetWindowTextW(GetDlgItem(it.viewer.Window(), 2000), L"[0]");
    PumpIdle();
    EXPECT_EQ(it.viewer.RowCount(), 0);
}

TEST(OutlineFilter, KeepsItsTextsWhenLineNumbersCome) {
    const Outline it;
    SetWindowTextW(GetDlgItem(it.viewer.Window(), 2001), L"=20");
    PumpIdle();
    Choose(it.viewer, 5006);
    EXPECT_EQ(TextOf(GetDlgItem(it.viewer.Window(), 2002)), L"=20");
    EXPECT_EQ(it.viewer.RowCount(), 3);
}

TEST(OutlineFind, OpensTheWayToWhatItFinds) {
    const Outline it;
    EXPECT_EQ(it.host.Module().Search(it.viewer.Window(), L"D", 1), 0);
    EXPECT_EQ(it.Current(), L"d");
    EXPECT_EQ(it.Names(), L"<<root>> a b c d list [0] [1] text");
}

TEST(OutlinePane, ShowsAndCopiesTheValueAsItIs) {
    const Outline it;
    Click(it.viewer.Grid(), it.viewer.CellCenter(6, 1));
    EXPECT_EQ(it.viewer.PaneText(), L"one\r\ntwo");
    Choose(it.viewer, 5000);
    EXPECT_EQ(ClipboardText(), L"one\r\ntwo");
    Click(it.viewer.Grid(), it.viewer.CellCenter(3, 0));
    EXPECT_EQ(it.viewer.PaneText(), L"list");
}

TEST(OutlineReload, KeepsTheNodeInAnotherEncoding) {
    const Outline it;
    it.GoTo(L"b");
    it.Press(VK_ADD);
    it.Press(VK_RIGHT);
    EXPECT_EQ(it.Current(), L"c");
    Choose(it.viewer, 5010);
    EXPECT_EQ(it.viewer.Status(0), L" ANSI");
    EXPECT_EQ(it.Current(), L"c");
}

TEST(OutlineHeader, DoesNotSort) {
    const Outline it;
    const std::wstring before = it.Names();
    Click(it.viewer.Header(), it.viewer.HeaderCenter(0));
    EXPECT_EQ(it.Names(), before);
}

}  // namespace

}  // namespace rl::test
