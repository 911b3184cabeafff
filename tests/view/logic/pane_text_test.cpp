// The value pane's text: line ends, soft breaks, cuts.
#include "view/logic/pane_text.h"

#include <gtest/gtest.h>

namespace rl {

namespace {

TEST(PaneText, EndsEveryLineWithCarriageReturnAndLineFeed) {
    const struct {
        std::wstring_view text;
        std::wstring_view shown;
    } cases[] = {
        {L"", L""},
        {L"plain", L"plain"},
        {L"a\nb", L"a\r\nb"},
        {L"a\rb", L"a\r\nb"},
        {L"a\r\nb", L"a\r\nb"},
        {L"a\n\rb", L"a\r\n\r\nb"},
        {L"a\r\r\nb", L"a\r\n\r\nb"},
        {L"\n", L"\r\n"},
        {L"end\r", L"end\r\n"},
    };
    for (const auto& [text, shown] : cases) {
        SCOPED_TRACE(testing::PrintToString(text));
        EXPECT_EQ(PaneText(text), shown);
    }
}

TEST(PaneText, ShowsAPictureForANulInsteadOfStoppingThere) {
    const std::wstring text = {L'a', L'\0', L'b'};

    EXPECT_EQ(PaneText(text), (std::wstring{L'a', wchar_t{0x2400}, L'b'}));
}

TEST(PaneText, BreaksAVeryLongLineSoftly) {
    const std::wstring text(2500, L'x');

    EXPECT_EQ(PaneText(text), std::wstring(1024, L'x') + L"\r\r\n" + std::wstring(1024, L'x') +
                                  L"\r\r\n" + std::wstring(452, L'x'));
}

TEST(PaneText, LeavesALineOfTheGreatestLengthWhole) {
    const std::wstring line(1024, L'x');

    EXPECT_EQ(PaneText(line + L"\n" + line), line + L"\r\n" + line);
}

TEST(PaneText, NeverTearsASurrogatePair) {
    const std::wstring text = std::wstring(1023, L'x') + L"\xD83D\xDE00" + L"end";

    EXPECT_EQ(PaneText(text), std::wstring(1023, L'x') + L"\xD83D\xDE00" + L"\r\r\n" + L"end");
}

TEST(WithoutSoftBreaks, GivesBackTheTextAsItWasShown) {
    const std::wstring text = std::wstring(5000, L'x') + L"\r\nsecond\r\n\r\n";

    EXPECT_EQ(WithoutSoftBreaks(PaneText(text)), text);
}

TEST(PaneChunk, TakesAShortTextWhole) {
    EXPECT_EQ(PaneChunk(L"", 8), 0U);
    EXPECT_EQ(PaneChunk(L"12345678", 8), 8U);
}

TEST(PaneChunk, CutsALongTextAtTheLimit) {
    EXPECT_EQ(PaneChunk(L"123456789", 8), 8U);
}

TEST(PaneChunk, TearsNeitherLineBreaksNorSurrogatePairs) {
    EXPECT_EQ(PaneChunk(L"1234\r\n78", 5), 4U);
    EXPECT_EQ(PaneChunk(L"1234\r\r\n8", 5), 4U);
    EXPECT_EQ(PaneChunk(L"1234\r\r\n8", 6), 4U);
    EXPECT_EQ(PaneChunk(L"1234\xD83D\xDE00z", 5), 4U);
}

}  // namespace

}  // namespace rl
