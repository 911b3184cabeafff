#include "view/logic/outline_plan.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <limits>
#include <tuple>
#include <utility>

namespace rl {
namespace {

constexpr ThemeColors kTheme{.text = 0x000000,
                             .back = 0xFFFFFF,
                             .back2 = 0xF0F0F0,
                             .currentCellBack = 0x00FF00,
                             .selectionText = 0xFFFF00,
                             .selectionBack = 0x800000,
                             .accent = 0x0000FF};
constexpr SourceColors kSyntax{.tag = 0x11,
                               .attribute = 0x22,
                               .string = 0x33,
                               .number = 0x44,
                               .keyword = 0x55,
                               .comment = 0x66,
                               .punctuation = 0x77};

OutlineCell Cell(int depth = 0) {
    return {.rect = {100, 40, 400, 24},
            .depth = depth,
            .rowType = OutlineRowType::JsonObject,
            .hasChildren = true,
            .nameWidth = 50};
}

OutlinePlan Plan(const OutlineCell& cell) {
    return PlanOutlineCell(kTheme, kSyntax, cell);
}

TEST(OutlinePlan, PutsTheBoxInTheSlotAfterTheAncestors) {
    EXPECT_EQ(Plan(Cell(0)).box.rect, (Rect{105, 47, 10, 10}));
    EXPECT_EQ(Plan(Cell(3)).box.rect, (Rect{105 + 48, 47, 10, 10}));
}

TEST(OutlinePlan, GivesALeafNoBoxAndNoStrokes) {
    OutlineCell leaf = Cell(2);
    leaf.hasChildren = false;
    const OutlinePlan plan = Plan(leaf);

    EXPECT_TRUE(plan.box.rect.IsEmpty());
    EXPECT_TRUE(plan.horizontalStroke.IsEmpty());
    EXPECT_TRUE(plan.verticalStroke.IsEmpty());
    EXPECT_EQ(plan.mark.rect, Plan(Cell(2)).mark.rect);  // but all else stands where it stood
    EXPECT_EQ(plan.name.rect, Plan(Cell(2)).name.rect);
}

TEST(OutlinePlan, CrossesTheStrokesOfAClosedRowOnly) {
    OutlineCell cell = Cell();
    EXPECT_EQ(Plan(cell).horizontalStroke, (Rect{107, 51, 6, 1}));
    EXPECT_EQ(Plan(cell).verticalStroke, (Rect{109, 49, 1, 6}));

    cell.expanded = true;
    EXPECT_EQ(Plan(cell).horizontalStroke, (Rect{107, 51, 6, 1}));
    EXPECT_TRUE(Plan(cell).verticalStroke.IsEmpty());
}

TEST(OutlinePlan, KeepsStrokesTwoPixelsFromTheBoxAtEveryScale) {
    for (const int dpi : {96, 120, 144, 168, 192, 288}) {
        SCOPED_TRACE(dpi);
        OutlineCell cell = Cell(1);
        cell.dpi = dpi;
        const OutlinePlan plan = Plan(cell);
        const int margin = Scale(2, dpi);
        EXPECT_EQ(plan.horizontalStroke.left - plan.box.rect.left, margin);
        EXPECT_EQ(plan.box.rect.Right() - plan.horizontalStroke.Right(), margin);
        EXPECT_EQ(plan.verticalStroke.top - plan.box.rect.top, margin);
        EXPECT_EQ(plan.box.rect.Bottom() - plan.verticalStroke.Bottom(), margin);
        EXPECT_EQ(plan.horizontalStroke.height, Scale(1, dpi));
    }
}

TEST(OutlinePlan, DrawsAGuideThroughTheMiddleOfEachAncestorsSlot) {
    EXPECT_EQ(Plan(Cell(0)).guides.count, 0);
    const OutlineCell cell = Cell(3);
    const OutlinePlan plan = Plan(cell);

    ASSERT_EQ(plan.guides.count, 3);
    EXPECT_EQ(plan.guides.At(0, cell.rect), (Rect{109, 40, 1, 24}));
    EXPECT_EQ(plan.guides.At(2, cell.rect), (Rect{109 + 32, 40, 1, 24}));
    EXPECT_EQ(plan.guideColor, MixColors(0xFFFFFF, 0x000000, 56));
}

TEST(OutlinePlan, StandsAGuideUnderTheStrokeOfItsAncestorsBox) {
    for (const int dpi : {96, 120, 144, 192}) {
        SCOPED_TRACE(dpi);
        OutlineCell cell = Cell(1);
        cell.dpi = dpi;
        const Rect guide = Plan(cell).guides.At(0, cell.rect);
        cell.depth = 0;
        const Rect stroke = Plan(cell).verticalStroke;
        EXPECT_LE(std::abs(guide.left - stroke.left), 1);
        EXPECT_EQ(guide.width, stroke.width);
    }
}

TEST(OutlinePlan, PlansNothingOutsideTheCellHoweverDeepTheRow) {
    for (const int dpi : {96, 480}) {
        SCOPED_TRACE(dpi);
        OutlineCell cell = Cell(65'535);
        cell.dpi = dpi;
        const OutlinePlan plan = Plan(cell);

        EXPECT_LE(plan.guides.count, 400 / Scale(16, dpi) + 1);
        EXPECT_LT(plan.guides.At(plan.guides.count - 1, cell.rect).left, cell.rect.Right());
        EXPECT_TRUE(plan.box.rect.IsEmpty());
        EXPECT_TRUE(plan.horizontalStroke.IsEmpty());
        EXPECT_TRUE(plan.mark.rect.IsEmpty());
        EXPECT_TRUE(plan.name.rect.IsEmpty());
        EXPECT_TRUE(plan.summary.rect.IsEmpty());
        EXPECT_TRUE(OutlineBox(cell.rect, cell.depth, dpi).IsEmpty());
    }
}

TEST(OutlinePlan, PlansNothingInAnEmptyCell) {
    OutlineCell cell = Cell(5);
    cell.rect.width = 0;
    const OutlinePlan plan = Plan(cell);

    EXPECT_EQ(plan.guides.count, 0);
    EXPECT_TRUE(plan.box.rect.IsEmpty());
    EXPECT_TRUE(plan.name.rect.IsEmpty());
}

TEST(OutlinePlan, ShowsABoxThatIsCutByTheCellsEdge) {
    OutlineCell cell = Cell(0);
    cell.rect.width = 8;
    EXPECT_EQ(Plan(cell).box.rect, (Rect{105, 47, 10, 10}));
    cell.rect.width = 5;
    EXPECT_TRUE(Plan(cell).box.rect.IsEmpty());
}

TEST(OutlinePlan, StartsTheNameFivePixelsAfterTheMark) {
    const OutlinePlan plan = Plan(Cell(1));

    EXPECT_EQ(plan.mark.rect, (Rect{134, 48, 7, 7}));
    EXPECT_EQ(plan.name.rect, (Rect{146, 40, 500 - 146, 24}));
}

TEST(OutlinePlan, NeverShrinksTheMarkBelowARadiusOfTwo) {
    OutlineCell cell = Cell();
    cell.dpi = 48;
    EXPECT_EQ(Plan(cell).mark.rect.width, 5);
    cell.dpi = 32;
    EXPECT_EQ(Plan(cell).mark.rect.width, 5);
    cell.dpi = 192;
    EXPECT_EQ(Plan(cell).mark.rect.width, 13);
}

TEST(OutlinePlan, StartsTheSummaryEightPixelsAfterTheName) {
    EXPECT_EQ(Plan(Cell()).summary.rect, (Rect{130 + 50 + 8, 40, 500 - 188, 24}));
}

TEST(OutlinePlan, LeavesASummaryOutThatWouldStartOutsideTheCell) {
    OutlineCell cell = Cell();
    cell.nameWidth = 370 - 8 - 1;  // of the 370 pixels behind the mark
    EXPECT_EQ(Plan(cell).summary.rect, (Rect{499, 40, 1, 24}));
    cell.nameWidth = 370 - 8;
    EXPECT_TRUE(Plan(cell).summary.rect.IsEmpty());
    cell.nameWidth = std::numeric_limits<int>::max();
    EXPECT_TRUE(Plan(cell).summary.rect.IsEmpty());
    EXPECT_FALSE(Plan(cell).name.rect.IsEmpty());
}

TEST(OutlinePlan, ColoursAnUnselectedRowByItsStripeAndType) {
    OutlineCell cell = Cell();
    EXPECT_EQ(Plan(cell).back, 0xFFFFFFu);
    cell.viewRow = 1;
    const OutlinePlan plan = Plan(cell);

    EXPECT_EQ(plan.back, 0xF0F0F0u);
    EXPECT_EQ(plan.name.color, 0x11u);
    EXPECT_EQ(plan.summary.color, MixColors(0xF0F0F0, 0x000000, 150));
    EXPECT_EQ(plan.mark.fill, 0x11u);
    EXPECT_EQ(plan.mark.line, MixColors(0x11, 0x000000, 60));
    EXPECT_EQ(plan.box.fill, 0xF0F0F0u);
    EXPECT_EQ(plan.box.line, MixColors(0xF0F0F0, 0x000000, 130));
    EXPECT_EQ(plan.strokeColor, 0x000000u);
}

TEST(OutlinePlan, WritesOnASelectedRowInTheSelectionsColours) {
    OutlineCell cell = Cell();
    cell.selected = true;
    const OutlinePlan plan = Plan(cell);

    EXPECT_EQ(plan.back, 0x800000u);
    EXPECT_EQ(plan.name.color, 0xFFFF00u);
    EXPECT_EQ(plan.summary.color, 0xFFFF00u);
    EXPECT_EQ(plan.mark.fill, 0x11u);  // the mark still tells the type
}

TEST(OutlinePlan, KeepsTheBoxOfASelectedRowReadable) {
    OutlineCell cell = Cell();
    const OutlinePlan plain = Plan(cell);
    cell.selected = true;

    EXPECT_EQ(Plan(cell).box, plain.box);
    EXPECT_EQ(Plan(cell).strokeColor, plain.strokeColor);
}

TEST(OutlinePlan, LightsUpTheBoxUnderTheMouse) {
    OutlineCell cell = Cell();
    cell.hot = true;
    const OutlinePlan plan = Plan(cell);

    EXPECT_EQ(plan.box.fill, MixColors(0xFFFFFF, 0x0000FF, 40));
    EXPECT_EQ(plan.box.line, MixColors(0xFFFFFF, 0x000000, 220));
}

TEST(OutlinePlan, ColoursEveryTypeOfRow) {
    using enum OutlineRowType;
    constexpr std::array<std::pair<OutlineRowType, Color>, 14> kColors = {{{XmlDocument, 0x00},
                                                                           {XmlElement, 0x11},
                                                                           {XmlAttribute, 0x22},
                                                                           {XmlText, 0x33},
                                                                           {XmlComment, 0x66},
                                                                           {XmlCdata, 0x55},
                                                                           {XmlInstruction, 0x55},
                                                                           {XmlDoctype, 0x55},
                                                                           {JsonObject, 0x11},
                                                                           {JsonArray, 0x11},
                                                                           {JsonString, 0x33},
                                                                           {JsonNumber, 0x44},
                                                                           {JsonBoolean, 0x55},
                                                                           {JsonNull, 0x55}}};
    for (const auto& [type, color] : kColors) {
        EXPECT_EQ(OutlineTypeColor(type, kTheme, kSyntax), color) << static_cast<int>(type);
    }
}

TEST(HitsOutlineBox, ReachesTwoPixelsAroundTheBox) {
    const Rect cell{100, 40, 400, 24};  // the box: 105 to 114, 47 to 56
    for (const auto& [x, y, hits] : {std::tuple{103, 45, true},
                                     {116, 58, true},
                                     {102, 50, false},
                                     {117, 50, false},
                                     {110, 44, false},
                                     {110, 59, false},
                                     {110, 51, true}}) {
        EXPECT_EQ(HitsOutlineBox(cell, 0, 96, x, y), hits) << x << ", " << y;
    }
    EXPECT_TRUE(HitsOutlineBox(cell, 2, 96, 103 + 32, 50));
    EXPECT_FALSE(HitsOutlineBox(cell, 2, 96, 103, 50));
}

TEST(HitsOutlineBox, ScalesTheReach) {
    const Rect cell{0, 0, 400, 40};  // at 192 dpi the box: 10 to 29, 10 to 29
    EXPECT_TRUE(HitsOutlineBox(cell, 0, 192, 6, 6));
    EXPECT_FALSE(HitsOutlineBox(cell, 0, 192, 5, 6));
}

TEST(HitsOutlineBox, StaysInsideTheCell) {
    const Rect cell{100, 40, 10, 24};
    EXPECT_TRUE(HitsOutlineBox(cell, 0, 96, 109, 50));
    EXPECT_FALSE(HitsOutlineBox(cell, 0, 96, 110, 50));  // belongs to the next column
    EXPECT_FALSE(HitsOutlineBox(cell, 1, 96, 109, 50));
}

TEST(OutlineValueWidth, TakesWhatTheOtherColumnsLeave) {
    const std::array widths{40, 300, 50};
    EXPECT_EQ(OutlineValueWidth(1000, widths, 2, 96), 1000 - 4 - 340);
    EXPECT_EQ(OutlineValueWidth(1000, widths, 2, 192), 1000 - 8 - 340);
}

TEST(OutlineValueWidth, LeavesTheColumnReadable) {
    const std::array widths{900, 50};
    EXPECT_EQ(OutlineValueWidth(1000, widths, 1, 96), 120);
    EXPECT_EQ(OutlineValueWidth(1000, widths, 1, 144), 180);
    EXPECT_EQ(OutlineValueWidth(0, widths, 1, 96), 120);
    const std::array widest{std::numeric_limits<int>::max(), std::numeric_limits<int>::max(), 1};
    EXPECT_EQ(OutlineValueWidth(1000, widest, 2, 96), 120);
}

TEST(OutlineRowHeight, IsALineAndFourPixels) {
    EXPECT_EQ(OutlineRowHeight(20, 96), 24);
    EXPECT_EQ(OutlineRowHeight(30, 144), 36);
}

}  // namespace
}  // namespace rl
