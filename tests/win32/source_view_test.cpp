// The source view on a real window: keys, mouse, wheel, scroll bars, clipboard and pixels.
#include "view/source_view.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "view/fonts.h"
#include "view/paint_scope.h"

namespace rl::test {
namespace {

constexpr SourceSyntax kJson{.mode = SourceMode::Json};
constexpr SourceSyntax kCsv{.mode = SourceMode::Delimited};

constexpr SourceColors kColors{.text = RGB(1, 2, 3),
                               .back = RGB(250, 250, 240),
                               .selectionText = RGB(255, 255, 254),
                               .selectionBack = RGB(0, 0, 200),
                               .lineNumberText = RGB(90, 90, 91),
                               .lineNumberBack = RGB(220, 220, 221),
                               .tag = RGB(128, 0, 0),
                               .attribute = RGB(0, 128, 0),
                               .string = RGB(160, 0, 160),
                               .number = RGB(0, 130, 130),
                               .keyword = RGB(0, 0, 255),
                               .comment = RGB(100, 100, 0),
                               .punctuation = RGB(255, 0, 0)};

/// Holds a modifier for GetKeyState, as a message posted while it is down would see it.
class HeldKey {
public:
    explicit HeldKey(BYTE key) : key_(key) { Set(0x80); }
    HeldKey(const HeldKey&) = delete;
    HeldKey& operator=(const HeldKey&) = delete;
    ~HeldKey() { Set(0); }

private:
    void Set(BYTE state) {
        BYTE keys[256];
        GetKeyboardState(keys);
        keys[key_] = state;
        SetKeyboardState(keys);
    }
    BYTE key_;
};

/// A picture of the client area, taken once and asked often.
class Pixels {
public:
    explicit Pixels(HWND window) {
        const Rect client = ClientRect(window);
        width_ = client.width;
        height_ = client.height;
        units_.resize(static_cast<size_t>(width_) * static_cast<size_t>(height_));
        const WindowDc dc(window);
        const HDC memory = CreateCompatibleDC(dc.Get());
        const HBITMAP bitmap = CreateCompatibleBitmap(dc.Get(), width_, height_);
        {
            const SelectScope selected(memory, bitmap);
            BitBlt(memory, 0, 0, width_, height_, dc.Get(), 0, 0, SRCCOPY);
        }
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width_;
        info.bmiHeader.biHeight = -height_;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        GetDIBits(memory, bitmap, 0, static_cast<UINT>(height_), units_.data(), &info,
                  DIB_RGB_COLORS);
        DeleteObject(bitmap);
        DeleteDC(memory);
    }

    [[nodiscard]] COLORREF At(int x, int y) const {
        const uint32_t raw = units_[static_cast<size_t>(y * width_ + x)];
        return RGB((raw >> 16) & 0xFF, (raw >> 8) & 0xFF, raw & 0xFF);
    }
    /// How many pixels of the area have the colour, or come near it: glyph edges are smoothed.
    [[nodiscard]] int Count(const Rect& area, COLORREF color) const {
        int count = 0;
        for (int y = area.top; y < area.Bottom() && y < height_; ++y) {
            for (int x = area.left; x < area.Right() && x < width_; ++x) {
                count += At(x, y) == color ? 1 : 0;
            }
        }
        return count;
    }

private:
    int width_ = 0;
    int height_ = 0;
    std::vector<uint32_t> units_;
};

class SourceWindow {
public:
    explicit SourceWindow(const std::wstring& text = {}, const SourceSyntax& syntax = kCsv,
                          int width = 500, int height = 300) {
        (void)SourceView::RegisterWindowClass();
        WNDCLASSW record{};
        record.lpfnWndProc = &DefWindowProcW;
        record.lpszClassName = L"RowlarkSourceTest";
        RegisterClassW(&record);  // refused from the second time on
        frame = CreateWindowExW(0, record.lpszClassName, L"", WS_POPUP | WS_CLIPCHILDREN, 20, 20,
                                width, height, nullptr, nullptr, nullptr, nullptr);
        created = view.Create(frame);
        font = MakeFont();
        view.SetFont(font.Get());
        view.SetColors(kColors, false);
        MoveWindow(view.Window(), 0, 0, width, height, FALSE);
        view.SetText(text, syntax);
        ShowWindow(view.Window(), SW_SHOW);
        ShowWindow(frame, SW_SHOWNOACTIVATE);
        Paint();
    }
    SourceWindow(const SourceWindow&) = delete;
    SourceWindow& operator=(const SourceWindow&) = delete;
    ~SourceWindow() { DestroyWindow(frame); }

