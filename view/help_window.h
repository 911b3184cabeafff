// The keyboard help: a small window of its own over the viewer.
//
// Belongs to the viewer that opened it and goes with it.
#pragma once

#include <windows.h>

#include <string>

#include "host/config/themes.h"
#include "view/gdi_handles.h"
#include "view/subclass.h"

namespace rl {

class HelpWindow {
public:
    /// Registers and takes back the window class; help windows must be gone by then.
    static bool RegisterWindowClass() noexcept;
    static void UnregisterWindowClass() noexcept;

    HelpWindow() = default;
    HelpWindow(const HelpWindow&) = delete;
    HelpWindow& operator=(const HelpWindow&) = delete;
    ~HelpWindow() { Close(); }

    /// Opens the window centred over `viewer`, or brings it to the front. `face` is a fixed-pitch
    /// font: the text stands in columns.
    void Show(HWND viewer, const std::wstring& face, int dpi, const ThemeColors& colors);
    /// Harmless when the window is not open.
    void SetColors(const ThemeColors& colors);
    void Close() noexcept;

private:
    static LRESULT CALLBACK WindowProc(HWND window, UINT id, WPARAM wparam, LPARAM lparam);
    [[nodiscard]] bool Create(HWND viewer, int dpi);
    [[nodiscard]] SIZE FitText(int dpi) const;
    void FillWindow() const;
    [[nodiscard]] LRESULT OnTextColors(HDC dc) const;
    Answer OnTextMessage(const Message& in);
    void OnGone() noexcept;

    HWND window_ = nullptr;
    HWND text_ = nullptr;
    HWND focusBefore_ = nullptr;
    UniqueFont font_;
    UniqueBrush back_;
    ThemeColors colors_;
    Subclass subclass_;
};

}  // namespace rl
