#include "view/logic/outline_keys.h"

#include <gtest/gtest.h>

namespace rl {
namespace {

constexpr OutlineKeyRow kNone;
constexpr OutlineKeyRow kLeaf{.exists = true};
constexpr OutlineKeyRow kClosed{.exists = true, .hasChildren = true};
constexpr OutlineKeyRow kOpen{.exists = true, .hasChildren = true, .isOpen = true};
constexpr OutlineKeyRow kOpenAndLast{
    .exists = true, .hasChildren = true, .isOpen = true, .isLast = true};

OutlineStep Plan(VirtualKey key, const OutlineKeyRow& row, bool shift = false) {
    return PlanOutlineKey(key, shift, row);
}

TEST(PlanOutlineKey, LeftClosesAnOpenRowAndElseLeadsToTheParent) {
    EXPECT_EQ(Plan(key::kLeft, kOpen), OutlineStep::Toggle);
    EXPECT_EQ(Plan(key::kLeft, kClosed), OutlineStep::ToParent);
    EXPECT_EQ(Plan(key::kLeft, kLeaf), OutlineStep::ToParent);
}

TEST(PlanOutlineKey, RightOpensAClosedRowAndElseLeadsToTheFirstChild) {
    EXPECT_EQ(Plan(key::kRight, kClosed), OutlineStep::Toggle);
    EXPECT_EQ(Plan(key::kRight, kOpen), OutlineStep::ToNext);
    EXPECT_EQ(Plan(key::kRight, kOpenAndLast), OutlineStep::Nothing);
}

TEST(PlanOutlineKey, RightOnARowWithoutChildrenIsTheGridsOwn) {
    EXPECT_EQ(Plan(key::kRight, kLeaf), OutlineStep::NotOurs);
}

TEST(PlanOutlineKey, PlusOnlyOpensAndMinusOnlyClosesButBothAreUsed) {
    for (const VirtualKey plus : {key::kNumAdd, key::kPlus}) {
        EXPECT_EQ(Plan(plus, kClosed), OutlineStep::Toggle);
        EXPECT_EQ(Plan(plus, kOpen), OutlineStep::Nothing);
        EXPECT_EQ(Plan(plus, kLeaf), OutlineStep::Nothing);
    }
    for (const VirtualKey minus : {key::kNumSubtract, key::kMinus}) {
        EXPECT_EQ(Plan(minus, kOpen), OutlineStep::Toggle);
        EXPECT_EQ(Plan(minus, kClosed), OutlineStep::Nothing);
        EXPECT_EQ(Plan(minus, kLeaf), OutlineStep::Nothing);
    }
}

TEST(PlanOutlineKey, StarExpandsAllAndWithShiftTheSubtree) {
    EXPECT_EQ(Plan(key::kNumMultiply, kLeaf), OutlineStep::ExpandAll);
    EXPECT_EQ(Plan(key::kNumMultiply, kLeaf, true), OutlineStep::ExpandSubtree);
}

TEST(PlanOutlineKey, SlashCollapsesAll) {
    EXPECT_EQ(Plan(key::kNumDivide, kLeaf), OutlineStep::CollapseAll);
}

TEST(PlanOutlineKey, WithoutARowOnlyStarActs) {
    for (const VirtualKey key : {key::kLeft, key::kRight, key::kNumAdd, key::kPlus,
                                 key::kNumSubtract, key::kMinus, key::kNumDivide}) {
        EXPECT_EQ(Plan(key, kNone), OutlineStep::NotOurs) << key;
    }
    EXPECT_EQ(Plan(key::kNumMultiply, kNone, true), OutlineStep::NotOurs);
    EXPECT_EQ(Plan(key::kNumMultiply, kNone), OutlineStep::ExpandAll);
}

TEST(PlanOutlineKey, OtherKeysAreNotOurs) {
    for (const VirtualKey key : {key::kUp, key::kDown, key::kEnter, key::Of('A')}) {
        EXPECT_EQ(Plan(key, kOpen), OutlineStep::NotOurs) << key;
    }
}

}  // namespace
}  // namespace rl
