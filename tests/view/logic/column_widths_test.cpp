#include "view/logic/column_widths.h"

#include <gtest/gtest.h>

#include <set>

#include "tests/support/memory_table.h"

namespace rl {
namespace {

using test::MemoryTable;
using Widths = std::vector<int>;

/// Ten pixels for each unit, and a count of the questions.
struct Ruler {
    int calls = 0;
    MeasureText Measure() {
        return [this](std::wstring_view text) {
            ++calls;
            return static_cast<int>(text.size()) * 10;
        };
    }
};

ColumnMetrics MetricsOf(const MemoryTable& table, const ColumnSizing& sizing = {},
                        bool lineNumbers = false, bool header = false) {
    Ruler ruler;
    const RowView rows(table, header);
    return MeasureColumns(rows, GridColumns(table.ColumnCount(), lineNumbers), sizing,
                          ruler.Measure());
}

TEST(SampleRow, AlwaysTakesTheFirstAndTheLast) {
    EXPECT_EQ(SampleRow(1001, 0, 1000), 0);
    EXPECT_EQ(SampleRow(1001, 999, 1000), 1000);
    EXPECT_EQ(SampleRow(50, 0, 2), 0);
    EXPECT_EQ(SampleRow(50, 1, 2), 49);
}

TEST(SampleRow, SpreadsTheRestEvenly) {
    EXPECT_EQ(SampleRow(10, 1, 4), 3);
    EXPECT_EQ(SampleRow(11, 1, 4), 3);
    EXPECT_EQ(SampleRow(11, 2, 4), 6);
}

TEST(SampleRow, StaysRightForHugeTables) {
    EXPECT_EQ(SampleRow(2000000000, 999, 1000), 1999999999);
    EXPECT_EQ(SampleRow(2000000000, 500, 1000), 1001001000);
}

TEST(SampleRow, IsTheFirstRowWhereThereIsNothingToSpread) {
    EXPECT_EQ(SampleRow(1, 0, 1), 0);
    EXPECT_EQ(SampleRow(100, 0, 1), 0);
    EXPECT_EQ(SampleRow(0, 0, 0), 0);
}

TEST(SampleCount, IsNothingWhereEitherIsBelowOne) {
    EXPECT_EQ(SampleCount(0, 1000), 0);
    EXPECT_EQ(SampleCount(10, 0), 0);
    EXPECT_EQ(SampleCount(10, -3), 0);
    EXPECT_EQ(SampleCount(10, 1000), 10);
    EXPECT_EQ(SampleCount(5000, 1000), 1000);
}

TEST(MeasureColumns, TakesTheWidestSampleAndTheRoomAroundIt) {
    const MemoryTable table({{L"a", L"x"}, {L"aaaa", L"xx"}, {L"aa", L"xxx"}});

    EXPECT_EQ(MetricsOf(table, {.decimalAlign = false}).widths, (Widths{104, 104}))
        << "\"Column 1\" is wider than the cells";
    const MemoryTable wide = MemoryTable::Row({L"aaaaaaaaaaaa", L"x"});
    EXPECT_EQ(MetricsOf(wide).widths, (Widths{144, 104}));
}

TEST(MeasureColumns, IsAtLeastAsWideAsTheHeader) {
    const MemoryTable table({{L"a long header", L"b"}, {L"1", L"2"}});

    EXPECT_EQ(MetricsOf(table, {}, false, true).widths, (Widths{154, 34}));
}

TEST(MeasureColumns, CapsAColumnUnlessItIsAlone) {
    const std::wstring huge(2000, L'x');

    EXPECT_EQ(MetricsOf(MemoryTable::Row({huge, L"y"})).widths[0], 300);
    EXPECT_EQ(MetricsOf(MemoryTable::Row({huge, L"y"}), {.dpi = 144}).widths[0], 450);
    EXPECT_EQ(MetricsOf(MemoryTable::Row({huge})).widths[0], 20024);
    EXPECT_EQ(MetricsOf(MemoryTable::Row({huge}), {}, true).widths[1], 300)
        << "the line-number column counts as a column";
    EXPECT_EQ(MetricsOf(MemoryTable::Row({huge, L"y"}), {.maxColumnWidth = 0}).widths[0], 20024);
}

TEST(MeasureColumns, CapsBelowTheNarrowestWidthWhenAskedTo) {
    EXPECT_EQ(MetricsOf(MemoryTable::Row({L"a", L"b"}), {.maxColumnWidth = 10}).widths,
              (Widths{10, 10}));
}

TEST(MeasureColumns, MakesTheLineNumberColumnAsWideAsTheLastNumber) {
    std::vector<std::wstring> cells(1234, L"x");
    EXPECT_EQ(MetricsOf(MemoryTable::Column(cells), {}, true).widths[0], 52);
    EXPECT_EQ(MetricsOf(MemoryTable(), {}, true).widths, (Widths{22}))
        << "as for one row, though there is none";
}

TEST(MeasureColumns, ScalesTheRoomAroundTheText) {
    const MemoryTable table = MemoryTable::Row({L"aaaaaaaaaaaa", L"x"});

    EXPECT_EQ(MetricsOf(table, {.dpi = 192}).widths[0], 168);
    EXPECT_EQ(MetricsOf(table, {.dpi = 192}, true).widths[0], 34);
}

TEST(MeasureColumns, GivesAHiddenColumnNoWidthAndDoesNotLookAtIt) {
    const MemoryTable table = MemoryTable::Row({L"a", L"b"});
    const RowView rows(table, false);
    GridColumns columns(2, true);
    columns.Hide(0);
    Ruler ruler;
    table.cellTextCalls = 0;

    EXPECT_EQ(MeasureColumns(rows, columns, {}, ruler.Measure()).widths, (Widths{22, 0, 104}));
    EXPECT_EQ(table.cellTextCalls, 1);
}

TEST(MeasureColumns, LooksOnlyAtTheFirstAndTheLastRowForTwoSamples) {
    const MemoryTable table(
        {{L"a", L"x"}, {std::wstring(25, L'a'), L"x"}, {L"aaaaaaaaaaaa", L"x"}});

    EXPECT_EQ(MetricsOf(table, {.maxColumnSamples = 2}).widths[0], 144);
    EXPECT_EQ(MetricsOf(table, {.maxColumnSamples = 3}).widths[0], 274);
    EXPECT_EQ(MetricsOf(table, {.maxColumnSamples = 0}).widths[0], 104);
}

TEST(MeasureColumns, FetchesAndMeasuresEachSampledCellOnce) {
    const MemoryTable table({{L"a", L"12", L"1.5"}, {L"b", L"x", L"-2,25"}, {L"", L"7", L"3"}});
    const RowView rows(table, false);
    Ruler ruler;
    table.cellTextCalls = 0;
    (void)MeasureColumns(rows, GridColumns(3, false), {}, ruler.Measure());

    EXPECT_EQ(table.cellTextCalls, 9);
    EXPECT_EQ(ruler.calls, 3 + 9 + 2) << "headers, cells, integer parts of decimals";
}

TEST(MeasureColumns, MeasuresNoMoreInAColumnThatHasReachedItsLimit) {
    const std::wstring wide(100, L'x');
    const MemoryTable table({{wide, L"a"}, {L"abc", L"b"}, {wide, L"c"}, {L"1234", L"d"}});
    const RowView rows(table, false);
    for (const bool aligned : {false, true}) {
        Ruler ruler;
        const ColumnMetrics metrics =
            MeasureColumns(rows, GridColumns(2, false), {.decimalAlign = aligned}, ruler.Measure());

        EXPECT_EQ(metrics.widths, (Widths{300, 104}));
        // Two headers, the first cell and all of the second column; and what numbers need.
        EXPECT_EQ(ruler.calls, 2 + 1 + 4 + (aligned ? 1 : 0));
        EXPECT_EQ(metrics.integerWidths[0], aligned ? 40 : 0);
    }
}

TEST(MeasureColumns, MeasuresEveryCellOfAColumnWithoutALimit) {
    const std::wstring wide(100, L'x');
    const MemoryTable alone({{wide}, {wide + L"x"}});
    Ruler ruler;
    const RowView rows(alone, false);

    const ColumnMetrics metrics = MeasureColumns(rows, GridColumns(1, false), {}, ruler.Measure());

    EXPECT_EQ(metrics.widths, (Widths{1034}));
}

TEST(MeasureColumns, FindsTheWidestIntegerPartOfEachColumn) {
    const MemoryTable table(
        {{L"1.5", L"abc", L"1.000,5"}, {L"-22.25", L"+.5", L"1e5"}, {L" 3 ", L"5.", L"x"}});
    const ColumnMetrics metrics = MetricsOf(table);

    EXPECT_EQ(metrics.isNumeric, (std::vector<bool>{true, false, false}));
    EXPECT_EQ(metrics.integerWidths, (Widths{30, 0, 0}));
}

TEST(MeasureColumns, MeasuresAWholeNumberWithoutTheBlanksAroundIt) {
    EXPECT_EQ(MetricsOf(MemoryTable::Row({L"  -1234  "})).integerWidths[0], 50);
}

TEST(MeasureColumns, NumbersItsNumberLayoutByGridColumn) {
    const ColumnMetrics metrics = MetricsOf(MemoryTable::Row({L"1.5", L"x"}), {}, true);

    EXPECT_EQ(metrics.isNumeric, (std::vector<bool>{false, true, false}));
    EXPECT_EQ(metrics.integerWidths, (Widths{0, 10, 0}));
}

TEST(MeasureColumns, AlignsNothingWhenDecimalsAreNotAligned) {
    const ColumnMetrics metrics = MetricsOf(MemoryTable::Row({L"1.5"}), {.decimalAlign = false});

    EXPECT_EQ(metrics.isNumeric, (std::vector<bool>{false}));
}

TEST(MeasureColumns, SizesAnOutlineByDepthSummaryAndTheGridsWidth) {
    const MemoryTable table({{L"root", L"v"}, {L"child", L"w"}});
    const RowView rows(table, false);
    const OutlineSizing outline{.clientWidth = 1000, .nameOf = [](int32_t row) {
                                    return OutlineName{row, row == 0 ? L"2 items" : L""};
                                }};
    Ruler ruler;
    const ColumnMetrics metrics =
        MeasureColumns(rows, GridColumns(2, false), {}, ruler.Measure(), &outline);

    // "root  : 2 items" at depth 0: 150 + 32 + 24.
    EXPECT_EQ(metrics.widths, (Widths{206, 74}));
    EXPECT_EQ(metrics.isNumeric, (std::vector<bool>{false, false}));
}

TEST(MeasureColumns, CapsTheColumnsOfAnOutline) {
    const std::wstring wide(500, L'x');
    const MemoryTable table = MemoryTable::Row({wide, wide});
    const RowView rows(table, false);
    const auto nameOf = [](int32_t) { return OutlineName{3, L""}; };
    Ruler ruler;
    const auto widthsFor = [&](int clientWidth) {
        const OutlineSizing outline{.clientWidth = clientWidth, .nameOf = nameOf};
        return MeasureColumns(rows, GridColumns(2, false), {}, ruler.Measure(), &outline).widths;
    };

    EXPECT_EQ(widthsFor(1000), (Widths{450, 542}));
    EXPECT_EQ(widthsFor(3000), (Widths{700, 2292}));
    EXPECT_EQ(widthsFor(200), (Widths{90, 120}));
}

TEST(MeasureColumns, RemembersWhatTheNamesOfAnOutlineAskFor) {
    const MemoryTable table = MemoryTable::Row({std::wstring(100, L'x'), L"v"});
    const RowView rows(table, false);
    Ruler ruler;
    for (const int clientWidth : {0, 1000, 3000}) {
        const OutlineSizing outline{.clientWidth = clientWidth, .nameOf = [](int32_t) {
                                        return OutlineName{3, L""};
                                    }};
        const ColumnMetrics metrics =
            MeasureColumns(rows, GridColumns(2, false), {}, ruler.Measure(), &outline);
        EXPECT_EQ(metrics.outlineName, 1000 + 5 * 16 + 24) << clientWidth;
    }
}

TEST(OutlineNameCap, IsAShareOfTheWindowUpToALimit) {
    EXPECT_EQ(OutlineNameCap(1000, 96), 450);
    EXPECT_EQ(OutlineNameCap(3000, 96), 700);
    EXPECT_EQ(OutlineNameCap(3000, 144), 1050);
    EXPECT_EQ(OutlineNameCap(0, 96), 0);
}

}  // namespace
}  // namespace rl
