#include "view/logic/find_text.h"

#include <gtest/gtest.h>

#include <vector>

namespace rl {
namespace {

using Place = std::optional<size_t>;

TEST(FindInCell, TakesTheFirstOccurrenceFromThePositionOn) {
    EXPECT_EQ(FindInCell(L"abcabc", L"bc", 0, false, false), Place{1});
    EXPECT_EQ(FindInCell(L"abcabc", L"bc", 1, false, false), Place{1});
    EXPECT_EQ(FindInCell(L"abcabc", L"bc", 2, false, false), Place{4});
    EXPECT_EQ(FindInCell(L"abcabc", L"bc", 5, false, false), Place{});
    EXPECT_EQ(FindInCell(L"abcabc", L"bc", 99, false, false), Place{});
}

TEST(FindInCell, TakesTheLastOccurrenceThatStartsBeforeThePosition) {
    EXPECT_EQ(FindInCell(L"abcabc", L"bc", 6, true, false), Place{4});
    EXPECT_EQ(FindInCell(L"abcabc", L"bc", 5, true, false), Place{4});
    EXPECT_EQ(FindInCell(L"abcabc", L"bc", 4, true, false), Place{1});
    EXPECT_EQ(FindInCell(L"abcabc", L"bc", 1, true, false), Place{});
    EXPECT_EQ(FindInCell(L"abcabc", L"bc", 0, true, false), Place{});
}

TEST(FindInCell, CountsAWordOnlyWhenNothingOfAWordTouchesIt) {
    EXPECT_EQ(FindInCell(L"cat", L"cat", 0, false, true), Place{0});
    EXPECT_EQ(FindInCell(L"cats cat", L"cat", 0, false, true), Place{5});
    EXPECT_EQ(FindInCell(L"cat cats", L"cat", 8, true, true), Place{0});
    EXPECT_EQ(FindInCell(L"_cat cat2", L"cat", 0, false, true), Place{});
    EXPECT_EQ(FindInCell(L"(cat)", L"cat", 0, false, true), Place{1});
    EXPECT_EQ(FindInCell(L"\u00E9cat", L"cat", 0, false, true), Place{});
    EXPECT_EQ(FindInCell(L"cat\x80", L"cat", 0, false, true), Place{}) << "from code 128 up";
    EXPECT_EQ(FindInCell(L"cat\x7F", L"cat", 0, false, true), Place{0});
}

TEST(FindInCell, FindsOverlappingWords) {
    EXPECT_EQ(FindInCell(L"a.a.ab", L"a.a", 0, false, true), Place{0});
    EXPECT_EQ(FindInCell(L"ba.a.a", L"a.a", 0, false, true), Place{3});
}

TEST(FindInCell, FindsNoEmptyText) {
    EXPECT_EQ(FindInCell(L"abc", L"", 0, false, false), Place{});
}

class Cells final : public ICellSource {
public:
    using Rows = std::vector<std::vector<std::wstring>>;
    explicit Cells(Rows rows) : rows_(std::move(rows)) {}
    int32_t RowCount() const override { return static_cast<int32_t>(rows_.size()); }
    int32_t ColumnCount() const override {
        return rows_.empty() ? 0 : static_cast<int32_t>(rows_[0].size());
    }
    std::wstring CellText(int32_t row, int32_t column) const override {
        return rows_[static_cast<size_t>(row)][static_cast<size_t>(column)];
    }
    std::vector<std::vector<std::wstring>> rows_;
};

const Cells kCells({{L"x", L"Aa"}, {L"a", L"b"}, {L"c", L"a"}});

constexpr FindAnswer kAtEnd{FindOutcome::AtEnd, -1, -1};
constexpr FindAnswer kNothing{FindOutcome::Nothing, -1, -1};
constexpr FindAnswer HitAt(int32_t row, int32_t column) {
    return {FindOutcome::Hit, row, column};
}

TEST(CellFinder, WalksForwardRowByRow) {
    CellFinder finder;
    EXPECT_EQ(finder.Find(kCells, {.text = L"a", .first = true}), HitAt(0, 1));
    EXPECT_EQ(finder.Find(kCells, {.text = L"a"}), HitAt(0, 1)) << "the second one in the cell";
    EXPECT_EQ(finder.Find(kCells, {.text = L"a"}), HitAt(1, 0));
    EXPECT_EQ(finder.Find(kCells, {.text = L"a"}), HitAt(2, 1));
    EXPECT_EQ(finder.Find(kCells, {.text = L"a"}), kAtEnd);
    EXPECT_EQ(finder.Find(kCells, {.text = L"a"}), kAtEnd) << "it keeps its place";
}

TEST(CellFinder, WalksBackwardsFromTheLastCell) {
    CellFinder finder;
    const FindRequest next{.text = L"a", .backwards = true};
    EXPECT_EQ(finder.Find(kCells, {.text = L"a", .first = true, .backwards = true}), HitAt(2, 1));
    EXPECT_EQ(finder.Find(kCells, next), HitAt(1, 0));
    EXPECT_EQ(finder.Find(kCells, next), HitAt(0, 1));
    EXPECT_EQ(finder.Find(kCells, next), HitAt(0, 1));
    EXPECT_EQ(finder.Find(kCells, next), kAtEnd);
}

TEST(CellFinder, StartsAfreshForAnotherTextOrOption) {
    CellFinder finder;
    EXPECT_EQ(finder.Find(kCells, {.text = L"c"}), HitAt(2, 0));
    EXPECT_EQ(finder.Find(kCells, {.text = L"a"}), HitAt(0, 1));
    EXPECT_EQ(finder.Find(kCells, {.text = L"a", .wholeWords = true}), HitAt(1, 0));
    EXPECT_EQ(finder.Find(kCells, {.text = L"a", .matchCase = true, .wholeWords = true}),
              HitAt(1, 0));
    EXPECT_EQ(finder.Find(kCells, {.text = L"a", .matchCase = true}), HitAt(0, 1));
}

TEST(CellFinder, StartsAfreshForAFirstSearchInTheSameDirectionOnly) {
    CellFinder finder;
    EXPECT_EQ(finder.Find(kCells, {.text = L"b"}), HitAt(1, 1));
    EXPECT_EQ(finder.Find(kCells, {.text = L"b", .first = true}), HitAt(1, 1));
    EXPECT_EQ(finder.Find(kCells, {.text = L"b"}), kAtEnd);
    EXPECT_EQ(finder.Find(kCells, {.text = L"b", .first = true, .backwards = true}), HitAt(1, 1))
        << "goes on from the hit, in the other direction";
    EXPECT_EQ(finder.Find(kCells, {.text = L"b", .backwards = true}), kAtEnd);
}

TEST(CellFinder, MatchesCaseWhenAsked) {
    CellFinder finder;
    EXPECT_EQ(finder.Find(kCells, {.text = L"A", .matchCase = true}), HitAt(0, 1));
    EXPECT_EQ(finder.Find(kCells, {.text = L"A", .matchCase = true}), kAtEnd);
}

TEST(CellFinder, FindsNothingWithoutABeepWhereThereIsNothing) {
    CellFinder finder;
    EXPECT_EQ(finder.Find(kCells, {.text = L""}), kNothing);
    EXPECT_EQ(finder.Find(Cells(Cells::Rows{}), {.text = L"a"}), kNothing);
    EXPECT_EQ(finder.Find(Cells(Cells::Rows(1)), {.text = L"a"}), kNothing);
}

TEST(CellFinder, KeepsItsPlaceWhenTheTableShrinks) {
    CellFinder finder;
    EXPECT_EQ(finder.Find(kCells, {.text = L"c"}), HitAt(2, 0));
    const Cells fewer(Cells::Rows(1, {L"c", L"c"}));
    EXPECT_EQ(finder.Find(fewer, {.text = L"c"}), kAtEnd);
    EXPECT_EQ(finder.Find(fewer, {.text = L"c", .backwards = true}), HitAt(0, 1));
    const Cells narrow(Cells::Rows(1, {L"c"}));
    EXPECT_EQ(finder.Find(narrow, {.text = L"c", .backwards = true}), HitAt(0, 0));
}

TEST(CellFinder, ForgetsItsPlaceWhenReset) {
    CellFinder finder;
    EXPECT_EQ(finder.Find(kCells, {.text = L"b"}), HitAt(1, 1));
    finder.Reset();
    EXPECT_EQ(finder.Find(kCells, {.text = L"b"}), HitAt(1, 1));
}

TEST(CellFinder, KnowsWhetherItWouldStartAfresh) {
    CellFinder finder;
    EXPECT_TRUE(finder.IsFresh({.text = L"b"}));
    (void)finder.Find(kCells, {.text = L"b"});
    EXPECT_FALSE(finder.IsFresh({.text = L"b"}));
    EXPECT_TRUE(finder.IsFresh({.text = L"b", .first = true}));
    EXPECT_FALSE(finder.IsFresh({.text = L"b", .first = true, .backwards = true}));
}

}  // namespace
}  // namespace rl
