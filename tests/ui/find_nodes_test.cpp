// The host's search in JSON and XML: it goes on from its last hit, whatever was opened, closed or
// selected since.
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

using tools::kBackwards;
using tools::kFindFirst;
using tools::kSearchHit;
using tools::kSearchMiss;

constexpr int kToggleOutline = 5050;
constexpr int kCollapseAll = 5052;

constexpr const char* kJson =
    R"({"a": {"b": {"k1": "hit", "k2": "hit hit"}, "k3": "hit"}, "z": "hit"})";
constexpr const char* kXml =
    "<r><a><b k1=\"hit\"><k2>hit hit</k2></b><k3>hit</k3></a><z>hit</z></r>";

/// An outline in which the same text stands five times, three times below a node that closes.
class FindInOutline : public testing::TestWithParam<std::pair<const char*, const wchar_t*>> {
protected:
    FindInOutline() : viewer_(host_.OpenText(GetParam().first, GetParam().second)) {}

    int Search(int flags) { return host_.Module().Search(viewer_.Window(), L"hit", flags); }

    /// The name of the one selected row, which is also the current one.
    [[nodiscard]] std::wstring At() const {
        const std::vector<int> rows = viewer_.SelectedRows();
        return rows.size() == 1 && rows.front() == viewer_.FocusedRow()
                   ? viewer_.Cell(rows.front(), 0)
                   : L"?";
    }

    [[nodiscard]] int RowOf(std::wstring_view name) const {
        for (int row = 0; row < viewer_.RowCount(); ++row) {
            if (viewer_.Cell(row, 0).ends_with(name)) {
                return row;
            }
        }
        return -1;
    }

    /// Closes a node with the key for it.
    void Collapse(std::wstring_view name) {
        const int row = RowOf(name);
        ASSERT_GE(row, 0);
        POINT at = viewer_.CellCenter(row, 0);
        at.x = viewer_.CellRect(row, 0).right - 4;
        Click(viewer_.Grid(), at);
        Key(VK_SUBTRACT);
    }

    /// Goes to a hit by searching on until the row with that name is reached.
    void GoTo(std::wstring_view name, int flags = 0) {
        ASSERT_EQ(Search(kFindFirst | flags), kSearchHit);
        for (int i = 0; i < 10 && !At().ends_with(name); ++i) {
            ASSERT_EQ(Search(flags), kSearchHit);
        }
        ASSERT_TRUE(At().ends_with(name));
    }

    UiHost host_{{.ini = "outline-expand-max=1\n"}};
    Viewer viewer_;
};

void ExpectAt(const std::wstring& at, std::wstring_view name) {
    EXPECT_TRUE(at.ends_with(name))
        << testing::PrintToString(at) << " and not " << testing::PrintToString(std::wstring(name));
}

TEST_P(FindInOutline, GoesOnBelowTheHitThatWasHidden) {
    GoTo(L"k1");
    Collapse(L"b");
    ASSERT_EQ(RowOf(L"k2"), -1);
    EXPECT_EQ(Search(0), kSearchHit);
    ExpectAt(At(), L"k2");
    EXPECT_EQ(Search(0), kSearchHit);  // the second one in the same value
    ExpectAt(At(), L"k2");
    EXPECT_EQ(Search(0), kSearchHit);
    ExpectAt(At(), L"k3");
}

TEST_P(FindInOutline, GoesBackAboveTheHitThatWasHidden) {
    GoTo(L"k3", kBackwards);
    Collapse(L"a");
    ASSERT_EQ(RowOf(L"k3"), -1);
    EXPECT_EQ(Search(kBackwards), kSearchHit);
    ExpectAt(At(), L"k2");
}

TEST_P(FindInOutline, TurnsAroundAtAHitThatWasHidden) {
    GoTo(L"k3");
    Collapse(L"a");
    EXPECT_EQ(Search(kBackwards), kSearchHit);  // the nearest start before its end: itself
    ExpectAt(At(), L"k3");
    EXPECT_EQ(Search(kBackwards), kSearchHit);
    ExpectAt(At(), L"k2");
}

TEST_P(FindInOutline, GoesOnWithinTheValueThatWasHidden) {
    GoTo(L"k2");
    Collapse(L"a");
    EXPECT_EQ(Search(0), kSearchHit);
    ExpectAt(At(), L"k2");
    EXPECT_EQ(Search(0), kSearchHit);
    ExpectAt(At(), L"k3");
}

TEST_P(FindInOutline, GoesOnAfterEverythingWasClosed) {
    GoTo(L"k2");
    ASSERT_EQ(Search(0), kSearchHit);
    Choose(viewer_, kCollapseAll);
    ASSERT_EQ(RowOf(L"k2"), -1);
    EXPECT_EQ(Search(0), kSearchHit);
    ExpectAt(At(), L"k3");
    EXPECT_EQ(Search(0), kSearchHit);
    ExpectAt(At(), L"z");
    EXPECT_EQ(Search(0), kSearchMiss);
}

TEST_P(FindInOutline, GoesOnInRowsThatMovedUp) {
    GoTo(L"k3");
    Collapse(L"b");  // above the hit, which stays listed
    EXPECT_EQ(Search(0), kSearchHit);
    ExpectAt(At(), L"z");
    EXPECT_EQ(Search(0), kSearchMiss);
    EXPECT_EQ(TheFakes().beeps.size(), 1u);
    ExpectAt(At(), L"z");
}

