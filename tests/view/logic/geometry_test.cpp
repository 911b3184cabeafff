#include "view/logic/geometry.h"

#include <gtest/gtest.h>

namespace rl {
namespace {

TEST(MulDivRound, RoundsHalfAwayFromZeroLikeTheSystem) {
    EXPECT_EQ(MulDivRound(1, 1, 2), 1);
    EXPECT_EQ(MulDivRound(-1, 1, 2), -1);
    EXPECT_EQ(MulDivRound(26, 144, 96), 39);
}

TEST(MulDivRound, AnswersMinusOneWhereThereIsNoAnswer) {
    EXPECT_EQ(MulDivRound(1, 1, 0), -1);
    EXPECT_EQ(MulDivRound(INT32_MAX, 2, 1), -1);
}

TEST(FontHeight, IsNegativeAndInPoints) {
    EXPECT_EQ(FontHeight(16, 96), -21);
    EXPECT_EQ(FontHeight(16, 144), -32);
}

}  // namespace
}  // namespace rl
