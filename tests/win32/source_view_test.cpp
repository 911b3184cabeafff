// The source view as a window: its text, its selection, very large texts.
#include <gtest/gtest.h>

#include <string>

#include "tests/win32/source_window.h"

namespace rl::test {
namespace {

TEST(SourceViewWindow, IsATextBoxToOtherPrograms) {
    SourceWindow window(L"abc\ndef");

    ASSERT_TRUE(window.created);
    EXPECT_EQ(window.Send(WM_GETTEXTLENGTH), 7);
    wchar_t text[20] = L"";
    EXPECT_EQ(window.Send(WM_GETTEXT, 20, reinterpret_cast<LPARAM>(text)), 7);
    EXPECT_STREQ(text, L"abc\ndef");
    EXPECT_EQ(window.Send(WM_GETTEXT, 4, reinterpret_cast<LPARAM>(text)), 3);
    EXPECT_STREQ(text, L"abc");
    EXPECT_EQ(window.Send(WM_GETTEXT, 0, reinterpret_cast<LPARAM>(text)), 0);
    EXPECT_EQ(window.Send(WM_GETDLGCODE), DLGC_WANTARROWS | DLGC_WANTCHARS);
    EXPECT_EQ(window.Send(WM_ERASEBKGND), TRUE);
}

TEST(SourceViewWindow, CannotBeWrittenTo) {
    SourceWindow window(L"abc");

    EXPECT_FALSE(SetWindowTextW(window.view.Window(), L"other"));

    EXPECT_EQ(window.Send(WM_GETTEXTLENGTH), 3);
}

TEST(SourceViewWindow, SelectsByTheMessagesOfEditControls) {
    SourceWindow window(L"abc\r\ndef");

    window.Send(EM_SETSEL, 0, -1);
    EXPECT_EQ(window.Selection(), (Ends{0, 8}));
    EXPECT_EQ(window.Send(EM_GETSEL), MAKELONG(0, 8));
    window.Send(EM_SETSEL, 2, 4);
    EXPECT_EQ(window.Selection(), (Ends{2, 4}));
    window.Send(EM_SETSEL, 1, 500);
    EXPECT_EQ(window.Selection(), (Ends{1, 8}));
    window.Send(EM_SETSEL, static_cast<WPARAM>(-1), 0);
    EXPECT_EQ(window.Selection().first, window.Selection().second);
}

TEST(SourceViewWindow, SaysThatASelectionDoesNotFitTheAnswer) {
    SourceWindow window(std::wstring(70'000, L'x'));

    window.Send(EM_SETSEL, 0, -1);

    EXPECT_EQ(window.Send(EM_GETSEL), -1);
    EXPECT_EQ(window.Selection(), (Ends{0, 70'000}));
}

TEST(SourceViewWindow, BeginsAnewWithEveryText) {
    SourceWindow window(Lines(200));
    window.Key(VK_END);
    {
        const HeldKey ctrl(VK_CONTROL);
        window.Key(VK_END);
    }
    EXPECT_GT(window.ScrollPos(SB_VERT), 0);

    window.view.SetText(Lines(300), kCsv);

    EXPECT_EQ(window.Selection(), (Ends{0, 0}));
    EXPECT_EQ(window.ScrollPos(SB_VERT), 0);
    EXPECT_EQ(window.Scroll(SB_VERT).nMax, 299);
}

TEST(SourceViewWindow, TakesTheRangeApartFromWhatIsBeyondTheText) {
    SourceWindow window(L"abcdef");

    window.view.SelectRange(2, 3);
    EXPECT_EQ(window.Selection(), (Ends{2, 5}));
    window.view.SelectRange(4, 100);
    EXPECT_EQ(window.Selection(), (Ends{4, 6}));
    window.view.SelectRange(100, 5);
    EXPECT_EQ(window.Selection(), (Ends{6, 6}));
    window.view.SelectRange(1, ~uint64_t{0});
    EXPECT_EQ(window.Selection(), (Ends{1, 6}));
}

TEST(SourceViewWindow, ScrollsToASelectedRange) {
    SourceWindow window(Lines(1000));

    window.view.SelectRange(2000, 3);

    const int top = window.ScrollPos(SB_VERT);
    EXPECT_GT(top, 0);
    EXPECT_LT(top, 530);
}

TEST(SourceViewWindow, WorksWithoutItsWindow) {
    SourceView view;
    view.SetFont(nullptr);
    view.SetColors(kColors, true);
    view.SetText(L"abc", kCsv);
    view.SetTabWidth(8);
    view.SelectRange(0, 1);
    EXPECT_EQ(view.Window(), nullptr);
}

// Large texts

TEST(SourceViewLarge, OneLineOf16MillionCharacters) {
    SourceWindow window;
    window.view.SetText(std::wstring(16'000'000, L'x'), kJson);
    const HeldKey ctrl(VK_CONTROL);

    window.Key(VK_END);
    window.Paint();
    EXPECT_EQ(window.Selection(), (Ends{16'000'000, 16'000'000}));
    EXPECT_GT(window.ScrollPos(SB_HORZ), 16'000'000);
    window.Key('A');
    window.Key('C');
    EXPECT_EQ(Clipboard().size(), 16'000'000u);
    SetClipboard(L"");
}

TEST(SourceViewLarge, TwoMillionLines) {
    std::wstring text;
    while (text.size() < 16'000'000) {
        text += L"1234567\n";
    }
    SourceWindow window;
    window.view.SetText(std::move(text), kCsv);
    const HeldKey ctrl(VK_CONTROL);

    EXPECT_EQ(window.Scroll(SB_VERT).nMax, 2'000'000);
    window.Key(VK_END);
    window.Paint();
    EXPECT_GT(window.ScrollPos(SB_VERT), 1'999'900);
    window.Key('A');
    window.Key('C');
    EXPECT_EQ(Clipboard().size(), 18'000'000u);  // every LF became CR LF
    SetClipboard(L"");
}

}  // namespace
}  // namespace rl::test
