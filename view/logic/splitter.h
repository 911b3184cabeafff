// The band above the value pane: what dragging it means for the pane's height.
//
// Knows nothing of the mouse capture or of windows; the viewer lays out after each answer.
#pragma once

namespace rl {

inline constexpr int kSmallestPaneHeight = 16;  // at 96 dpi; released below it, the pane goes off

/// The height to store while the mouse stands at `mouseY`; both in client pixels. Never below 0.
[[nodiscard]] int PaneHeightWhileDragging(int paneBottom, int mouseY);

struct PaneRelease {
    bool switchOff = false;  // take the pane off the screen and store `value-pane` as 0
    int paneHeight = 0;      // to remember from now on; 0 when switched off

    bool operator==(const PaneRelease&) const = default;
};

/// What letting go of the splitter means for a pane dragged to `paneHeight` pixels.
[[nodiscard]] PaneRelease ReleaseSplitter(int paneHeight, int dpi);

}  // namespace rl
