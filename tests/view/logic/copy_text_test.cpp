#include "view/logic/copy_text.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/support/memory_table.h"

namespace rl {
namespace {

using test::MemoryTable;

const MemoryTable kTable(
    {{L"name", L"n", L"x"}, {L"b", L"1", L"say \"hi\""}, {L"a", L"2", L"two\nlines"}, {L"c"}});

std::wstring Rows(const RowView& rows, const GridColumns& columns,
                  const std::vector<int32_t>& viewRows) {
    return RowsAsText(rows, columns, viewRows, L"\t");
}

TEST(PlanCopyKey, CopiesRowsWithShiftColumnWithCtrlAndElseTheCell) {
    EXPECT_EQ(PlanCopyKey(false, false, false, 1), CopyKind::Cell);
    EXPECT_EQ(PlanCopyKey(false, true, false, 1), CopyKind::Rows);
    EXPECT_EQ(PlanCopyKey(true, false, false, 1), CopyKind::Column);
}

TEST(PlanCopyKey, CopiesSeveralSelectedRowsOnlyWhenSetSo) {
    EXPECT_EQ(PlanCopyKey(false, false, false, 5), CopyKind::Cell);
    EXPECT_EQ(PlanCopyKey(false, false, true, 1), CopyKind::Cell);
    EXPECT_EQ(PlanCopyKey(false, false, true, 2), CopyKind::Rows);
    EXPECT_EQ(PlanCopyKey(true, false, true, 2), CopyKind::Column);
}

TEST(ValueSeparator, IsATabUnlessSetOtherwise) {
    EXPECT_EQ(ValueSeparator(L""), L"\t");
    EXPECT_EQ(ValueSeparator(L"\\t"), L"\t");
    EXPECT_EQ(ValueSeparator(L"; "), L"; ");
    EXPECT_EQ(ValueSeparator(L"\\n"), L"\\n");
}

TEST(RowsAsText, JoinsValuesAndRowsWithoutABreakBehindTheLast) {
    const RowView rows(kTable, true);
    const GridColumns columns(3, true);

    EXPECT_EQ(Rows(rows, columns, {0, 2}), L"b\t1\tsay \"hi\"\r\nc\t\t");
    EXPECT_EQ(Rows(rows, columns, {1}), L"a\t2\ttwo\nlines");
    EXPECT_EQ(Rows(rows, columns, {}), L"");
}

TEST(RowsAsText, LeavesHiddenColumnsOut) {
    const RowView rows(kTable, true);
    GridColumns columns(3, false);
    columns.Hide(0);
    columns.Hide(2);

    EXPECT_EQ(Rows(rows, columns, {0, 1}), L"1\r\n2");
}

TEST(RowsAsText, TakesRowsAsTheViewHasThem) {
    RowView rows(kTable, true);
    rows.SetSort(0, 1);

    EXPECT_EQ(Rows(rows, GridColumns(1, false), {0, 1, 2}), L"a\r\nb\r\nc");
    EXPECT_EQ(Rows(rows, GridColumns(1, false), {-1, 1, 3}), L"b");
}

TEST(ColumnAsText, JoinsTheValuesInViewOrderWithoutTheHeader) {
    RowView rows(kTable, true);
    rows.SetSort(0, -1);

    EXPECT_EQ(ColumnAsText(rows, 0, L"\t"), L"c\tb\ta");
    EXPECT_EQ(ColumnAsText(rows, 1, L"; "), L"; 1; 2");
    EXPECT_EQ(ColumnAsText(rows, 3, L"\t"), L"");
    EXPECT_EQ(ColumnAsText(rows, -1, L"\t"), L"");
}

TEST(RowsToCopy, AreTheSelectedOnesOrElseTheCurrentOrElseTheFocused) {
    using Rows = std::vector<int32_t>;
    EXPECT_EQ(RowsToCopy({2, 4}, 1, 0, 5), (Rows{2, 4}));
    EXPECT_EQ(RowsToCopy({}, 1, 0, 5), (Rows{1}));
    EXPECT_EQ(RowsToCopy({}, -1, 3, 5), (Rows{3}));
    EXPECT_EQ(RowsToCopy({}, -1, -1, 5), Rows{});
    EXPECT_EQ(RowsToCopy({}, 5, 0, 5), Rows{});
}

}  // namespace
}  // namespace rl
