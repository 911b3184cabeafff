#include "model/csv_dialect.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace rl {
namespace {

TEST(IsCommentLine, IsTrueForANumberSign) {
    EXPECT_TRUE(IsCommentLine(L"#", 0));
    EXPECT_TRUE(IsCommentLine(L"#a,b", 0));
    EXPECT_FALSE(IsCommentLine(L" #a", 0));
}

TEST(IsCommentLine, KnowsTheSeparatorLineInAnyLetterCase) {
    EXPECT_TRUE(IsCommentLine(L"sep=;", 0));
    EXPECT_TRUE(IsCommentLine(L"SEP=", 0));
    EXPECT_TRUE(IsCommentLine(L"sEp=abc", 0));
    EXPECT_FALSE(IsCommentLine(L"sep", 0));
    EXPECT_FALSE(IsCommentLine(L"sep;", 0));
    EXPECT_FALSE(IsCommentLine(L"step=", 0));
    EXPECT_FALSE(IsCommentLine(L"\u017Fep=;", 0));  // a long s is no s
}

TEST(IsCommentLine, TakesASemicolonOnlyWithoutASecondOneOnTheLine) {
    EXPECT_TRUE(IsCommentLine(L";", 0));
    EXPECT_TRUE(IsCommentLine(L"; remark", 0));
    EXPECT_FALSE(IsCommentLine(L";a;b", 0));
    EXPECT_FALSE(IsCommentLine(L";;", 0));
}

TEST(IsCommentLine, LooksForTheSecondSemicolonOnlyUpToTheLineBreak) {
    EXPECT_TRUE(IsCommentLine(L";a\n;b", 0));
    EXPECT_TRUE(IsCommentLine(L";a\r;b", 0));
    EXPECT_TRUE(IsCommentLine(L";\r\n;;", 0));
}

TEST(IsCommentLine, LooksAtThePositionAsked) {
    EXPECT_TRUE(IsCommentLine(L"a\n#b", 2));
    EXPECT_FALSE(IsCommentLine(L"#\nb", 2));
}

TEST(IsCommentLine, IsFalseOutsideTheText) {
    EXPECT_FALSE(IsCommentLine(L"", 0));
    EXPECT_FALSE(IsCommentLine(L"#", 1));
    EXPECT_FALSE(IsCommentLine(L"#", 99));
}

TEST(IsCommentLine, SaysTheSameOfBothUnitTypes) {
    EXPECT_TRUE(IsCommentLine(u"x\n;a", 2));
    EXPECT_FALSE(IsCommentLine(u"x\n;a;", 2));
    EXPECT_TRUE(IsCommentLine(u"Sep=", 0));
}

wchar_t Detect(std::wstring_view text) {
    return DetectDelimiter(text, L'"');
}

TEST(DetectDelimiter, TakesTheNameGivenOnASeparatorLine) {
    EXPECT_EQ(Detect(L"sep=;\na,b\n"), L';');
    EXPECT_EQ(Detect(L"SEP=^\r\na,b\n"), L'^');
    EXPECT_EQ(Detect(L"sep=x"), L'x');
    EXPECT_EQ(Detect(L"sep=\t\ra"), L'\t');
    EXPECT_EQ(Detect(L"sep=\u2502\na"), L'\u2502');
}

TEST(DetectDelimiter, IgnoresASeparatorLineThatNamesNothingOrTooMuch) {
    EXPECT_EQ(Detect(L"sep=\na;b\n"), L';');
    EXPECT_EQ(Detect(L"sep=\ra;b\n"), L';');
    EXPECT_EQ(Detect(L"sep=\n\na;b\n"), L';');
    EXPECT_EQ(Detect(L"sep=\r\na;b\n"), L';');
    EXPECT_EQ(Detect(L"sep=||\na;b\n"), L';');
    EXPECT_EQ(Detect(L"sep="), L',');
    EXPECT_EQ(Detect(std::wstring_view(L"sep=\0\na;b", 9)), L';');
}

TEST(DetectDelimiter, IgnoresASeparatorLineBelowTheFirstLine) {
    EXPECT_EQ(Detect(L"a,b\nsep=;\nc,d\n"), L',');
}

TEST(DetectDelimiter, IsACommaWhenNothingCanBeCounted) {
    EXPECT_EQ(Detect(L""), L',');
    EXPECT_EQ(Detect(L"\n\r\n"), L',');
    EXPECT_EQ(Detect(L"abc\ndef\n"), L',');
    EXPECT_EQ(Detect(L"# a;b;c\n"), L',');
}

TEST(DetectDelimiter, FindsEachCandidate) {
    EXPECT_EQ(Detect(L"a,b\n"), L',');
    EXPECT_EQ(Detect(L"a;b\n"), L';');
    EXPECT_EQ(Detect(L"a|b\n"), L'|');
    EXPECT_EQ(Detect(L"a\tb\n"), L'\t');
    EXPECT_EQ(Detect(L"a:b\n"), L':');
}

TEST(DetectDelimiter, PicksTheHigherCountWhenAllRowsAgree) {
    EXPECT_EQ(Detect(L"a,b,c,d;e;f\na,b,c,d;e;f\na,b,c,d;e;f\na,b,c,d;e;f\na,b,c,d;e;f\n"), L',');
    EXPECT_EQ(Detect(L"a;b;c;d,e,f\na;b;c;d,e,f\na;b;c;d,e,f\na;b;c;d,e,f\na;b;c;d,e,f\n"), L';');
}

TEST(DetectDelimiter, GivesTiesToTheEarlierCandidate) {
    EXPECT_EQ(Detect(L"a,b;c\n"), L',');
    EXPECT_EQ(Detect(L"a;b,c\n"), L',');
    EXPECT_EQ(Detect(L"a:b;c\n"), L';');
    EXPECT_EQ(Detect(L"a:b\tc|d\n"), L'|');
    EXPECT_EQ(Detect(L"a:b\tc\n"), L'\t');
}

TEST(DetectDelimiter, PrefersCountsThatAgreeBetweenRows) {
    EXPECT_EQ(Detect(L"1,5;2\n3;4\n5,5;6\n"), L';');
}

TEST(DetectDelimiter, LetsAHighCountOutweighADisagreement) {
    // ',' counts 8 and 7: 18 + 5 + 5 + 17 = 45. ';' counts 1 and 1: 4 * 11 = 44.
    EXPECT_EQ(Detect(L",,,,,,,,;\n,,,,,,,;\n"), L',');
    // ',' counts 6 and 7: 16 + 5 + 5 + 17 = 43.
    EXPECT_EQ(Detect(L",,,,,,;\n,,,,,,,;\n"), L';');
}

TEST(DetectDelimiter, DoesNotCountInsideQuotes) {
    EXPECT_EQ(Detect(L"\"a,b,c\";1\n"), L';');
    EXPECT_EQ(Detect(L"\"a\"\",\"\",b\";1\n"), L';');
    EXPECT_EQ(Detect(L"\"a,\n,b\";1\n"), L';');
    EXPECT_EQ(Detect(L"x\"a,b,c\"y;1\n"), L';');
}

TEST(DetectDelimiter, TracksTheQuoteCharacterGiven) {
    EXPECT_EQ(DetectDelimiter(L"'a,b,c';1\n", L'\''), L';');
    EXPECT_EQ(DetectDelimiter(L"'a,b,c';1\n", L'"'), L',');
}

TEST(DetectDelimiter, SkipsCommentsAndEmptyLines) {
    EXPECT_EQ(Detect(L"# a;b;c;d;e\n\r\n\n; a,b,c,d\nx|y\n"), L'|');
}

TEST(DetectDelimiter, SkipsACommentToTheEndOfItsPhysicalLine) {
    EXPECT_EQ(Detect(L"# \"open\na;b\n"), L';');
}

TEST(DetectDelimiter, LooksAtFiveRowsThatHoldACandidate) {
    EXPECT_EQ(Detect(L"plain\na;b\nplain\na;b\na;b\na;b\na;b\n,,,,,,,,,,\n"), L';');
    EXPECT_EQ(
        Detect(L"a;b\na;b\na;b\na;b\n,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,"
               L",,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,,\n"),
        L';');
}

TEST(DetectDelimiter, StopsAmongCommentsAndBlankLinesToo) {
    std::wstring text(size_t{5} << 20, L'\n');
    int asked = 0;
    const auto stop = [&asked] { return ++asked == 1; };
    EXPECT_EQ(DetectDelimiter(text + L"a;b\n", L'"', stop), L',');
    for (size_t i = 0; i < text.size(); i += 4) {
        text[i] = L'#';
    }
    EXPECT_EQ(DetectDelimiter(text + L"a;b\n", L'"', [] { return false; }), L';');
    asked = 0;
    EXPECT_EQ(DetectDelimiter(text + L"a;b\n", L'"', stop), L',');
    EXPECT_EQ(asked, 1);
}

TEST(DetectDelimiter, StopsWhenNobodyWantsTheAnswer) {
    std::wstring text(size_t{5} << 20, L'x');
    text += L"\na;b\n";
    int asked = 0;
    EXPECT_EQ(DetectDelimiter(text, L'"', [&asked] { return ++asked == 1; }), L',');
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(Detect(text), L';');
}

TEST(DetectLineEnding, IsThatOfTheFirstBreak) {
    EXPECT_EQ(DetectLineEnding(L"a\nb\r\n"), L"\n");
    EXPECT_EQ(DetectLineEnding(L"a\r\nb\n"), L"\r\n");
    EXPECT_EQ(DetectLineEnding(L"a\rb\n"), L"\r");
    EXPECT_EQ(DetectLineEnding(L"a\r"), L"\r");
    EXPECT_EQ(DetectLineEnding(L"a\r\r\n"), L"\r");
}

TEST(DetectLineEnding, LooksInsideQuotesToo) {
    EXPECT_EQ(DetectLineEnding(L"\"a\rb\",c\n"), L"\r");
}

TEST(DetectLineEnding, IsCrLfForATextWithoutAny) {
    EXPECT_EQ(DetectLineEnding(L""), L"\r\n");
    EXPECT_EQ(DetectLineEnding(L"a,b"), L"\r\n");
}

}  // namespace
}  // namespace rl
