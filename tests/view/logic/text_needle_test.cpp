#include "view/logic/text_needle.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace rl {
namespace {

TEST(FindPlace, FindsTwoUnitsAtTheirDistance) {
    const std::u16string text = u"..a..b..A.B.....aXb....";
    const UnitPair<char16_t> a{u'a', u'A'};
    const UnitPair<char16_t> b{u'b', u'B'};
    const size_t count = text.size() - 2;

    EXPECT_EQ(FindPlace(text.data(), 0, count, 2, a, b), 8U);
    EXPECT_EQ(FindPlace(text.data(), 9, count, 2, a, b), 16U);
    EXPECT_EQ(FindPlace(text.data(), 17, count, 2, a, b), count);
    EXPECT_EQ(FindPlace(text.data(), 0, count, 1, a, b), count);
}

// The kernel works on 16-bit units; a scalar twin says what it must find, at every alignment and
// length, and the sanitizer sees whether it reads beyond the text.
TEST(FindPlace, AgreesWithALoopOnRandomTexts) {
    std::mt19937 random(7);
    for (int round = 0; round < 3000; ++round) {
        const size_t distance = random() % 5;
        const size_t count = random() % 40;
        std::vector<char16_t> text(count + distance);
        for (char16_t& unit : text) {
            unit = static_cast<char16_t>(u'a' + random() % 4);
        }
        const UnitPair<char16_t> first{u'a', u'b'};
        const UnitPair<char16_t> last{u'c', u'c'};
        size_t expected = 0;
        while (expected < count && !((text[expected] == u'a' || text[expected] == u'b') &&
                                     text[expected + distance] == u'c')) {
            ++expected;
        }
        ASSERT_EQ(FindPlace(text.data(), 0, count, distance, first, last), expected);
    }
}

bool IsIn(std::wstring_view wanted, std::wstring_view text, bool caseSensitive = false) {
    const TextNeedle needle(wanted, caseSensitive);
    EXPECT_TRUE(needle.IsUsable());
    return needle.IsIn(text);
}

TEST(TextNeedle, IgnoresCaseUnlessToldOtherwise) {
    EXPECT_TRUE(IsIn(L"Bern", L"in BERN, today"));
    EXPECT_TRUE(IsIn(L"\u00C4rger", L"kein \u00E4RGER"));
    EXPECT_FALSE(IsIn(L"Bern", L"in BERN", true));
    EXPECT_TRUE(IsIn(L"Bern", L"in Bern", true));
}

TEST(TextNeedle, FindsAtBothEndsAndNothingBeyond) {
    EXPECT_TRUE(IsIn(L"abc", L"abc"));
    EXPECT_TRUE(IsIn(L"abc", L"xxabc"));
    EXPECT_FALSE(IsIn(L"abc", L"ab"));
    EXPECT_FALSE(IsIn(L"abc", L""));
    EXPECT_FALSE(IsIn(L"abc", L"abxabyab"));
    EXPECT_TRUE(IsIn(L"x", L"ABCX"));
}

TEST(TextNeedle, IsOfNoUseForNothingAndForSurrogatesWithoutCase) {
    EXPECT_FALSE(TextNeedle(L"", false).IsUsable());
    EXPECT_FALSE(TextNeedle(L"", true).IsUsable());
    EXPECT_FALSE(TextNeedle(L"a\xD83D\xDE00", false).IsUsable());
    EXPECT_TRUE(TextNeedle(L"a\xD83D\xDE00", true).IsUsable());
}

TEST(TextNeedle, KnowsWhatItIsMadeOf) {
    EXPECT_TRUE(TextNeedle(L"aBc", false).Holds(L'b'));
    EXPECT_TRUE(TextNeedle(L"abc", false).Holds(L'B'));
    EXPECT_FALSE(TextNeedle(L"abc", true).Holds(L'B'));
    EXPECT_FALSE(TextNeedle(L"abc", false).Holds(L'"'));
}

// Letters with three cases stand at neither end of what is looked at, but still match.
TEST(TextNeedle, AgreesWithLoweringBothTexts) {
    std::mt19937 random(11);
    constexpr std::wstring_view kLetters = L"kK\u212AaAzZ";
    for (int round = 0; round < 5000; ++round) {
        std::wstring text;
        std::wstring wanted;
        for (size_t n = random() % 30; n > 0; --n) {
            text.push_back(kLetters[random() % kLetters.size()]);
        }
        for (size_t n = 1 + random() % 4; n > 0; --n) {
            wanted.push_back(kLetters[random() % kLetters.size()]);
        }
        const TextNeedle needle(wanted, false);
        if (!needle.IsUsable()) {
            continue;
        }
        std::wstring foldedText = text;
        std::wstring foldedWanted = wanted;
        FoldText(foldedText);
        FoldText(foldedWanted);
        ASSERT_EQ(needle.IsIn(text), foldedText.find(foldedWanted) != std::wstring::npos);
    }
}

}  // namespace
}  // namespace rl