    static UniqueFont MakeFont() {
        // Not smoothed: glyphs then have exactly the colour asked for.
        return UniqueFont(CreateFontW(
            -16, 0, 0, 0, FW_BOLD, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
            CLIP_DEFAULT_PRECIS, NONANTIALIASED_QUALITY, FIXED_PITCH | FF_MODERN, L"Courier New"));
    }

    LRESULT Send(UINT id, WPARAM wparam = 0, LPARAM lparam = 0) {
        return SendMessageW(view.Window(), id, wparam, lparam);
    }
    void Key(WPARAM key) { Send(WM_KEYDOWN, key, 1); }
    void Paint() { RedrawWindow(view.Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW); }

    [[nodiscard]] TEXTMETRICW Metrics() const {
        const WindowDc dc(view.Window());
        const SelectScope selected(dc.Get(), font.Get());
        TEXTMETRICW metrics{};
        GetTextMetricsW(dc.Get(), &metrics);
        return metrics;
    }
    [[nodiscard]] int CharWidth() const { return Metrics().tmAveCharWidth; }
    [[nodiscard]] int LineHeight() const {
        return Metrics().tmHeight + Metrics().tmExternalLeading;
    }
    /// The cell of a column, in a text of fewer than ten lines.
    [[nodiscard]] Rect Cell(int line, int column, int digits = 1) const {
        return {(digits + 2 + column) * CharWidth(), line * LineHeight(), CharWidth(),
                LineHeight()};
    }
    [[nodiscard]] LPARAM At(int line, int column, int digits = 1) const {
        const Rect cell = Cell(line, column, digits);
        return MAKELPARAM(cell.left + 1, cell.top + cell.height / 2);
    }
    void Click(int line, int column, WPARAM keys = 0) {
        Send(WM_LBUTTONDOWN, MK_LBUTTON | keys, At(line, column));
        Send(WM_LBUTTONUP, keys, At(line, column));
    }

    using Ends = std::pair<DWORD, DWORD>;
    [[nodiscard]] Ends Selection() {
        Ends ends{};
        Send(EM_GETSEL, reinterpret_cast<WPARAM>(&ends.first),
             reinterpret_cast<LPARAM>(&ends.second));
        return ends;
    }
    [[nodiscard]] int ScrollPos(int bar) const { return GetScrollPos(view.Window(), bar); }
    [[nodiscard]] SCROLLINFO Scroll(int bar) const {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_ALL;
        GetScrollInfo(view.Window(), bar, &info);
        return info;
    }

    UniqueFont font;
    SourceView view;
    HWND frame = nullptr;
    bool created = false;
};

using Ends = SourceWindow::Ends;

std::wstring Lines(int count) {
    std::wstring text;
    for (int line = 0; line < count; ++line) {
        text += (line > 0 ? L"\n" : L"") + std::to_wstring(line);
    }
    return text;
}

void SetClipboard(const std::wstring& text) {
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t));
    auto* units = static_cast<wchar_t*>(GlobalLock(memory));
    std::copy(text.c_str(), text.c_str() + text.size() + 1, units);
    GlobalUnlock(memory);
    OpenClipboard(nullptr);
    EmptyClipboard();
    SetClipboardData(CF_UNICODETEXT, memory);
    CloseClipboard();
}

std::wstring Clipboard() {
    std::wstring text = L"?";
    if (OpenClipboard(nullptr)) {
        if (const HGLOBAL memory = GetClipboardData(CF_UNICODETEXT)) {
            text = static_cast<const wchar_t*>(GlobalLock(memory));
            GlobalUnlock(memory);
        }
        CloseClipboard();
    }
    return text;
}

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

