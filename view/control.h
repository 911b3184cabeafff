// Making child controls, and the few things done to all of them alike.
#pragma once

#include <windows.h>

#include <string>

namespace rl {

// Identifiers of the viewer's child windows; the grid's stands in grid.h.
inline constexpr int kStatusBarId = 1002;
inline constexpr int kPlaceholderId = 1003;
inline constexpr int kTreePaneId = 1004;
inline constexpr int kTabStripId = 1005;
inline constexpr int kSourceViewId = 1006;
inline constexpr int kValuePaneId = 1007;

/// The module this code is linked into: what our window classes belong to.
[[nodiscard]] HINSTANCE OwnInstance() noexcept;

/// Makes a child of `parent`, of no size yet; null when the system refuses. Its window owns it:
/// it goes with its parent.
[[nodiscard]] HWND CreateControl(HWND parent, const wchar_t* className, const wchar_t* text,
                                 DWORD style, int id, DWORD extendedStyle = 0) noexcept;

/// The font is borrowed and must outlive its use. Does nothing without a window.
void SetControlFont(HWND control, HFONT font) noexcept;

/// Gives scroll bars and frames the system's light or dark look.
void SetControlDark(HWND control, bool dark) noexcept;

/// The text of a window, as long as it is.
[[nodiscard]] std::wstring WindowText(HWND window);

/// Whether a key is held down at the moment the message at hand was made.
[[nodiscard]] inline bool IsKeyDown(int key) noexcept {
    return GetKeyState(key) < 0;
}

/// No painting while it lives; everything is painted once at its end.
class RedrawScope {
public:
    explicit RedrawScope(HWND window) noexcept;
    RedrawScope(const RedrawScope&) = delete;
    RedrawScope& operator=(const RedrawScope&) = delete;
    ~RedrawScope();

private:
    HWND window_;  // null when the window was hidden anyway
};

}  // namespace rl
