// The Source tab's pane: for now an empty area in the source view's background.
#pragma once

#include <windows.h>

#include "host/config/themes.h"

namespace rl {

class SourceView {
public:
    /// Registers and takes back the window class; viewers must be gone by then.
    static bool RegisterWindowClass() noexcept;
    static void UnregisterWindowClass() noexcept;

    SourceView() = default;
    SourceView(const SourceView&) = delete;
    SourceView& operator=(const SourceView&) = delete;

    /// False when the system refuses.
    [[nodiscard]] bool Create(HWND parent);
    [[nodiscard]] HWND Window() const { return window_; }

    void SetFont(HFONT font);
    void SetColors(const SourceColors& colors, bool dark);

private:
    static LRESULT CALLBACK WindowProc(HWND window, UINT id, WPARAM wparam, LPARAM lparam);
    void Paint() const;

    HWND window_ = nullptr;
    HFONT font_ = nullptr;
    SourceColors colors_;
};

}  // namespace rl
