// The five themes, judged by the colours of areas on the screen.
#include <gtest/gtest.h>

#include "tests/ui/support/fakes.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/menus.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

constexpr const char* kTable = "name,city\nAnn,Rome\nBob,Oslo\nCem,Bern\n";

/// What a theme looks like where nothing is written.
struct Look {
    int command;
    const wchar_t* name;
    const char* ini;
    COLORREF back;
    COLORREF back2;
    COLORREF header;
    COLORREF current;
    COLORREF selection;
    COLORREF accent;
};

constexpr Look kLooks[] = {
    {5100, L"Light", "theme=Light\n", 16777215, 16381942, 15131360, 16244422, 10377728, 13924352},
    {5101, L"Paper", "theme=Paper\n", 15661309, 14872822, 13492457, 12244706, 1989260, 1469104},
    {5102, L"Dark", "theme=Dark\n", 1973790, 2499877, 3157293, 8542259, 7884582, 16761420},
    {5103, L"Midnight", "theme=Midnight\n", 2758415, 3546902, 3877150, 15426341, 14175773,
     16301368},
    {5104, L"Solarized Dark", "theme=Solarized Dark\n", 3549952, 4339207, 4339207, 7234602, 9858591,
     35253},
};

/// A point of the cell right of its text.
POINT BlankOf(const Viewer& viewer, int row, int column) {
    const RECT cell = viewer.CellRect(row, column);
    return {cell.right - 6, (cell.top + cell.bottom) / 2};
}

COLORREF CellColor(const Viewer& viewer, int row, int column) {
    return Viewer::ColorAt(viewer.Grid(), BlankOf(viewer, row, column));
}

class Theme : public testing::TestWithParam<Look> {
protected:
    Theme() : host_({.ini = GetParam().ini}), viewer_(host_.OpenText(kTable)) {}

    UiHost host_;
    Viewer viewer_;
};

TEST_P(Theme, StripesTheRows) {
    EXPECT_EQ(CellColor(viewer_, 0, 0), GetParam().back);
    EXPECT_EQ(CellColor(viewer_, 1, 0), GetParam().back2);
    EXPECT_EQ(CellColor(viewer_, 2, 1), GetParam().back);
}

TEST_P(Theme, FillsTheGridBelowTheRows) {
    EXPECT_EQ(Viewer::ColorAt(viewer_.Grid(), {500, 300}), GetParam().back);
}

TEST_P(Theme, ColoursTheHeader) {
    RECT area{};
    GetClientRect(viewer_.Header(), &area);
    EXPECT_GT(Viewer::CountColor(viewer_.Header(), {4, 4, 5, 12}, GetParam().header), 0);
}

TEST_P(Theme, SetsTheCurrentCellApartFromItsSelectedRow) {
    Click(viewer_.Grid(), viewer_.CellCenter(1, 1));

    EXPECT_EQ(CellColor(viewer_, 1, 0), GetParam().selection);
    EXPECT_EQ(CellColor(viewer_, 1, 1), GetParam().current);
    EXPECT_EQ(CellColor(viewer_, 2, 1), GetParam().back);
}

TEST_P(Theme, UnderlinesTheCurrentTabInTheAccentColour) {
    const POINT center = viewer_.TabCenter(0);

    const int marked = Viewer::CountColor(viewer_.Tabs(), {center.x - 48, 0, center.x + 48, 26},
                                          GetParam().accent);

    EXPECT_NEAR(marked, (96 - 20) * 3, 24);  // the bar, 10 pixels in from both sides, 3 high
}

TEST_P(Theme, ColoursTheValuePane) {
    EXPECT_EQ(Viewer::ColorAt(viewer_.Pane(), {300, 40}), GetParam().back2);
}

TEST_P(Theme, ComesFromTheMenuAtOnce) {
    UiHost host({.ini = GetParam().command == 5100 ? "theme=Dark\n" : "theme=Light\n"});
    const Viewer viewer = host.OpenText(kTable);
    ASSERT_NE(CellColor(viewer, 0, 0), GetParam().back);

    Choose(viewer, GetParam().command);

    EXPECT_EQ(CellColor(viewer, 0, 0), GetParam().back);
    EXPECT_EQ(CellColor(viewer, 1, 0), GetParam().back2);
    EXPECT_EQ(Viewer::ColorAt(viewer.Pane(), {300, 40}), GetParam().back2);
    EXPECT_EQ(host.IniValue(L"theme"), GetParam().name);
}

