#include "view/logic/row_view.h"

#include <gtest/gtest.h>

#include "tests/support/allocation_limit.h"
#include "tests/support/memory_table.h"

namespace rl {
namespace {

using test::MemoryTable;
using RowList = std::vector<int32_t>;

RowList RowsOf(const RowView& view) {
    RowList rows;
    for (int32_t row = 0; row < view.VisibleRowCount(); ++row) {
        rows.push_back(view.ModelRow(row));
    }
    return rows;
}

TEST(RowView, ShowsAllRowsInTheirOrder) {
    const MemoryTable table = MemoryTable::Column({L"b", L"a", L"c"});

    EXPECT_EQ(RowsOf(RowView(table, false)), (RowList{0, 1, 2}));
    EXPECT_EQ(RowsOf(RowView(table, true)), (RowList{1, 2}));
}

TEST(RowView, ShowsNothingOfAnEmptyTable) {
    const MemoryTable table;

    EXPECT_EQ(RowView(table, true).VisibleRowCount(), 0);
    EXPECT_EQ(RowView(table, false).VisibleRowCount(), 0);
}

TEST(RowView, NeverFiltersNorSortsTheHeader) {
    const MemoryTable table = MemoryTable::Column({L"m", L"z", L"a"});
    RowView view(table, true);
    view.SetSort(0, 1);
    EXPECT_EQ(RowsOf(view), (RowList{2, 1}));
    view.SetFilter(0, L"m");
    EXPECT_EQ(RowsOf(view), (RowList{}));
}

TEST(RowView, CombinesTheFiltersOfSeveralColumns) {
    const MemoryTable table({{L"ax", L"1"}, {L"ax", L"2"}, {L"b", L"2"}});
    RowView view(table, false);
    view.SetFilter(0, L"a");
    view.SetFilter(1, L"2");

    EXPECT_EQ(RowsOf(view), (RowList{1}));
    EXPECT_EQ(view.FilterText(0), L"a");
    EXPECT_EQ(view.FilterText(1), L"2");
}

TEST(RowView, StopsAtTheFirstFilterThatDoesNotMatch) {
    const MemoryTable table({{L"a", L"1"}, {L"b", L"2"}});
    RowView view(table, false);
    view.SetFilter(1, L"2");
    table.cellTextCalls = 0;
    view.SetFilter(0, L"a");

    EXPECT_EQ(table.cellTextCalls, 3) << "two cells of row 0, one of row 1";
}

TEST(RowView, TakesAFilterAwayWithAnEmptyText) {
    const MemoryTable table = MemoryTable::Column({L"a", L"b"});
    RowView view(table, false);
    view.SetFilter(0, L"a");
    view.SetFilter(0, L"");

    EXPECT_EQ(RowsOf(view), (RowList{0, 1}));
}

TEST(RowView, IgnoresAFilterOnAColumnTheModelDoesNotHave) {
    const MemoryTable table = MemoryTable::Column({L"a", L"b"});
    RowView view(table, false);
    view.SetFilter(-1, L"a");
    view.SetFilter(1, L"a");

    EXPECT_EQ(RowsOf(view), (RowList{0, 1}));
    EXPECT_EQ(view.FilterText(1), L"");
    EXPECT_EQ(view.FilterText(-1), L"");
}

TEST(RowView, KeepsTheRowsAboveTenAndTheWords) {
    const MemoryTable table = MemoryTable::Column({L"9", L"10", L"11", L"abc", L""});
    RowView view(table, false);
    view.SetFilter(0, L">10");

    EXPECT_EQ(RowsOf(view), (RowList{2, 3}));
}

TEST(RowView, AppliesTheLetterCaseAnew) {
    const MemoryTable table = MemoryTable::Column({L"Abc", L"abc"});
    RowView view(table, false);
    view.SetFilter(0, L"=Abc");
    EXPECT_EQ(RowsOf(view), (RowList{0, 1}));
    view.SetCaseSensitive(true);
    EXPECT_EQ(RowsOf(view), (RowList{0}));
    view.SetCaseSensitive(false);
    EXPECT_EQ(RowsOf(view), (RowList{0, 1}));
}

TEST(RowView, SortsAndReturnsToTheOrderOfTheFile) {
    const MemoryTable table = MemoryTable::Column({L"c", L"a", L"b"});
    RowView view(table, false);
    view.SetSort(0, 1);
    EXPECT_EQ(RowsOf(view), (RowList{1, 2, 0}));
    view.SetSort(0, -1);
    EXPECT_EQ(RowsOf(view), (RowList{0, 2, 1}));
    view.SetSort(0, 0);
    EXPECT_EQ(RowsOf(view), (RowList{0, 1, 2}));
    EXPECT_EQ(view.SortColumn(), -1);
}

TEST(RowView, TakesAnyDirectionAsItsSign) {
    const MemoryTable table = MemoryTable::Column({L"c", L"a"});
    RowView view(table, false);
    view.SetSort(0, -7);
    EXPECT_EQ(view.SortDirection(), -1);
    view.SetSort(0, 42);
    EXPECT_EQ(view.SortDirection(), 1);
}

TEST(RowView, IsUnsortedAfterASortOnAColumnTheModelDoesNotHave) {
    const MemoryTable table = MemoryTable::Column({L"c", L"a"});
    RowView view(table, false);
    view.SetSort(0, 1);
    view.SetSort(1, 1);

    EXPECT_EQ(RowsOf(view), (RowList{0, 1}));
    EXPECT_EQ(view.SortColumn(), -1);
    EXPECT_EQ(view.SortDirection(), 0);
}

TEST(RowView, KeepsTheSortWhileFiltering) {
    const MemoryTable table = MemoryTable::Column({L"3", L"1", L"2", L"x"});
    RowView view(table, false);
    view.SetSort(0, -1);
    view.SetFilter(0, L"<3");

    EXPECT_EQ(RowsOf(view), (RowList{2, 1}));
}

TEST(RowView, FollowsTheModelWhenItIsRebuilt) {
    MemoryTable table = MemoryTable::Column({L"b", L"a"});
    RowView view(table, false);
    view.SetSort(0, 1);
    table.Content() = {{L"b", L"x"}, {L"a", L"y"}, {L"0", L"z"}};
    view.Rebuild();
    EXPECT_EQ(RowsOf(view), (RowList{2, 1, 0}));
    view.SetFilter(1, L"!y");
    EXPECT_EQ(RowsOf(view), (RowList{2, 0}));
}

TEST(RowView, ShowsAnInsertedRowBelowItsNeighbour) {
    const MemoryTable table = MemoryTable::Column({L"b", L"a", L"c"});
    RowView view(table, false);
    view.SetSort(0, -1);  // c b a
    view.MakeRoom();
    view.RowInserted(1);
    ASSERT_EQ(view.VisibleRowCount(), 4);
    EXPECT_EQ(view.ModelRow(0), 3);
    EXPECT_EQ(view.ModelRow(1), 0);
    EXPECT_EQ(view.ModelRow(2), 1);
    EXPECT_EQ(view.ModelRow(3), 2);
    view.RowInserted(-1);
    view.RowInserted(4);
    EXPECT_EQ(view.VisibleRowCount(), 4);
}

TEST(RowView, ClosesUpWhereRowsWereDeleted) {
    const MemoryTable table = MemoryTable::Column({L"b", L"a", L"d", L"c"});
    RowView view(table, false);
    view.SetSort(0, -1);  // d c b a
    const int32_t gone[] = {0, 2};
    view.RowsDeleted(gone);
    ASSERT_EQ(view.VisibleRowCount(), 2);
    EXPECT_EQ(view.ModelRow(0), 1);
    EXPECT_EQ(view.ModelRow(1), 0);
}

// The model has changed by then: the view must follow it, come what may.
TEST(RowView, FollowsInsertionsAndDeletionsWithoutAnyMemory) {
    MemoryTable table = MemoryTable::Column({L"d", L"a", L"c", L"b"});
    RowView view(table, false);
    view.SetSort(0, 1);
    ASSERT_EQ(RowsOf(view), (RowList{1, 3, 2, 0}));
    view.MakeRoom();
    table.Content().insert(table.Content().begin() + 4, {L"new"});
    {
        const test::AllocationLimit limit(0);
        view.RowInserted(1);
    }
    EXPECT_EQ(RowsOf(view), (RowList{1, 3, 4, 2, 0}));
    static constexpr int32_t kDeleted[] = {0, 3};
    {
        const test::AllocationLimit limit(0);
        view.RowsDeleted(kDeleted);
    }
    EXPECT_EQ(RowsOf(view), (RowList{0, 2, 1}));
}

TEST(RowView, SurvivesTheLossOfItsSortColumn) {
    MemoryTable table({{L"b", L"2"}, {L"a", L"1"}});
    RowView view(table, false);
    view.SetSort(1, 1);
    view.SetFilter(1, L"1");
    table.Content() = {{L"b"}, {L"a"}};
    view.Rebuild();

    EXPECT_EQ(RowsOf(view), (RowList{0, 1}));
}

TEST(RowView, AnswersNothingOutsideTheView) {
    const MemoryTable table = MemoryTable::Column({L"a"});
    const RowView view(table, false);

    EXPECT_EQ(view.ModelRow(-1), -1);
    EXPECT_EQ(view.ModelRow(1), -1);
    EXPECT_EQ(view.CellText(1, 0), L"");
    EXPECT_EQ(view.CellText(0, 7), L"");
    EXPECT_EQ(view.CellText(0, 0), L"a");
}

TEST(RowView, FindsTheViewRowOfAModelRow) {
    const MemoryTable table = MemoryTable::Column({L"b", L"a", L"c"});
    RowView view(table, false);
    view.SetSort(0, 1);
    view.SetFilter(0, L"!c");

    EXPECT_EQ(view.ViewRowOf(0), 1);
    EXPECT_EQ(view.ViewRowOf(1), 0);
    EXPECT_EQ(view.ViewRowOf(2), -1);
    EXPECT_EQ(view.ViewRowOf(-1), -1);
}

}  // namespace
}  // namespace rl
