// The status bar on screen: five parts, their texts and widths.
#pragma once

#include <windows.h>

#include <array>
#include <string>

#include "host/config/themes.h"

namespace rl {

inline constexpr size_t kStatusPartCount = 5;
using StatusTexts = std::array<std::wstring, kStatusPartCount>;

class StatusBar {
public:
    /// False when the system refuses.
    [[nodiscard]] bool Create(HWND parent);
    [[nodiscard]] HWND Window() const { return window_; }

    /// Widths of the parts at this dpi, then all texts, part 0 first.
    void Update(const StatusTexts& texts, int dpi);
    void SetColors(const ThemeColors& colors);

    /// Lets the bar find its place at the bottom of its parent; its height in pixels.
    int FitToParent();

private:
    HWND window_ = nullptr;
};

}  // namespace rl
