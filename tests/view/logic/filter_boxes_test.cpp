#include "view/logic/filter_boxes.h"

#include <gtest/gtest.h>

namespace rl {
namespace {

constexpr Rect kRow{250, 26, 500, 24};

TEST(FilterBoxRect, StandsAboveItsColumn) {
    EXPECT_EQ(FilterBoxRect(kRow, 100, 180), (Rect{350, 26, 80, 24}));
}

TEST(FilterBoxRect, IsCutOffWhereTheColumnLeavesTheGrid) {
    EXPECT_EQ(FilterBoxRect(kRow, -30, 50), (Rect{250, 26, 50, 24}));
    EXPECT_EQ(FilterBoxRect(kRow, 460, 560), (Rect{710, 26, 40, 24}));
    EXPECT_TRUE(FilterBoxRect(kRow, -90, -10).IsEmpty());
    EXPECT_TRUE(FilterBoxRect(kRow, 500, 600).IsEmpty());
    EXPECT_TRUE(FilterBoxRect(kRow, 40, 40).IsEmpty()) << "a hidden column";
    EXPECT_EQ(FilterBoxRect(kRow, 80, 40).width, 0);
}

TEST(FilterAlignFromSetting, KnowsLeftAndRightAndTakesTheMiddleForTheRest) {
    EXPECT_EQ(FilterAlignFromSetting(-1), FilterAlign::Left);
    EXPECT_EQ(FilterAlignFromSetting(1), FilterAlign::Right);
    EXPECT_EQ(FilterAlignFromSetting(0), FilterAlign::Center);
    EXPECT_EQ(FilterAlignFromSetting(7), FilterAlign::Center);
    EXPECT_EQ(FilterAlignFromSetting(-2), FilterAlign::Center);
}

constexpr Rect kBox{0, 0, 80, 24};

TEST(PlanFilterHint, ShowsOnlyInAnEmptyBoxWithoutTheFocus) {
    EXPECT_EQ(PlanFilterHint(kBox, {.isEmpty = true, .textWidth = 40}), (Rect{3, 0, 74, 24}));
    EXPECT_EQ(PlanFilterHint(kBox, {.isEmpty = false, .textWidth = 40}), std::nullopt);
    EXPECT_EQ(PlanFilterHint(kBox, {.isEmpty = true, .hasFocus = true, .textWidth = 40}),
              std::nullopt);
}

TEST(PlanFilterHint, ShowsNothingRatherThanAPart) {
    EXPECT_NE(PlanFilterHint(kBox, {.isEmpty = true, .textWidth = 74}), std::nullopt);
    EXPECT_EQ(PlanFilterHint(kBox, {.isEmpty = true, .textWidth = 75}), std::nullopt);
    EXPECT_EQ(PlanFilterHint(kBox, {.isEmpty = true, .textWidth = 69, .dpi = 192}), std::nullopt);
}

TEST(PlanFilterHint, ShowsNothingWithoutAHint) {
    EXPECT_EQ(PlanFilterHint(kBox, {.isEmpty = true, .textWidth = 0}), std::nullopt);
}

TEST(FilterHintColor, LiesHalfwayBetweenTextAndBack) {
    ThemeColors theme;
    theme.filterText = 0x000000;
    theme.filterBack = 0xFFFFFF;
    EXPECT_EQ(FilterHintColor(theme), 0x808080U);
}

TEST(FilterDelay, AppliesAtOnceBelowAQuarterOfAMillionRows) {
    FilterDelay delay;
    EXPECT_EQ(delay.OnChange(3, 249'999), (FilterChange{-1, true, false}));
    EXPECT_EQ(delay.TakePending(), -1);
}

TEST(FilterDelay, WaitsForAPauseFromThereOn) {
    FilterDelay delay;
    EXPECT_EQ(delay.OnChange(3, 250'000), (FilterChange{-1, false, true}));
    EXPECT_EQ(delay.OnChange(3, 250'000), (FilterChange{-1, false, true})) << "started again";
    EXPECT_EQ(delay.TakePending(), 3);
    EXPECT_EQ(delay.TakePending(), -1) << "only once";
}

TEST(FilterDelay, AppliesWhatAnotherBoxWasWaitingWithFirst) {
    FilterDelay delay;
    (void)delay.OnChange(3, 300'000);
    EXPECT_EQ(delay.OnChange(4, 300'000), (FilterChange{3, false, true}));
    EXPECT_EQ(delay.TakePending(), 4);
}

TEST(FilterDelay, ForgetsTheWaitingBoxWhenTheTableHasBecomeSmall) {
    FilterDelay delay;
    (void)delay.OnChange(3, 300'000);
    EXPECT_EQ(delay.OnChange(3, 10), (FilterChange{-1, true, false}));
    EXPECT_EQ(delay.TakePending(), -1);
}

}  // namespace
}  // namespace rl
