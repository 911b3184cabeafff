#include "view/logic/grid_navigation.h"

#include <gtest/gtest.h>

#include <array>

namespace rl {
namespace {

// Column 0 and 3 are hidden.
constexpr std::array<int, 6> kWidths = {0, 50, 60, 0, 70, 80};

NavigationState At(int32_t row, int32_t column) {
    return {.current = {row, column}, .visibleRows = 10, .columnWidths = kWidths};
}

using Answer = std::optional<GridPosition>;

TEST(Navigate, MovesByOneRowWithinTheView) {
    EXPECT_EQ(Navigate(At(5, 1), key::kUp, false), (Answer{{4, 1}}));
    EXPECT_EQ(Navigate(At(0, 1), key::kUp, false), (Answer{{0, 1}}));
    EXPECT_EQ(Navigate(At(5, 1), key::kDown, false), (Answer{{6, 1}}));
    EXPECT_EQ(Navigate(At(9, 1), key::kDown, false), (Answer{{9, 1}}));
}

TEST(Navigate, JumpsToTheFirstAndLastRowWithCtrl) {
    EXPECT_EQ(Navigate(At(5, 1), key::kUp, true), (Answer{{0, 1}}));
    EXPECT_EQ(Navigate(At(5, 1), key::kDown, true), (Answer{{9, 1}}));
}

TEST(Navigate, StepsOverHiddenColumns) {
    EXPECT_EQ(Navigate(At(5, 2), key::kRight, false), (Answer{{5, 4}}));
    EXPECT_EQ(Navigate(At(5, 4), key::kLeft, false), (Answer{{5, 2}}));
    EXPECT_EQ(Navigate(At(5, 1), key::kLeft, false), (Answer{{5, 1}}));
    EXPECT_EQ(Navigate(At(5, 5), key::kRight, false), (Answer{{5, 5}}));
}

TEST(Navigate, JumpsToTheFirstAndLastShownColumnWithCtrl) {
    EXPECT_EQ(Navigate(At(5, 4), key::kLeft, true), (Answer{{5, 1}}));
    EXPECT_EQ(Navigate(At(5, 1), key::kRight, true), (Answer{{5, 5}}));
}

TEST(Navigate, StaysOnTheFirstColumnWhenAllBehindItAreHidden) {
    constexpr std::array<int, 3> kOneShown = {40, 0, 0};
    const NavigationState state{.current = {2, 0}, .visibleRows = 10, .columnWidths = kOneShown};

    EXPECT_EQ(Navigate(state, key::kRight, true), (Answer{{2, 0}}));
    EXPECT_EQ(Navigate(state, key::kRight, false), (Answer{{2, 0}}));
}

TEST(Navigate, StartsFromTheFirstShownColumnWhereTheCurrentOneIsHiddenOrMissing) {
    for (const int32_t column : {-1, 0, 3, 6}) {
        EXPECT_EQ(Navigate(At(5, column), key::kDown, false), (Answer{{6, 1}})) << column;
        EXPECT_EQ(Navigate(At(5, column), key::kRight, false), (Answer{{5, 2}})) << column;
    }
}

TEST(Navigate, TakesTheFocusedOrElseTheFirstSelectedRowWithoutACurrentOne) {
    NavigationState state = At(-1, 1);
    EXPECT_EQ(Navigate(state, key::kDown, false), std::nullopt);
    state.firstSelectedRow = 3;
    EXPECT_EQ(Navigate(state, key::kDown, false), (Answer{{4, 1}}));
    state.focusedRow = 6;
    EXPECT_EQ(Navigate(state, key::kDown, false), (Answer{{7, 1}}));
    state.current.row = 10;
    EXPECT_EQ(Navigate(state, key::kDown, false), (Answer{{7, 1}}));
}

TEST(Navigate, HandlesNothingWithoutRowsOrShownColumns) {
    NavigationState state = At(0, 1);
    state.visibleRows = 0;
    EXPECT_EQ(Navigate(state, key::kDown, false), std::nullopt);

    constexpr std::array<int, 2> kAllHidden = {0, 0};
    EXPECT_EQ(Navigate({.current = {0, 0}, .visibleRows = 3, .columnWidths = kAllHidden},
                       key::kDown, false),
              std::nullopt);
}

TEST(Navigate, HandlesOnlyTheArrowKeys) {
    EXPECT_EQ(Navigate(At(5, 1), key::kHome, false), std::nullopt);
    EXPECT_EQ(Navigate(At(5, 1), key::kPageDown, true), std::nullopt);
}

TEST(ScrollToShow, GoesJustFarEnough) {
    EXPECT_EQ(ScrollToShow(10, 60, 100), 0);
    EXPECT_EQ(ScrollToShow(-30, 20, 100), -30);
    EXPECT_EQ(ScrollToShow(80, 130, 100), 30);
    EXPECT_EQ(ScrollToShow(50, 100, 100), 0);
}

TEST(ScrollToShow, BringsTheLeftEdgeOfAWideCellIntoViewFirst) {
    EXPECT_EQ(ScrollToShow(-30, 200, 100), -30);
}

}  // namespace
}  // namespace rl
