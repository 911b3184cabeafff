// Where the line of an edit control stands in its box.
#include "view/logic/edit_place.h"

#include <gtest/gtest.h>

namespace rl::test {
namespace {

TEST(PlanEditClient, PutsALowLineInTheMiddleOfItsBox) {
    EXPECT_EQ(PlanEditClient({100, 40, 80, 24}, 18, 0), (Rect{100, 43, 80, 18}));
    EXPECT_EQ(PlanEditClient({100, 40, 80, 24}, 17, 0), (Rect{100, 44, 80, 17}));
    EXPECT_EQ(PlanEditClient({100, 40, 80, 23}, 18, 0), (Rect{100, 42, 80, 18}));
}

TEST(PlanEditClient, CutsAHighLineAboveAndBelow) {
    EXPECT_EQ(PlanEditClient({100, 40, 80, 24}, 28, 0), (Rect{100, 38, 80, 28}));
    EXPECT_EQ(PlanEditClient({100, 40, 80, 24}, 29, 0), (Rect{100, 38, 80, 29}));
}

TEST(PlanEditClient, LeavesTheRoomThatTheControlTakesAboveItsLine) {
    EXPECT_EQ(PlanEditClient({0, 0, 80, 24}, 18, 1), (Rect{0, 2, 80, 20}));
    EXPECT_EQ(PlanEditClient({0, 0, 80, 24}, 18, 50), (Rect{0, 1, 80, 22}));  // not laid out yet
}

TEST(PlanEditMargin, MovesTheTextToWhereItIsWanted) {
    EXPECT_EQ(PlanEditMargin(6, 4, 6), 4);
    EXPECT_EQ(PlanEditMargin(6, 0, 1), 5);
    EXPECT_EQ(PlanEditMargin(6, 0, 9), 0);
}

}  // namespace
}  // namespace rl::test
