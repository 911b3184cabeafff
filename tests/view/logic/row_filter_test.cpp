#include "view/logic/row_filter.h"

#include <gtest/gtest.h>

namespace rl {
namespace {

bool Keeps(std::wstring_view filter, std::wstring_view cell, bool caseSensitive = false) {
    std::wstring text(cell);
    return MatchesFilter(CompileFilter(filter, caseSensitive), text, caseSensitive);
}

TEST(CompileFilter, IsInactiveForAnEmptyText) {
    EXPECT_FALSE(CompileFilter(L"", false).IsActive());
    EXPECT_TRUE(CompileFilter(L" ", false).IsActive()) << "a blank is looked for like any text";
}

TEST(CompileFilter, TakesTheFirstCharacterAsOperatorWhenMoreFollows) {
    const ColumnFilter filter = CompileFilter(L"<1e3", false);

    EXPECT_EQ(filter.op, L'<');
    EXPECT_EQ(filter.operand, L"1e3");
    EXPECT_TRUE(filter.hasNumber);
    EXPECT_EQ(filter.number, 1000);
}

TEST(CompileFilter, LooksForALoneOperatorLikeAnyText) {
    for (const std::wstring_view text : {L"=", L"!", L"<", L">"}) {
        EXPECT_EQ(CompileFilter(text, false).op, 0);
        EXPECT_EQ(CompileFilter(text, false).operand, text);
    }
    EXPECT_TRUE(Keeps(L"!", L"wow!"));
    EXPECT_FALSE(Keeps(L"!", L"wow"));
}

TEST(CompileFilter, ReadsNumbersOnlyForTheTwoComparisons) {
    EXPECT_FALSE(CompileFilter(L"=5", false).hasNumber);
    EXPECT_FALSE(CompileFilter(L"!5", false).hasNumber);
    EXPECT_TRUE(CompileFilter(L">5", false).hasNumber);
    EXPECT_FALSE(CompileFilter(L">5a", false).hasNumber);
}

TEST(CompileFilter, KeepsABlankAfterTheOperator) {
    EXPECT_EQ(CompileFilter(L"= a", false).operand, L" a");
    EXPECT_TRUE(Keeps(L"> 5", L"6")) << "a number may have blanks around it";
    EXPECT_FALSE(Keeps(L"> 5", L"5"));
}

TEST(CompileFilter, LowersOnlyWhereCaseDoesNotCount) {
    EXPECT_EQ(CompileFilter(L"=AbC", false).operand, L"abc");
    EXPECT_EQ(CompileFilter(L"=AbC", true).operand, L"AbC");
}

TEST(MatchesFilter, ComparesNumbersWithNumbersAndTextWithText) {
    EXPECT_FALSE(Keeps(L">10", L"9"));
    EXPECT_FALSE(Keeps(L">10", L"10"));
    EXPECT_TRUE(Keeps(L">10", L"11"));
    EXPECT_TRUE(Keeps(L">10", L"abc"));
    EXPECT_FALSE(Keeps(L">10", L""));
}

TEST(MatchesFilter, ReadsNumbersInEveryForm) {
    EXPECT_TRUE(Keeps(L"<1e3", L"999.5"));
    EXPECT_TRUE(Keeps(L"<1e3", L"-5"));
    EXPECT_FALSE(Keeps(L"<1e3", L"1000"));
    EXPECT_TRUE(Keeps(L"<43", L" 42 "));
    EXPECT_FALSE(Keeps(L"<42", L" 42 "));
}

TEST(MatchesFilter, TakesEqualityAsTheWholeTextUntrimmed) {
    EXPECT_TRUE(Keeps(L"=Abc", L"abc"));
    EXPECT_TRUE(Keeps(L"=Abc", L"ABC"));
    EXPECT_FALSE(Keeps(L"=Abc", L"abc "));
    EXPECT_FALSE(Keeps(L"=Abc", L"ABC", true));
}

TEST(MatchesFilter, KeepsWhatLacksTheOperandAfterAnExclamationMark) {
    EXPECT_TRUE(Keeps(L"!x", L"abc"));
    EXPECT_TRUE(Keeps(L"!x", L""));
    EXPECT_FALSE(Keeps(L"!x", L"aXb"));
    EXPECT_TRUE(Keeps(L"!x", L"aXb", true));
}

TEST(MatchesFilter, ComparesTextByUnitsAndTakesAPrefixAsLess) {
    EXPECT_TRUE(Keeps(L"<abc", L"ab"));
    EXPECT_FALSE(Keeps(L"<abc", L"abc"));
    EXPECT_FALSE(Keeps(L">abc", L"abc"));
    EXPECT_TRUE(Keeps(L">abc", L"abcd"));
    EXPECT_TRUE(Keeps(L">abc", L"ABD"));
    EXPECT_TRUE(Keeps(L">b", L"\u00E9")) << "no collation: 0xE9 follows every ASCII letter";
}

TEST(MatchesFilter, ComparesANumberAsTextWhereTheOperandIsNone) {
    EXPECT_TRUE(Keeps(L">10x", L"9"));
    EXPECT_FALSE(Keeps(L"<10x", L"9"));
}

TEST(MatchesFilter, FindsTheTextAnywhereInTheCell) {
    EXPECT_TRUE(Keeps(L"bc", L"ABCD"));
    EXPECT_FALSE(Keeps(L"bc", L"ABCD", true));
    EXPECT_TRUE(Keeps(L" b", L"a b"));
    EXPECT_FALSE(Keeps(L" b", L"ab"));
}

TEST(MatchesFilter, LetsEverythingPassAnInactiveFilter) {
    EXPECT_TRUE(Keeps(L"", L""));
}

}  // namespace
}  // namespace rl