INSTANTIATE_TEST_SUITE_P(All, Theme, testing::ValuesIn(kLooks));

TEST(Colours, OfLightThemesTakeTheLightKeyOnly) {
    UiHost host({.ini = "theme=Light\nback-color=255\nback-color-dark=65280\n"});
    const Viewer viewer = host.OpenText(kTable);

    EXPECT_EQ(CellColor(viewer, 0, 0), RGB(255, 0, 0));
}

TEST(Colours, OfDarkThemesTakeTheDarkKeyOnly) {
    UiHost host({.ini = "theme=Midnight\nback-color=255\nback-color-dark=65280\n"});
    const Viewer viewer = host.OpenText(kTable);

    EXPECT_EQ(CellColor(viewer, 0, 0), RGB(0, 255, 0));
}

TEST(Colours, FollowTheDarkFlagWhenTheThemeIsUnknown) {
    UiHost host({.ini = "theme=Sepia\ndark-theme=1\n"});
    const Viewer viewer = host.OpenText(kTable);

    EXPECT_EQ(CellColor(viewer, 0, 0), 1973790u);
}

TEST(Colours, FindTheThemeInAnyLetterCase) {
    UiHost host({.ini = "theme=solarized dark\n"});
    const Viewer viewer = host.OpenText(kTable);

    EXPECT_EQ(CellColor(viewer, 0, 0), 3549952u);
}

TEST(Colours, ComeFromTheMenuThoughTheSettingsCannotBeWritten) {
    UiHost host({.ini = "theme=Light\n"});
    const Viewer viewer = host.OpenText(kTable);
    TheFakes().settingsFail = true;

    Choose(viewer, 5102);

    EXPECT_EQ(CellColor(viewer, 0, 0), 1973790u);
    EXPECT_EQ(host.IniValue(L"theme"), L"Light");
}

TEST(Colours, OfTextCanBeSeen) {
    UiHost host({.ini = "text-color=255\nback-color=16777215\n"});
    const Viewer viewer = host.OpenText("name,city\nMMMMMM,x\n");

    EXPECT_GT(Viewer::CountColor(viewer.Grid(), viewer.CellRect(0, 0), RGB(255, 0, 0)), 20);
}

TEST(Colours, OfTheLineNumbersAreTheirOwn) {
    UiHost host({.ini = "show-line-numbers=1\nline-number-back-color=65280\n"});
    const Viewer viewer = host.OpenText(kTable);
    const RECT number = viewer.CellRect(1, 0);

    EXPECT_EQ(Viewer::ColorAt(viewer.Grid(), {number.left + 2, (number.top + number.bottom) / 2}),
              RGB(0, 255, 0));
}

TEST(Colours, FillTheGridBelowItsRows) {
    UiHost host({.ini = "back-color=65280\n"});
    const Viewer viewer = host.OpenText(kTable);

    EXPECT_GT(Viewer::CountColor(viewer.Grid(), {300, 200, 400, 260}, RGB(0, 255, 0)), 5000);
}

/// The visual style that the control got last; "?" when it got none.
std::wstring StyleOf(int id) {
    std::wstring style = L"?";
    for (const StyledWindow& window : TheFakes().styles) {
        style = window.id == id ? window.style : style;
    }
    return style;
}

TEST(VisualStyle, IsDarkOnEveryScrollingControlOfADarkTheme) {
    UiHost host({.ini = "theme=Dark\n"});
    ASSERT_TRUE(host.OpenText(kTable).IsLoaded());

    EXPECT_EQ(StyleOf(1001), L"DarkMode_Explorer");
    EXPECT_EQ(StyleOf(1006), L"DarkMode_Explorer");
    EXPECT_EQ(StyleOf(1007), L"DarkMode_Explorer");
}

TEST(VisualStyle, IsTheOrdinaryOneOtherwise) {
    UiHost host({.ini = "theme=Paper\n"});
    ASSERT_TRUE(host.OpenText(kTable).IsLoaded());

    EXPECT_EQ(StyleOf(1001), L"Explorer");
    EXPECT_EQ(StyleOf(1006), L"Explorer");
    EXPECT_EQ(StyleOf(1007), L"Explorer");
}

TEST(VisualStyle, IsFlatOnTheHeader) {
    UiHost host({.ini = "theme=Dark\n"});
    const Viewer viewer = host.OpenText(kTable);

    EXPECT_EQ(StyleOf(GetDlgCtrlID(viewer.Header())), L"");
}

}  // namespace

}  // namespace rl::test
