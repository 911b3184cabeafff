#include "view/logic/filter_plan.h"

#include <gtest/gtest.h>

namespace rl {
namespace {

TEST(FilterAlignOf, CentresWhateverIsNeitherLeftNorRight) {
    EXPECT_EQ(FilterAlignOf(-1), FilterAlign::Left);
    EXPECT_EQ(FilterAlignOf(0), FilterAlign::Center);
    EXPECT_EQ(FilterAlignOf(1), FilterAlign::Right);
    EXPECT_EQ(FilterAlignOf(7), FilterAlign::Center);
    EXPECT_EQ(FilterAlignOf(-2), FilterAlign::Center);
}

TEST(PlanFilterBoxes, PutsABoxAboveEachColumn) {
    const int edges[] = {0, 40, 40, 100};

    EXPECT_EQ(PlanFilterBoxes(edges, 500, {10, 26, 600, 24}),
              (std::vector<Rect>{{10, 26, 40, 24}, {50, 26, 0, 24}, {50, 26, 60, 24}}));
}

TEST(PlanFilterBoxes, ClipsToTheGrid) {
    const int edges[] = {-80, -20, 30, 120, 200};

    EXPECT_EQ(PlanFilterBoxes(edges, 100, {0, 0, 120, 24}),
              (std::vector<Rect>{{0, 0, 0, 24}, {0, 0, 30, 24}, {30, 0, 70, 24}, {100, 0, 0, 24}}));
}

TEST(PlanFilterBoxes, HasNothingToPutWithoutColumnsOrRoom) {
    EXPECT_TRUE(PlanFilterBoxes({}, 100, {0, 0, 100, 24}).empty());
    const int edges[] = {0, 50};
    EXPECT_EQ(PlanFilterBoxes(edges, -3, {0, 0, 0, 24}), (std::vector<Rect>{{0, 0, 0, 24}}));
}

TEST(PlanFilterHint, ShowsOnlyWhatFitsWhole) {
    EXPECT_EQ(PlanFilterHint({0, 0, 50, 22}, 44, 96), (Rect{3, 0, 44, 22}));
    EXPECT_TRUE(PlanFilterHint({0, 0, 50, 22}, 45, 96).IsEmpty());
    EXPECT_EQ(PlanFilterHint({0, 0, 60, 22}, 48, 192), (Rect{6, 0, 48, 22}));
    EXPECT_TRUE(PlanFilterHint({0, 0, 60, 22}, 49, 192).IsEmpty());
}

TEST(PlanTypedFilter, AppliesEachKeystrokeToASmallTable) {
    EXPECT_EQ(PlanTypedFilter(2, -1, 249'999), (FilterStep{.applyNow = 2}));
}

TEST(PlanTypedFilter, WaitsInALargeTable) {
    EXPECT_EQ(PlanTypedFilter(2, -1, 250'000), (FilterStep{.pending = 2}));
    EXPECT_EQ(PlanTypedFilter(2, 2, 250'000), (FilterStep{.pending = 2}));
}

TEST(PlanTypedFilter, FirstAppliesWhatAnotherBoxLeftWaiting) {
    EXPECT_EQ(PlanTypedFilter(3, 2, 300'000), (FilterStep{.applyFirst = 2, .pending = 3}));
    EXPECT_EQ(PlanTypedFilter(3, 2, 10), (FilterStep{.applyFirst = 2, .applyNow = 3}));
}

TEST(NextSortDirection, GoesUpThenDownThenBackToTheFile) {
    EXPECT_EQ(NextSortDirection(4, -1, 0), 1);
    EXPECT_EQ(NextSortDirection(4, 4, 1), -1);
    EXPECT_EQ(NextSortDirection(4, 4, -1), 0);
    EXPECT_EQ(NextSortDirection(4, 2, -1), 1);  // another column begins anew
}

TEST(PlaceAfterSort, FollowsTheRowThatWasCurrent) {
    EXPECT_EQ(PlaceAfterSort(7, 3, 10), (SortPlace{.current = 7, .show = 7}));
}

TEST(PlaceAfterSort, StaysNearTheOldTopOtherwise) {
    EXPECT_EQ(PlaceAfterSort(-1, 3, 10), (SortPlace{.current = -1, .show = 3}));
    EXPECT_EQ(PlaceAfterSort(-1, 30, 10), (SortPlace{.current = -1, .show = 9}));
    EXPECT_EQ(PlaceAfterSort(-1, 0, 0), (SortPlace{.current = -1, .show = -1}));
}

}  // namespace
}  // namespace rl
