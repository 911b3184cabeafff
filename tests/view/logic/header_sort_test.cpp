#include "view/logic/header_sort.h"

#include <gtest/gtest.h>

#include "tests/support/memory_table.h"

namespace rl {
namespace {

using test::MemoryTable;

TEST(NextSortDirection, GoesUpDownAndBackToTheOrderOfTheFile) {
    EXPECT_EQ(NextSortDirection(-1, 0, 2), 1);
    EXPECT_EQ(NextSortDirection(2, 1, 2), -1);
    EXPECT_EQ(NextSortDirection(2, -1, 2), 0);
}

TEST(NextSortDirection, BeginsAnewOnAnotherColumn) {
    EXPECT_EQ(NextSortDirection(2, 1, 3), 1);
    EXPECT_EQ(NextSortDirection(2, -1, 3), 1);
}

TEST(SortMarkOf, MarksTheSortColumnOnly) {
    const MemoryTable table = MemoryTable::Row({L"a", L"b"});
    RowView rows(table, false);
    EXPECT_EQ(SortMarkOf(rows, 0), SortMark::None);
    rows.SetSort(1, 1);
    EXPECT_EQ(SortMarkOf(rows, 0), SortMark::None);
    EXPECT_EQ(SortMarkOf(rows, 1), SortMark::Up);
    rows.SetSort(1, -1);
    EXPECT_EQ(SortMarkOf(rows, 1), SortMark::Down);
}

TEST(PlanRowAfterChange, FollowsTheRowOfTheFile) {
    const MemoryTable table = MemoryTable::Column({L"b", L"c", L"a"});
    RowView rows(table, false);
    rows.SetSort(0, 1);

    EXPECT_EQ(PlanRowAfterChange(rows, 1, 0), (RowAfterChange{true, 2}));
}

TEST(PlanRowAfterChange, StaysAtTheTopOfTheScreenWithoutACurrentRow) {
    const MemoryTable table = MemoryTable::Column({L"b", L"c", L"a"});
    RowView rows(table, false);

    EXPECT_EQ(PlanRowAfterChange(rows, -1, 1), (RowAfterChange{false, 1}));
    EXPECT_EQ(PlanRowAfterChange(rows, -1, 9), (RowAfterChange{false, 2}));
    rows.SetFilter(0, L"!c");
    EXPECT_EQ(PlanRowAfterChange(rows, 1, 2), (RowAfterChange{false, 1})) << "filtered away";
    rows.SetFilter(0, L"none");
    EXPECT_EQ(PlanRowAfterChange(rows, 1, 2), (RowAfterChange{false, -1}));
}

}  // namespace
}  // namespace rl
