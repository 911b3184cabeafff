#include "view/logic/splitter.h"

#include <gtest/gtest.h>

#include <climits>

namespace rl {
namespace {

TEST(PaneHeightWhileDragging, IsTheDistanceFromThePanesBottomToTheMouse) {
    EXPECT_EQ(PaneHeightWhileDragging(580, 500), 80);
}

TEST(PaneHeightWhileDragging, IsNeverBelowNothing) {
    EXPECT_EQ(PaneHeightWhileDragging(580, 700), 0);
    EXPECT_EQ(PaneHeightWhileDragging(580, INT_MIN), INT_MAX);
}

TEST(ReleaseSplitter, SwitchesThePaneOffBelowSixteenPixels) {
    EXPECT_EQ(ReleaseSplitter(15, 96), (PaneRelease{true, 0}));
    EXPECT_EQ(ReleaseSplitter(16, 96), (PaneRelease{false, 16}));
}

TEST(ReleaseSplitter, ScalesItsLimit) {
    EXPECT_EQ(ReleaseSplitter(23, 144), (PaneRelease{true, 0}));
    EXPECT_EQ(ReleaseSplitter(24, 144), (PaneRelease{false, 24}));
}

}  // namespace
}  // namespace rl
