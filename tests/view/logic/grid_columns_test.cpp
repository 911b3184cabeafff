#include "view/logic/grid_columns.h"

#include <gtest/gtest.h>

#include "tests/support/memory_table.h"

namespace rl {
namespace {

using test::MemoryTable;

TEST(DataColumnName, IsTheHeaderCell) {
    const MemoryTable table({{L"City", L"", L" x "}, {L"a", L"b", L"c"}});

    EXPECT_EQ(DataColumnName(table, true, 0), L"City");
    EXPECT_EQ(DataColumnName(table, true, 2), L" x ");
}

TEST(DataColumnName, IsANumberFromOneForAnEmptyHeaderCell) {
    const MemoryTable table({{L"a", L"b", L""}, {L"1", L"2", L"3"}});

    EXPECT_EQ(DataColumnName(table, true, 2), L"Column 3");
}

TEST(DataColumnName, IsANumberWithoutAHeaderRow) {
    const MemoryTable table = MemoryTable::Row({L"City"});

    EXPECT_EQ(DataColumnName(table, false, 0), L"Column 1");
    EXPECT_EQ(DataColumnName(MemoryTable(), true, 0), L"Column 1");
}

TEST(GridColumns, NumbersDataColumnsFromZeroWithoutLineNumbers) {
    const GridColumns columns(3, false);

    EXPECT_EQ(columns.GridCount(), 3);
    EXPECT_EQ(columns.DataColumn(0), 0);
    EXPECT_EQ(columns.DataColumn(2), 2);
    EXPECT_EQ(columns.DataColumn(3), -1);
    EXPECT_EQ(columns.GridColumn(2), 2);
    EXPECT_FALSE(columns.IsLineNumber(0));
}

TEST(GridColumns, PutsTheLineNumbersInFront) {
    const GridColumns columns(3, true);

    EXPECT_EQ(columns.GridCount(), 4);
    EXPECT_TRUE(columns.IsLineNumber(0));
    EXPECT_FALSE(columns.IsLineNumber(1));
    EXPECT_EQ(columns.DataColumn(0), -1);
    EXPECT_EQ(columns.DataColumn(1), 0);
    EXPECT_EQ(columns.DataColumn(4), -1);
    EXPECT_EQ(columns.DataColumn(-1), -1);
    EXPECT_EQ(columns.GridColumn(0), 1);
    EXPECT_EQ(columns.GridColumn(3), -1);
    EXPECT_EQ(columns.GridColumn(-1), -1);
}

TEST(GridColumns, KeepsTheSameColumnsHiddenWhenOneGoes) {
    GridColumns columns(4, true);
    columns.Hide(0);
    columns.Hide(2);
    columns.Remove(1);
    columns.Remove(7);
    columns.Remove(-1);
    ASSERT_EQ(columns.DataCount(), 3);
    EXPECT_TRUE(columns.IsHidden(0));
    EXPECT_TRUE(columns.IsHidden(1));
    EXPECT_FALSE(columns.IsHidden(2));
    columns.Remove(0);
    EXPECT_TRUE(columns.IsHidden(0));
    EXPECT_FALSE(columns.IsHidden(1));
}

TEST(GridColumns, HidesOnlyWhatExists) {
    GridColumns columns(2, true);

    EXPECT_TRUE(columns.Hide(1));
    EXPECT_FALSE(columns.Hide(2));
    EXPECT_FALSE(columns.Hide(-1));
    EXPECT_TRUE(columns.IsHidden(1));
    EXPECT_FALSE(columns.IsHidden(0));
    EXPECT_FALSE(columns.IsHidden(2));
    columns.ShowAll();
    EXPECT_FALSE(columns.IsHidden(1));
}

TEST(GridColumns, KeepsTheFlagsOfExistingColumnsWhenTheShapeChanges) {
    GridColumns columns(2, false);
    columns.Hide(1);
    columns.Reset(4, true);

    EXPECT_TRUE(columns.IsHidden(1));
    EXPECT_FALSE(columns.IsHidden(2));
    EXPECT_FALSE(columns.IsHidden(3));
    columns.Reset(1, true);
    columns.Reset(2, true);
    EXPECT_FALSE(columns.IsHidden(1)) << "a column that comes back is a new one";
}

TEST(GridHeaderText, NamesLineNumbersDataAndOutline) {
    const MemoryTable table({{L"City", L""}, {L"a", L"b"}});
    const RowView rows(table, true);
    const GridColumns columns(2, true);

    EXPECT_EQ(GridHeaderText(columns, rows, 0), L"#");
    EXPECT_EQ(GridHeaderText(columns, rows, 1), L"City");
    EXPECT_EQ(GridHeaderText(columns, rows, 2), L"Column 2");
    EXPECT_EQ(GridHeaderText(columns, rows, 3), L"");
    EXPECT_EQ(GridHeaderText(columns, rows, 0, true), L"#");
    EXPECT_EQ(GridHeaderText(columns, rows, 1, true), L"Name");
    EXPECT_EQ(GridHeaderText(columns, rows, 2, true), L"Value");
}

TEST(GridCellText, CountsLinesInTheOrderOfTheView) {
    const MemoryTable table = MemoryTable::Column({L"name", L"b", L"c", L"a"});
    RowView rows(table, true);
    rows.SetSort(0, -1);
    const GridColumns columns(1, true);

    EXPECT_EQ(GridCellText(columns, rows, 0, 0), L"1");
    EXPECT_EQ(GridCellText(columns, rows, 0, 1), L"c");
    EXPECT_EQ(GridCellText(columns, rows, 2, 0), L"3");
    EXPECT_EQ(GridCellText(columns, rows, 2, 1), L"a");
    EXPECT_EQ(GridCellText(columns, rows, 3, 0), L"");
    EXPECT_EQ(GridCellText(columns, rows, -1, 0), L"");
    EXPECT_EQ(GridCellText(columns, rows, 0, 2), L"");
}

}  // namespace
}  // namespace rl