TEST_P(FindInOutline, BeginsAnewWhereAFilterTookTheHitAway) {
    GoTo(L"k3");
    SetWindowTextW(GetDlgItem(viewer_.Window(), 2000), L"k2");
    PumpIdle();
    ASSERT_EQ(RowOf(L"k3"), -1);
    EXPECT_EQ(Search(0), kSearchHit);
    ExpectAt(At(), L"k2");
    EXPECT_EQ(Search(0), kSearchHit);
    ExpectAt(At(), L"k2");
    EXPECT_EQ(Search(0), kSearchMiss);
}

TEST_P(FindInOutline, ShowsAndDescribesTheHitItRevealed) {
    GoTo(L"k1");
    Collapse(L"b");
    ASSERT_EQ(Search(0), kSearchHit);
    EXPECT_EQ(viewer_.PaneText(), L"hit hit");
    EXPECT_GE(viewer_.FocusedRow(), viewer_.TopRow());
    EXPECT_EQ(viewer_.Status(4), L" " + std::to_wstring(viewer_.FocusedRow() + 1) + L":2");
}

INSTANTIATE_TEST_SUITE_P(JsonAndXml, FindInOutline,
                         testing::Values(std::pair(kJson, L"a.json"), std::pair(kXml, L"a.xml")));

// --- The tree layout, where the grid shows one node at a time.

constexpr const char* kTables =
    R"({"one": [{"n": "hit 1"}, {"n": "hit 2"}, {"n": "hit 3"}, {"n": "no"}],)"
    R"( "two": [{"m": "no", "n": "hit 4"}]})";

HTREEITEM Next(HWND tree, UINT relation, HTREEITEM item) {
    return reinterpret_cast<HTREEITEM>(
        SendMessageW(tree, TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
}

class FindInTree : public testing::Test {
protected:
    FindInTree() : viewer_(host_.OpenText(kTables, L"a.json")) {}

    int Search(int flags) { return host_.Module().Search(viewer_.Window(), L"hit", flags); }

    /// The text of the current cell, as the pane shows it.
    [[nodiscard]] std::wstring At() const { return viewer_.PaneText(); }

    /// Selects the root's child with that number; -1 for the root.
    void Select(int child) {
        const HWND tree = viewer_.Tree();
        HTREEITEM item = Next(tree, TVGN_ROOT, nullptr);
        if (child >= 0) {
            SendMessageW(tree, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(item));
            item = Next(tree, TVGN_CHILD, item);
        }
        for (; child > 0; --child) {
            item = Next(tree, TVGN_NEXT, item);
        }
        ASSERT_NE(item, nullptr);
        SendMessageW(tree, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(item));
        PumpIdle();
    }

    UiHost host_{{.ini = "tree-outline=0\n"}};
    Viewer viewer_;
};

TEST_F(FindInTree, BeginsAnewInTheTableOfAnotherNode) {
    ASSERT_EQ(Search(kFindFirst), kSearchHit);
    ASSERT_EQ(Search(0), kSearchHit);
    ASSERT_EQ(Search(0), kSearchHit);
    ASSERT_EQ(At(), L"hit 3");
    Select(1);
    ASSERT_EQ(viewer_.Headers(), (Texts{L"m", L"n"}));
    EXPECT_EQ(Search(0), kSearchHit);
    EXPECT_EQ(At(), L"hit 4");
    EXPECT_EQ(viewer_.Status(4), L" 1:2");
    EXPECT_EQ(Search(0), kSearchMiss);
}

TEST_F(FindInTree, BeginsAnewBackwardsInTheTableOfAnotherNode) {
    Select(1);
    ASSERT_EQ(Search(kFindFirst | kBackwards), kSearchHit);
    ASSERT_EQ(At(), L"hit 4");
    Select(0);
    EXPECT_EQ(Search(kBackwards), kSearchHit);
    EXPECT_EQ(At(), L"hit 3");
    EXPECT_EQ(Search(kBackwards), kSearchHit);
    EXPECT_EQ(At(), L"hit 2");
}

TEST_F(FindInTree, BeginsAnewWhereTheTableIsShorterThanTheLastHit) {
    ASSERT_EQ(Search(kFindFirst | kBackwards), kSearchHit);
    ASSERT_EQ(At(), L"hit 3");
    Select(1);
    EXPECT_EQ(Search(kBackwards), kSearchHit);
    EXPECT_EQ(At(), L"hit 4");
    EXPECT_EQ(Search(kBackwards), kSearchMiss);
    EXPECT_EQ(At(), L"hit 4");
}

TEST_F(FindInTree, BeginsAnewAfterTheOutlineCame) {
    ASSERT_EQ(Search(kFindFirst), kSearchHit);
    ASSERT_EQ(Search(0), kSearchHit);
    Choose(viewer_, kToggleOutline);
    EXPECT_EQ(Search(0), kSearchHit);
    EXPECT_EQ(At(), L"hit 1");
    Choose(viewer_, kToggleOutline);
    EXPECT_EQ(Search(0), kSearchHit);
    EXPECT_EQ(At(), L"hit 1");
}

}  // namespace

}  // namespace rl::test
