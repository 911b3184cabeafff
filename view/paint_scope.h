// What painting borrows for the length of a block: device contexts, selected objects, clipping.
//
// Together with the few strokes every painter needs. Nothing here is created and kept.
#pragma once

#include <windows.h>

#include <string_view>

#include "view/logic/geometry.h"

namespace rl {

[[nodiscard]] inline RECT ToRECT(const Rect& rect) noexcept {
    return {rect.left, rect.top, rect.Right(), rect.Bottom()};
}

[[nodiscard]] inline Rect FromRECT(const RECT& rect) noexcept {
    return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
}

/// The client area of a window, its corner at 0, 0.
[[nodiscard]] inline Rect ClientRect(HWND window) noexcept {
    RECT client{};
    GetClientRect(window, &client);
    return FromRECT(client);
}

/// WM_PAINT from BeginPaint to EndPaint.
class PaintScope {
public:
    explicit PaintScope(HWND window) noexcept : window_(window), dc_(BeginPaint(window, &paint_)) {}
    PaintScope(const PaintScope&) = delete;
    PaintScope& operator=(const PaintScope&) = delete;
    ~PaintScope() { EndPaint(window_, &paint_); }

    [[nodiscard]] HDC Dc() const noexcept { return dc_; }
    [[nodiscard]] const RECT& Dirty() const noexcept { return paint_.rcPaint; }

private:
    HWND window_;
    PAINTSTRUCT paint_{};
    HDC dc_;
};

enum class DcArea { Client, Window };

/// The device context of a window's client area or of all of it, for measuring or for drawing at
/// once.
class WindowDc {
public:
    explicit WindowDc(HWND window, DcArea area = DcArea::Client) noexcept
        : window_(window), dc_(area == DcArea::Client ? GetDC(window) : GetWindowDC(window)) {}
    WindowDc(const WindowDc&) = delete;
    WindowDc& operator=(const WindowDc&) = delete;
    ~WindowDc() {
        if (dc_ != nullptr) {
            ReleaseDC(window_, dc_);
        }
    }

    [[nodiscard]] HDC Get() const noexcept { return dc_; }

private:
    HWND window_;
    HDC dc_;
};

/// Selects a GDI object into a device context and puts the previous one back.
class SelectScope {
public:
    SelectScope(HDC dc, HGDIOBJ object) noexcept : dc_(dc), previous_(SelectObject(dc, object)) {}
    SelectScope(const SelectScope&) = delete;
    SelectScope& operator=(const SelectScope&) = delete;
    ~SelectScope() { SelectObject(dc_, previous_); }

private:
    HDC dc_;
    HGDIOBJ previous_;
};

/// Keeps drawing inside a rectangle; clipping, colours and objects are as before afterwards.
class ClipScope {
public:
    ClipScope(HDC dc, const Rect& rect) noexcept : dc_(dc), saved_(SaveDC(dc)) {
        IntersectClipRect(dc, rect.left, rect.top, rect.Right(), rect.Bottom());
    }
    ClipScope(const ClipScope&) = delete;
    ClipScope& operator=(const ClipScope&) = delete;
    ~ClipScope() { RestoreDC(dc_, saved_); }

private:
    HDC dc_;
    int saved_;
};

/// Fills without making a brush.
inline void FillSolid(HDC dc, const Rect& rect, COLORREF color) noexcept {
    const RECT area = ToRECT(rect);
    const COLORREF previous = SetBkColor(dc, color);
    ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &area, nullptr, 0, nullptr);
    SetBkColor(dc, previous);
}

/// Draws text into a rectangle. Beyond some thousand units nothing can be seen on one line, and
/// the system's measuring is slow: the rest is left out.
inline void DrawIn(HDC dc, const Rect& rect, std::wstring_view text, UINT format) noexcept {
    constexpr size_t kMostDrawn = 4096;
    RECT area = ToRECT(rect);
    const std::wstring_view drawn = text.substr(0, kMostDrawn);
    DrawTextW(dc, drawn.data(), static_cast<int>(drawn.size()), &area, format);
}

}  // namespace rl
