#include "view/logic/splitter.h"

#include <algorithm>
#include <cstdint>

#include "view/logic/geometry.h"

namespace rl {

int PaneHeightWhileDragging(int paneBottom, int mouseY) {
    const int64_t height = int64_t{paneBottom} - mouseY;
    return static_cast<int>(std::clamp<int64_t>(height, 0, INT32_MAX));
}

PaneRelease ReleaseSplitter(int paneHeight, int dpi) {
    if (paneHeight < Scale(kSmallestPaneHeight, dpi)) {
        return {.switchOff = true, .paneHeight = 0};
    }
    return {.switchOff = false, .paneHeight = paneHeight};
}

}  // namespace rl
