#include "view/logic/cell_plan.h"

#include <gtest/gtest.h>

namespace rl {
namespace {

constexpr ThemeColors kTheme{.text = 1,
                             .back = 2,
                             .back2 = 3,
                             .currentCellBack = 8,
                             .selectionText = 9,
                             .selectionBack = 10,
                             .lineNumberText = 11,
                             .lineNumberBack = 12};

CellInput Number(std::wstring_view text) {
    return {.rect = {100, 40, 80, 20},
            .text = text,
            .decimalAlign = true,
            .numericColumn = true,
            .integerWidth = 30,
            .gridLines = false};
}

TEST(ColorsFor, StripesTheRows) {
    EXPECT_EQ(ColorsFor(kTheme, {.viewRow = 0}), (CellColors{1, 2}));
    EXPECT_EQ(ColorsFor(kTheme, {.viewRow = 1}), (CellColors{1, 3}));
    EXPECT_EQ(ColorsFor(kTheme, {.viewRow = 2}), (CellColors{1, 2}));
}

TEST(ColorsFor, GivesASelectedRowOneColourAndItsCurrentCellAnother) {
    EXPECT_EQ(ColorsFor(kTheme, {.viewRow = 1, .selected = true}), (CellColors{9, 10}));
    EXPECT_EQ(ColorsFor(kTheme, {.viewRow = 1, .selected = true, .current = true}),
              (CellColors{9, 8}));
}

TEST(ColorsFor, DoesNotMarkTheCurrentCellOfAnUnselectedRow) {
    EXPECT_EQ(ColorsFor(kTheme, {.viewRow = 1, .current = true}), (CellColors{1, 3}));
}

TEST(PlanCell, LeavesATextToTheListView) {
    const CellPlan plan = PlanCell(kTheme, Number(L"abc"));

    EXPECT_FALSE(plan.custom);
    EXPECT_EQ(plan.colors, (CellColors{1, 2}));
    EXPECT_EQ(plan.pieceCount, 0);
}

TEST(PlanCell, LeavesNumbersToTheListViewWhereNothingIsAligned) {
    CellInput cell = Number(L"1.5");
    cell.decimalAlign = false;
    EXPECT_FALSE(PlanCell(kTheme, cell).custom);
    cell = Number(L"1.5");
    cell.numericColumn = false;
    EXPECT_FALSE(PlanCell(kTheme, cell).custom);
}

TEST(PlanCell, LinesSeparatorsUpAtTheWidestIntegerPart) {
    const CellPlan plan = PlanCell(kTheme, Number(L" -1,25"));

    ASSERT_TRUE(plan.custom);
    EXPECT_EQ(plan.fill, (Rect{100, 40, 80, 20}));
    EXPECT_EQ(plan.clip, (Rect{101, 41, 78, 18}));
    ASSERT_EQ(plan.pieceCount, 2);
    EXPECT_EQ(plan.pieces[0], (TextPiece{L"-1", {106, 40, 30, 20}, TextAlign::Right, false}));
    EXPECT_EQ(plan.pieces[1], (TextPiece{L",25", {136, 40, 38, 20}, TextAlign::Left, true}));
}

TEST(PlanCell, EndsAWholeNumberWhereTheSeparatorsStand) {
    const CellPlan plan = PlanCell(kTheme, Number(L"3"));

    ASSERT_EQ(plan.pieceCount, 1);
    EXPECT_EQ(plan.pieces[0], (TextPiece{L"3", {106, 40, 30, 20}, TextAlign::Right, false}));
}

TEST(PlanCell, GivesAFractionNoRoomInANarrowColumn) {
    CellInput cell = Number(L"1.5");
    cell.integerWidth = 90;

    EXPECT_EQ(PlanCell(kTheme, cell).pieces[1].rect.width, 0);
    cell.rect.width = 0;
    EXPECT_EQ(PlanCell(kTheme, cell).clip.width, 0);
}

TEST(PlanCell, ScalesThePadding) {
    CellInput cell = Number(L"1.5");
    cell.dpi = 192;

    EXPECT_EQ(PlanCell(kTheme, cell).pieces[0].rect.left, 112);
    EXPECT_EQ(PlanCell(kTheme, cell).pieces[1].rect.Right(), 168);
}

TEST(PlanCell, WritesALineNumberAtTheRightInItsOwnColours) {
    const CellPlan plan = PlanCell(kTheme, {.rect = {0, 40, 60, 20},
                                            .text = L"7",
                                            .state = {.viewRow = 6, .selected = true},
                                            .lineNumber = true,
                                            .gridLines = false});

    ASSERT_TRUE(plan.custom);
    EXPECT_EQ(plan.colors, (CellColors{11, 12}));
    ASSERT_EQ(plan.pieceCount, 1);
    EXPECT_EQ(plan.pieces[0], (TextPiece{L"7", {6, 40, 48, 20}, TextAlign::Right, false}));
    EXPECT_TRUE(plan.lines[0].IsEmpty());
}

TEST(PlanCell, CentresTextsAboveTheGridLine) {
    CellInput cell = Number(L"1.5");
    cell.gridLines = true;

    EXPECT_EQ(PlanCell(kTheme, cell).pieces[0].rect, (Rect{106, 40, 30, 19}));
    EXPECT_EQ(PlanCell(kTheme, cell).pieces[1].rect.height, 19);
}

TEST(PlanCell, DrawsGridLinesOnlyInCellsItPaints) {
    CellInput cell = Number(L"3");
    cell.gridLines = true;
    const CellPlan plan = PlanCell(kTheme, cell);

    EXPECT_EQ(plan.lines[0], (Rect{179, 40, 1, 20}));
    EXPECT_EQ(plan.lines[1], (Rect{100, 59, 80, 1}));
    cell.text = L"abc";
    EXPECT_TRUE(PlanCell(kTheme, cell).lines[0].IsEmpty());
}

TEST(NeedsSubitemPainting, IsAskedForOnlyWhereCellsDiffer) {
    EXPECT_FALSE(NeedsSubitemPainting(false, false, false, false));
    EXPECT_TRUE(NeedsSubitemPainting(true, false, false, false));
    EXPECT_TRUE(NeedsSubitemPainting(false, true, false, false));
    EXPECT_TRUE(NeedsSubitemPainting(false, false, true, false));
    EXPECT_TRUE(NeedsSubitemPainting(false, false, false, true));
}

TEST(PlanHeader, KeepsSixPixelsAtBothSides) {
    const HeaderPlan plan = PlanHeader({50, 0, 100, 24}, false, 96);

    EXPECT_EQ(plan.text, (Rect{56, 0, 88, 24}));
    EXPECT_TRUE(plan.mark.IsEmpty());
}

TEST(PlanHeader, KeepsRoomForTheMarkOfTheSortColumn) {
    const HeaderPlan plan = PlanHeader({50, 0, 100, 24}, true, 96);

    EXPECT_EQ(plan.mark.Right(), 144);
    EXPECT_FALSE(plan.mark.IsEmpty());
    EXPECT_LE(plan.text.Right(), plan.mark.left);
    EXPECT_GE(PlanHeader({50, 0, 4, 24}, true, 96).text.width, 0);
}

}  // namespace
}  // namespace rl
