// Lines and columns of a source text.
#include "view/logic/source_lines.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace rl {
namespace {

using Starts = std::vector<uint32_t>;

LineIndex Index(std::wstring_view text, int tabWidth = 4) {
    const LineIndex fast = IndexLines(text, tabWidth, LineScan::Sse2);
    EXPECT_EQ(fast, IndexLines(text, tabWidth, LineScan::Plain));
    return fast;
}

TEST(LineIndex, OfAnEmptyTextIsOneLine) {
    EXPECT_EQ(Index(L"").starts, Starts{0});
    EXPECT_EQ(Index(L"").maxColumns, 0);
}

TEST(LineIndex, BreaksAtEveryKindOfLineEnd) {
    EXPECT_EQ(Index(L"a\nb\r\nc\rd").starts, (Starts{0, 2, 5, 7}));
    EXPECT_EQ(Index(L"\n\n").starts, (Starts{0, 1, 2}));
    EXPECT_EQ(Index(L"\r\r\n\n\r").starts, (Starts{0, 1, 3, 4, 5}));
}

TEST(LineIndex, HasAnEmptyLineBehindALastBreak) {
    EXPECT_EQ(Index(L"a\r\n").starts, (Starts{0, 3}));
    EXPECT_EQ(Index(L"a\r").starts, (Starts{0, 2}));
}

TEST(LineIndex, TakesOtherSeparatorsAsText) {
    EXPECT_EQ(Index(L"a\x2028z\x0085z\vz\fz").starts, Starts{0});
    EXPECT_EQ(Index(L"\x0A0A\x0D0D\x010A").starts, Starts{0});
}

TEST(LineIndex, MeasuresTheWidestLineWithItsTabs) {
    EXPECT_EQ(Index(L"ab\nabcd\nabc").maxColumns, 4);
    EXPECT_EQ(Index(L"abc\r\n").maxColumns, 3);
    EXPECT_EQ(Index(L"\t").maxColumns, 4);
    EXPECT_EQ(Index(L"abc\tx").maxColumns, 5);
    EXPECT_EQ(Index(L"abcd\tx").maxColumns, 9);
    EXPECT_EQ(Index(L"\t\tx\ny", 32).maxColumns, 65);
    EXPECT_EQ(Index(L"a\tb\tc", 1).maxColumns, 5);
    EXPECT_EQ(Index(L"x\nlast one").maxColumns, 8);
}

TEST(LineIndex, FindsBreaksAcrossTheBlocksOfTheFastPass) {
    for (size_t pad = 60; pad < 70; ++pad) {
        const std::wstring line(pad, L'x');
        for (const wchar_t* lineBreak : {L"\r\n", L"\n\r", L"\r\r", L"\n", L"\r", L"\t\r\n"}) {
            const LineIndex index = Index(line + lineBreak + line + lineBreak);
            EXPECT_GE(index.starts.size(), 3u) << pad;
        }
    }
}

TEST(LineIndex, OfAnyTextIsTheSameForBothPasses) {
    static constexpr std::wstring_view kUnits = L"\r\n\tab\x4E2D\xD83D";
    std::mt19937 random(6);
    for (int round = 0; round < 1000; ++round) {
        std::wstring text;
        for (size_t units = random() % 400; units > 0; --units) {
            text += kUnits[random() % (round % 2 == 0 ? 4 : kUnits.size())];
        }
        ASSERT_EQ(IndexLines(text, 1 + round % 32, LineScan::Sse2),
                  IndexLines(text, 1 + round % 32, LineScan::Plain))
            << round;
    }
}

TEST(LineIndex, TakesLittleMoreThanItsEntries) {
    std::wstring text;
    for (int line = 0; line < 200'000; ++line) {
        text.append(static_cast<size_t>(line % 37), L'x').append(1, L'\n');
    }
    const LineIndex index = Index(text);
    EXPECT_EQ(index.starts.size(), 200'001u);
    EXPECT_LE(index.starts.capacity(), index.starts.size() * 33 / 32);
}

TEST(Columns, CountTabsUpToTheNextStop) {
    EXPECT_EQ(ColumnsOf(L"", 4), 0);
    EXPECT_EQ(ColumnsOf(L"a\tb", 4), 5);
    EXPECT_EQ(ColumnsOf(L"abcd\t", 4), 8);
    EXPECT_EQ(ColumnsOf(std::wstring(100, L'x') + L"\t", 8), 104);
}

TEST(OffsetNear, IsTheNearestEdgeOfACharacter) {
    EXPECT_EQ(OffsetNear(L"abcd", 0, 10, 4), 0u);
    EXPECT_EQ(OffsetNear(L"abcd", 4, 10, 4), 0u);
    EXPECT_EQ(OffsetNear(L"abcd", 5, 10, 4), 1u);
    EXPECT_EQ(OffsetNear(L"abcd", 14, 10, 4), 1u);
    EXPECT_EQ(OffsetNear(L"abcd", 36, 10, 4), 4u);
    EXPECT_EQ(OffsetNear(L"abcd", 5000, 10, 4), 4u);
    EXPECT_EQ(OffsetNear(L"abcd", -50, 10, 4), 0u);
    EXPECT_EQ(OffsetNear(L"", 50, 10, 4), 0u);
}

TEST(OffsetNear, ChoosesTheNearerSideOfATab) {
    EXPECT_EQ(OffsetNear(L"a\tb", 24, 10, 4), 1u);
    EXPECT_EQ(OffsetNear(L"a\tb", 26, 10, 4), 2u);
    EXPECT_EQ(OffsetNear(L"a\tb", 44, 10, 4), 2u);
    EXPECT_EQ(OffsetNear(L"a\tb", 46, 10, 4), 3u);
    EXPECT_EQ(OffsetNear(L"\t\t", 1000, 10, 4), 2u);
    EXPECT_EQ(OffsetNear(L"ab\tc", 21, 10, 3), 2u);
}

TEST(OffsetNear, GoesBackToEveryOffsetFromItsColumn) {
    const std::wstring line = L"a\tbc\t\tdefgh\t" + std::wstring(200, L'x') + L"\ty";
    for (const int tabWidth : {1, 3, 4, 8, 32}) {
        for (size_t offset = 0; offset <= line.size(); ++offset) {
            const int64_t x = ColumnsOf(std::wstring_view(line).substr(0, offset), tabWidth) * 7;
            EXPECT_EQ(OffsetNear(line, x, 7, tabWidth), offset) << tabWidth;
        }
    }
}

TEST(OffsetNear, NeverSplitsASurrogatePair) {
    EXPECT_EQ(OffsetNear(L"a\xD83D\xDE00z", 20, 10, 4), 1u);
    EXPECT_EQ(OffsetNear(L"a\xD83D\xDE00z", 30, 10, 4), 3u);
    EXPECT_EQ(OffsetNear(L"a\xDE00\xD83Dz", 20, 10, 4), 2u);  // not a pair
}

TEST(SourceText, KnowsWhereItsLinesEnd) {
    SourceText text;
    text.Assign(L"ab\r\n\n\rc");

    ASSERT_EQ(text.LineCount(), 4);
    EXPECT_EQ(text.Line(0), L"ab");
    EXPECT_EQ(text.Line(1), L"");
    EXPECT_EQ(text.Line(2), L"");
    EXPECT_EQ(text.Line(3), L"c");
    EXPECT_EQ(text.LineEnd(1), 4u);
    EXPECT_EQ(text.LineEnd(2), 5u);
}

TEST(SourceText, DoesNotTakeAFeedAndAReturnOfTwoLinesForAPair) {
    SourceText text;
    text.Assign(L"a\r\r\nb");

    EXPECT_EQ(text.Line(0), L"a");
    EXPECT_EQ(text.Line(1), L"");
    EXPECT_EQ(text.Line(2), L"b");
}

TEST(SourceText, FindsTheLineAndTheColumnOfAPosition) {
    SourceText text;
    text.Assign(L"ab\r\nc\td");

    EXPECT_EQ(text.LineOf(0), 0);
    EXPECT_EQ(text.LineOf(2), 0);
    EXPECT_EQ(text.LineOf(3), 0);  // between CR and LF
    EXPECT_EQ(text.ColumnOf(3), 2);
    EXPECT_EQ(text.LineOf(4), 1);
    EXPECT_EQ(text.LineOf(7), 1);
    EXPECT_EQ(text.ColumnOf(6), 4);
    EXPECT_EQ(text.ColumnOf(7), 5);
}

TEST(SourceText, MeasuresItsLinesAnewForAnotherTabWidth) {
    SourceText text;
    text.Assign(L"a\tb");

    EXPECT_EQ(text.TabWidth(), 4);
    text.SetTabWidth(8);
    EXPECT_EQ(text.MaxColumns(), 9);
    text.SetTabWidth(0);
    EXPECT_EQ(text.TabWidth(), 1);
    EXPECT_EQ(text.MaxColumns(), 3);
    text.SetTabWidth(100);
    EXPECT_EQ(text.TabWidth(), 32);
    text.SetTabWidth(-7);
    EXPECT_EQ(text.TabWidth(), 1);
}

}  // namespace
}  // namespace rl
