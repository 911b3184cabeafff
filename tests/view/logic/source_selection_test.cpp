// Caret, selection and copied text of the source view.
#include "view/logic/source_selection.h"

#include <gtest/gtest.h>

#include <string>

namespace rl {
namespace {

SourceText Text(std::wstring all, int tabWidth = 4) {
    SourceText text;
    text.SetTabWidth(tabWidth);
    text.Assign(std::move(all));
    return text;
}

size_t Move(const SourceText& text, size_t caret, SourceAction move, int pageLines = 3) {
    return MoveCaret(text, caret, move, pageLines);
}

TEST(SourceKeys, AreMovesWithAndWithoutCtrl) {
    EXPECT_EQ(FindSourceAction(key::kHome, false), SourceAction::LineStart);
    EXPECT_EQ(FindSourceAction(key::kHome, true), SourceAction::TextStart);
    EXPECT_EQ(FindSourceAction(key::kEnd, true), SourceAction::TextEnd);
    EXPECT_EQ(FindSourceAction(key::kUp, true), SourceAction::ScrollUp);
    EXPECT_EQ(FindSourceAction(key::kDown, true), SourceAction::ScrollDown);
    EXPECT_EQ(FindSourceAction(key::kPageDown, false), SourceAction::PageDown);
    EXPECT_EQ(FindSourceAction(key::Of('A'), true), SourceAction::SelectAll);
    EXPECT_EQ(FindSourceAction(key::Of('C'), true), SourceAction::Copy);
}

TEST(SourceKeys, LeaveOtherKeysAlone) {
    EXPECT_FALSE(FindSourceAction(key::Of('A'), false));
    EXPECT_FALSE(FindSourceAction(key::Of('C'), false));
    EXPECT_FALSE(FindSourceAction(key::Of('V'), true));
    EXPECT_FALSE(FindSourceAction(key::kF1, false));
    EXPECT_FALSE(FindSourceAction(key::kEnter, false));
}

TEST(SourceKeys, ScrollingSelectingAndCopyingMoveNoCaret) {
    EXPECT_TRUE(IsCaretMove(SourceAction::Left));
    EXPECT_TRUE(IsCaretMove(SourceAction::TextEnd));
    EXPECT_FALSE(IsCaretMove(SourceAction::ScrollUp));
    EXPECT_FALSE(IsCaretMove(SourceAction::SelectAll));
    EXPECT_FALSE(IsCaretMove(SourceAction::Copy));
}

TEST(SourceCaret, StepsOverALineBreakAsOne) {
    const SourceText text = Text(L"a\r\nb\nc\rd");
    EXPECT_EQ(Move(text, 1, SourceAction::Right), 3u);
    EXPECT_EQ(Move(text, 3, SourceAction::Left), 1u);
    EXPECT_EQ(Move(text, 4, SourceAction::Right), 5u);
    EXPECT_EQ(Move(text, 6, SourceAction::Right), 7u);
    EXPECT_EQ(Move(text, 7, SourceAction::Left), 6u);
}

TEST(SourceCaret, DoesNotTakeLfCrForOneBreak) {
    const SourceText text = Text(L"a\n\rb");
    EXPECT_EQ(Move(text, 1, SourceAction::Right), 2u);
    EXPECT_EQ(Move(text, 3, SourceAction::Left), 2u);
}

TEST(SourceCaret, StepsOverASurrogatePairAsOne) {
    const SourceText text = Text(L"a\xD83D\xDE00\xDE00");
    EXPECT_EQ(Move(text, 1, SourceAction::Right), 3u);
    EXPECT_EQ(Move(text, 3, SourceAction::Left), 1u);
    EXPECT_EQ(Move(text, 3, SourceAction::Right), 4u);
    EXPECT_EQ(Move(text, 4, SourceAction::Left), 3u);
}

TEST(SourceCaret, StaysInsideTheText) {
    const SourceText text = Text(L"ab");
    EXPECT_EQ(Move(text, 0, SourceAction::Left), 0u);
    EXPECT_EQ(Move(text, 1, SourceAction::Left), 0u);
    EXPECT_EQ(Move(text, 2, SourceAction::Right), 2u);
    EXPECT_EQ(Move(Text(L""), 0, SourceAction::Right), 0u);
    EXPECT_EQ(Move(Text(L""), 0, SourceAction::PageDown), 0u);
}

TEST(SourceCaret, KeepsItsColumnFromLineToLine) {
    const SourceText text = Text(L"abcdef\n\tx\nab\nabcdef");
    EXPECT_EQ(Move(text, 4, SourceAction::Down), 8u);  // column 4: behind the tab
    EXPECT_EQ(Move(text, 5, SourceAction::Down), 9u);  // column 5: the line's end
    EXPECT_EQ(Move(text, 6, SourceAction::Down), 9u);
    EXPECT_EQ(Move(text, 9, SourceAction::Up), 5u);
    EXPECT_EQ(Move(text, 9, SourceAction::Down), 12u);
    EXPECT_EQ(Move(text, 12, SourceAction::Down), 15u);
}

TEST(SourceCaret, StaysOnTheFirstAndTheLastLine) {
    const SourceText text = Text(L"abc\ndef");
    EXPECT_EQ(Move(text, 2, SourceAction::Up), 2u);
    EXPECT_EQ(Move(text, 6, SourceAction::Down), 6u);
}

TEST(SourceCaret, MovesByPages) {
    const SourceText text = Text(L"0\n1\n2\n3\n4\n5\n6\n7");
    EXPECT_EQ(Move(text, 0, SourceAction::PageDown, 3), 6u);
    EXPECT_EQ(Move(text, 6, SourceAction::PageDown, 3), 12u);
    EXPECT_EQ(Move(text, 12, SourceAction::PageDown, 3), 14u);
    EXPECT_EQ(Move(text, 14, SourceAction::PageUp, 3), 8u);
    EXPECT_EQ(Move(text, 2, SourceAction::PageUp, 3), 0u);
}

TEST(SourceCaret, GoesToTheEndsOfLineAndText) {
    const SourceText text = Text(L"ab\r\ncd\r\nef");
    EXPECT_EQ(Move(text, 5, SourceAction::LineStart), 4u);
    EXPECT_EQ(Move(text, 5, SourceAction::LineEnd), 6u);
    EXPECT_EQ(Move(text, 5, SourceAction::TextStart), 0u);
    EXPECT_EQ(Move(text, 5, SourceAction::TextEnd), 10u);
    EXPECT_EQ(Move(text, 10, SourceAction::LineStart), 8u);
}

TEST(SourceCaret, GivesUpInALineOfMillions) {
    const std::wstring line(kMostUnitsScanned + 5000, L'x');
    const SourceText text = Text(line + L"\n" + line);
    const size_t second = line.size() + 1;
    EXPECT_EQ(Move(text, kMostUnitsScanned + 100, SourceAction::Down), second + kMostUnitsScanned);
    EXPECT_EQ(Move(text, 500, SourceAction::Down), second + 500);
}

TEST(SourceWord, IsLettersDigitsUnderlinesAndAllFromCode128) {
    const SourceText text = Text(L"(a_1\x00E9\x4E2D-b)");
    EXPECT_EQ(WordAt(text, 3), (SourceSelection{1, 6}));
    EXPECT_EQ(WordAt(text, 1), (SourceSelection{1, 6}));
    EXPECT_EQ(WordAt(text, 5), (SourceSelection{1, 6}));
    EXPECT_EQ(WordAt(text, 7), (SourceSelection{7, 8}));
}

TEST(SourceWord, TakesCode128ButNot127) {
    EXPECT_EQ(WordAt(Text(L"a\x0080\x007F"), 0), (SourceSelection{0, 2}));
}

TEST(SourceWord, IsNothingOnAnotherCharacter) {
    const SourceText text = Text(L"a b\r\n-\x7F");
    for (const size_t position : {1u, 3u, 4u, 5u, 6u, 7u, 99u}) {
        EXPECT_FALSE(WordAt(text, position)) << position;
    }
}

TEST(SourceWord, EndsWithTheText) {
    EXPECT_EQ(WordAt(Text(L"ab"), 1), (SourceSelection{0, 2}));
    EXPECT_FALSE(WordAt(Text(L""), 0));
}

std::wstring Copy(std::wstring_view text) {
    std::wstring out(CopySize(text), L'?');
    WriteCopy(text, out.data());
    return out;
}

TEST(SourceCopy, WritesEveryLineBreakAsCrLf) {
    EXPECT_EQ(Copy(L"a\nb\rc\r\nd"), L"a\r\nb\r\nc\r\nd");
    EXPECT_EQ(Copy(L"\n\r"), L"\r\n\r\n");
    EXPECT_EQ(Copy(L"\r\r\n\n"), L"\r\n\r\n\r\n");
    EXPECT_EQ(Copy(L"no break"), L"no break");
    EXPECT_EQ(Copy(L""), L"");
}

TEST(SourceCopy, OfHalfABreakIsAWholeOne) {
    EXPECT_EQ(Copy(L"a\r"), L"a\r\n");
    EXPECT_EQ(Copy(L"\nb"), L"\r\nb");
}

TEST(SourceSelectionEnds, AreOrderedWhicheverWayItWasMade) {
    const SourceSelection back{.anchor = 9, .caret = 4};
    EXPECT_EQ(back.First(), 4u);
    EXPECT_EQ(back.Last(), 9u);
    EXPECT_FALSE(back.IsEmpty());
    EXPECT_TRUE((SourceSelection{.anchor = 4, .caret = 4}).IsEmpty());
}

}  // namespace
}  // namespace rl
