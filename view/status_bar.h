// The status bar on screen: five parts, their texts and widths.
#pragma once

#include <windows.h>

#include "host/config/themes.h"
#include "view/gdi_handles.h"
#include "view/logic/status_cells.h"
#include "view/subclass.h"

namespace rl {

/// The system's bar in our colours: there is no dark look of the system for it, and its light one
/// is at odds with every theme but one.
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
    Answer OnMessage(const Message& in) const;
    void FitFont(int dpi);
    void Paint() const;
    [[nodiscard]] Color LineColor() const;
    void PaintPart(HDC dc, int part) const;

    HWND window_ = nullptr;
    int fontDpi_ = 0;  // 0: the bar still has the font it came with
    UniqueFont font_;
    ThemeColors colors_;
    Subclass subclass_;
};

}  // namespace rl
