// What keys, mouse, wheel and scroll bars do to the source view.
#include <gtest/gtest.h>

#include <string>

#include "tests/win32/source_window.h"

namespace rl::test {
namespace {

// Keys

TEST(SourceViewKeys, MoveTheCaret) {
    SourceWindow window(L"abc\r\ndef\r\nghi");

    window.Key(VK_RIGHT);
    EXPECT_EQ(window.Selection(), (Ends{1, 1}));
    window.Key(VK_END);
    EXPECT_EQ(window.Selection(), (Ends{3, 3}));
    window.Key(VK_RIGHT);
    EXPECT_EQ(window.Selection(), (Ends{5, 5}));
    window.Key(VK_LEFT);
    EXPECT_EQ(window.Selection(), (Ends{3, 3}));
    window.Key(VK_DOWN);
    EXPECT_EQ(window.Selection(), (Ends{8, 8}));
    window.Key(VK_HOME);
    EXPECT_EQ(window.Selection(), (Ends{5, 5}));
    window.Key(VK_UP);
    EXPECT_EQ(window.Selection(), (Ends{0, 0}));
    window.Key(VK_NEXT);
    EXPECT_EQ(window.Selection(), (Ends{10, 10}));
    window.Key(VK_PRIOR);
    EXPECT_EQ(window.Selection(), (Ends{0, 0}));
}

TEST(SourceViewKeys, GoToTheEndsOfTheTextWithCtrl) {
    SourceWindow window(Lines(500));
    const HeldKey ctrl(VK_CONTROL);

    window.Key(VK_END);
    EXPECT_EQ(window.Selection(), (Ends{1889, 1889}));
    EXPECT_EQ(window.ScrollPos(SB_VERT), 500 - static_cast<int>(window.Scroll(SB_VERT).nPage));
    window.Key(VK_HOME);
    EXPECT_EQ(window.Selection(), (Ends{0, 0}));
    EXPECT_EQ(window.ScrollPos(SB_VERT), 0);
}

TEST(SourceViewKeys, ExtendTheSelectionWithShift) {
    SourceWindow window(L"abc\ndef\nghi");
    window.Key(VK_RIGHT);
    const HeldKey shift(VK_SHIFT);

    window.Key(VK_DOWN);
    EXPECT_EQ(window.Selection(), (Ends{1, 5}));
    window.Key(VK_END);
    EXPECT_EQ(window.Selection(), (Ends{1, 7}));
    window.Key(VK_UP);
    window.Key(VK_HOME);
    EXPECT_EQ(window.Selection(), (Ends{0, 1}));
    window.Key(VK_NEXT);
    EXPECT_EQ(window.Selection(), (Ends{1, 8}));
}

TEST(SourceViewKeys, DropTheSelectionWithoutShift) {
    SourceWindow window(L"abcdef");
    window.view.SelectRange(1, 3);

    window.Key(VK_RIGHT);

    EXPECT_EQ(window.Selection(), (Ends{5, 5}));
}

TEST(SourceViewKeys, ScrollWithoutTheCaretWithCtrlUpAndDown) {
    SourceWindow window(Lines(200));
    const HeldKey ctrl(VK_CONTROL);

    window.Key(VK_DOWN);
    window.Key(VK_DOWN);
    EXPECT_EQ(window.ScrollPos(SB_VERT), 2);
    EXPECT_EQ(window.Selection(), (Ends{0, 0}));
    window.Key(VK_UP);
    EXPECT_EQ(window.ScrollPos(SB_VERT), 1);
    window.Key(VK_UP);
    window.Key(VK_UP);
    EXPECT_EQ(window.ScrollPos(SB_VERT), 0);
}

TEST(SourceViewKeys, SelectAllAndCopy) {
    SourceWindow window(L"a\nb\rc\r\nd");
    const HeldKey ctrl(VK_CONTROL);

    window.Key('A');
    EXPECT_EQ(window.Selection(), (Ends{0, 8}));
    window.Key('C');

    EXPECT_EQ(Clipboard(), L"a\r\nb\r\nc\r\nd");
}

TEST(SourceViewKeys, ThatAreNotOursChangeNothing) {
    SourceWindow window(L"abc");
    window.view.SelectRange(1, 1);

    for (const WPARAM key : {WPARAM{'A'}, WPARAM{'C'}, WPARAM{VK_DELETE}, WPARAM{VK_F1},
                             WPARAM{VK_RETURN}, WPARAM{VK_ESCAPE}}) {
        window.Key(key);
        EXPECT_EQ(window.Selection(), (Ends{1, 2})) << key;
    }
    EXPECT_EQ(window.Send(WM_GETTEXTLENGTH), 3);
}

TEST(SourceViewKeys, FollowTheCaretSideways) {
    SourceWindow window(std::wstring(300, L'x') + L"\nshort");

    window.Key(VK_END);
    EXPECT_EQ(
        window.ScrollPos(SB_HORZ),
        (301 + 3) * window.CharWidth() - static_cast<int>(ClientRect(window.view.Window()).width));
    window.Key(VK_HOME);
    EXPECT_EQ(window.ScrollPos(SB_HORZ), 0);
}

// Copying

TEST(SourceViewCopy, LeavesTheClipboardAloneWhenNothingIsSelected) {
    SourceWindow window(L"abc");
    SetClipboard(L"before");

    window.Send(WM_COPY);

    EXPECT_EQ(Clipboard(), L"before");
}

TEST(SourceViewCopy, TakesTheSelection) {
    SourceWindow window(L"one,two\nthree");
    window.view.SelectRange(4, 6);

    window.Send(WM_COPY);

    EXPECT_EQ(Clipboard(), L"two\r\nth");
}

// Mouse

TEST(SourceViewMouse, PutsTheCaretAtTheNearestCharacter) {
    SourceWindow window(L"abcdef\n\tx");

    window.Click(0, 3);
    EXPECT_EQ(window.Selection(), (Ends{3, 3}));
    window.Click(1, 4);
    EXPECT_EQ(window.Selection(), (Ends{8, 8}));  // behind the tab
    window.Click(0, 30);
    EXPECT_EQ(window.Selection(), (Ends{6, 6}));
    window.Click(9, 0);
    EXPECT_EQ(window.Selection(), (Ends{7, 7}));  // below the text: the last line
    window.Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(1, 1));
    EXPECT_EQ(window.Selection(), (Ends{0, 0}));  // on the gutter
}

TEST(SourceViewMouse, ExtendsWithShift) {
    SourceWindow window(L"abcdef");
    window.Click(0, 4);

    window.Click(0, 1, MK_SHIFT);

    EXPECT_EQ(window.Selection(), (Ends{1, 4}));
}

TEST(SourceViewMouse, SelectsByDragging) {
    SourceWindow window(L"abcdef\nghijkl");

    window.Send(WM_LBUTTONDOWN, MK_LBUTTON, window.At(0, 2));
    EXPECT_EQ(GetCapture(), window.view.Window());
    window.Send(WM_MOUSEMOVE, MK_LBUTTON, window.At(1, 3));
    EXPECT_EQ(window.Selection(), (Ends{2, 10}));
    window.Send(WM_LBUTTONUP, 0, window.At(1, 3));
    EXPECT_EQ(GetCapture(), nullptr);
    window.Send(WM_MOUSEMOVE, 0, window.At(0, 0));
    EXPECT_EQ(window.Selection(), (Ends{2, 10}));
}

TEST(SourceViewMouse, ScrollsWhileDraggingOutOfTheWindow) {
    SourceWindow window(Lines(200));

    window.Send(WM_LBUTTONDOWN, MK_LBUTTON, window.At(0, 0));
    window.Send(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(50, 2000));
    EXPECT_GT(window.ScrollPos(SB_VERT), 0);
    window.Send(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(50, static_cast<WORD>(-3000)));
    EXPECT_EQ(window.ScrollPos(SB_VERT), 0);
    window.Send(WM_LBUTTONUP);
}

TEST(SourceViewMouse, EndsTheSelectionWhenTheCaptureIsTaken) {
    SourceWindow window(L"abcdef");
    window.Send(WM_LBUTTONDOWN, MK_LBUTTON, window.At(0, 2));

    SetCapture(window.frame);
    window.Send(WM_MOUSEMOVE, MK_LBUTTON, window.At(0, 5));
    ReleaseCapture();

    EXPECT_EQ(window.Selection(), (Ends{2, 2}));
}

TEST(SourceViewMouse, SelectsAWordByADoubleClick) {
    SourceWindow window(L"ab cd_1 ef");
    const Rect last = window.Cell(0, 6);

    window.Send(WM_LBUTTONDBLCLK, MK_LBUTTON, window.At(0, 4));
    EXPECT_EQ(window.Selection(), (Ends{3, 7}));
    window.Send(WM_LBUTTONDBLCLK, MK_LBUTTON, window.At(0, 0));
    EXPECT_EQ(window.Selection(), (Ends{0, 2}));
    // The right half of the last letter is the word still.
    window.Send(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(last.Right() - 1, 3));
    EXPECT_EQ(window.Selection(), (Ends{3, 7}));
}

TEST(SourceViewMouse, SelectsNothingByADoubleClickOnABlank) {
    SourceWindow window(L"ab cd");
    window.Click(0, 2);

    window.Send(WM_LBUTTONDBLCLK, MK_LBUTTON, window.At(0, 2));
    EXPECT_EQ(window.Selection(), (Ends{2, 2}));
    window.Send(WM_LBUTTONDBLCLK, MK_LBUTTON, window.At(0, 40));
    EXPECT_EQ(window.Selection().first, window.Selection().second);
}

// Wheel and scroll bars

TEST(SourceViewWheel, ScrollsByTheSystemsLines) {
    SourceWindow window(Lines(200));
    UINT lines = 0;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    const int step = static_cast<int>(lines);

    Wheel(window, WM_MOUSEWHEEL, -240);
    EXPECT_EQ(window.ScrollPos(SB_VERT), 2 * step);
    Wheel(window, WM_MOUSEWHEEL, 120);
    EXPECT_EQ(window.ScrollPos(SB_VERT), step);
    Wheel(window, WM_MOUSEWHEEL, 119);
    Wheel(window, WM_MOUSEWHEEL, -119);
    EXPECT_EQ(window.ScrollPos(SB_VERT), step);
    EXPECT_EQ(window.ScrollPos(SB_HORZ), 0);
}

TEST(SourceViewWheel, ScrollsSidewaysWithShiftAndByItsOwnWheel) {
    SourceWindow window(std::wstring(500, L'x'));
    const int step = 8 * window.CharWidth();

    Wheel(window, WM_MOUSEWHEEL, -120, MK_SHIFT);
    EXPECT_EQ(window.ScrollPos(SB_HORZ), step);
    Wheel(window, WM_MOUSEHWHEEL, 240);
    EXPECT_EQ(window.ScrollPos(SB_HORZ), 3 * step);
    Wheel(window, WM_MOUSEHWHEEL, -120);
    EXPECT_EQ(window.ScrollPos(SB_HORZ), 2 * step);
    Wheel(window, WM_MOUSEWHEEL, 1200, MK_SHIFT);
    EXPECT_EQ(window.ScrollPos(SB_HORZ), 0);
}

TEST(SourceViewWheel, IsLeftToOthersWithCtrl) {
    SourceWindow window(Lines(200));

    Wheel(window, WM_MOUSEWHEEL, -120, MK_CONTROL);

    EXPECT_EQ(window.ScrollPos(SB_VERT), 0);
}

TEST(SourceViewScrolling, HasTheRangesOfTheText) {
    SourceWindow window(Lines(200) + L"\n" + std::wstring(100, L'x'));

    const SCROLLINFO vertical = window.Scroll(SB_VERT);
    EXPECT_EQ(vertical.nMin, 0);
    EXPECT_EQ(vertical.nMax, 200);
    EXPECT_EQ(vertical.nPage,
              static_cast<UINT>(ClientRect(window.view.Window()).height / window.LineHeight()));
    const SCROLLINFO sideways = window.Scroll(SB_HORZ);
    EXPECT_EQ(sideways.nMax, (101 + 5) * window.CharWidth());
    EXPECT_EQ(sideways.nPage, static_cast<UINT>(ClientRect(window.view.Window()).width));
}

TEST(SourceViewScrolling, ObeysTheBars) {
    SourceWindow window(Lines(200) + L"\n" + std::wstring(300, L'x'));
    const int page = static_cast<int>(window.Scroll(SB_VERT).nPage);

    window.Send(WM_VSCROLL, SB_LINEDOWN);
    EXPECT_EQ(window.ScrollPos(SB_VERT), 1);
    window.Send(WM_VSCROLL, SB_PAGEDOWN);
    EXPECT_EQ(window.ScrollPos(SB_VERT), 1 + page);
    window.Send(WM_VSCROLL, SB_LINEUP);
    EXPECT_EQ(window.ScrollPos(SB_VERT), page);
    window.Send(WM_VSCROLL, SB_BOTTOM);
    EXPECT_EQ(window.ScrollPos(SB_VERT), 201 - page);
    window.Send(WM_VSCROLL, SB_PAGEUP);
    EXPECT_EQ(window.ScrollPos(SB_VERT), 201 - 2 * page);
    window.Send(WM_VSCROLL, SB_TOP);
    EXPECT_EQ(window.ScrollPos(SB_VERT), 0);
    window.Send(WM_HSCROLL, SB_LINERIGHT);
    EXPECT_EQ(window.ScrollPos(SB_HORZ), 4 * window.CharWidth());
    window.Send(WM_HSCROLL, SB_PAGERIGHT);
    EXPECT_EQ(window.ScrollPos(SB_HORZ),
              4 * window.CharWidth() + ClientRect(window.view.Window()).width);
    window.Send(WM_HSCROLL, SB_LEFT);
    EXPECT_EQ(window.ScrollPos(SB_HORZ), 0);
}

TEST(SourceViewScrolling, TakesTheWholePositionOfTheThumb) {
    SourceWindow window(std::wstring(150'000, L'\n'));

    // The bar's own position, as the message alone could not say it.
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_POS;
    info.nPos = 123'456;
    SetScrollInfo(window.view.Window(), SB_VERT, &info, FALSE);
    window.Send(WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, static_cast<WORD>(123'456)));

    EXPECT_EQ(window.ScrollPos(SB_VERT), 123'456);
}

TEST(SourceViewScrolling, LeavesNothingScrolledTooFarWhenTheWindowGrows) {
    SourceWindow window(Lines(30));
    window.Send(WM_VSCROLL, SB_BOTTOM);
    EXPECT_GT(window.ScrollPos(SB_VERT), 0);

    MoveWindow(window.view.Window(), 0, 0, 500, 2000, FALSE);

    EXPECT_EQ(window.ScrollPos(SB_VERT), 0);
}

TEST(SourceViewScrolling, MeasuresTheTextAnewForAnotherTabWidth) {
    SourceWindow window(L"\tx");
    EXPECT_EQ(window.Scroll(SB_HORZ).nMax, (5 + 1 + 3) * window.CharWidth());

    window.view.SetTabWidth(100);

    EXPECT_EQ(window.Scroll(SB_HORZ).nMax, (33 + 1 + 3) * window.CharWidth());
}

}  // namespace
}  // namespace rl::test
