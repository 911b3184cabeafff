#include "view/logic/type_ahead.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace rl {
namespace {

struct Cities {
    std::vector<std::wstring> names{L"Basel", L"Bern", L"bergen", L"Aarau", L"Zug"};
    TypeAhead typeAhead;

    std::optional<int32_t> Type(wchar_t unit, uint64_t nowMs, int32_t currentRow) {
        return typeAhead.Type(unit, nowMs, currentRow, static_cast<int32_t>(names.size()),
                              [&](int32_t row) { return names[static_cast<size_t>(row)]; });
    }
};

using Row = std::optional<int32_t>;

TEST(TypeAhead, GoesToTheNextRowForTheFirstLetter) {
    Cities cities;
    EXPECT_EQ(cities.Type(L'b', 5000, 0), Row{1});
}

TEST(TypeAhead, StaysOnTheCurrentRowForFurtherLetters) {
    Cities cities;
    EXPECT_EQ(cities.Type(L'b', 5000, 0), Row{1});
    EXPECT_EQ(cities.Type(L'e', 5300, 1), Row{1});
    EXPECT_EQ(cities.Type(L'r', 5600, 1), Row{1});
    EXPECT_EQ(cities.Type(L'g', 5900, 1), Row{2});
}

TEST(TypeAhead, IgnoresCase) {
    Cities cities;
    EXPECT_EQ(cities.Type(L'Z', 5000, 0), Row{4});
    cities.typeAhead.Clear();
    EXPECT_EQ(cities.Type(L'B', 5000, 1), Row{2});
}

TEST(TypeAhead, GoesAroundTheEnd) {
    Cities cities;
    EXPECT_EQ(cities.Type(L'b', 5000, 4), Row{0});
    EXPECT_EQ(cities.Type(L'a', 8000, 4), Row{3});
}

TEST(TypeAhead, ComesBackToTheCurrentRowWhenItIsTheOnlyOne) {
    Cities cities;
    EXPECT_EQ(cities.Type(L'z', 5000, 4), Row{4});
}

TEST(TypeAhead, BeginsANewPrefixAfterMoreThanASecond) {
    Cities cities;
    EXPECT_EQ(cities.Type(L'b', 5000, 4), Row{0});
    EXPECT_EQ(cities.Type(L'a', 6000, 0), Row{0}) << "a second is still together";
    EXPECT_EQ(cities.Type(L'a', 7001, 0), Row{3});
}

TEST(TypeAhead, BeginsANewPrefixAfterClear) {
    Cities cities;
    EXPECT_EQ(cities.Type(L'b', 5000, 4), Row{0});
    cities.typeAhead.Clear();
    EXPECT_EQ(cities.Type(L'z', 5100, 0), Row{4});
}

TEST(TypeAhead, FindsNothingWhereNoRowBeginsWithThePrefix) {
    Cities cities;
    EXPECT_EQ(cities.Type(L'q', 5000, 0), Row{});
    EXPECT_EQ(cities.Type(L'b', 5100, 0), Row{}) << "the prefix is \"qb\" now";
}

TEST(TypeAhead, BeginsAtTheFirstRowWithoutACurrentOne) {
    Cities cities;
    EXPECT_EQ(cities.Type(L'b', 5000, -1), Row{0});
    cities.typeAhead.Clear();
    EXPECT_EQ(cities.Type(L'b', 5000, 99), Row{0});
}

TEST(TypeAhead, WorksFromTheFirstMillisecondOn) {
    Cities cities;
    EXPECT_EQ(cities.Type(L'b', 0, 4), Row{0});
    EXPECT_EQ(cities.Type(L'e', 10, 0), Row{1});
}

TEST(TypeAhead, IgnoresControlCharactersAndEmptyTables) {
    Cities cities;
    EXPECT_EQ(cities.Type(L'\r', 5000, 0), Row{});
    EXPECT_EQ(cities.Type(L'b', 5000, 0), Row{1});
    cities.names.clear();
    EXPECT_EQ(cities.Type(L'e', 5000, 0), Row{});
}

}  // namespace
}  // namespace rl
