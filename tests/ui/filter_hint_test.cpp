// How filter boxes look: their hint, its alignment, their font; and when a typed filter waits.
#include <gtest/gtest.h>

#include "tests/ui/support/fakes.h"
#include "tests/ui/support/pump.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

/// White on black: the hint stands in a grey of its own.
constexpr const char* kColors = "filter-text-color=16777215\nfilter-back-color=0\n";
constexpr COLORREF kHintColor = 0x7F7F7F;
constexpr const char* kTable = "a rather long column header,b\nx,y\n";
constexpr UINT_PTR kFilterTimer = 2;

HWND Box(const Viewer& viewer, int column) {
    return GetDlgItem(viewer.Window(), 2000 + column);
}

/// Pixels of the hint between two fractions of the box's width.
int HintPixels(HWND box, double from = 0, double to = 1) {
    RECT area{};
    GetClientRect(box, &area);
    const RECT part{static_cast<LONG>(area.right * from), area.top,
                    static_cast<LONG>(area.right * to), area.bottom};
    return Viewer::CountColor(box, part, kHintColor);
}

TEST(FilterHint, StandsInAnEmptyBoxWithoutTheFocus) {
    UiHost host({.ini = kColors});
    const Viewer viewer = host.OpenText(kTable);
    EXPECT_GT(HintPixels(Box(viewer, 0)), 5);

    SetFocus(Box(viewer, 0));
    PumpIdle();
    EXPECT_EQ(HintPixels(Box(viewer, 0)), 0);

    SetFocus(viewer.Grid());
    PumpIdle();
    EXPECT_GT(HintPixels(Box(viewer, 0)), 5);
}

TEST(FilterHint, MakesRoomForText) {
    UiHost host({.ini = kColors});
    const Viewer viewer = host.OpenText(kTable);

    SendMessageW(Box(viewer, 0), WM_CHAR, L'|', 1);
    PumpIdle();

    EXPECT_EQ(HintPixels(Box(viewer, 0), 0, 0.4), 0);
    EXPECT_EQ(HintPixels(Box(viewer, 0), 0.6, 1), 0);
}

TEST(FilterHint, IsNotThereWhereItDoesNotFit) {
    UiHost host(
        {.ini = std::string(kColors) + "filter-hint=A hint much wider than a narrow box\n"});
    const Viewer viewer = host.OpenText(kTable);

    EXPECT_EQ(HintPixels(Box(viewer, 1)), 0);
}

TEST(FilterHint, IsNotThereWhenTheSettingIsEmpty) {
    UiHost host({.ini = std::string(kColors) + "filter-hint=\n"});
    const Viewer viewer = host.OpenText(kTable);

    EXPECT_EQ(HintPixels(Box(viewer, 0)), 0);
}

struct Alignment {
    const char* ini;
    LONG_PTR style;
    double from, to;  // where the hint stands, as fractions of the width
};

class FilterAlignment : public testing::TestWithParam<Alignment> {};

TEST_P(FilterAlignment, HoldsForTextAndHint) {
    UiHost host({.ini = kColors + std::string(GetParam().ini)});
    const Viewer viewer = host.OpenText(kTable);
    const HWND box = Box(viewer, 0);

    EXPECT_EQ(GetWindowLongPtrW(box, GWL_STYLE) & (ES_LEFT | ES_CENTER | ES_RIGHT),
              GetParam().style);
    const int all = HintPixels(box);
    EXPECT_GT(all, 5);
    EXPECT_EQ(HintPixels(box, GetParam().from, GetParam().to), all);
}

INSTANTIATE_TEST_SUITE_P(All, FilterAlignment,
                         testing::Values(Alignment{"filter-align=-1\n", ES_LEFT, 0, 0.5},
                                         Alignment{"filter-align=0\n", ES_CENTER, 0.25, 0.75},
                                         Alignment{"filter-align=1\n", ES_RIGHT, 0.5, 1},
                                         Alignment{"filter-align=7\n", ES_CENTER, 0.25, 0.75},
                                         Alignment{"", ES_CENTER, 0.25, 0.75}));

TEST(FilterDelay, BeginsAnewWithEachKey) {
    std::string rows = "a,b\n";
    for (int i = 0; i < 250'000; ++i) {
        rows += std::to_string(i) + ",x\n";
    }
    UiHost host;
    const Viewer viewer = host.OpenText(rows);
    TheFakes().timersStandStill = true;
    TheFakes().timers.clear();

    for (const wchar_t unit : std::wstring_view(L"=77")) {
        SendMessageW(Box(viewer, 0), WM_CHAR, unit, 1);
    }

    ASSERT_EQ(TheFakes().timers.size(), 3u);
    for (const StartedTimer& timer : TheFakes().timers) {
        EXPECT_EQ(timer.id, kFilterTimer);  // the same one: it starts again
        EXPECT_EQ(timer.elapse, 250u);
    }
    EXPECT_EQ(viewer.RowCount(), 250'000);
    SendMessageW(viewer.Window(), WM_TIMER, kFilterTimer, 0);
    EXPECT_EQ(viewer.RowCount(), 1);
    EXPECT_EQ(viewer.Cell(0, 0), L"77");
}

TEST(FilterDelay, IsNoneBelowAQuarterOfAMillionRows) {
    UiHost host;
    const Viewer viewer = host.OpenText(kTable);
    TheFakes().timers.clear();

    SendMessageW(Box(viewer, 0), WM_CHAR, L'z', 1);

    EXPECT_EQ(viewer.RowCount(), 0);
    EXPECT_TRUE(TheFakes().timers.empty());
}

TEST(FilterPlaces, FollowTheDpi) {
    UiHost host({.ini = "font-size=16\n"});
    const Viewer viewer = host.OpenText(kTable);

    TheFakes().dpi = 144;
    SendMessageW(viewer.Window(), WM_DPICHANGED_AFTERPARENT, 0, 0);
    PumpIdle();

    const RECT first = viewer.Place(Box(viewer, 0));
    const RECT second = viewer.Place(Box(viewer, 1));
    EXPECT_EQ(first.bottom - first.top, 36);
    EXPECT_EQ(first.bottom, viewer.Place(viewer.Grid()).top);
    EXPECT_EQ(first.right - first.left, viewer.Width(0));
    EXPECT_EQ(second.left, first.right);
    EXPECT_EQ(second.right - second.left, viewer.Width(1));
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(Box(viewer, 0), WM_GETFONT, 0, 0)), sizeof font,
               &font);
    EXPECT_EQ(font.lfHeight, -32);
}

TEST(FilterPlaces, AreTakenOneByOneWhenTheSystemCannotMoveAllAtOnce) {
    UiHost host;
    TheFakes().filterBatchFails = true;

    const Viewer viewer = host.OpenText(kTable);

    for (const int column : {0, 1}) {
        const RECT box = viewer.Place(Box(viewer, column));
        EXPECT_TRUE(IsWindowVisible(Box(viewer, column)));
        EXPECT_EQ(box.right - box.left, viewer.Width(column));
        EXPECT_EQ(box.bottom, viewer.Place(viewer.Grid()).top);
    }
}

}  // namespace

}  // namespace rl::test
