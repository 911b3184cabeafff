// What a window looks like on the screen, as pixels in memory.
#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

namespace rl::tools {

/// A picture, top row first; a pixel is 0x00RRGGBB.
struct Image {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;

    [[nodiscard]] bool IsEmpty() const { return pixels.empty(); }

    /// The colour as the system writes it (blue * 65536 + green * 256 + red); white outside.
    [[nodiscard]] COLORREF ColorAt(int x, int y) const;
};

/// Copies the window with its frame from the screen; it must be visible and not covered. Empty on
/// failure.
[[nodiscard]] Image CaptureWindow(HWND window);

}  // namespace rl::tools
