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

    /// How many pixels of the area have the colour.
    [[nodiscard]] int Count(const RECT& area, COLORREF color) const;

    /// The area as a picture of its own; what lies outside this one is white.
    [[nodiscard]] Image Part(const RECT& area) const;
};

/// Copies the window with its frame from the screen; it must be visible and not covered. Empty on
/// failure.
[[nodiscard]] Image CaptureWindow(HWND window);

}  // namespace rl::tools