LRESULT Wheel(SourceWindow& window, UINT id, int delta, WORD keys = 0) {
    return window.Send(id, MAKEWPARAM(keys, static_cast<WORD>(delta)), MAKELPARAM(100, 100));
}

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

// Painting

TEST(SourceViewPainting, ColoursTheGutterAndTheBackground) {
    SourceWindow window(L"a");

    const Pixels pixels(window.view.Window());

    EXPECT_EQ(pixels.At(0, 0), kColors.lineNumberBack);
    EXPECT_EQ(pixels.At(3 * window.CharWidth() - 1, 200), kColors.lineNumberBack);
    EXPECT_EQ(pixels.At(3 * window.CharWidth(), 200), kColors.back);
    EXPECT_GT(
        pixels.Count({0, 0, 3 * window.CharWidth(), window.LineHeight()}, kColors.lineNumberText),
        5);
    EXPECT_EQ(
        pixels.Count({0, window.LineHeight(), 3 * window.CharWidth(), 200}, kColors.lineNumberText),
        0);
}

TEST(SourceViewPainting, GivesEveryClassItsColour) {
    // a: keyword, attribute, string, number, punctuation, text, comment
    SourceWindow window(L"null \"k\":\"s\" 88 {} MM //HH", kJson);
    const Pixels pixels(window.view.Window());
    const auto drawn = [&](int column, COLORREF color) {
        return pixels.Count(window.Cell(0, column), color) > 3;
    };

    EXPECT_TRUE(drawn(0, kColors.keyword));
    EXPECT_TRUE(drawn(6, kColors.attribute));
    EXPECT_TRUE(drawn(8, kColors.punctuation));
    EXPECT_TRUE(drawn(10, kColors.string));
    EXPECT_TRUE(drawn(13, kColors.number));
    EXPECT_TRUE(drawn(16, kColors.punctuation));
    EXPECT_TRUE(drawn(19, kColors.text));
    EXPECT_TRUE(drawn(24, kColors.comment));
}

TEST(SourceViewPainting, ColoursTagsOfXml) {
    SourceWindow window(L"<MM a='b'/>", {.mode = SourceMode::Xml});
    const Pixels pixels(window.view.Window());

    EXPECT_GT(pixels.Count(window.Cell(0, 1), kColors.tag), 3);
    EXPECT_GT(pixels.Count(window.Cell(0, 4), kColors.attribute), 3);
    EXPECT_GT(pixels.Count(window.Cell(0, 7), kColors.string), 3);
}

TEST(SourceViewPainting, ColoursALineFromTheStateBeforeIt) {
    SourceWindow window(L"/* M\nM\nM */ null", kJson);
    const Pixels pixels(window.view.Window());

    EXPECT_GT(pixels.Count(window.Cell(1, 0), kColors.comment), 3);
    EXPECT_GT(pixels.Count(window.Cell(2, 0), kColors.comment), 3);
    EXPECT_GT(pixels.Count(window.Cell(2, 6), kColors.keyword), 3);
}

TEST(SourceViewPainting, ShowsTheSelectionAndTheBreakInIt) {
    SourceWindow window(L"abcd\nefgh\nijkl");
    window.view.SelectRange(2, 5);
    window.Paint();
    const Pixels pixels(window.view.Window());

    EXPECT_EQ(pixels.Count(window.Cell(0, 1), kColors.selectionBack), 0);
    EXPECT_GT(pixels.Count(window.Cell(0, 2), kColors.selectionBack), 20);
    EXPECT_GT(pixels.Count(window.Cell(0, 2), kColors.selectionText), 3);
    EXPECT_EQ(pixels.Count(window.Cell(0, 4), kColors.selectionBack),
              window.CharWidth() * window.LineHeight());
    EXPECT_EQ(pixels.Count(window.Cell(0, 5), kColors.selectionBack), 0);
    EXPECT_GT(pixels.Count(window.Cell(1, 1), kColors.selectionBack), 20);
    EXPECT_EQ(pixels.Count(window.Cell(1, 2), kColors.selectionBack), 0);
}

