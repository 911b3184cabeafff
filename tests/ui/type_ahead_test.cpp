// Letters typed in the grid lead to the next row that begins with them.
#include <gtest/gtest.h>

#include "tests/ui/support/fakes.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

constexpr const char* kFruit =
    "fruit,colour\napple,red\nBanana,yellow\nblueberry,blue\nelder,black\napricot,orange\n";
constexpr ULONGLONG kNewWord = 1100;  // milliseconds: what comes later begins anew

class TypeAhead : public testing::Test {
protected:
    TypeAhead() : viewer_(host_.OpenText(kFruit)) {
        Click(viewer_.Grid(), viewer_.CellCenter(0, 0));
    }

    [[nodiscard]] std::wstring At() const { return viewer_.Status(4); }

    UiHost host_;
    Viewer viewer_;
};

TEST_F(TypeAhead, LooksFromTheNextRowOnWithoutRegardToCase) {
    Type(L"b");

    EXPECT_EQ(At(), L" 2:1");
}

TEST_F(TypeAhead, JoinsLettersTypedQuickly) {
    Type(L"bl");

    EXPECT_EQ(At(), L" 3:1");
}

TEST_F(TypeAhead, BeginsAnewAfterASecond) {
    Type(L"b");
    TheFakes().clockOffset += kNewWord;
    Type(L"e");

    EXPECT_EQ(At(), L" 4:1");
}

TEST_F(TypeAhead, BeginsAnewAfterASort) {
    TheFakes().clockStopped = true;
    Type(L"b");
    ASSERT_EQ(At(), L" 2:1");
    Click(viewer_.Header(), viewer_.HeaderCenter(1));
    const std::wstring before = At();

    Type(L"l");  // "bl" would lead to another row

    EXPECT_EQ(At(), before);
}

TEST_F(TypeAhead, BeginsAnewAfterAFilter) {
    TheFakes().clockStopped = true;
    Type(L"b");
    ASSERT_EQ(At(), L" 2:1");
    SendMessageW(GetDlgItem(viewer_.Window(), 2001), WM_CHAR, L'e', 1);
    ASSERT_EQ(At(), L"");

    Type(L"l");

    EXPECT_EQ(viewer_.SelectedRows(), std::vector<int>{});
}

TEST_F(TypeAhead, TakesACharacterOfTheNumericPadAfterAKeyThatWasUsed) {
    Key('C');
    SendMessageW(viewer_.Grid(), WM_SYSKEYDOWN, VK_MENU, 1);
    SendMessageW(viewer_.Grid(), WM_CHAR, L'e', 1);

    EXPECT_EQ(At(), L" 4:1");
}

TEST_F(TypeAhead, WrapsAroundAtTheEnd) {
    Type(L"a");
    EXPECT_EQ(At(), L" 5:1");
    TheFakes().clockOffset += kNewWord;
    Type(L"a");
    EXPECT_EQ(At(), L" 1:1");
}

TEST_F(TypeAhead, LooksInTheCurrentColumn) {
    Click(viewer_.Grid(), viewer_.CellCenter(0, 1));

    Type(L"b");

    EXPECT_EQ(At(), L" 3:2");
    EXPECT_EQ(viewer_.PaneText(), L"blue");
}

TEST_F(TypeAhead, StaysWhenNothingBegins) {
    Type(L"z");

    EXPECT_EQ(At(), L" 1:1");
}

TEST_F(TypeAhead, LeavesLettersOfTheHostAlone) {
    host_.PassKeyGuard();

    Type(L"n");

    EXPECT_EQ(At(), L" 1:1");
    EXPECT_EQ(UiHost::TakeKeys(), (std::vector<WPARAM>{'N'}));
}

}  // namespace

}  // namespace rl::test
