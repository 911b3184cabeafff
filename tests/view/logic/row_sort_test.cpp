#include "view/logic/row_sort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

namespace rl {
namespace {

std::vector<int32_t> Sorted(const std::vector<std::wstring>& cells, int32_t direction) {
    std::vector<int32_t> rows(cells.size());
    std::iota(rows.begin(), rows.end(), 0);
    SortRows(
        rows, [&](int32_t row, std::wstring& cell) { cell = cells[static_cast<size_t>(row)]; },
        direction);
    return rows;
}

using RowList = std::vector<int32_t>;

TEST(SortRows, OrdersNumbersByValue) {
    EXPECT_EQ(Sorted({L"10", L"9", L"-1", L" 1e1 "}, 1), (RowList{2, 1, 0, 3}));
}

TEST(SortRows, KeepsEqualRowsInFileOrderInBothDirections) {
    EXPECT_EQ(Sorted({L"b", L"a", L"B", L"A"}, 1), (RowList{1, 3, 0, 2}));
    EXPECT_EQ(Sorted({L"b", L"a", L"B", L"A"}, -1), (RowList{0, 2, 1, 3}));
    EXPECT_EQ(Sorted({L"1", L"2", L"1.0", L"2.0"}, -1), (RowList{1, 3, 0, 2}));
}

TEST(SortRows, LeavesTheRowsAloneWithoutADirection) {
    EXPECT_EQ(Sorted({L"b", L"a"}, 0), (RowList{0, 1}));
}

TEST(SortRows, ComparesANumberWithAWordAsText) {
    EXPECT_EQ(Sorted({L"b", L"5", L"a"}, 1), (RowList{1, 2, 0}));
}

TEST(SortRows, AsksForEachNumberOnce) {
    std::vector<int32_t> rows{0, 1, 2, 3, 4};
    int calls = 0;
    SortRows(
        rows,
        [&](int32_t row, std::wstring& cell) {
            ++calls;
            cell = std::to_wstring(10 - row);
        },
        1);
    EXPECT_EQ(calls, 5);
    EXPECT_EQ(rows, (RowList{4, 3, 2, 1, 0}));
}

TEST(SortRows, GivesWhatOneMergeSortGivesWhereTheOrderRunsInACircle) {
    ASSERT_LT(CompareCells(L"5", L"1e3"), 0) << "as numbers";
    ASSERT_LT(CompareCells(L"1e3", L"2x"), 0) << "as texts";
    ASSERT_LT(CompareCells(L"2x", L"5"), 0) << "as texts";

    EXPECT_EQ(Sorted({L"5", L"1e3", L"2x"}, 1), (RowList{2, 0, 1}));
    EXPECT_EQ(Sorted({L"1e3", L"2x", L"5"}, 1), (RowList{2, 0, 1}));
    EXPECT_EQ(Sorted({L"1e3", L"5", L"2x"}, 1), (RowList{2, 1, 0}));
    EXPECT_EQ(Sorted({L"2x", L"5", L"1e3"}, 1), (RowList{2, 0, 1}));
}

// Columns of numbers, of few values, of many, and of both take different ways to one order.
std::vector<int32_t> SortedPlainly(const std::vector<std::wstring>& cells, int32_t direction) {
    std::vector<uint32_t> positions(cells.size());
    std::iota(positions.begin(), positions.end(), 0U);
    MergeSort(positions, [&](uint32_t left, uint32_t right) {
        return CompareCells(cells[left], cells[right]) * direction < 0;
    });
    return {positions.begin(), positions.end()};
}

TEST(SortRows, GivesTheOrderOfTheComparisonInEveryKindOfColumn) {
    std::vector<std::vector<std::wstring>> columns(7);
    for (uint32_t i = 0; i < 5000; ++i) {
        const uint32_t mixed = i * 2654435761U;
        const std::wstring number = std::to_wstring(mixed % 3000);
        const std::wstring word = L"item " + std::to_wstring(mixed);
        columns[0].push_back(number);
        columns[1].push_back(L"City" + std::to_wstring(mixed % 16));
        columns[2].push_back(word);
        columns[3].push_back(i % 2 == 0 ? number : word);
        columns[4].push_back(i % 3 == 0 ? number : L"x" + std::to_wstring(mixed % 7));
        columns[6].push_back((i % 5 == 0 ? L"-" : L"") + number + (i % 7 == 0 ? L".5" : L"e-3"));
        columns[5].push_back(i == 4000 ? L"17" : word + L" and more of the same length");
    }
    for (const auto& column : columns) {
        EXPECT_EQ(Sorted(column, 1), SortedPlainly(column, 1));
        EXPECT_EQ(Sorted(column, -1), SortedPlainly(column, -1));
    }
}

TEST(CompareCells, FindsEqualWhatDiffersOnlyInCase) {
    EXPECT_EQ(CompareCells(L"abc", L"ABC"), 0);
    EXPECT_LT(CompareCells(L"abc", L"abd"), 0);
    EXPECT_GT(CompareCells(L"b", L"A"), 0);
}

TEST(MergeSort, LosesNothingWhateverTheComparisonAnswers) {
    for (uint32_t count = 0; count < 70; ++count) {
        std::vector<uint32_t> positions(count);
        std::iota(positions.begin(), positions.end(), 0U);
        const std::vector<uint32_t> all = positions;
        uint32_t state = count;
        MergeSort(positions, [&](uint32_t, uint32_t) {
            state = state * 1664525U + 1013904223U;
            return (state >> 31) != 0;
        });
        std::sort(positions.begin(), positions.end());
        EXPECT_EQ(positions, all);
    }
}

TEST(MergeSort, IsStable) {
    std::vector<uint32_t> positions(100);
    std::iota(positions.begin(), positions.end(), 0U);
    MergeSort(positions, [](uint32_t a, uint32_t b) { return a % 3 < b % 3; });

    for (size_t i = 1; i < positions.size(); ++i) {
        const uint32_t a = positions[i - 1];
        const uint32_t b = positions[i];
        EXPECT_TRUE(a % 3 < b % 3 || (a % 3 == b % 3 && a < b));
    }
}

}  // namespace
}  // namespace rl
