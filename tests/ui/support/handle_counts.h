// How many system objects this process holds, so that a test can see what is never given back.
#pragma once

namespace rl::test {

struct HandleCounts {
    int gdi = 0;      // fonts, brushes, bitmaps, regions, device contexts
    int windows = 0;  // of this thread
    int menus = 0;

    bool operator==(const HandleCounts&) const = default;
};

/// Counts them now.
[[nodiscard]] HandleCounts CountHandles();

}  // namespace rl::test
