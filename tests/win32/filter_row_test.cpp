// The filter boxes above a grid on a real window.
#include "view/filter_row.h"

#include <gtest/gtest.h>

#include <optional>

#include "tests/win32/grid_window.h"
#include "view/control.h"

namespace rl::test {
namespace {

CountingTable::Rows Table(int columns) {
    CountingTable::Rows rows(3);
    for (int column = 0; column < columns; ++column) {
        rows[0].push_back(L"column " + std::to_wstring(column));
        rows[1].push_back(L"cell");
        rows[2].push_back(L"cell of some length " + std::to_wstring(column % 3));
    }
    return rows;
}

/// The row above a grid, its commands routed as the viewer does it.
class FilterWindow final : public IFilterRowListener {
public:
    explicit FilterWindow(int columns, GridWindowOptions options = {},
                          FilterAlign align = FilterAlign::Center,
                          const std::wstring& hint = L"Filter")
        : window(Table(columns), options) {
        row.Attach(window.frame, *this);
        row.SetLook({.normal = window.fonts.normal.Get(),
                     .italic = window.fonts.italic.Get(),
                     .dpi = options.dpi,
                     .text = 0x0000FF,
                     .back = 0x0000FF});  // so the hint's mixture is known
        row.Rebuild(window.grid, align, hint);
        window.onCommand = [this](WPARAM wparam, LPARAM lparam) {
            return row.OnCommand(wparam, lparam);
        };
        Layout();
    }

    /// As in a viewer: the boxes do not draw where the grid is.
    void Layout() {
        constexpr int kHeight = 24;
        const Rect client = ClientRect(window.frame);
        MoveWindow(window.grid.Window(), 0, kHeight, client.width, client.height - kHeight, FALSE);
        row.Layout(window.grid, {0, 0, client.width, kHeight});
        window.Paint();
    }
    void Type(int gridColumn, const std::wstring& text) {
        for (const wchar_t unit : text) {
            SendMessageW(row.BoxOf(gridColumn), WM_CHAR, unit, 1);
        }
    }
    [[nodiscard]] Rect Place(int gridColumn) {
        RECT box{};
        GetWindowRect(row.BoxOf(gridColumn), &box);
        MapWindowPoints(nullptr, window.frame, reinterpret_cast<POINT*>(&box), 2);
        return FromRECT(box);
    }
    [[nodiscard]] bool IsShown(int gridColumn) {
        return IsWindowVisible(row.BoxOf(gridColumn)) != FALSE;
    }
    [[nodiscard]] int HintPixels(int gridColumn) {
        const HWND box = row.BoxOf(gridColumn);
        RECT area{};  // without the frame, and the control's own that is painted over
        RECT whole{};
        GetClientRect(box, &area);
        GetWindowRect(box, &whole);
        MapWindowPoints(nullptr, box, reinterpret_cast<POINT*>(&whole), 2);
        IntersectRect(&area, &area, &whole);
        InflateRect(&area, -1, -1);
        return GridWindow::CountPixels(box, area, 0x0000FF);
    }

    void OnFilterTyped(int gridColumn) override { typed.push_back(gridColumn); }
    Answer OnFilterBoxMessage(HWND, const Message& in) override {
        return onMessage ? onMessage(in) : std::nullopt;
    }
    std::shared_ptr<void> KeepAlive() override { return nullptr; }

