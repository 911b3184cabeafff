#include "view/logic/radix_sort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace rl {
namespace {

/// Rows with keys from a few values or from all, in either digit.
std::vector<KeyedRow> MakeRows(int32_t count, uint64_t mask) {
    std::vector<KeyedRow> rows;
    uint64_t state = 7;
    for (int32_t row = 0; row < count; ++row) {
        state = state * 6364136223846793005U + 1442695040888963407U;
        rows.push_back({(state ^ state >> 29) & mask, row});
    }
    return rows;
}

TEST(SortByRadix, GivesWhatAStableSortGives) {
    for (const int32_t count : {0, 1, 2, 511, 512, 3000}) {
        for (const uint64_t mask :
             {uint64_t{0}, uint64_t{7}, uint64_t{0xFF00}, uint64_t{0x0F} << 60, ~uint64_t{0}}) {
            std::vector<KeyedRow> rows = MakeRows(count, mask);
            std::vector<KeyedRow> expected = rows;
            std::ranges::stable_sort(expected, {}, &KeyedRow::key);

            SortByRadix(rows);

            EXPECT_TRUE(std::ranges::equal(
                rows, expected,
                [](const auto& a, const auto& b) { return a.key == b.key && a.row == b.row; }))
                << count << " rows, mask " << mask;
        }
    }
}

TEST(KeyOfNumber, RisesWithTheNumber) {
    using Limits = std::numeric_limits<double>;
    constexpr double kRising[] = {
        -Limits::infinity(),  Limits::lowest(), -2,  -1, -Limits::min(), -Limits::denorm_min(), 0,
        Limits::denorm_min(), Limits::min(),    0.5, 1,  Limits::max(),  Limits::infinity()};
    for (size_t i = 1; i < std::size(kRising); ++i) {
        EXPECT_LT(KeyOfNumber(kRising[i - 1]), KeyOfNumber(kRising[i])) << kRising[i];
    }
}

TEST(KeyOfNumber, IsTheSameForBothZeros) {
    EXPECT_EQ(KeyOfNumber(-0.0), KeyOfNumber(0.0));
}

}  // namespace
}  // namespace rl
