// What the mouse and typed characters do to an outline in the grid on a real window.
#include <gtest/gtest.h>

#include "tests/win32/outline_window.h"

namespace rl::test {
namespace {

TEST(GridOutlineInput, LightsTheBoxUnderTheMouse) {
    OutlineWindow shown;
    const RECT box = shown.Box(2);
    const COLORREF lit = MixColors(kThemeColors.back, kThemeColors.accent, 40);
    ASSERT_EQ(shown.Count(box, lit), 0);

    shown.MoveTo(box.left + 1, box.top + 1);
    EXPECT_GT(shown.Count(box, lit), 40);
    EXPECT_EQ(shown.Pixel(box.left, box.top), MixColors(kThemeColors.back, kThemeColors.text, 220));
    EXPECT_EQ(shown.Count(shown.Box(0), lit), 0);

    shown.MoveTo(box.left + 40, box.top + 1);
    EXPECT_EQ(shown.Count(box, lit), 0);
}

TEST(GridOutlineInput, PutsTheLightOutWhenTheMouseLeaves) {
    OutlineWindow shown;
    const RECT box = shown.Box(2);
    const COLORREF lit = MixColors(kThemeColors.back, kThemeColors.accent, 40);
    // Not through the queue: the system would find the mouse elsewhere and say so at once.
    shown.window.Send(WM_MOUSEMOVE, 0, MAKELPARAM(box.left + 1, box.top + 1));
    UpdateWindow(shown.TheGrid().Window());
    ASSERT_GT(shown.Count(box, lit), 40);

    shown.window.Send(WM_MOUSELEAVE);
    shown.window.Paint();
    EXPECT_EQ(shown.Count(box, lit), 0);
}

TEST(GridOutlineInput, LooksForTheMouseAnewWhenRowsMove) {
    OutlineWindow shown;
    const RECT box = shown.Box(2);
    shown.window.Send(WM_MOUSEMOVE, 0, MAKELPARAM(box.left + 1, box.top + 1));
    shown.Toggle(2);  // the mouse itself was never there
    UpdateWindow(shown.TheGrid().Window());
    EXPECT_EQ(shown.Count(box, MixColors(kThemeColors.back, kThemeColors.accent, 40)), 0);

    POINT mouse{box.left + 5, box.top + 5};
    ClientToScreen(shown.TheGrid().Window(), &mouse);
    SetCursorPos(mouse.x, mouse.y);
    shown.window.Send(WM_MOUSEMOVE, 0, MAKELPARAM(box.left + 5, box.top + 5));
    shown.Toggle(2);
    UpdateWindow(shown.TheGrid().Window());
    EXPECT_GT(shown.Count(box, MixColors(kThemeColors.back, kThemeColors.accent, 40)), 40);
    SetCursorPos(0, 0);
}

TEST(GridOutlineInput, TellsAClickOnABoxAndSelectsNoCell) {
    OutlineWindow shown;
    const RECT box = shown.Box(2);

    shown.ClickAt(box.left + 5, box.top + 5);
    EXPECT_EQ(shown.window.expanders, std::vector<int>{2});
    EXPECT_EQ(shown.window.pressed, GridCell{});
    EXPECT_EQ(shown.window.clicked, GridCell{});
    EXPECT_EQ(shown.TheGrid().Current().gridColumn, -1);

    shown.ClickAt(box.left + 5, box.top + 5, WM_LBUTTONDBLCLK);
    EXPECT_EQ(shown.window.expanders, (std::vector<int>{2, 2}));
}

TEST(GridOutlineInput, TakesAClickTwoPixelsBesideTheBox) {
    OutlineWindow shown;
    const RECT box = shown.Box(2);

    shown.ClickAt(box.left - 2, box.top - 2);
    shown.ClickAt(box.right + 1, box.bottom + 1);
    EXPECT_EQ(shown.window.expanders, (std::vector<int>{2, 2}));
    shown.ClickAt(box.left - 3, box.top);
    shown.ClickAt(box.right + 2, box.top);
    EXPECT_EQ(shown.window.expanders.size(), 2u);
    EXPECT_EQ(shown.window.clicked, (GridCell{2, 0}));
}

TEST(GridOutlineInput, FindsTheBoxBehindTheLineNumbers) {
    OutlineWindow shown({.window = {.style = {.lineNumbers = true}, .colors = kThemeColors}});
    const RECT box = shown.Box(2);
    ASSERT_GT(box.left, shown.TheGrid().ColumnWidth(0));

    shown.ClickAt(box.left + 5, box.top + 5);
    EXPECT_EQ(shown.window.expanders, std::vector<int>{2});
    shown.ClickAt(box.left + 5 - shown.TheGrid().ColumnWidth(0), box.top + 5);
    EXPECT_EQ(shown.window.expanders.size(), 1u);
}

TEST(GridOutlineInput, TakesNoBoxWhereARowHasNone) {
    OutlineWindow shown;
    const RECT box = shown.Box(1);  // a string

    shown.ClickAt(box.left + 5, box.top + 5);
    EXPECT_TRUE(shown.window.expanders.empty());
    EXPECT_EQ(shown.window.clicked, (GridCell{1, 0}));
}

TEST(GridOutlineInput, LeavesARightClickOnABoxToTheMenu) {
    OutlineWindow shown;
    const RECT box = shown.Box(2);

    shown.ClickAt(box.left + 5, box.top + 5, WM_RBUTTONDOWN, WM_RBUTTONUP);
    EXPECT_TRUE(shown.window.expanders.empty());
    EXPECT_EQ(shown.window.clicked, (GridCell{2, 0}));
}

TEST(GridOutlineInput, SwallowsTheCharactersOfItsKeys) {
    OutlineWindow shown({.json = LR"({"*a": 1, "+b": 2, "-c": 3, "/d": 4, "e": 5})"});
    shown.TheGrid().GoTo({0, 0});
    for (const wchar_t typed : {L'*', L'+', L'-', L'/'}) {
        shown.window.Send(WM_CHAR, typed, 1);
        EXPECT_EQ(shown.TheGrid().Current().viewRow, 0) << static_cast<int>(typed);
    }
    shown.window.Send(WM_CHAR, L'e', 1);
    EXPECT_EQ(shown.TheGrid().Current().viewRow, 5);
}

TEST(GridOutlineInput, FindsTypedNamesWhateverColumnIsCurrent) {
    OutlineWindow shown({.json = LR"({"a": "x", "b": "c", "c": "x"})"});
    shown.TheGrid().GoTo({0, 1});
    shown.window.Send(WM_CHAR, L'c', 1);
    EXPECT_EQ(shown.TheGrid().Current().viewRow, 3);
}

TEST(GridOutlineInput, LeavesTablesTheirCharacters) {
    GridWindow table({{L"h"}, {L"x"}, {L"*y"}}, {.colors = kThemeColors});
    table.grid.GoTo({0, 0});
    table.Send(WM_CHAR, L'*', 1);
    EXPECT_EQ(table.grid.Current().viewRow, 1);
}

}  // namespace
}  // namespace rl::test