TEST(SourceViewPainting, ShowsNoBreakBehindTheLastLine) {
    SourceWindow window(L"ab\ncd");
    window.view.SelectRange(0, 5);
    window.Paint();
    const Pixels pixels(window.view.Window());

    EXPECT_GT(pixels.Count(window.Cell(0, 2), kColors.selectionBack), 20);
    EXPECT_EQ(pixels.Count(window.Cell(1, 2), kColors.selectionBack), 0);
}

TEST(SourceViewPainting, AdvancesTabsToTheirStops) {
    SourceWindow window(L"a,\tMM");
    const Pixels before(window.view.Window());
    EXPECT_GT(before.Count(window.Cell(0, 4), kColors.attribute), 3);

    window.view.SetTabWidth(8);
    window.Paint();

    const Pixels after(window.view.Window());
    EXPECT_EQ(after.Count(window.Cell(0, 4), kColors.attribute), 0);
    EXPECT_GT(after.Count(window.Cell(0, 8), kColors.attribute), 3);
}

TEST(SourceViewPainting, NeverWritesTextOverTheGutter) {
    SourceWindow window(std::wstring(200, L'M'));
    Wheel(window, WM_MOUSEHWHEEL, 120);
    window.Send(WM_HSCROLL, SB_LINERIGHT);
    window.Paint();
    const Pixels pixels(window.view.Window());

    EXPECT_EQ(pixels.Count({0, 0, 3 * window.CharWidth(), window.LineHeight()}, kColors.attribute),
              0);
    EXPECT_GT(pixels.Count(window.Cell(0, 0), kColors.attribute), 3);
}

TEST(SourceViewPainting, CutsALineAfter65536Characters) {
    SourceWindow window(std::wstring(65'536, L'M') + std::wstring(100, L'M'));
    window.Send(WM_HSCROLL, SB_RIGHT);
    window.Send(WM_HSCROLL, SB_LINELEFT);
    window.Paint();
    const Pixels pixels(window.view.Window());

    const int left = window.Cell(0, 65'536).left - window.ScrollPos(SB_HORZ);
    EXPECT_EQ(pixels.Count({left, 0, 500 - left, window.LineHeight()}, kColors.attribute), 0);
}

TEST(SourceViewPainting, TakesTheMeasuresOfItsFont) {
    SourceWindow window(Lines(100));
    const int before = static_cast<int>(window.Scroll(SB_VERT).nPage);
    const UniqueFont large(CreateFontW(-40, 0, 0, 0, 0, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                                       OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                                       FIXED_PITCH | FF_MODERN, L"Courier New"));

    window.view.SetFont(large.Get());

    EXPECT_LT(static_cast<int>(window.Scroll(SB_VERT).nPage), before / 2 + 1);
    window.view.SetFont(window.font.Get());
}

// The caret

POINT CaretPlace() {
    POINT at{};
    GetCaretPos(&at);
    return at;
}

TEST(SourceViewCaret, StandsWhereTheNextCharacterIs) {
    SourceWindow window(L"ab\n\tcd");
    SetFocus(window.view.Window());
    if (GetFocus() != window.view.Window()) {
        window.Send(WM_SETFOCUS);
    }

    EXPECT_EQ(CaretPlace().x, window.Cell(0, 0).left);
    window.Key(VK_RIGHT);
    EXPECT_EQ(CaretPlace().x, window.Cell(0, 1).left);
    window.view.SelectRange(4, 1);
    EXPECT_EQ(CaretPlace().x, window.Cell(1, 5).left);
    EXPECT_EQ(CaretPlace().y, window.LineHeight());
}

TEST(SourceViewCaret, IsNotSeenOnTheGutterNorOutsideTheWindow) {
    SourceWindow window(std::wstring(300, L'x') + Lines(100));
    window.Send(WM_SETFOCUS);

    Wheel(window, WM_MOUSEHWHEEL, 120);
    EXPECT_LT(CaretPlace().x, 0);
    Wheel(window, WM_MOUSEHWHEEL, -120);
    EXPECT_GT(CaretPlace().x, 0);
    Wheel(window, WM_MOUSEWHEEL, -120);
    EXPECT_LT(CaretPlace().y, 0);
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