    GridWindow window;
    FilterRow row;
    std::vector<int> typed;
    std::function<Answer(const Message&)> onMessage;
};

TEST(FilterRow, HasABoxForEachDataColumn) {
    FilterWindow filters(3);

    EXPECT_EQ(filters.row.SlotCount(), 3);
    EXPECT_EQ(GetDlgCtrlID(filters.row.BoxOf(0)), 2000);
    EXPECT_EQ(GetDlgCtrlID(filters.row.BoxOf(2)), 2002);
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(filters.row.BoxOf(0), GWL_STYLE));
    // WS_BORDER is not looked for: the control may take it over and paint the border itself.
    EXPECT_EQ(style & (WS_TABSTOP | ES_AUTOHSCROLL | ES_CENTER | ES_RIGHT),
              static_cast<DWORD>(WS_TABSTOP | ES_AUTOHSCROLL | ES_CENTER));
}

TEST(FilterRow, LeavesTheSlotOfTheLineNumbersEmpty) {
    FilterWindow filters(3, {.style = {.lineNumbers = true}});

    EXPECT_EQ(filters.row.SlotCount(), 4);
    EXPECT_EQ(filters.row.BoxOf(0), nullptr);
    EXPECT_EQ(GetDlgCtrlID(filters.row.BoxOf(3)), 2003);
}

TEST(FilterRow, AlignsTheText) {
    FilterWindow left(1, {}, FilterAlign::Left);
    FilterWindow right(1, {}, FilterAlign::Right);

    EXPECT_EQ(GetWindowLongPtrW(left.row.BoxOf(0), GWL_STYLE) & (ES_CENTER | ES_RIGHT), ES_LEFT);
    EXPECT_EQ(GetWindowLongPtrW(right.row.BoxOf(0), GWL_STYLE) & (ES_CENTER | ES_RIGHT), ES_RIGHT);
}

TEST(FilterRow, FollowsTheColumns) {
    FilterWindow filters(3);
    const int first = filters.window.grid.ColumnWidth(0);
    const int second = filters.window.grid.ColumnWidth(1);
    EXPECT_EQ(filters.Place(0), (Rect{0, 0, first, 24}));
    EXPECT_EQ(filters.Place(1), (Rect{first, 0, second, 24}));

    filters.window.Send(LVM_SETCOLUMNWIDTH, 0, first + 30);
    filters.Layout();
    EXPECT_EQ(filters.Place(0), (Rect{0, 0, first + 30, 24}));
    EXPECT_EQ(filters.Place(1), (Rect{first + 30, 0, second, 24}));
}

TEST(FilterRow, HidesTheBoxOfAHiddenColumn) {
    FilterWindow filters(3);
    filters.window.grid.HideColumn(1);
    filters.Layout();
    EXPECT_TRUE(filters.IsShown(0));
    EXPECT_FALSE(filters.IsShown(1));

    filters.window.grid.ShowAllColumns();
    filters.Layout();
    EXPECT_TRUE(filters.IsShown(1));
}

TEST(FilterRow, ClipsBoxesToTheGridWhenItScrolls) {
    FilterWindow filters(12, {.width = 400});
    filters.window.Send(LVM_SCROLL, 20, 0);
    filters.Layout();

    EXPECT_EQ(filters.Place(0), (Rect{0, 0, filters.window.grid.ColumnWidth(0) - 20, 24}));
    EXPECT_FALSE(filters.IsShown(11));
    filters.window.Send(LVM_SCROLL, 100000, 0);
    filters.Layout();
    EXPECT_FALSE(filters.IsShown(0));
    EXPECT_EQ(filters.Place(11).Right(), ClientRect(filters.window.grid.Window()).width);
}

TEST(FilterRow, HidesAllBoxesWithoutARow) {
    FilterWindow filters(2);
    filters.row.Layout(filters.window.grid, {});
    EXPECT_FALSE(filters.IsShown(0));
    EXPECT_FALSE(filters.IsShown(1));

    filters.Layout();
    EXPECT_TRUE(filters.IsShown(0));
}

TEST(FilterRow, TellsWhatIsTyped) {
    FilterWindow filters(3, {.style = {.lineNumbers = true}});
    filters.Type(3, L"ab");

    EXPECT_EQ(filters.typed, (std::vector<int>{3, 3}));  // the last box works too
    EXPECT_EQ(filters.row.TextOf(3), L"ab");
    EXPECT_EQ(filters.row.TextOf(0), L"");
}

TEST(FilterRow, HoldsTheFiltersInForceWhenRebuilt) {
    FilterWindow filters(3);
    filters.window.view.SetFilter(1, L"cell");
    filters.row.Rebuild(filters.window.grid, FilterAlign::Left, L"");

    EXPECT_EQ(filters.row.TextOf(1), L"cell");
    EXPECT_TRUE(filters.typed.empty());  // no one has typed
}

TEST(FilterRow, ShowsTheHintInEmptyBoxesOnly) {
    FilterWindow filters(3);
    EXPECT_GT(filters.HintPixels(0), 10);

    filters.Type(0, L"x");
    filters.window.Paint();
    EXPECT_EQ(filters.HintPixels(0), 0);
    EXPECT_GT(filters.HintPixels(1), 10);
}

TEST(FilterRow, ShowsNoHintThatDoesNotFit) {
    FilterWindow filters(2);
    filters.window.Send(LVM_SETCOLUMNWIDTH, 0, 30);
    filters.Layout();
    EXPECT_EQ(filters.HintPixels(0), 0);
    EXPECT_GT(filters.HintPixels(1), 10);
}

TEST(FilterRow, ShowsNoHintWhenItIsEmpty) {
    FilterWindow filters(2, {}, FilterAlign::Center, L"");
    EXPECT_EQ(filters.HintPixels(0), 0);
}

TEST(FilterRow, ShowsNoHintInTheBoxThatHasTheFocus) {
    FilterWindow filters(2);
    SetForegroundWindow(filters.window.frame);
    SetFocus(filters.row.BoxOf(0));
    if (GetFocus() != filters.row.BoxOf(0)) {
        GTEST_SKIP() << "no focus to be had";
    }
    filters.window.Paint();
    EXPECT_EQ(filters.HintPixels(0), 0);

    SetFocus(filters.window.grid.Window());
    filters.window.Paint();
    EXPECT_GT(filters.HintPixels(0), 10);
}

TEST(FilterRow, GivesMessagesToItsListenerFirst) {
    FilterWindow filters(2);
    filters.onMessage = [](const Message& in) {
        return in.id == WM_CHAR ? Answer(0) : std::nullopt;
    };
    filters.Type(0, L"x");
    EXPECT_EQ(filters.row.TextOf(0), L"");
}

TEST(FilterRow, StandsBehindTheGridInTheOrderOfTab) {
    FilterWindow filters(3);
    EXPECT_EQ(GetNextDlgTabItem(filters.window.frame, filters.window.grid.Window(), FALSE),
              filters.row.BoxOf(0));
    EXPECT_EQ(GetNextDlgTabItem(filters.window.frame, filters.row.BoxOf(0), FALSE),
              filters.row.BoxOf(1));
    EXPECT_EQ(GetNextDlgTabItem(filters.window.frame, filters.row.BoxOf(1), FALSE),
              filters.row.BoxOf(2));
}

TEST(FilterRow, MakesBoxesOfFarColumnsOnlyWhileInView) {
    FilterWindow filters(1100, {.width = 600});
    EXPECT_NE(filters.row.BoxOf(999), nullptr);
    EXPECT_EQ(filters.row.BoxOf(1000), nullptr);

    filters.window.grid.BringIntoView({0, 1099});
    filters.Layout();
    ASSERT_NE(filters.row.BoxOf(1099), nullptr);
    EXPECT_EQ(filters.row.BoxOf(1000), nullptr);
    filters.Type(1099, L"deep");

    filters.window.grid.BringIntoView({0, 0});
    filters.Layout();
    EXPECT_EQ(filters.row.BoxOf(1099), nullptr);
    EXPECT_EQ(filters.row.TextOf(1099), L"deep");

    filters.window.grid.BringIntoView({0, 1099});
    filters.Layout();
    EXPECT_EQ(WindowText(filters.row.BoxOf(1099)), L"deep");
    EXPECT_EQ(filters.typed.size(), 4u);  // making a box again is no typing
}

TEST(FilterRow, KnowsItsBoxesByTheirWindows) {
    FilterWindow filters(2);
    EXPECT_EQ(filters.row.ColumnOf(filters.row.BoxOf(1)), 1);
    EXPECT_EQ(filters.row.ColumnOf(filters.window.grid.Window()), -1);
    EXPECT_EQ(filters.row.ColumnOf(nullptr), -1);
    EXPECT_FALSE(filters.row.OnCommand(MAKEWPARAM(2001, EN_CHANGE), 0));
}

}  // namespace
}  // namespace rl::test
