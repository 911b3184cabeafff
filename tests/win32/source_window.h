// A source view on a real window: what the tests of the control stand on.
#pragma once

#include <windows.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "view/fonts.h"
#include "view/paint_scope.h"
#include "view/source_view.h"

namespace rl::test {

inline constexpr SourceSyntax kJson{.mode = SourceMode::Json};
inline constexpr SourceSyntax kCsv{.mode = SourceMode::Delimited};

inline constexpr SourceColors kColors{.text = RGB(1, 2, 3),
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

inline std::wstring Lines(int count) {
    std::wstring text;
    for (int line = 0; line < count; ++line) {
        text += (line > 0 ? L"\n" : L"") + std::to_wstring(line);
    }
    return text;
}

inline void SetClipboard(const std::wstring& text) {
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t));
    auto* units = static_cast<wchar_t*>(GlobalLock(memory));
    std::copy(text.c_str(), text.c_str() + text.size() + 1, units);
    GlobalUnlock(memory);
    OpenClipboard(nullptr);
    EmptyClipboard();
    SetClipboardData(CF_UNICODETEXT, memory);
    CloseClipboard();
}

inline std::wstring Clipboard() {
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

inline LRESULT Wheel(SourceWindow& window, UINT id, int delta, WORD keys = 0) {
    return window.Send(id, MAKEWPARAM(keys, static_cast<WORD>(delta)), MAKELPARAM(100, 100));
}

}  // namespace rl::test
