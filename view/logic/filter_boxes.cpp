#include "view/logic/filter_boxes.h"

#include <algorithm>
#include <utility>

namespace rl {
namespace {

constexpr int kHintPadding = 3;     // at 96 dpi, pixels, at both sides
constexpr int kHintStrength = 128;  // of 255, from the text's colour to the back's

}  // namespace

Rect FilterBoxRect(const Rect& row, int itemLeft, int itemRight) {
    const int width = std::max(0, row.width);
    const int left = std::clamp(itemLeft, 0, width);
    const int right = std::clamp(itemRight, 0, width);
    return {row.left + left, row.top, std::max(0, right - left), row.height};
}

FilterAlign FilterAlignFromSetting(int32_t setting) {
    if (setting == -1) {
        return FilterAlign::Left;
    }
    return setting == 1 ? FilterAlign::Right : FilterAlign::Center;
}

std::optional<Rect> PlanFilterHint(const Rect& box, const HintState& state) {
    const int padding = Scale(kHintPadding, state.dpi);
    const Rect room{box.left + padding, box.top, box.width - 2 * padding, box.height};
    const bool fits = state.textWidth > 0 && state.textWidth <= room.width;
    return state.isEmpty && !state.hasFocus && fits ? std::optional(room) : std::nullopt;
}

Color FilterHintColor(const ThemeColors& theme) {
    return MixColors(theme.filterText, theme.filterBack, kHintStrength);
}

FilterChange FilterDelay::OnChange(int32_t box, int64_t rowCount) {
    const int32_t waiting = std::exchange(pending_, -1);
    FilterChange change;
    change.applyFirst = waiting == box ? -1 : waiting;
    if (rowCount >= kFilterDelayRows) {
        pending_ = box;
        change.startTimer = true;
    } else {
        change.applyNow = true;
    }
    return change;
}

int32_t FilterDelay::TakePending() {
    return std::exchange(pending_, -1);
}

}  // namespace rl
